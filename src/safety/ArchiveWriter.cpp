#include "safety/ArchiveWriter.h"

#include "ledger/KeyLists.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/schedules/ScheduleStart.h"
#include "ledger/transactions/RowLinks.h"
#include "platform/Platform.h"
#include "platform/StatusWords.h"
#include "safety/FileStore.h"
#include "store/datafile/Compact.h"
#include "store/datafile/backup/DataFileDraft.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <exception>
#include <iterator>
#include <map>

namespace corvanta::inline safety {
namespace {

using KeyList = std::vector<std::int64_t>;

// The rows with their split lines, ascending.
KeyList WithLines(Connection& store, const KeyList& parents) {
  KeyList all = parents;
  Recordset::Visit(store,
                   "Select TransactionID, AllocatedItem from tblTransactions WHERE AllocatedItem "
                   "<> 0",
                   [&](const VisitedRow& row) {
                     if (std::ranges::binary_search(parents, row.Int(1))) all.push_back(row.Int(0));
                   });
  std::ranges::sort(all);
  return all;
}

// What is attached may be kept inside the data file: it goes with the last row that names it.
void DropUnnamedContents(Connection& store) {
  if (store.Table("own_AttachedFiles") == nullptr) return;
  store.Execute(
      "Delete from own_AttachedFiles Where 'inside:' & CStr(FileID) NOT IN (Select AttachmentStore "
      "from tblAttachments Where AttachmentStore LIKE 'inside:%')");
}

void DeleteRows(Connection& store, const KeyList& keys) {
  ForEachKeyList(keys, [&](const std::string& list) {
    for (const char* table : {"tblAttachments", "tblKeywordLink", "tblTransactions"}) {
      store.Execute("Delete from " + std::string(table) + " Where TransactionID IN (" + list + ")");
    }
  });
  DropUnnamedContents(store);
}

// Of a copy of the data file, leaves what is archived.
void KeepArchived(Connection& copy, const ArchivePlan& plan, const KeyList& archived) {
  KeyList all = ReadKeys(copy, "Select TransactionID from tblTransactions");
  std::ranges::sort(all);
  KeyList others;
  std::ranges::set_difference(all, archived, std::back_inserter(others));
  Transaction change = copy.Begin();
  DeleteRows(copy, others);
  // An archive that is opened must not begin to pay.
  copy.Execute("Delete from tblSchedule");
  if (copy.Table("own_ScheduleDays") != nullptr) copy.Execute("Delete from own_ScheduleDays");
  copy.Execute("UPDATE tblTransactions SET BankSch = 0, [ScheduleDate] = NULL WHERE BankSch <> 0");
  KeyList accounts;
  for (const ArchivedAccount& account : plan.accounts) accounts.push_back(account.accountId);
  copy.Execute(
      fmt::format("Delete from tblAccounts Where AccountID NOT IN ({})", fmt::join(accounts, ",")));
  change.Commit();
}

void RequireBalances(const std::map<std::int64_t, double>& expected,
                     const std::map<std::int64_t, double>& found, const std::string& file) {
  if (SameBalances(expected, found)) return;
  throw StoreError(StoreErrorCode::Io,
                   "The balances would not be as they were. Nothing was archived. Validate the "
                   "data file and try again.",
                   {}, file);
}

// Whether the rows to be archived are still there. What cannot be read is taken to be gone.
bool IsInDataFile(Connection& store, const ArchivePlan& plan) noexcept {
  if (plan.keys.empty()) return true;
  try {
    return store
               .QueryValue("Select Count(*) from tblTransactions Where TransactionID = " +
                           SqlNumber(plan.keys.front()))
               .Int() > 0;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

void ArchiveWriter::Write(const ArchivePlan& plan, const std::string& path) {
  const StatusWords status(platform_.progress, "Archiving transactions...");
  WriteArchive(plan, path);
  try {
    CopyFileStore(FileStoreOf(file_.path), FileStoreOf(path), OnOther::Refuse, platform_.files);
    RemoveRows(plan);
  } catch (...) {
    // Once the rows are taken out, the archive is where they are.
    if (IsInDataFile(ledger_.Store(), plan)) RemoveDataFileQuietly(path, platform_.files);
    throw;
  }
}

void ArchiveWriter::WriteArchive(const ArchivePlan& plan, const std::string& path) {
  DataFileDraft draft({file_.path, file_.password, {}}, path, {}, writer_, platform_);
  {
    const auto copy = Connection::Open(draft.Copy(), platform_.clock);
    KeepArchived(*copy, plan, WithLines(*copy, plan.keys));
  }
  ShrinkDatabase(draft.Copy(), platform_.clock);
  std::map<std::int64_t, double> expected;
  for (const ArchivedAccount& account : plan.accounts) {
    expected[account.accountId] = account.newOpening;
  }
  RequireBalances(expected, VerifiedBalances(draft.Copy(), platform_.clock), file_.path);
  draft.Install();
}

void ArchiveWriter::RemoveRows(const ArchivePlan& plan) {
  Connection& store = ledger_.Store();
  const auto before = AccountBalances(store);
  const UndoLog::Step step = ledger_.Undo().Begin("Archive");
  Transaction all = store.Begin();
  DeleteRows(store, WithLines(store, plan.keys));
  for (const ArchivedAccount& account : plan.accounts) {
    if (account.rows == 0) continue;
    store.Execute("UPDATE tblAccounts SET OpeningBalance = " + SqlNumber(account.newOpening) +
                  " WHERE AccountID = " + SqlNumber(account.accountId));
  }
  for (InvestmentTransaction row : plan.carried) {
    ledger_.Investments().SaveInvestmentTransaction(row);
  }
  for (const MovedSchedule& moved : plan.schedules) {
    MoveStartBehind(store, moved.schedule, moved.passed);
  }
  RequireBalances(before, AccountBalances(store), file_.path);
  all.Commit();
}

}  // namespace corvanta::inline safety
