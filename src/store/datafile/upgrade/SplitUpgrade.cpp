#include "store/datafile/upgrade/SplitUpgrade.h"

#include "store/datafile/upgrade/KeyList.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <string>
#include <vector>

namespace corvanta::inline datafile {
namespace {

struct SplitTable {
  std::string name;
  std::string key;
  std::string keyInReset;  // the key as the statement that resets the parent spells it
  std::vector<std::string> flags;
};

struct Parent {
  std::int64_t key = 0;
  std::string list;
  std::vector<std::int64_t> flags;
};

bool HasListedLinks(const Connection& connection, const SplitTable& table) {
  const TableDef* const definition = connection.Table(table.name);
  if (definition == nullptr) return false;
  const ColumnDef* const link = definition->Column("AllocatedItem");
  return link != nullptr && link->TypeCode() == kTypeText;
}

std::vector<Parent> ReadParents(Connection& connection, const SplitTable& table) {
  std::string fields = table.key + ", AllocatedItem";
  for (const std::string& flag : table.flags) fields += ", " + flag;
  std::vector<Parent> parents;
  Recordset rows = connection.OpenRecordset("Select " + fields + " From " + table.name +
                                            " Where AllocatedItem Is Not Null");
  for (; !rows.Eof(); rows.MoveNext()) {
    Parent parent{rows.Int(0), std::string(rows.Text(1)), {}};
    for (std::size_t i = 0; i < table.flags.size(); ++i) {
      parent.flags.push_back(rows.Int(static_cast<int>(i) + 2));
    }
    parents.push_back(std::move(parent));
  }
  return parents;
}

void LinkLines(Connection& connection, const SplitTable& table, const Parent& parent) {
  std::string lines;
  for (const std::int64_t line : KeysOfList(parent.list)) {
    // A row that lists itself stays a row of its own: as its own line it would be seen nowhere.
    if (line != parent.key) lines += (lines.empty() ? "" : ",") + SqlNumber(line);
  }
  if (lines.empty()) return;
  std::string sql = "UPDATE " + table.name + " SET [TEMPINT] = " + SqlNumber(parent.key);
  for (std::size_t i = 0; i < table.flags.size(); ++i) {
    sql += ", " + table.flags[i] + " = " + SqlNumber(parent.flags[i]);
  }
  connection.Execute(sql + " Where " + table.key + " IN (" + lines + ")");
}

void Convert(Connection& connection, const SplitTable& table) {
  const std::string alter = "ALTER TABLE " + table.name;
  const std::string update = "UPDATE " + table.name;
  connection.Execute(alter + " ADD COLUMN [TEMPINT] INT DEFAULT 0");
  for (const Parent& parent : ReadParents(connection, table)) {
    LinkLines(connection, table, parent);
    connection.Execute(update + " SET AllocatedItem = 0 Where " + table.keyInReset + " = " +
                       SqlNumber(parent.key));
  }
  connection.Execute(alter + " ALTER COLUMN [AllocatedItem] INT DEFAULT 0");
  connection.Execute(update + " SET [AllocatedItem] = [TEMPINT]");
  connection.Execute(alter + " DROP COLUMN [TEMPINT]");
  connection.Execute(update + " SET [AllocatedItem] = 0 WHERE [AllocatedItem] Is Null");
  if (connection.Table(table.name)->Index("AllocatedItem") == nullptr) {
    connection.Execute("CREATE INDEX AllocatedItem ON " + table.name + " (AllocatedItem)");
  }
}

}  // namespace

void UpgradeSplitLinks(Connection& connection) {
  const SplitTable transactions = {
      "tblTransactions", "TransactionID", "TransactionID", {"BankChk", "BankRec"}};
  if (HasListedLinks(connection, transactions)) Convert(connection, transactions);

  SplitTable schedules = {"tblSchedule", "ScheduleID", "ScheduleId", {"BankChk"}};
  if (!HasListedLinks(connection, schedules)) return;
  // Only files of some earlier versions keep a flag here.
  if (connection.Table(schedules.name)->Column("BankChk") == nullptr) schedules.flags.clear();
  Convert(connection, schedules);
}

}  // namespace corvanta::inline datafile
