#include "ledger/LedgerCore.h"

#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <chrono>

namespace corvanta::inline ledger {
namespace {

std::vector<std::string> UndoneTables() {
  return {"tblAccounts",      "tblAccountType",   "tblBank",     "tblCategory",
          "tblHistory",       "tblPayees",        "tblPayments", "tblKeywords",
          "tblKeywordLink",   "tblAttachments",   "tblSchedule", "tblTransactions",
          "own_ScheduleDays", "own_AttachedFiles"};
}

// The bar goes with the operation, however it ends.
class StepsShown {
 public:
  explicit StepsShown(Progress& progress) : progress_(progress) {}
  ~StepsShown() { progress_.SetStep(0, 0); }
  StepsShown(const StepsShown&) = delete;
  StepsShown& operator=(const StepsShown&) = delete;

 private:
  Progress& progress_;
};

}  // namespace

LedgerCore::LedgerCore(Connection& connection, Platform& machine)
    : store(connection),
      platform(machine),
      undo(connection, UndoneTables()),
      closed(connection),
      amounts(connection) {}

std::int64_t LedgerCore::ReadKey(const std::string& sql, std::string_view column) {
  const Recordset row = store.OpenRecordset(sql);
  return row.Eof() ? 0 : row.Field(column).Int();
}

std::int64_t LedgerCore::OtherKey(const std::string& sql, std::string_view keyColumn,
                                  std::int64_t key) {
  Recordset rows = store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) {
    if (rows.Int(keyColumn) != key) return rows.Int(keyColumn);
  }
  return 0;
}

std::int64_t LedgerCore::FindOrInsert(const NamedRow& row, const std::string& name) {
  if (Trim(name).empty()) return 0;
  const std::int64_t found = ReadKey(row.find, row.keyColumn);
  if (found != 0) return found;
  const UndoLog::Step step = undo.Begin(row.step);
  Transaction all = store.Begin();
  store.Execute(row.insert);
  const std::string key = row.keyColumn;
  const std::int64_t made =
      ReadKey("Select Max(" + key + ") as " + key + " from " + row.table, row.keyColumn);
  all.Commit();
  return made;
}

std::int64_t LedgerCore::SaveRow(const std::string& table, const std::string& keyColumn,
                                 std::int64_t key, const std::vector<Field>& fields) {
  Recordset row = store.OpenRecordset(
      key == 0 ? table : "Select * from " + table + " Where " + keyColumn + " = " + SqlNumber(key));
  if (key == 0) {
    row.AddNew();
  } else if (row.Eof()) {
    return 0;
  }
  for (const Field& field : fields) row.Set(field.column, field.value);
  row.Update();
  return row.Key();
}

// Only rows of that key are asked for: a NULL among them would keep every row.
std::string LedgerCore::UnlessUsed(const std::string& keyColumn, std::int64_t key,
                                   std::span<const char* const> tables) {
  std::string condition;
  for (const std::string table : tables) {
    condition += " AND " + keyColumn + " NOT IN (Select " + keyColumn + " from " + table +
                 " Where " + keyColumn + " = " + SqlNumber(key) + ")";
  }
  return condition;
}

bool LedgerCore::ForEachRow(Keys keys, const std::function<void(std::int64_t)>& change) {
  return ForEachRow(keys.size(), platform.progress, [&](std::size_t row) { change(keys[row]); });
}

// One transaction, however long it takes: what the person asked for at once is done or not, so that
// asking again after a failure never does a part of it twice.
bool LedgerCore::ForEachRow(std::size_t count, Progress& progress,
                            const std::function<void(std::size_t)>& change) {
  using Time = std::chrono::steady_clock;
  constexpr auto kShowEvery = std::chrono::milliseconds(250);
  const StepsShown steps(progress);
  Transaction all = store.Begin();
  Time::time_point shown = Time::now();
  for (std::size_t done = 0; done < count;) {
    change(done);
    ++done;
    if (!progress.Yield() && done < count) return false;
    if (done < count && Time::now() - shown >= kShowEvery) {
      progress.SetStep(done, count);
      shown = Time::now();
    }
  }
  all.Commit();
  return true;
}

void LedgerCore::Merge(const std::string& column, std::int64_t sourceId, std::int64_t targetId) {
  if (sourceId == targetId || sourceId == 0 || targetId == 0) return;
  Transaction all = store.Begin();
  // Rows that point to nothing would drop out of every list and balance.
  const std::string target = column == "CategoryID" ? "tblCategory" : "tblPayees";
  const Value found = store.QueryValue("Select " + column + " from " + target + " WHERE " + column +
                                       " = " + SqlNumber(targetId));
  if (found.IsNull()) return;
  for (const std::string table : {"tblTransactions", "tblSchedule"}) {
    store.Execute("update " + table + " set " + column + " = " + SqlNumber(targetId) + " Where " +
                  column + " = " + SqlNumber(sourceId));
  }
  all.Commit();
}

}  // namespace corvanta::inline ledger
