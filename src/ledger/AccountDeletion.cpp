#include "ledger/ScheduleDays.h"
#include "ledger/ScheduleForecasts.h"
#include "ledger/clsCorvanta.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta {
namespace {

// A line each, as far as a person will read.
std::string Names(const std::vector<ScheduleDetails>& schedules, const Locale& locale) {
  constexpr std::size_t kMost = 12;
  std::string names;
  for (std::size_t i = 0; i < std::min(schedules.size(), kMost); ++i) {
    const ScheduleDetails& schedule = schedules[i];
    names += "\n" + schedule.account + ", " + schedule.periodName + ", " +
             locale.FormatNumber(schedule.amount) + " " + schedule.currency;
    if (!schedule.description.empty()) names += ", " + schedule.description;
  }
  if (schedules.size() > kMost) {
    names += "\nand " + std::to_string(schedules.size() - kMost) + " more";
  }
  return names;
}

}  // namespace

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
  FinishSchedulesInto(accountId);
  DropDayRulesOf(accountId);
  const std::string schedules = "(Select ScheduleID from tblSchedule Where AccountID = " + key;
  connection_.Execute("UPDATE tblTransactions SET TransferID = 0 WHERE AccountID <> " + key +
                      " AND TransferID <> 0 AND TransferID IN " + rows + ")");
  connection_.Execute("UPDATE tblTransactions SET BankSch = 0 WHERE AccountID <> " + key +
                      " AND BankSch <> 0 AND BankSch IN " + schedules + ")");
  connection_.Execute("Delete From tblAccounts Where AccountID = " + key);
  DeleteRows("AllocatedItem IN " + rows + ")");
  DeleteRows("AccountID = " + key);
  connection_.Execute("Delete From tblSchedule Where AllocatedItem IN " + schedules + ")");
  connection_.Execute("Delete From tblSchedule Where AccountID = " + key);
  all.Commit();
}

std::vector<ScheduleDetails> clsCorvanta::SchedulesInto(std::int64_t accountId) {
  std::vector<ScheduleDetails> found = Schedules();
  std::erase_if(found, [&](const ScheduleDetails& schedule) {
    return schedule.transferAccountId != accountId || schedule.accountId == accountId;
  });
  return found;
}

// They would go on as expenses otherwise, and so would what they have posted ahead.
void clsCorvanta::FinishSchedulesInto(std::int64_t accountId) {
  for (const ScheduleDetails& schedule : SchedulesInto(accountId)) {
    ScheduleForecasts(*this, schedule, platform_).Remove();
  }
  connection_.Execute(
      "UPDATE tblSchedule SET TfrAccountID = 0, NoTimes = -1 WHERE TfrAccountID = " +
      SqlNumber(accountId));
}

void clsCorvanta::DropDayRulesOf(std::int64_t accountId) {
  for (const auto& [key, rule] : ReadDayRules(connection_)) {
    const auto schedule = ReadSchedule(key);
    if (schedule && schedule->accountId == accountId) WriteDayRule(connection_, key, {});
  }
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
  const std::vector<ScheduleDetails> finished = SchedulesInto(accountId);
  DeleteAccount(accountId);
  if (!finished.empty()) {
    prompts.Tell("Delete Item",
                 "These schedules transferred into the account and are finished now:" +
                     Names(finished, platform_.locale));
  }
  return true;
}

}  // namespace corvanta
