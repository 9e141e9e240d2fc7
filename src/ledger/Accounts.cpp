#include "ledger/CategoryKeys.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <charconv>
#include <unordered_map>

namespace corvanta {
namespace {

constexpr const char* kAccounts =
    "Select A.AccountID, A.[Account], A.AccountNo, A.AccountTypeID, Y.AccountType, A.CurrencyId, "
    "U.[Currency], B.Bank, A.Description, A.OpeningBalance, A.CloseAccount "
    "from ((tblAccounts A LEFT JOIN tblAccountType Y ON A.AccountTypeID = Y.AccountTypeID) "
    "LEFT JOIN tblCurrency U ON A.CurrencyId = U.CurrencyID) "
    "LEFT JOIN tblBank B ON A.BankID = B.BankID "
    "Order by Y.AccountType, A.[Account], A.AccountID";

using SumsByAccount = std::unordered_map<std::int64_t, EntrySums>;

// Of all accounts at once: a statement per account would read the transactions as many times as
// there are accounts. Whole entries are asked for in a form that does not lead the engine to the
// index of split lines, where nearly every row is found: so it reads the sums in one pass. They are
// added here, which takes a third of the time that grouping and joining the categories takes.
SumsByAccount ReadAllSums(Connection& store, const TreeOptions& options) {
  const std::string end =
      options.end ? "T.[Date] <= " + SqlDate(DateTime{*options.end, 86399}) + " AND " : "";
  CategoryKeys categories(store);
  SumsByAccount all;
  EntrySums* sums = nullptr;
  std::int64_t account = 0;
  Recordset::Visit(store,
                   "Select T.AccountID, T.CategoryID, T.[Amount] from tblTransactions T WHERE " +
                       options.filter.Clause() + end + "NOT (T.AllocatedItem <> 0)",
                   [&](const VisitedRow& row) {
                     if (!categories.Has(row.Int(1))) return;
                     // The rows of an account mostly stand together.
                     if (sums == nullptr || account != row.Int(0)) {
                       account = row.Int(0);
                       sums = &all[account];
                     }
                     const double amount = row.Double(2);
                     ++sums->count;
                     sums->total += amount;
                     (amount > 0 ? sums->paidIn : sums->paidOut) += amount;
                   });
  return all;
}

std::optional<std::int64_t> KeyOf(const std::string& text) {
  if (text.size() < 2 || text.front() != '#') return std::nullopt;
  std::int64_t key = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data() + 1, end, key);
  if (error != std::errc() || stop != end) return std::nullopt;
  return key;
}

std::vector<AccountRow> ReadAccounts(Connection& store, const TreeOptions& options) {
  std::vector<AccountRow> accounts;
  const SumsByAccount sums = ReadAllSums(store, options);
  Recordset rows = store.OpenRecordset(kAccounts);
  for (; !rows.Eof(); rows.MoveNext()) {
    AccountRow account;
    // A mark that was never written (NULL) is an open account.
    account.closed = rows.Int("CloseAccount") != 0;
    if (account.closed && !options.includeClosed) continue;
    account.accountId = rows.Int("AccountID");
    account.account = rows.Text("Account");
    account.accountNo = rows.Text("AccountNo");
    account.accountTypeId = rows.Int("AccountTypeID");
    account.accountType = rows.Text("AccountType");
    account.currencyId = rows.Int("CurrencyId");
    account.currency = rows.Text("Currency");
    account.bank = rows.Text("Bank");
    account.description = rows.Text("Description");
    account.openingBalance = rows.Double("OpeningBalance");
    if (const auto found = sums.find(account.accountId); found != sums.end()) {
      account.sums = found->second;
    }
    account.balance = RoundMoney(account.openingBalance + account.sums.total);
    accounts.push_back(std::move(account));
  }
  return accounts;
}

}  // namespace

std::vector<AccountRow> clsCorvanta::Accounts(const StatusFilter& filter, bool includeClosed) {
  TreeOptions options;
  options.filter = filter;
  options.includeClosed = includeClosed;
  return Accounts(options);
}

std::vector<AccountRow> clsCorvanta::Accounts(const TreeOptions& options) {
  std::vector<AccountRow> accounts = ReadAccounts(connection_, options);
  if (!options.valuation) return accounts;
  for (AccountRow& account : accounts) {
    account.balance = RoundMoney(account.balance + HoldingsValue(account.accountId));
  }
  return accounts;
}

std::optional<AccountRow> clsCorvanta::FindAccount(const std::string& nameOrKey) {
  std::vector<AccountRow> accounts = Accounts({}, true);
  for (AccountRow& account : accounts) {
    if (EqualFolded(account.account, nameOrKey)) return std::move(account);
  }
  const std::optional<std::int64_t> key = KeyOf(nameOrKey);
  if (!key) return std::nullopt;
  for (AccountRow& account : accounts) {
    if (account.accountId == *key) return std::move(account);
  }
  return std::nullopt;
}

}  // namespace corvanta
