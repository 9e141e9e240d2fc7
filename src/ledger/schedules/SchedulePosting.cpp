#include "ledger/schedules/SchedulePosting.h"

#include "ledger/clsCorvanta.h"
#include "ledger/schedules/OccurrenceWriter.h"
#include "ledger/schedules/PostingJob.h"
#include "ledger/schedules/PostingRates.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRows.h"
#include "ledger/schedules/ScheduleStart.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "platform/StatusWords.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <optional>

namespace corvanta::inline ledger {

class SchedulePosting::Impl {
 public:
  Impl(clsCorvanta& ledger, Platform& platform, RateSource& rates)
      : ledger_(ledger),
        platform_(platform),
        rates_(rates, platform.prompts),
        store_(ledger.Store()) {}

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
  [[nodiscard]] bool GoesOn();
  [[nodiscard]] std::vector<PostingJob> DueJobs();
  bool WriteAll(const std::vector<PostingJob>& jobs);
  bool WriteApart(const PostingJob& job);
  bool Write(const PostingJob& job);
  void TellRefused();
  [[nodiscard]] OccurrenceResult Find(std::int64_t scheduleId, Date due, Found& found);
  [[nodiscard]] static std::vector<Date> PostedPrefix(const Found& found, Date justPosted);

  clsCorvanta& ledger_;
  Platform& platform_;
  PostingRates rates_;
  Connection& store_;
  bool movesDates_ = false;
  std::size_t total_ = 0;  // occurrences to write
  std::string refused_;    // what could not be posted, for the person
  PostingResult result_;
};

void SchedulePosting::Impl::Begin() {
  movesDates_ = Settings(platform_.registry).IsOn(Setting::UpdateSchedule);
  rates_.Begin();
  refused_.clear();
  total_ = 0;
  result_ = {};
}

// False once the person has asked to stop.
bool SchedulePosting::Impl::GoesOn() {
  if (!platform_.progress.Yield()) result_.stopped = true;
  return !result_.stopped;
}

PostingResult SchedulePosting::Impl::PostAll() {
  Begin();
  const StatusWords status(platform_.progress, "Please wait updating scheduled records...");
  std::vector<PostingJob> jobs = DueJobs();
  if (result_.stopped) return result_;
  if (!IsAgreed(jobs, platform_)) {
    result_.declined = true;
    return result_;
  }
  for (PostingJob& job : jobs) {
    result_.waiting += FetchRates(job, rates_);
    if (!GoesOn()) return result_;
  }
  if (!WriteAll(jobs)) result_.occurrences = 0;
  TellRefused();
  return result_;
}

std::vector<PostingJob> SchedulePosting::Impl::DueJobs() {
  std::vector<PostingJob> jobs;
  for (const std::int64_t key : OpenSchedules(store_)) {
    if (auto job = DuePayments(ledger_, key, movesDates_)) jobs.push_back(std::move(*job));
    ++result_.schedules;
    if (!GoesOn()) break;
  }
  return jobs;
}

// As one step; false when the person stopped it, and nothing is written then.
bool SchedulePosting::Impl::WriteAll(const std::vector<PostingJob>& jobs) {
  for (const PostingJob& job : jobs) total_ += job.missing.size();
  const UndoLog::Step step = ledger_.Undo().Begin("Post Schedules");
  Transaction all = store_.Begin();
  // Passes are cheap where nothing is due, so the time of the last one holds none back.
  store_.Execute("UPDATE tblVerification SET UpdateSchedule = Now();");
  for (const PostingJob& job : jobs) {
    if (!WriteApart(job)) return false;
  }
  all.Commit();
  return true;
}

// A schedule whose rows the data file refuses must not keep the others from being posted for ever.
// A disk that fails ends the pass.
bool SchedulePosting::Impl::WriteApart(const PostingJob& job) {
  const std::size_t before = result_.occurrences;
  try {
    Transaction one = store_.Begin();
    if (!Write(job)) return false;
    one.Commit();
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
    result_.occurrences = before;
    const ScheduleDetails& schedule = job.schedule;
    refused_ += "\n" + schedule.account + ", " +
                (schedule.description.empty() ? schedule.payee : schedule.description) + ": " +
                error.what();
  }
  return true;
}

bool SchedulePosting::Impl::Write(const PostingJob& job) {
  constexpr std::size_t kBetweenYields = 64;
  OccurrenceWriter writer(ledger_, job.schedule);
  for (std::size_t next = 0; next < job.missing.size(); ++next) {
    if (next % kBetweenYields == 0) {
      platform_.progress.SetStep(result_.occurrences, total_);
      if (!GoesOn()) return false;
    }
    writer.Write(job.missing[next], job.otherAmounts[next]);
    ++result_.occurrences;
  }
  MoveStartBehind(store_, job.schedule, job.passed);
  return true;
}

void SchedulePosting::Impl::TellRefused() {
  if (refused_.empty() || result_.stopped) return;
  platform_.prompts.Tell("Post Schedules",
                         "The data file refuses the payments of these schedules, the others are "
                         "posted:" +
                             refused_,
                         Icon::Warning);
}

OccurrenceResult SchedulePosting::Impl::Find(std::int64_t scheduleId, Date due, Found& found) {
  const auto schedule = ledger_.Schedules().ReadSchedule(scheduleId);
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
  return FirstPayments(found.schedule,
                       [&](Date day) { return day == justPosted || found.posted.Has(day); });
}

OccurrenceResult SchedulePosting::Impl::PostOne(std::int64_t scheduleId, Date due) {
  Begin();
  Found found;
  const OccurrenceResult result = Find(scheduleId, due, found);
  if (result != OccurrenceResult::Done) return result;
  PostingJob job{found.schedule, {due}, {}, {}};
  if (movesDates_) job.passed = PostedPrefix(found, due);
  (void)FetchRates(job, rates_);
  if (job.missing.empty()) return OccurrenceResult::NoRate;
  const UndoLog::Step step = ledger_.Undo().Begin("Post Schedule");
  Transaction one = store_.Begin();
  OccurrenceWriter(ledger_, job.schedule).Write(due, job.otherAmounts.front());
  MoveStartBehind(store_, job.schedule, job.passed);
  one.Commit();
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
  MoveStartBehind(store_, found.schedule, found.payments);
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

}  // namespace corvanta::inline ledger
