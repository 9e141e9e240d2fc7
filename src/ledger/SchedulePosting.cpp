#include "ledger/SchedulePosting.h"

#include "ledger/CommitBatch.h"
#include "ledger/Money.h"
#include "ledger/OccurrenceWriter.h"
#include "ledger/RateSource.h"
#include "ledger/ScheduleRows.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

#include <algorithm>
#include <optional>
#include <set>

namespace corvanta {
namespace {

// What the column holds of a schedule whose payments are all made. 0 would mean payments without
// end, and a number of payments above 0 would come due again when a posted row is deleted.
constexpr int kFinished = -1;

// The status bar's text while a pass runs; the former one comes back.
class StatusText {
 public:
  explicit StatusText(Progress& progress)
      : progress_(progress),
        former_(progress.SetStatus("Please wait updating scheduled records...")) {}
  ~StatusText() {
    progress_.SetStep(0, 0);
    progress_.SetStatus(former_);
  }
  StatusText(const StatusText&) = delete;
  StatusText& operator=(const StatusText&) = delete;

 private:
  Progress& progress_;
  std::string former_;
};

}  // namespace

class SchedulePosting::Impl {
 public:
  Impl(clsCorvanta& ledger, Platform& platform, RateSource& rates)
      : ledger_(ledger),
        platform_(platform),
        rates_(rates),
        store_(ledger.Store()),
        batch_(ledger.Store()) {}

  PostingResult PostAll();
  OccurrenceResult PostOne(std::int64_t scheduleId, Date due);
  OccurrenceResult Skip(std::int64_t scheduleId, Date due);

 private:
  struct Found {
    ScheduleDetails schedule;
    std::vector<Date> payments;  // up to the one that was asked for
    PostedRows posted;
  };

  void Begin();
  [[nodiscard]] std::vector<std::int64_t> OpenSchedules();
  void PostDue(std::int64_t scheduleId);
  [[nodiscard]] std::optional<Date> LimitOf(const ScheduleDetails& schedule) const;
  void Write(const ScheduleDetails& schedule, const std::vector<Date>& missing,
             const std::vector<Date>& passed);
  [[nodiscard]] std::vector<double> OtherAmounts(const ScheduleDetails& schedule,
                                                 std::size_t count);
  [[nodiscard]] std::optional<double> RateOf(const ScheduleDetails& schedule);
  void MoveBehind(const ScheduleDetails& schedule, const std::vector<Date>& passed);
  [[nodiscard]] OccurrenceResult Find(std::int64_t scheduleId, Date due, Found& found);
  [[nodiscard]] static std::vector<Date> PostedPrefix(const Found& found, Date justPosted);

  clsCorvanta& ledger_;
  Platform& platform_;
  RateSource& rates_;
  Connection& store_;
  CommitBatch batch_;
  Date today_;
  std::optional<Date> ahead_;  // the look-ahead date; none posts nothing
  bool movesDates_ = false;
  std::set<std::string> withoutRate_;  // pairs of currencies, so that each is waited for once
  PostingResult result_;
};

void SchedulePosting::Impl::Begin() {
  const Settings settings(platform_.registry);
  today_ = platform_.clock.Today();
  const int months = settings.ScheduleMonths();
  ahead_ = months >= 1 && months <= 120 ? std::optional(today_.AddMonths(months)) : std::nullopt;
  movesDates_ = settings.IsOn(Setting::UpdateSchedule);
  withoutRate_.clear();
  result_ = {};
}

PostingResult SchedulePosting::Impl::PostAll() {
  Begin();
  const StatusText status(platform_.progress);
  // Passes are cheap where nothing is due, so the time of the last one holds none back.
  store_.Execute("UPDATE tblVerification SET UpdateSchedule = Now();");
  const UndoLog::Step step = ledger_.Undo().Begin("Post Schedules");
  const std::vector<std::int64_t> schedules = OpenSchedules();
  try {
    for (const std::int64_t schedule : schedules) {
      platform_.progress.SetStep(result_.schedules, schedules.size());
      PostDue(schedule);
      ++result_.schedules;
      if (platform_.progress.Yield()) continue;
      result_.stopped = result_.schedules < schedules.size();
      break;
    }
  } catch (...) {
    batch_.Commit();  // what came before the schedule that failed
    throw;
  }
  batch_.Commit();
  return result_;
}

std::vector<std::int64_t> SchedulePosting::Impl::OpenSchedules() {
  std::vector<std::int64_t> keys;
  Recordset rows = store_.OpenRecordset(
      "Select S.* from tblSchedule S INNER JOIN tblAccounts A ON S.AccountID = A.AccountID "
      " Where CloseAccount <> 1 AND AllocatedItem = 0");
  const int key = rows.FieldIndex("ScheduleID");
  for (; !rows.Eof(); rows.MoveNext()) keys.push_back(rows.Int(key));
  return keys;
}

// Nothing for a schedule that waits for a person.
std::optional<Date> SchedulePosting::Impl::LimitOf(const ScheduleDetails& schedule) const {
  if (!ahead_ || schedule.addToAccount == AddToAccount::No) return std::nullopt;
  return schedule.addToAccount == AddToAccount::WhenDue ? std::min(today_, *ahead_) : *ahead_;
}

void SchedulePosting::Impl::PostDue(std::int64_t scheduleId) {
  // It may have gone while window messages ran.
  const auto schedule = ledger_.ReadSchedule(scheduleId);
  if (!schedule || schedule->isFinished || !HasOpenAccounts(*schedule)) return;
  const std::optional<Date> limit = LimitOf(*schedule);
  if (!limit) return;
  // Every payment up to the limit. The estimate of DueDates for a schedule without end may fall one
  // short of it, and would grow again with each move of the start.
  const std::vector<Date> due = PaymentsUntil(*schedule, *limit);
  const PostedRows posted = PostedOf(store_, scheduleId);
  std::vector<Date> missing;
  std::ranges::copy_if(due, std::back_inserter(missing),
                       [&](Date day) { return !posted.Has(day); });
  Write(*schedule, missing, movesDates_ ? due : std::vector<Date>{});
}

// Whole occurrences; the start moves together with the last of them, so that a pass that is cut off
// in between does the same again.
void SchedulePosting::Impl::Write(const ScheduleDetails& schedule, const std::vector<Date>& missing,
                                  const std::vector<Date>& passed) {
  if (missing.empty() && passed.empty()) return;
  const std::vector<double> otherAmounts = OtherAmounts(schedule, missing.size());
  OccurrenceWriter writer(ledger_, schedule);
  std::size_t next = 0;
  bool isDone = false;
  while (!isDone) {
    batch_.Open();
    Transaction whole = store_.Begin();
    while (next < missing.size() && !batch_.IsFull()) {
      writer.Write(missing[next], otherAmounts[next]);
      ++next;
    }
    isDone = next == missing.size();
    if (isDone) MoveBehind(schedule, passed);
    whole.Commit();
    if (batch_.IsFull()) batch_.Commit();
  }
  result_.occurrences += missing.size();
}

std::vector<double> SchedulePosting::Impl::OtherAmounts(const ScheduleDetails& schedule,
                                                        std::size_t count) {
  std::vector<double> amounts(count, schedule.IsTransfer() ? -schedule.amount : 0);
  const bool isConverted = schedule.IsTransfer() && !schedule.currency.empty() &&
                           !schedule.transferCurrency.empty() &&
                           schedule.currency != schedule.transferCurrency;
  if (!isConverted || count == 0) return amounts;
  batch_.Commit();  // fetching takes its time, and may ask a person
  for (double& amount : amounts) {
    const std::optional<double> rate = RateOf(schedule);
    if (!rate) continue;
    amount = RoundToCurrency(*rate * amount, schedule.transferCurrency);
  }
  return amounts;
}

// Asked for every occurrence until it fails.
std::optional<double> SchedulePosting::Impl::RateOf(const ScheduleDetails& schedule) {
  const std::string pair = schedule.currency + ">" + schedule.transferCurrency;
  if (withoutRate_.contains(pair)) return std::nullopt;
  const std::optional<double> rate = rates_.Rate(schedule.currency, schedule.transferCurrency);
  if (rate) return rate;
  withoutRate_.insert(pair);
  if (!result_.ratesMissing) {
    platform_.prompts.Tell("Download Currency", "Could not connect to website");
  }
  result_.ratesMissing = true;
  return std::nullopt;
}

// The schedule goes on after these payments, which are posted or skipped. What remains is counted
// from the new start.
void SchedulePosting::Impl::MoveBehind(const ScheduleDetails& schedule,
                                       const std::vector<Date>& passed) {
  const auto step = PeriodStep::FromCode(schedule.period);
  if (passed.empty() || !step) return;
  const int payments = PlanOf(schedule).Payments();
  const int remaining = payments - static_cast<int>(passed.size());
  const bool isLast = payments > 0 && remaining <= 0;
  const Date start = isLast ? passed.back() : step->After(passed.back());
  const int number = payments == 0 ? 0 : isLast ? kFinished : remaining;
  store_.Execute("UPDATE tblSchedule SET DateFrom = " + SqlDate(start) + ", NoTimes =" +
                 std::to_string(number) + " Where ScheduleId = " + SqlNumber(schedule.scheduleId));
}

OccurrenceResult SchedulePosting::Impl::Find(std::int64_t scheduleId, Date due, Found& found) {
  const auto schedule = ledger_.ReadSchedule(scheduleId);
  if (!schedule || schedule->allocatedItem != 0) return OccurrenceResult::NotDue;
  if (!HasOpenAccounts(*schedule)) return OccurrenceResult::ClosedAccount;
  found.posted = PostedOf(store_, scheduleId);
  if (found.posted.Has(due)) return OccurrenceResult::AlreadyPosted;
  found.payments = PaymentsUntil(*schedule, due);
  if (found.payments.empty() || found.payments.back() != due) return OccurrenceResult::NotDue;
  found.schedule = *schedule;
  return OccurrenceResult::Done;
}

// The first payments as far as each of them is posted.
std::vector<Date> SchedulePosting::Impl::PostedPrefix(const Found& found, Date justPosted) {
  const auto step = PeriodStep::FromCode(found.schedule.period);
  const auto payments = static_cast<std::size_t>(PlanOf(found.schedule).Payments());
  std::vector<Date> prefix;
  Date day = found.schedule.dateFrom;
  while ((day == justPosted || found.posted.Has(day)) &&
         (payments == 0 || prefix.size() < payments)) {
    prefix.push_back(day);
    day = step->After(day);
  }
  return prefix;
}

OccurrenceResult SchedulePosting::Impl::PostOne(std::int64_t scheduleId, Date due) {
  Begin();
  Found found;
  const OccurrenceResult result = Find(scheduleId, due, found);
  if (result != OccurrenceResult::Done) return result;
  const UndoLog::Step step = ledger_.Undo().Begin("Post Schedule");
  try {
    Write(found.schedule, {due}, movesDates_ ? PostedPrefix(found, due) : std::vector<Date>{});
  } catch (...) {
    batch_.Commit();  // it holds nothing, but must not stay open around what comes next
    throw;
  }
  batch_.Commit();
  return result;
}

OccurrenceResult SchedulePosting::Impl::Skip(std::int64_t scheduleId, Date due) {
  Begin();
  Found found;
  const OccurrenceResult result = Find(scheduleId, due, found);
  if (result != OccurrenceResult::Done) return result;
  const auto isPending = [&](Date day) { return day != due && !found.posted.Has(day); };
  if (std::ranges::any_of(found.payments, isPending)) return OccurrenceResult::EarlierPending;
  const UndoLog::Step step = ledger_.Undo().Begin("Skip Schedule");
  MoveBehind(found.schedule, found.payments);
  return result;
}

SchedulePosting::SchedulePosting(clsCorvanta& ledger, Platform& platform, RateSource& rates)
    : impl_(std::make_unique<Impl>(ledger, platform, rates)) {}
SchedulePosting::~SchedulePosting() = default;

PostingResult SchedulePosting::PostSchedules() {
  return impl_->PostAll();
}
OccurrenceResult SchedulePosting::PostOccurrence(std::int64_t scheduleId, Date due) {
  return impl_->PostOne(scheduleId, due);
}
OccurrenceResult SchedulePosting::SkipOccurrence(std::int64_t scheduleId, Date due) {
  return impl_->Skip(scheduleId, due);
}

}  // namespace corvanta
