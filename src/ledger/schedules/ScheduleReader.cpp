#include "ledger/schedules/ScheduleReader.h"

#include "ledger/schedules/ScheduleDays.h"
#include "ledger/schedules/ScheduleRows.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <limits>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kReadStatement =
    "Select S.*, P.Period, P.Description as PDesc, C.Category, C.SubCategory, PP.Payee, "
    "M.[Payment] AS PaymentName, A.[Account] AS AccountName, A.CloseAccount, "
    "U.[Currency] AS CurrencyCode, B.[Account] AS TfrName, B.CloseAccount AS TfrClosed, "
    "V.[Currency] AS TfrCurrency, L.AllocatedItem AS LineParent "
    "from (((((((((tblSchedule S LEFT JOIN tblPeriods P ON S.PeriodID = P.PeriodID) "
    "LEFT JOIN tblCategory C ON S.CategoryID = C.CategoryID) "
    "LEFT JOIN tblPayees PP ON S.PayeeID = PP.PayeeID) "
    "LEFT JOIN tblPayments M ON S.PaymentID = M.PaymentID) "
    "LEFT JOIN tblAccounts A ON S.AccountID = A.AccountID) "
    "LEFT JOIN tblCurrency U ON A.CurrencyId = U.CurrencyID) "
    "LEFT JOIN tblAccounts B ON S.TfrAccountID = B.AccountID) "
    "LEFT JOIN tblCurrency V ON B.CurrencyId = V.CurrencyID) "
    "LEFT JOIN (select distinct AllocatedItem from tblSchedule WHERE AllocatedItem <> 0) L "
    "ON L.AllocatedItem = S.ScheduleID) Where ";

AddToAccount AddToAccountOf(std::int64_t value) {
  if (value == 0) return AddToAccount::No;
  return value == 2 ? AddToAccount::WhenDue : AddToAccount::Ahead;
}

int CountOf(std::int64_t value) {
  constexpr std::int64_t kMax = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, -kMax, kMax));
}

ScheduleDetails Details(const Recordset& row) {
  ScheduleDetails details;
  details.scheduleId = row.Int("ScheduleID");
  details.accountId = row.Int("AccountID");
  details.categoryId = row.Int("CategoryID");
  details.paymentId = row.Int("PaymentID");
  details.payeeId = row.Int("PayeeID");
  details.periodId = row.Int("PeriodID");
  details.transferAccountId = row.Int("TfrAccountID");
  details.amount = row.Double("Amount");
  details.reference = row.Text("Reference");
  details.description = row.Text("Description");
  details.dateFrom = row.Day("DateFrom").value_or(Date());
  details.noTimes = CountOf(row.Int("NoTimes"));
  details.addToAccount = AddToAccountOf(row.Int("AddToAccount"));
  details.allocatedItem = row.Int("AllocatedItem");
  details.account = row.Text("AccountName");
  details.currency = row.Text("CurrencyCode");
  details.accountClosed = row.Int("CloseAccount") != 0;
  details.transferAccount = row.Text("TfrName");
  details.transferCurrency = row.Text("TfrCurrency");
  details.transferAccountClosed = row.Int("TfrClosed") != 0;
  details.category = row.Text("Category");
  details.subCategory = row.Text("SubCategory");
  details.payee = row.Text("Payee");
  details.payment = row.Text("PaymentName");
  details.period = row.Text("Period");
  details.periodName = row.Text("PDesc");
  details.hasLines = !row.Field("LineParent").IsNull();
  return details;
}

// The look-ahead of the settings; unset posts nothing by itself.
std::optional<Date> LookAheadOf(const Platform& platform) {
  const int months = Settings(platform.registry).ScheduleMonths();
  if (months < 1 || months > 120) return std::nullopt;
  return std::min(platform.clock.Today().AddMonths(months), Date::Last());
}

std::optional<Date> AutomaticUntil(AddToAccount add, std::optional<Date> ahead, Date today) {
  if (add == AddToAccount::No || !ahead) return std::nullopt;
  return add == AddToAccount::WhenDue ? std::min(today, *ahead) : *ahead;
}

// `key` of the one schedule that the condition is about; 0 for several.
std::vector<ScheduleDetails> ReadDetails(Connection& store, const Platform& platform,
                                         const std::string& condition, std::int64_t key = 0) {
  std::vector<ScheduleDetails> found;
  {
    Recordset rows = store.OpenRecordset(kReadStatement + condition);
    for (; !rows.Eof(); rows.MoveNext()) found.push_back(Details(rows));
  }
  const DayRules rules = ReadDayRules(store, key);
  const std::optional<Date> ahead = LookAheadOf(platform);
  for (ScheduleDetails& schedule : found) {
    schedule.automaticUntil = AutomaticUntil(schedule.addToAccount, ahead, platform.clock.Today());
    const auto rule = rules.find(schedule.scheduleId);
    if (rule != rules.end()) schedule.days = rule->second;
  }
  return found;
}

void Count(ScheduleDetails& schedule, int posted) {
  schedule.posted = posted;
  schedule.isFinished = IsFinished(schedule);
}

// As PostedRows::CountFor, of one schedule alone.
int CountPosted(Connection& store, const ScheduleRecord& schedule) {
  const Value count = store.QueryValue(
      "Select Count(T.TransactionID) as cRows from tblTransactions "
      " T INNER JOIN tblSchedule S ON S.ScheduleId = T.BankSch AND S.AccountID = T.AccountId "
      " Where NOT (T.AllocatedItem <> 0) And T.BankSch = " +
      SqlNumber(schedule.scheduleId) + " AND T.ScheduleDate >= " + SqlDate(schedule.dateFrom));
  return CountOf(count.Int());
}

// The first payment that has no row.
std::optional<Date> NextDue(const ScheduleDetails& schedule, const PostedRows& posted) {
  const auto step = PlanOf(schedule).Step();
  if (!step || schedule.isFinished) return std::nullopt;
  const int payments = PlanOf(schedule).Payments();
  Date day = schedule.dateFrom;
  for (int number = 1; posted.Has(day); ++number) {
    if (number == payments) return std::nullopt;
    day = step->After(day);
  }
  return day;
}

}  // namespace

std::optional<ScheduleDetails> ScheduleReader::ReadSchedule(std::int64_t scheduleId) {
  auto found = ReadDetails(core_.store, core_.platform, "S.ScheduleID = " + SqlNumber(scheduleId),
                           scheduleId);
  if (found.empty()) return std::nullopt;
  Count(found.front(), CountPosted(core_.store, found.front()));
  return std::move(found.front());
}

std::vector<ScheduleDetails> ScheduleReader::Schedules() {
  auto found =
      ReadDetails(core_.store, core_.platform, "S.AllocatedItem = 0 OR IsNull(S.AllocatedItem)");
  const PostedBySchedule all = PostedOfAll(core_.store);
  for (ScheduleDetails& schedule : found) {
    const auto rows = all.find(schedule.scheduleId);
    const PostedRows none;
    const PostedRows& posted = rows == all.end() ? none : rows->second;
    Count(schedule, posted.CountFor(schedule));
    schedule.nextDue = NextDue(schedule, posted);
  }
  std::ranges::sort(found, [](const ScheduleDetails& a, const ScheduleDetails& b) {
    if (a.nextDue.has_value() != b.nextDue.has_value()) return a.nextDue.has_value();
    if (a.nextDue != b.nextDue) return a.nextDue < b.nextDue;
    return a.scheduleId < b.scheduleId;
  });
  return found;
}

std::vector<ScheduleDetails> ScheduleReader::ScheduleLines(std::int64_t scheduleId) {
  if (scheduleId == 0) return {};
  auto lines =
      ReadDetails(core_.store, core_.platform, "S.AllocatedItem = " + SqlNumber(scheduleId));
  std::ranges::sort(lines, {}, &ScheduleDetails::scheduleId);
  return lines;
}

std::vector<Date> ScheduleReader::DueDates(std::int64_t scheduleId, std::optional<Date> end) {
  const Recordset row = core_.store.OpenRecordset(
      "select S.*, P.Period, P.Description as PDesc from  (tblSchedule S  INNER JOIN tblCategory C "
      "ON C.CategoryID = S.CategoryID)  INNER JOIN tblPeriods P ON S.PeriodID = P.PeriodID  "
      "Where ScheduleId = " +
      SqlNumber(scheduleId));
  if (row.Eof()) return {};
  const auto from = row.Day("DateFrom");
  if (!from) return {};
  SchedulePlan plan{*from, CountOf(row.Int("NoTimes")), row.Text("Period"), {}};
  const DayRules rules = ReadDayRules(core_.store, scheduleId);
  if (const auto rule = rules.find(scheduleId); rule != rules.end()) plan.days = rule->second;
  return ScheduleDates(plan, core_.platform.clock.Today(), end);
}

}  // namespace corvanta::inline ledger
