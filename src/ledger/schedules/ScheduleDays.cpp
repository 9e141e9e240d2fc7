#include "ledger/schedules/ScheduleDays.h"

#include "store/datafile/schema/AccessPaths.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

constexpr const char* kTable = "own_ScheduleDays";

WeekendRule WeekendOf(std::int64_t value) {
  if (value == 1) return WeekendRule::Before;
  return value == 2 ? WeekendRule::After : WeekendRule::Stay;
}

std::string Condition(std::int64_t scheduleId) {
  return " Where ScheduleID = " + SqlNumber(scheduleId);
}

}  // namespace

DayRules ReadDayRules(Connection& store, std::int64_t scheduleId) {
  DayRules rules;
  if (store.Table(kTable) == nullptr) return rules;
  Recordset rows =
      store.OpenRecordset(std::string("Select ScheduleID, MonthEnd, Weekend from ") + kTable +
                          (scheduleId == 0 ? std::string() : Condition(scheduleId)));
  for (; !rows.Eof(); rows.MoveNext()) {
    rules[rows.Int(0)] = {rows.Int(1) != 0, WeekendOf(rows.Int(2))};
  }
  return rules;
}

void WriteDayRule(Connection& store, std::int64_t scheduleId, const DayRule& rule) {
  const DayRules stored = ReadDayRules(store, scheduleId);
  const auto former = stored.find(scheduleId);
  if (former == stored.end() ? rule.IsPlain() : former->second == rule) return;
  if (store.Table(kTable) == nullptr) EnsureAccessPaths(store);
  store.Execute(std::string("Delete From ") + kTable + Condition(scheduleId));
  if (rule.IsPlain()) return;
  store.Execute(std::string("Insert INTO ") + kTable + " (ScheduleID, MonthEnd, Weekend) VALUES (" +
                SqlNumber(scheduleId) + "," + (rule.isMonthEnd ? "1" : "0") + "," +
                std::to_string(static_cast<int>(rule.weekend)) + ")");
}

}  // namespace corvanta::inline ledger
