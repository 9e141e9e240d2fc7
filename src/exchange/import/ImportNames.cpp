#include "exchange/import/ImportNames.h"

#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ReservedNames.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestNumber = 50;

// No name holds a line end, so that the two cannot run into each other.
std::string CategoryKey(std::string_view category, std::string_view subCategory) {
  return NameKey(category) + "\n" + NameKey(subCategory);
}

std::string OnOneLine(std::string_view text) {
  if (text.find_first_of("\r\n\t") == std::string_view::npos) return std::string(text);
  std::string line;
  for (const char c : text) {
    const bool isBreak = c == '\r' || c == '\n' || c == '\t';
    if (!isBreak) {
      line += c;
    } else if (!line.ends_with(' ')) {
      line += ' ';
    }
  }
  return line;
}

// The first characters, never half of one.
std::string_view FirstCharacters(std::string_view text, std::size_t length) {
  if (text.size() <= length || TextLength(text) <= length) return text;
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && count++ == length) break;
  }
  return Trim(text.substr(0, end));
}

// Account groups that a new file has, by the account types of QIF.
constexpr std::array<std::pair<std::string_view, const char*>, 10> kGroups = {
    {{"bank", "Bank Accounts"},
     {"cash", "Cash Accounts"},
     {"ccard", "Credit Accounts"},
     {"cc", "Credit Accounts"},
     {"oth l", "Loan Accounts"},
     {"invst", "Investment Accounts"},
     {"port", "Investment Accounts"},
     {"mutual", "Investment Accounts"},
     {"401(k)/403(b)", "Investment Accounts"},
     {"oth a", "Bank Accounts"}}};

}  // namespace

ImportNames::ImportNames(clsCorvanta& ledger, const Locale& locale)
    : ledger_(ledger), locale_(locale), accounts_(ledger.Store()) {
  ReadPayees();
  ReadCategories();
}

// Of names that were given twice the first row counts, as in a search.
void ImportNames::ReadPayees() {
  Recordset rows = ledger_.Store().OpenRecordset(
      "Select PayeeID, Payee, Investment from tblPayees Order by PayeeID");
  for (; !rows.Eof(); rows.MoveNext()) {
    (rows.Int(2) == 0 ? payees_ : investments_).try_emplace(NameKey(rows.Text(1)), rows.Int(0));
  }
}

void ImportNames::ReadCategories() {
  Recordset rows = ledger_.Store().OpenRecordset(
      "Select CategoryID, Category, SubCategory, [Type] from tblCategory Order by CategoryID");
  for (; !rows.Eof(); rows.MoveNext()) {
    categories_.try_emplace(
        CategoryKey(rows.Text(1), rows.Text(2)),
        KnownCategory{rows.Int(0), std::string(rows.Text(1)), static_cast<int>(rows.Int(3))});
  }
}

const ImportTarget* ImportNames::FindAccount(const ImportAccount& account) const {
  if (account.name.size() <= kLongestName) return accounts_.Find(account);
  ImportAccount shortened = account;
  shortened.name = CutName(account.name);
  return accounts_.Find(shortened);
}

const ImportTarget* ImportNames::FindOrCreateAccount(const ImportAccount& account) {
  if (const ImportTarget* found = FindAccount(account)) return found;
  AccountRecord record;
  record.account = Fit(CutName(account.name.empty() ? account.number : account.name), kLongestName);
  record.accountNo = Fit(account.number, kLongestNumber);
  record.accountTypeId = GroupFor(account.group);
  const CurrencyRecord& currency = CurrencyFor(account.currency);
  record.currencyId = currency.currencyId;
  // All names are known here, so a search of the ledger would only repeat the one above.
  const std::int64_t key = ledger_.Accounts().SaveAccount(record);
  return accounts_.Add({key, currency.currencyId, currency.currency, record.account, false, true},
                       record.accountNo);
}

void ImportNames::SetNumber(std::int64_t accountId, const std::string& number) {
  std::optional<AccountRecord> record = ledger_.Accounts().ReadAccount(accountId);
  if (!record || !Trim(record->accountNo).empty()) return;
  record->accountNo = Fit(number, kLongestNumber);
  ledger_.Accounts().SaveAccount(*record);
  accounts_.AddNumber(accountId, number);
}

std::int64_t ImportNames::GroupFor(const std::string& group) {
  const auto [entry, isNew] = groups_.try_emplace(group, 0);
  if (!isNew) return entry->second;
  const auto* const known =
      std::ranges::find_if(kGroups, [&](const auto& named) { return named.first == group; });
  const std::string name = known == kGroups.end() ? "Bank Accounts" : known->second;
  const std::vector<AccountGroupRecord> groups = ledger_.References().AccountGroups();
  for (const AccountGroupRecord& candidate : groups) {
    if (EqualFolded(candidate.accountType, name)) return entry->second = candidate.accountTypeId;
  }
  return entry->second = groups.empty() ? ledger_.References().FindOrCreateAccountGroup(name)
                                        : groups.front().accountTypeId;
}

const CurrencyRecord& ImportNames::CurrencyFor(const std::string& code) {
  const auto [entry, isNew] = currencies_.try_emplace(code);
  if (!isNew) return entry->second;
  const std::vector<CurrencyRecord> currencies = ledger_.References().Currencies();
  for (const std::string& wanted : {code, locale_.CurrencyCode()}) {
    for (const CurrencyRecord& currency : currencies) {
      if (wanted.empty() || !EqualFolded(currency.currency, wanted)) continue;
      return entry->second = currency;
    }
  }
  if (!currencies.empty()) entry->second = currencies.front();
  return entry->second;
}

std::int64_t ImportNames::Payee(std::string_view name) {
  const std::string text = Fit(name, kLongestName);
  const auto [entry, isNew] = payees_.try_emplace(NameKey(text), 0);
  if (!isNew) return entry->second;
  PayeeRecord record;
  record.payee = text;
  // All names are known here, so the search of FindOrCreatePayee would only repeat itself.
  return entry->second = ledger_.References().SavePayee(record);
}

std::int64_t ImportNames::Category(const ImportCategory& category, double amount) {
  std::string main = category.category;
  std::string sub = category.subCategory;
  if (!category.account.empty()) {
    main = std::string(kTransferMark) + category.account;
    sub.clear();
  }
  if (main.empty()) {
    main = amount < 0 ? "Debit" : "Credit";
    sub.clear();
  }
  return FindOrMakeCategory(Fit(main, kLongestName), Fit(sub, kLongestName), amount < 0 ? -1 : 1)
      .categoryId;
}

// A sub-category is spelled and counted as its main category is, which is made along with it.
const ImportNames::KnownCategory& ImportNames::FindOrMakeCategory(const std::string& category,
                                                                  const std::string& subCategory,
                                                                  int type) {
  const std::string key = CategoryKey(category, subCategory);
  const auto known = categories_.find(key);
  if (known != categories_.end()) return known->second;
  CategoryRecord record;
  record.category = category;
  record.subCategory = subCategory;
  record.type = type;
  if (!subCategory.empty()) {
    const KnownCategory& main = FindOrMakeCategory(category, {}, type);
    record.category = main.category;
    record.type = main.type;
  }
  ledger_.Categories().SaveCategory(record);
  return categories_
      .insert_or_assign(key, KnownCategory{record.categoryId, record.category, record.type})
      .first->second;
}

std::int64_t ImportNames::FindCategoryOf(double amount) const {
  const auto known = categories_.find(CategoryKey(amount < 0 ? "Debit" : "Credit", {}));
  return known == categories_.end() ? 0 : known->second.categoryId;
}

std::int64_t ImportNames::Payment() {
  if (payment_ == 0) payment_ = ledger_.References().FindOrCreatePayment("Import");
  return payment_;
}

std::int64_t ImportNames::Investment(const std::string& name, std::int64_t currencyId) {
  const std::string text = Fit(name, kLongestName);
  const auto [entry, isNew] = investments_.try_emplace(NameKey(text), 0);
  if (!isNew) return entry->second;
  const auto symbol = symbols_.find(NameKey(text));
  return entry->second = ledger_.Investments().FindOrCreateInvestment(
             text, symbol == symbols_.end() ? std::string() : symbol->second, currencyId);
}

std::int64_t ImportNames::FindInvestment(const std::string& name) const {
  const auto known = investments_.find(NameKey(FirstCharacters(Trim(name), kLongestName)));
  return known == investments_.end() ? 0 : known->second;
}

void ImportNames::SetSymbol(const std::string& name, const std::string& symbol) {
  symbols_.insert_or_assign(NameKey(name), Fit(symbol, kLongestNumber));
}

std::string ImportNames::Fit(std::string_view wrapped, std::size_t length) {
  // What is wrapped over lines in a file is one line in the ledger.
  const std::string line = OnOneLine(Trim(wrapped));
  const std::string_view fitting = FirstCharacters(line, length);
  if (fitting.size() < line.size()) ++shortened_;
  return std::string(fitting);
}

}  // namespace corvanta::inline exchange
