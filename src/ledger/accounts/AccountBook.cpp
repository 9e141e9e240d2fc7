#include "ledger/accounts/AccountBook.h"

#include "ledger/Money.h"
#include "ledger/SqlName.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceTables.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/EntrySums.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleDays.h"
#include "ledger/schedules/ScheduleForecasts.h"
#include "ledger/transactions/TransactionRows.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <charconv>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kAccounts =
    "Select A.AccountID, A.[Account], A.AccountNo, A.AccountTypeID, Y.AccountType, A.CurrencyId, "
    "U.[Currency], B.Bank, A.Description, A.OpeningBalance, A.CloseAccount "
    "from ((tblAccounts A LEFT JOIN tblAccountType Y ON A.AccountTypeID = Y.AccountTypeID) "
    "LEFT JOIN tblCurrency U ON A.CurrencyId = U.CurrencyID) "
    "LEFT JOIN tblBank B ON A.BankID = B.BankID "
    "Order by Y.AccountType, A.[Account], A.AccountID";

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

// A line each, as far as a person will read.
std::string Names(const std::vector<ScheduleDetails>& schedules, const Locale& locale) {
  constexpr std::size_t kMax = 12;
  std::string names;
  for (std::size_t i = 0; i < std::min(schedules.size(), kMax); ++i) {
    const ScheduleDetails& schedule = schedules[i];
    names += "\n" + schedule.account + ", " + schedule.periodName + ", " +
             locale.FormatNumber(schedule.amount) + " " + schedule.currency;
    if (!schedule.description.empty()) names += ", " + schedule.description;
  }
  if (schedules.size() > kMax) {
    names += "\nand " + std::to_string(schedules.size() - kMax) + " more";
  }
  return names;
}

// Where there is none nobody needs to go through the transactions for what is held.
bool HasInvestments(Connection& store) {
  return !store.QueryValue("Select TOP 1 PayeeID from tblPayees WHERE Investment = 1").IsNull();
}

}  // namespace

std::vector<AccountRow> AccountBook::Accounts(const StatusFilter& filter, bool includeClosed) {
  TreeOptions options;
  options.filter = filter;
  options.includeClosed = includeClosed;
  return Accounts(options);
}

std::vector<AccountRow> AccountBook::Accounts(const TreeOptions& options) {
  std::vector<AccountRow> accounts = ReadAccounts(core_.store, options);
  if (!options.valuation || !HasInvestments(core_.store)) return accounts;
  for (AccountRow& account : accounts) {
    account.balance =
        RoundMoney(account.balance + ledger_.Balances().HoldingsValue(account.accountId));
  }
  return accounts;
}

std::optional<AccountRow> AccountBook::FindAccount(const std::string& nameOrKey) {
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

std::optional<AccountRecord> AccountBook::ReadAccount(std::int64_t accountId) {
  const Recordset row = core_.store.OpenRecordset("Select * from tblAccounts Where AccountID = " +
                                                  SqlNumber(accountId));
  if (row.Eof()) return std::nullopt;
  return AccountRecord{
      row.Int("AccountID"),     row.Text("Account"),     row.Text("AccountNo"),
      row.Int("AccountTypeID"), row.Int("BankID"),       row.Double("OpeningBalance"),
      row.Int("CurrencyId"),    row.Text("Description"), row.Int("CloseAccount") != 0};
}

std::int64_t AccountBook::FindOrCreateAccount(const AccountRecord& account) {
  AccountRecord record = account;
  record.account = std::string(Trim(account.account));
  if (record.account.empty()) return 0;
  record.accountId = OtherAccount(record.account, 0);
  return record.accountId != 0 ? record.accountId : SaveAccount(record);
}

std::int64_t AccountBook::OtherAccount(const std::string& name, std::int64_t accountId) {
  return core_.OtherKey("Select * from tblAccounts Where Account = " + SqlName(name), "AccountID",
                        accountId);
}

std::int64_t AccountBook::SaveAccount(AccountRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Account");
  record.openingBalance = FittingOpening(record);
  return record.accountId = core_.SaveRow("tblAccounts", "AccountID", record.accountId,
                                          {{"Account", record.account},
                                           {"AccountNo", record.accountNo},
                                           {"AccountTypeID", record.accountTypeId},
                                           {"BankID", record.bankId},
                                           {"OpeningBalance", record.openingBalance},
                                           {"CurrencyId", record.currencyId},
                                           {"Description", record.description},
                                           {"CloseAccount", record.closed ? 1 : 0}});
}

double AccountBook::FittingOpening(const AccountRecord& record) {
  const auto former = ReadAccount(record.accountId);
  const bool isAsBefore = former && former->currencyId == record.currencyId &&
                          former->openingBalance == record.openingBalance;
  if (isAsBefore) return record.openingBalance;
  const Value code = core_.store.QueryValue("Select Currency from tblCurrency Where CurrencyID = " +
                                            SqlNumber(record.currencyId));
  return RoundToCurrency(record.openingBalance, code.Text());
}

AccountUse AccountBook::UseOf(std::int64_t accountId) {
  const std::string key = SqlNumber(accountId);
  AccountUse use;
  use.transactions =
      core_.store
          .QueryValue("Select Count(*) as CAccount from tblTransactions WHERE AccountID = " + key)
          .Int();
  use.schedules =
      core_.store
          .QueryValue("Select Count(*) as CAccount from tblSchedule WHERE AccountID = " + key +
                      " OR TfrAccountID = " + key)
          .Int();
  return use;
}

bool AccountBook::DeleteUnusedAccount(std::int64_t accountId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Account");
  Transaction all = core_.store.Begin();
  if (UseOf(accountId).IsUsed()) return false;
  const int deleted =
      core_.store.Execute("Delete From tblAccounts Where AccountID = " + SqlNumber(accountId) +
                          LedgerCore::UnlessUsed("AccountID", accountId, kEntryTables));
  all.Commit();
  return deleted > 0;
}

void AccountBook::DeleteAccount(std::int64_t accountId) {
  // Nothing is in account 0, but rows that transfer nowhere name it.
  if (accountId <= 0) return;
  const UndoLog::Step step = core_.undo.Begin("Delete Account");
  Transaction all = core_.store.Begin();
  const std::string key = SqlNumber(accountId);
  const std::string rows = "(Select TransactionID from tblTransactions Where AccountID = " + key;
  FinishSchedulesInto(accountId);
  DropDayRulesOf(accountId);
  const std::string schedules = "(Select ScheduleID from tblSchedule Where AccountID = " + key;
  core_.store.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE AccountID <> " + key +
                      " AND TransferID <> 0 AND TransferID IN " + rows + ")");
  core_.store.Execute("UPDATE tblTransactions SET BankSch = 0 WHERE AccountID <> " + key +
                      " AND BankSch <> 0 AND BankSch IN " + schedules + ")");
  core_.store.Execute("Delete From tblAccounts Where AccountID = " + key);
  TransactionRows(core_).DeleteRows("AllocatedItem IN " + rows + ")");
  TransactionRows(core_).DeleteRows("AccountID = " + key);
  core_.store.Execute("Delete From tblSchedule Where AllocatedItem IN " + schedules + ")");
  core_.store.Execute("Delete From tblSchedule Where AccountID = " + key);
  all.Commit();
}

std::vector<ScheduleDetails> AccountBook::SchedulesInto(std::int64_t accountId) {
  std::vector<ScheduleDetails> found = ledger_.Schedules().Schedules();
  std::erase_if(found, [&](const ScheduleDetails& schedule) {
    return schedule.transferAccountId != accountId || schedule.accountId == accountId;
  });
  return found;
}

// They would go on as expenses otherwise, and so would what they have posted ahead.
void AccountBook::FinishSchedulesInto(std::int64_t accountId) {
  for (const ScheduleDetails& schedule : SchedulesInto(accountId)) {
    ScheduleForecasts(ledger_, schedule, core_.platform).Remove();
  }
  core_.store.Execute(
      "UPDATE tblSchedule SET TfrAccountID = 0, NoTimes = -1 WHERE TfrAccountID = " +
      SqlNumber(accountId));
}

void AccountBook::DropDayRulesOf(std::int64_t accountId) {
  for (const auto& [key, rule] : ReadDayRules(core_.store)) {
    const auto schedule = ledger_.Schedules().ReadSchedule(key);
    if (schedule && schedule->accountId == accountId) WriteDayRule(core_.store, key, {});
  }
}

bool AccountBook::DeleteAccount(std::int64_t accountId, Prompts& prompts) {
  if (!UseOf(accountId).IsUsed()) {
    return prompts.Ask("Delete Item?", "Do you wish to delete this item?") &&
           DeleteUnusedAccount(accountId);
  }
  if (!prompts.Ask("Delete Item?",
                   "Do you wish to delete this Account, and all Account Transactions?")) {
    return false;
  }
  if (!prompts.Ask("Delete Item Confirm",
                   "All Account Transactions for this Account will be deleted, Do you wish to "
                   "continue?",
                   Icon::Warning)) {
    return false;
  }
  const std::vector<ScheduleDetails> finished = SchedulesInto(accountId);
  DeleteAccount(accountId);
  if (!finished.empty()) {
    prompts.Tell("Delete Item",
                 "These schedules transferred into the account and are finished now:" +
                     Names(finished, core_.platform.locale));
  }
  return true;
}

}  // namespace corvanta::inline ledger
