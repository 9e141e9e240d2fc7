#include "store/datafile/upgrade/OrphanCleanup.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <string_view>
#include <utility>
#include <vector>

namespace corvanta::inline datafile {
namespace {

struct SplitTable {
  std::string_view lines;   // the key and the parent's key of every line
  std::string_view parent;  // the parent, with its link to another account in the third field
  std::string_view deleteLine;
};

constexpr SplitTable kSchedules = {
    "select ScheduleId, AllocatedItem FROM tblSchedule WHERE AllocatedItem <> 0",
    "select ScheduleId, AllocatedItem, TfrAccountId FROM tblSchedule WHERE ScheduleId =",
    "Delete From tblSchedule Where ScheduleID = ",
};

constexpr SplitTable kTransactions = {
    "select TransactionId, AllocatedItem FROM tblTransactions WHERE AllocatedItem <> 0",
    "select TransactionId, AllocatedItem, TransferId FROM tblTransactions WHERE TransactionID =",
    "Delete From tblTransactions Where TransactionID = ",
};

bool CanHaveLines(Connection& connection, const SplitTable& table, std::int64_t parentKey) {
  const Recordset parent =
      connection.OpenRecordset(std::string(table.parent) + SqlNumber(parentKey));
  return !parent.Eof() && parent.Int(2) == 0;
}

void CleanUpLines(Connection& connection, const SplitTable& table) {
  std::vector<std::pair<std::int64_t, std::int64_t>> lines;
  {
    Recordset rows = connection.OpenRecordset(table.lines);
    for (; !rows.Eof(); rows.MoveNext()) lines.emplace_back(rows.Int(0), rows.Int(1));
  }
  for (const auto& [line, parent] : lines) {
    if (CanHaveLines(connection, table, parent)) continue;
    connection.Execute(std::string(table.deleteLine) + SqlNumber(line));
  }
}

// What belongs to transactions, once these are whole.
void CleanUpAttachments(Connection& connection) {
  if (connection.Table("tblAttachments") == nullptr) return;
  connection.Execute(
      "Delete From tblAttachments Where TransactionID NOT IN (Select TransactionID from "
      "tblTransactions)");
  if (connection.Table("own_AttachedFiles") == nullptr) return;
  connection.Execute(
      "Delete From own_AttachedFiles Where ('inside:' & FileID) NOT IN (Select AttachmentStore "
      "from tblAttachments Where AttachmentStore LIKE 'inside:%')");
}

}  // namespace

void CleanUpOrphans(Connection& connection) {
  connection.Execute("Delete From tblTransactions WHERE AccountId = 0");
  CleanUpLines(connection, kSchedules);
  CleanUpLines(connection, kTransactions);
  CleanUpAttachments(connection);
}

}  // namespace corvanta::inline datafile
