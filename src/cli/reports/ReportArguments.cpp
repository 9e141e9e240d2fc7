#include "cli/reports/ReportArguments.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/AccountArgument.h"
#include "cli/arguments/CloseNames.h"
#include "cli/arguments/CurrencyArgument.h"
#include "cli/arguments/InvestmentArgument.h"
#include "cli/arguments/NamedItem.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/register/FilterChoice.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/custom/ReportColumns.h"
#include "reports/query/ReportCatalogue.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace corvanta::inline cli {
namespace {

Argument* AddSeveral(Parser& command, const std::string& name, std::vector<std::string>& values,
                     const std::string& text) {
  return command.AddOption(name, values, text + "; may be given several times")
      ->TypeName("NAME")
      ->Repeated();
}

std::vector<std::string> ActionNames() {
  std::vector<std::string> names;
  for (const InvestActionName& each : kInvestActions) names.emplace_back(each.name);
  return names;
}

// A category's name alone stands for all that is below it.
bool AddItem(const FilterChoice& choice, const std::string& typed, const std::string& title,
             std::vector<std::int64_t>& keys, Session& session) {
  std::vector<NamedItem> items;
  for (const FilterChoice::Group& group : choice.Groups()) {
    const bool isWhole = group.IsDivided() && EqualFolded(group.name, Trim(typed));
    for (const FilterChoice::Item& item : group.items) {
      if (isWhole) keys.push_back(item.key);
      items.push_back({item.key, item.title});
    }
    if (isWhole) return true;
  }
  const auto item = FindItem(items, typed, title, ToLower(title), session);
  if (item) keys.push_back(item->key);
  return item.has_value();
}

bool SetItems(ReportRequest& request, FilterKind kind, const std::vector<std::string>& names,
              const std::string& title, clsCorvanta& ledger, Session& session) {
  if (names.empty()) return true;
  const FilterChoice choice(ledger.Store(), kind, {});
  std::vector<std::int64_t> keys;
  for (const std::string& name : names) {
    if (!AddItem(choice, name, title, keys, session)) return false;
  }
  request.filter.SetKeys(kind, keys);
  return true;
}

// Finds every name; false, told, at the first that is none.
template <typename Find>
bool SetFound(ReportRequest& request, FilterKind kind, const std::vector<std::string>& names,
              const Find& find) {
  if (names.empty()) return true;
  std::vector<std::int64_t> keys;
  for (const std::string& name : names) {
    const std::optional<std::int64_t> key = find(name);
    if (!key) return false;
    keys.push_back(*key);
  }
  request.filter.SetKeys(kind, keys);
  return true;
}

}  // namespace

void ReportArguments::DeclareReport(Parser& command, bool isRequired) {
  command.AddOption("report", report_, "Its name or number (report list)")->Required(isRequired);
}

void ReportArguments::DeclareFilters(Parser& command) {
  DeclareNames(command);
  DeclareDays(command);
  status_.Declare(command);
  command.AddFlag("--closed", closed_, "Also closed accounts");
  command.AddFlag("--no-transfers", withoutTransfers_, "Without transfers");
  command.AddFlag("--fold", fold_, "A category with its sub-categories as one");
  command.AddOption("--currency", currency_, "The report currency (default: the locale's)")
      ->TypeName("CODE");
  command.AddFlag("--convert", converts_, "Convert all amounts into the report currency");
  Argument* carry = command.AddFlag("--carry", carries_,
                                    "In the budget of a month carry over what was left before it");
  command.AddFlag("--no-carry", carriesNot_, "Carry nothing over (default: as CarryBudget is set)")
      ->Excludes(carry);
  command.AddFlag("--all-categories", allCategories_,
                  "In the budget of a month also categories with neither plan nor amount");
  whatIf_.Declare(command);
}

void ReportArguments::DeclareColumns(Parser& command) {
  AddSeveral(command, "--columns", columns_, "Only those columns, separated by commas")
      ->TypeName("HEADER,...")
      ->Delimiter(',');
}

void ReportArguments::DeclareNames(Parser& command) {
  AddSeveral(command, "--account", accounts_, "Only that account");
  AddSeveral(command, "--category", categories_,
             "Only that category; its name alone takes all that is below it");
  AddSeveral(command, "--payee", payees_, "Only that payee");
  AddSeveral(command, "--investment", investments_, "Only that investment");
  AddSeveral(command, "--action", actions_, "Only that investment action")
      ->Correct(OneOf(ActionNames()));
  AddSeveral(command, "--keyword", keywords_, "Only what has that keyword");
  AddSeveral(command, "--payment-type", paymentTypes_, "Only that payment type");
  command.AddOption("--text", text_, "Only what has that text");
  command.AddFlag("--text-only", textOnly_,
                  "Look for the text in amount, description and reference alone");
}

bool ReportArguments::FillReport(ReportRequest& request, Session& session) const {
  if (const ReportInfo* info = FindReport(report_)) {
    request.report = info->number;
    return true;
  }
  std::vector<std::string> names;
  for (const ReportInfo& each : ReportCatalogue()) names.emplace_back(each.name);
  session.Tell("Report",
               "There is no report \"" + report_ + "\"." + DidYouMean(CloseNames(report_, names)));
  return false;
}

bool ReportArguments::Apply(ReportRequest& request, clsCorvanta& ledger, Session& session) const {
  if (!CheckReport(request.report, session) || !ApplyCurrency(request, ledger, session) ||
      !ApplyNames(request, ledger, session)) {
    return false;
  }
  const bool isTyped = !Trim(text_).empty();
  const std::string text = isTyped ? text_ : request.filter.Search().text;
  if (isTyped || (textOnly_ && !text.empty())) {
    request.filter.SetSearch(ReadSearchText(text, textOnly_, session.Machine().locale));
  }
  if (!ApplyDays(request, ledger, session) || !CheckForecast(request, session)) return false;
  ApplySwitches(request, session);
  return whatIf_.Apply(request, ledger, session);
}

bool ReportArguments::ApplyNames(ReportRequest& request, clsCorvanta& ledger,
                                 Session& session) const {
  const auto account = [&](const std::string& name) -> std::optional<std::int64_t> {
    const auto row = AccountArgument{name}.Find(ledger, session);
    return row ? std::optional(row->accountId) : std::nullopt;
  };
  const auto investment = [&](const std::string& name) -> std::optional<std::int64_t> {
    const auto item = InvestmentArgument{name}.Find(ledger, session);
    return item ? std::optional(item->key) : std::nullopt;
  };
  if (!actions_.empty()) request.actions = actions_;
  return SetFound(request, FilterKind::Account, accounts_, account) &&
         SetFound(request, FilterKind::Investment, investments_, investment) &&
         SetItems(request, FilterKind::Category, categories_, "Category", ledger, session) &&
         SetItems(request, FilterKind::Payee, payees_, "Payee", ledger, session) &&
         SetItems(request, FilterKind::Keyword, keywords_, "Keyword", ledger, session) &&
         ApplyPaymentTypes(request, ledger, session);
}

bool ReportArguments::ApplyPaymentTypes(ReportRequest& request, clsCorvanta& ledger,
                                        Session& session) const {
  if (paymentTypes_.empty()) return true;
  std::vector<NamedItem> types;
  for (const PaymentRecord& row : ledger.References().Payments()) {
    types.push_back({row.paymentId, row.payment});
  }
  request.paymentTypes.clear();
  for (const std::string& name : paymentTypes_) {
    const auto type = FindItem(types, name, "Payment Type", "payment type", session);
    if (!type) return false;
    request.paymentTypes.push_back(type->key);
  }
  return true;
}

bool ReportArguments::ApplyCurrency(ReportRequest& request, clsCorvanta& ledger,
                                    Session& session) const {
  std::int64_t currencyId = 0;
  if (!currency_.empty() && !FindCurrency(ledger, currency_, currencyId, session)) return false;
  if (!currency_.empty()) request.currency = ToUpper(currency_);
  if (request.currency.empty()) request.currency = session.Machine().locale.CurrencyCode();
  request.converts = request.converts || converts_;
  return true;
}

void ReportArguments::ApplySwitches(ReportRequest& request, Session& session) const {
  if (!status_.letters.empty()) request.status = status_.Get();
  request.withClosedAccounts = request.withClosedAccounts || closed_;
  request.withoutTransfers = request.withoutTransfers || withoutTransfers_;
  request.foldsSubCategories = request.foldsSubCategories || fold_;
  request.withAllCategories = request.withAllCategories || allCategories_;
  request.carriesOver = carries_ || (!carriesNot_ && CarriesBudgetOver(session.Machine().registry));
}

bool ReportArguments::FillColumns(int report, std::vector<std::string>& columns,
                                  Session& session) const {
  if (columns_.empty()) return true;
  columns.clear();
  const std::vector<std::string> headers = SplitItems(FindReport(report)->headers);
  for (const std::string& typed : columns_) {
    const auto same = std::ranges::find_if(
        headers, [&](const std::string& header) { return EqualFolded(header, Trim(typed)); });
    if (same == headers.end()) {
      session.Tell("Report", "There is no column \"" + typed + "\" in that report." +
                                 DidYouMean(CloseNames(typed, headers)));
      return false;
    }
    columns.push_back(*same);
  }
  return true;
}

}  // namespace corvanta::inline cli
