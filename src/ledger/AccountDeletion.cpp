#include "ledger/clsCorvanta.h"
#include "platform/Prompts.h"
#include "store/Connection.h"
#include "store/SqlText.h"

namespace corvanta {

AccountUse clsCorvanta::UseOf(std::int64_t accountId) {
  const std::string key = SqlNumber(accountId);
  AccountUse use;
  use.transactions =
      connection_
          .QueryValue("Select Count(*) as CAccount from tblTransactions WHERE AccountID = " + key)
          .Int();
  use.schedules =
      connection_
          .QueryValue("Select Count(*) as CAccount from tblSchedule WHERE AccountID = " + key +
                      " OR TfrAccountID = " + key)
          .Int();
  return use;
}

bool clsCorvanta::DeleteUnusedAccount(std::int64_t accountId) {
  const UndoLog::Step step = undo_.Begin("Delete Account");
  Transaction all = connection_.Begin();
  if (UseOf(accountId).IsUsed()) return false;
  const int deleted =
      connection_.Execute("Delete From tblAccounts Where AccountID = " + SqlNumber(accountId) +
                          " AND AccountID NOT IN (Select AccountID from tblTransactions)"
                          " AND AccountID NOT IN (Select AccountID from tblSchedule)");
  all.Commit();
  return deleted > 0;
}

void clsCorvanta::DeleteAccount(std::int64_t accountId) {
  // Nothing is in account 0, but rows that transfer nowhere name it.
  if (accountId <= 0) return;
  const UndoLog::Step step = undo_.Begin("Delete Account");
  Transaction all = connection_.Begin();
  const std::string key = SqlNumber(accountId);
  const std::string rows = "(Select TransactionID from tblTransactions Where AccountID = " + key;
  const std::string schedules = "(Select ScheduleID from tblSchedule Where AccountID = " + key;
  connection_.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE AccountID <> " + key +
                      " AND TransferID <> 0 AND TransferID IN " + rows + ")");
  connection_.Execute("UPDATE tblTransactions SET BankSch = 0 WHERE AccountID <> " + key +
                      " AND BankSch <> 0 AND BankSch IN " + schedules + ")");
  connection_.Execute("UPDATE tblSchedule SET TfrAccountID = 0 WHERE TfrAccountID = " + key);
  connection_.Execute("Delete From tblAccounts Where AccountID = " + key);
  DeleteRows("AllocatedItem IN " + rows + ")");
  DeleteRows("AccountID = " + key);
  connection_.Execute("Delete From tblSchedule Where AllocatedItem IN " + schedules + ")");
  connection_.Execute("Delete From tblSchedule Where AccountID = " + key);
  all.Commit();
}

bool clsCorvanta::DeleteAccount(std::int64_t accountId, Prompts& prompts) {
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
  DeleteAccount(accountId);
  return true;
}

}  // namespace corvanta
