#include "cli/ReportArguments.h"

#include "cli/AccountArgument.h"
#include "cli/CloseNames.h"
#include "cli/CurrencyArgument.h"
#include "cli/InvestmentArgument.h"
#include "cli/NamedItem.h"
#include "cli/Parser.h"
#include "cli/Session.h"
#include "ledger/FilterChoice.h"
#include "ledger/InvestmentRecord.h"
#include "ledger/ReferenceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"
#include "reports/query/ReportCatalogue.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <optional>

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
  std::vector<std::int64_t> keys;
  for (const std::string& name : names) {
    const std::optional<std::int64_t> key = find(name);
    if (!key) return false;
    keys.push_back(*key);
  }
  request.filter.SetKeys(kind, keys);
  return true;
}

// The three parts of "DATE:ACCOUNT:AMOUNT"; an account's name may have colons of its own.
struct WhatIfParts {
  std::string day;
  std::string account;
  std::string amount;
};

WhatIfParts PartsOf(const std::string& text) {
  const std::size_t first = text.find(':');
  const std::size_t last = text.rfind(':');
  if (first == last) return {};
  return {text.substr(0, first), text.substr(first + 1, last - first - 1), text.substr(last + 1)};
}

std::string WhatIfFault(const std::string& text) {
  const WhatIfParts parts = PartsOf(text);
  if (parts.account.empty()) return "'" + text + "' is not of the form DATE:ACCOUNT:AMOUNT";
  const std::string fault = DateFault(parts.day);
  return fault.empty() ? NumberFault(parts.amount) : fault;
}

std::optional<Date> DayOf(clsCorvanta& ledger, const char* which) {
  const Recordset row = ledger.Store().OpenRecordset(std::string("Select ") + which +
                                                     "([Date]) as Day from tblTransactions");
  return row.Eof() ? std::nullopt : row.Day("Day");
}

}  // namespace

void ReportArguments::Declare(Parser& command, bool isRequired) {
  command.AddOption("report", report_, "Its name or number (report list)")->Required(isRequired);
  DeclareFilters(command);
}

void ReportArguments::DeclareFilters(Parser& command) {
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
  command.AddOption("--from", period_.from, "First day (YYYY-MM-DD)")->Check(DateFault);
  command.AddOption("--to", period_.to, "Last day (YYYY-MM-DD)")->Check(DateFault);
  status_.Declare(command);
  command.AddFlag("--closed", closed_, "Also closed accounts");
  command.AddFlag("--no-transfers", withoutTransfers_, "Without transfers");
  command.AddFlag("--fold", fold_, "A category with its sub-categories as one");
  command.AddOption("--currency", currency_, "The report currency (default: the locale's)")
      ->TypeName("CODE");
  command.AddFlag("--convert", converts_, "Convert all amounts into the report currency");
  AddSeveral(command, "--what-if", whatIf_, "In a forecast also that payment, which is not stored")
      ->TypeName("DATE:ACCOUNT:AMOUNT")
      ->Check(WhatIfFault);
}

bool ReportArguments::Fill(ReportRequest& request, clsCorvanta& ledger, Session& session) const {
  const ReportInfo* info = FindReport(report_);
  if (info == nullptr) {
    std::vector<std::string> names;
    for (const ReportInfo& each : ReportCatalogue()) names.emplace_back(each.name);
    session.Tell("Report", "There is no report \"" + report_ + "\"." +
                               DidYouMean(CloseNames(report_, names)));
    return false;
  }
  request.report = info->number;
  std::int64_t currencyId = 0;
  if (!currency_.empty() && !FindCurrency(ledger, currency_, currencyId, session)) return false;
  if (!FillNames(request, ledger, session)) return false;
  const Locale& locale = session.Machine().locale;
  if (!Trim(text_).empty()) request.filter.SetSearch(ReadSearchText(text_, textOnly_, locale));
  FillDays(request, ledger);
  request.status = status_.Get();
  request.withClosedAccounts = closed_;
  request.withoutTransfers = withoutTransfers_;
  request.foldsSubCategories = fold_;
  request.currency = ToUpper(currency_.empty() ? locale.CurrencyCode() : currency_);
  request.converts = converts_;
  return FillWhatIf(request, ledger, session);
}

bool ReportArguments::FillNames(ReportRequest& request, clsCorvanta& ledger,
                                Session& session) const {
  const auto account = [&](const std::string& name) -> std::optional<std::int64_t> {
    const auto row = AccountArgument{name}.Find(ledger, session);
    return row ? std::optional(row->accountId) : std::nullopt;
  };
  const auto investment = [&](const std::string& name) -> std::optional<std::int64_t> {
    const auto item = InvestmentArgument{name}.Find(ledger, session);
    return item ? std::optional(item->key) : std::nullopt;
  };
  if (!SetFound(request, FilterKind::Account, accounts_, account)) return false;
  if (!SetFound(request, FilterKind::Investment, investments_, investment)) return false;
  if (!SetItems(request, FilterKind::Category, categories_, "Category", ledger, session) ||
      !SetItems(request, FilterKind::Payee, payees_, "Payee", ledger, session) ||
      !SetItems(request, FilterKind::Keyword, keywords_, "Keyword", ledger, session)) {
    return false;
  }
  request.actions = actions_;
  std::vector<NamedItem> types;
  for (const PaymentRecord& row : ledger.References().Payments()) {
    types.push_back({row.paymentId, row.payment});
  }
  for (const std::string& name : paymentTypes_) {
    const auto type = FindItem(types, name, "Payment Type", "payment type", session);
    if (!type) return false;
    request.paymentTypes.push_back(type->key);
  }
  return true;
}

bool ReportArguments::FillWhatIf(ReportRequest& request, clsCorvanta& ledger,
                                 Session& session) const {
  for (const std::string& each : whatIf_) {
    const WhatIfParts parts = PartsOf(each);
    const auto account = AccountArgument{parts.account}.Find(ledger, session);
    if (!account) return false;
    request.whatIf.push_back(
        {Date::FromIso(parts.day).value_or(Date()), account->accountId, NumberOf(parts.amount)});
  }
  return true;
}

// An end that was not given is that of the transactions: a budget is for as many days as the range
// has.
void ReportArguments::FillDays(ReportRequest& request, clsCorvanta& ledger) const {
  request.range = period_.Get();
  if (!request.range) return;
  if (period_.from.empty()) request.range->from = DayOf(ledger, "Min").value_or(request.range->to);
  if (period_.to.empty()) request.range->to = DayOf(ledger, "Max").value_or(request.range->from);
}

}  // namespace corvanta::inline cli
