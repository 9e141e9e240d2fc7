#include "exchange/ImportNames.h"

#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"
#include "store/Connection.h"
#include "store/Recordset.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvanta {
namespace {

constexpr std::size_t kLongestName = 255;
constexpr std::size_t kLongestNumber = 50;
constexpr const char* kTransferMark = "Account:";

std::string Key(std::string_view name) {
  return ToLower(Trim(name));
}
// No name holds a line end, so that the two cannot run into each other.
std::string CategoryKey(std::string_view category, std::string_view subCategory) {
  return Key(category) + "\n" + Key(subCategory);
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
    : ledger_(ledger), locale_(locale) {
  ReadAccounts();
  ReadPayees();
  ReadCategories();
}

void ImportNames::ReadAccounts() {
  Recordset rows = ledger_.Store().OpenRecordset(
      "Select AccountID, [Account], AccountNo, CurrencyId, CloseAccount from tblAccounts "
      "Order by AccountID");
  for (; !rows.Eof(); rows.MoveNext()) {
    AddTarget({rows.Int(0), rows.Int(3), std::string(rows.Text(1)), rows.Int(4) != 0},
              std::string(rows.Text(2)));
  }
}

// Of names that were given twice the first row counts, as in a search.
void ImportNames::ReadPayees() {
  Recordset rows = ledger_.Store().OpenRecordset(
      "Select PayeeID, Payee, Investment from tblPayees Order by PayeeID");
  for (; !rows.Eof(); rows.MoveNext()) {
    (rows.Int(2) == 0 ? payees_ : investments_).try_emplace(Key(rows.Text(1)), rows.Int(0));
  }
}

void ImportNames::ReadCategories() {
  Recordset rows = ledger_.Store().OpenRecordset(
      "Select CategoryID, Category, SubCategory from tblCategory Order by CategoryID");
  for (; !rows.Eof(); rows.MoveNext()) {
    categories_.try_emplace(CategoryKey(rows.Text(1), rows.Text(2)), rows.Int(0));
  }
}

const ImportTarget* ImportNames::AddTarget(ImportTarget target, const std::string& number) {
  accountNames_.try_emplace(Key(target.name), target.accountId);
  if (!Trim(number).empty()) accountNumbers_.try_emplace(Key(number), target.accountId);
  return &accounts_.insert_or_assign(target.accountId, std::move(target)).first->second;
}

const ImportTarget* ImportNames::Account(std::int64_t accountId) const {
  const auto found = accounts_.find(accountId);
  return found == accounts_.end() ? nullptr : &found->second;
}

const ImportTarget* ImportNames::FindAccount(const ImportAccount& account) const {
  const bool byNumber = !account.number.empty();
  const Keys& keys = byNumber ? accountNumbers_ : accountNames_;
  const auto found = keys.find(Key(byNumber ? account.number : account.name));
  return found == keys.end() ? nullptr : Account(found->second);
}

const ImportTarget* ImportNames::FindOrCreateAccount(const ImportAccount& account) {
  if (const ImportTarget* found = FindAccount(account)) return found;
  AccountRecord record;
  record.account = Fit(account.name.empty() ? account.number : account.name, kLongestName);
  record.accountNo = Fit(account.number, kLongestNumber);
  const auto named = accountNames_.find(Key(record.account));
  if (named != accountNames_.end()) return Account(named->second);
  record.accountTypeId = GroupFor(account.group);
  record.currencyId = CurrencyFor(account.currency);
  hasMade_ = true;
  const std::int64_t key = ledger_.FindOrCreateAccount(record);
  return AddTarget({key, record.currencyId, record.account, false}, record.accountNo);
}

std::int64_t ImportNames::GroupFor(const std::string& group) {
  const auto* const known =
      std::ranges::find_if(kGroups, [&](const auto& entry) { return entry.first == group; });
  const std::string name = known == kGroups.end() ? "Bank Accounts" : known->second;
  const std::vector<AccountGroupRecord> groups = ledger_.AccountGroups();
  for (const AccountGroupRecord& candidate : groups) {
    if (EqualFolded(candidate.accountType, name)) return candidate.accountTypeId;
  }
  return groups.empty() ? ledger_.FindOrCreateAccountGroup(name) : groups.front().accountTypeId;
}

std::int64_t ImportNames::CurrencyFor(const std::string& code) const {
  const std::vector<CurrencyRecord> currencies = ledger_.Currencies();
  for (const std::string& wanted : {code, locale_.CurrencyCode()}) {
    for (const CurrencyRecord& currency : currencies) {
      if (!wanted.empty() && EqualFolded(currency.currency, wanted)) return currency.currencyId;
    }
  }
  return currencies.empty() ? 0 : currencies.front().currencyId;
}

std::int64_t ImportNames::Payee(std::string_view name) {
  const std::string text = Fit(name, kLongestName);
  const auto [entry, isNew] = payees_.try_emplace(Key(text), 0);
  if (!isNew) return entry->second;
  PayeeRecord record;
  record.payee = text;
  hasMade_ = true;
  // All names are known here, so the search of FindOrCreatePayee would only repeat itself.
  return entry->second = ledger_.SavePayee(record);
}

std::int64_t ImportNames::Category(const ImportCategory& category, double amount) {
  std::string main = category.category;
  std::string sub = category.subCategory;
  if (!category.account.empty()) {
    main = kTransferMark + category.account;
    sub.clear();
  }
  if (main.empty()) {
    main = amount < 0 ? "Debit" : "Credit";
    sub.clear();
  }
  main = Fit(main, kLongestName);
  sub = Fit(sub, kLongestName);
  const auto [entry, isNew] = categories_.try_emplace(CategoryKey(main, sub), 0);
  if (!isNew) return entry->second;
  hasMade_ = true;
  const int type = amount < 0 ? -1 : 1;
  entry->second = ledger_.FindOrCreateCategory(main, sub, type);
  return entry->second;
}

std::int64_t ImportNames::Payment() {
  if (payment_ == 0) payment_ = ledger_.FindOrCreatePayment("Import");
  return payment_;
}

std::int64_t ImportNames::Investment(const std::string& name, std::int64_t currencyId) {
  const std::string text = Fit(name, kLongestName);
  const auto [entry, isNew] = investments_.try_emplace(Key(text), 0);
  if (!isNew) return entry->second;
  const auto symbol = symbols_.find(Key(text));
  hasMade_ = true;
  return entry->second = ledger_.FindOrCreateInvestment(
             text, symbol == symbols_.end() ? std::string() : symbol->second, currencyId);
}

void ImportNames::SetSymbol(const std::string& name, const std::string& symbol) {
  symbols_.insert_or_assign(Key(name), Fit(symbol, kLongestNumber));
}

std::string ImportNames::Fit(std::string_view wrapped, std::size_t length) {
  // What is wrapped over lines in a file is one line in the ledger.
  const std::string line = OnOneLine(Trim(wrapped));
  const std::string_view text = line;
  if (text.size() <= length || TextLength(text) <= length) return line;
  ++shortened_;
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && count++ == length) break;
  }
  return std::string(Trim(text.substr(0, end)));
}

}  // namespace corvanta
