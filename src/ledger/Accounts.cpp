#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

#include <charconv>

namespace corvanta {
namespace {

// All accounts and their sums at once: a statement per account would read the transactions as many
// times as there are accounts. Whole entries are asked for in a form that does not lead the engine
// to the index of split lines, where nearly every row is found: so it reads the sums in one pass.
std::string AccountsStatement(const TreeOptions& options) {
  const std::string end =
      options.end ? "T.[Date] <= " + SqlDate(DateTime{*options.end, 86399}) + " AND " : "";
  return "Select A.AccountID, A.[Account], A.AccountNo, A.AccountTypeID, Y.AccountType, "
         "A.CurrencyId, "
         "U.[Currency], B.Bank, A.Description, A.OpeningBalance, A.CloseAccount, S.Entries, "
         "S.Total, "
         "S.PaidIn, S.PaidOut "
         "from (((tblAccounts A LEFT JOIN tblAccountType Y ON A.AccountTypeID = Y.AccountTypeID) "
         "LEFT JOIN tblCurrency U ON A.CurrencyId = U.CurrencyID) "
         "LEFT JOIN tblBank B ON A.BankID = B.BankID) "
         "LEFT JOIN (Select T.AccountID AS SumAccountID, Count(*) AS Entries, "
         "Sum(T.[Amount]) AS Total, Sum(IIF(T.[Amount] > 0, T.[Amount], 0)) AS PaidIn, "
         "Sum(IIF(T.[Amount] < 0, T.[Amount], 0)) AS PaidOut "
         "from tblTransactions T INNER JOIN tblCategory C ON T.CategoryID = C.CategoryID "
         "WHERE " +
         options.filter.Clause() + end +
         "NOT (AllocatedItem <> 0) Group by T.AccountID) S ON S.SumAccountID = A.AccountID "
         "Order by Y.AccountType, A.[Account], A.AccountID";
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
  Recordset rows = store.OpenRecordset(AccountsStatement(options));
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
    account.sums = {rows.Int("Entries"), rows.Double("Total"), rows.Double("PaidIn"),
                    rows.Double("PaidOut")};
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
