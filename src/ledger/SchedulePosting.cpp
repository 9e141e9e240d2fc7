#include "ledger/SchedulePosting.h"

#include "ledger/Money.h"
#include "ledger/OccurrenceWriter.h"
#include "ledger/RateSource.h"
#include "ledger/ScheduleBook.h"
#include "ledger/ScheduleRows.h"
#include "ledger/ScheduleStart.h"
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "platform/StatusWords.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <optional>
#include <set>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kRateTitle = "Download Currency";

}  // namespace

class SchedulePosting::Impl {
 public:
  Impl(clsCorvanta& ledger, Platform& platform, RateSource& rates)
      : ledger_(ledger), platform_(platform), rates_(rates), store_(ledger.Store()) {}

  PostingResult PostAll();
  OccurrenceResult PostOne(std::int64_t scheduleId, Date due);
  OccurrenceResult Skip(std::int64_t scheduleId, Date due);

 private:
  struct Found {
    ScheduleDetails schedule;
    std::vector<Date> payments;  // up to the one that was asked for
    PostedRows posted;
  };
  // What there is to write for one schedule.
  struct Job {
    ScheduleDetails schedule;
    std::vector<Date> missing;
    std::vector<Date> passed;  // those that the start moves behind
    std::vector<double> otherAmounts;
  };

  void Begin();
  [[nodiscard]] bool GoesOn();
  [[nodiscard]] std::vector<std::int64_t> OpenSchedules();
  [[nodiscard]] std::vector<Job> DueJobs();
  [[nodiscard]] std::optional<Job> JobOf(std::int64_t scheduleId);
  [[nodiscard]] bool IsAgreed(const std::vector<Job>& jobs);
  void FetchRates(Job& job);
  [[nodiscard]] std::optional<double> RateOf(const ScheduleDetails& schedule);
  bool WriteAll(const std::vector<Job>& jobs);
  bool WriteApart(const Job& job);
  bool Write(const Job& job);
  void TellRefused();
  [[nodiscard]] OccurrenceResult Find(std::int64_t scheduleId, Date due, Found& found);
  [[nodiscard]] static std::vector<Date> PostedPrefix(const Found& found, Date justPosted);

  clsCorvanta& ledger_;
  Platform& platform_;
  RateSource& rates_;
  Connection& store_;
  bool movesDates_ = false;
  std::set<std::string> withoutRate_;  // pairs of currencies, so that each is waited for once
  std::set<std::string> noticed_;      // and those of which a person was told something, once
  std::size_t total_ = 0;              // occurrences to write
  std::string refused_;                // what could not be posted, for the person
  PostingResult result_;
};

void SchedulePosting::Impl::Begin() {
  movesDates_ = Settings(platform_.registry).IsOn(Setting::UpdateSchedule);
  withoutRate_.clear();
  noticed_.clear();
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
  std::vector<Job> jobs = DueJobs();
  if (result_.stopped) return result_;
  if (!IsAgreed(jobs)) {
    result_.declined = true;
    return result_;
  }
  for (Job& job : jobs) {
    FetchRates(job);
    if (!GoesOn()) return result_;
  }
  if (!WriteAll(jobs)) result_.occurrences = 0;
  TellRefused();
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

std::vector<SchedulePosting::Impl::Job> SchedulePosting::Impl::DueJobs() {
  std::vector<Job> jobs;
  for (const std::int64_t key : OpenSchedules()) {
    if (auto job = JobOf(key)) jobs.push_back(std::move(*job));
    ++result_.schedules;
    if (!GoesOn()) break;
  }
  return jobs;
}

std::optional<SchedulePosting::Impl::Job> SchedulePosting::Impl::JobOf(std::int64_t scheduleId) {
  // It may have gone while window messages ran.
  const auto schedule = ledger_.Schedules().ReadSchedule(scheduleId);
  if (!schedule || schedule->isFinished || !HasOpenAccounts(*schedule)) return std::nullopt;
  if (!schedule->automaticUntil) return std::nullopt;
  // Every payment up to that day. The estimate of DueDates for a schedule without end may fall one
  // short of it, and would grow again with each move of the start.
  Job job{*schedule, PaymentsBookedUntil(*schedule, *schedule->automaticUntil), {}, {}};
  if (movesDates_) job.passed = job.missing;
  const PostedRows posted = PostedOf(store_, scheduleId);
  std::erase_if(job.missing, [&](Date day) { return posted.Has(day); });
  if (job.missing.empty() && job.passed.empty()) return std::nullopt;
  return job;
}

// A clock that is set wrong, or a start that is, makes thousands.
bool SchedulePosting::Impl::IsAgreed(const std::vector<Job>& jobs) {
  constexpr std::size_t kMany = 300;
  std::size_t count = 0;
  std::optional<Date> last;
  for (const Job& job : jobs) {
    count += job.missing.size();
    if (!job.missing.empty())
      last = std::max(last.value_or(job.missing.back()), job.missing.back());
  }
  if (count <= kMany) return true;
  const Locale& locale = platform_.locale;
  return platform_.prompts.Ask("Post Schedules?",
                               "There are " + locale.FormatNumber(static_cast<double>(count), 0) +
                                   " scheduled payments to post, the last of them due on " +
                                   locale.FormatShortDate(*last) + ". Today is " +
                                   locale.FormatShortDate(platform_.clock.Today()) +
                                   ", says the clock. Do you wish to post them all?",
                               Icon::Warning);
}

// Fetching takes its time, and nothing is being written yet. What has no rate is not posted, and
// the start stays before it.
void SchedulePosting::Impl::FetchRates(Job& job) {
  const ScheduleDetails& schedule = job.schedule;
  const double amount = schedule.IsTransfer() ? -schedule.amount : 0;
  job.otherAmounts.assign(job.missing.size(), amount);
  if (!schedule.NeedsRate()) return;
  std::vector<Date> posted;
  job.otherAmounts.clear();
  std::optional<Date> firstWithout;
  for (const Date due : job.missing) {
    const std::optional<double> rate = RateOf(schedule);
    if (rate) {
      posted.push_back(due);
      job.otherAmounts.push_back(RoundToCurrency(*rate * amount, schedule.transferCurrency));
    } else if (!firstWithout) {
      firstWithout = due;
    }
  }
  result_.waiting += job.missing.size() - posted.size();
  job.missing = std::move(posted);
  if (firstWithout) std::erase_if(job.passed, [&](Date due) { return due >= *firstWithout; });
}

// Asked for every occurrence until it fails.
std::optional<double> SchedulePosting::Impl::RateOf(const ScheduleDetails& schedule) {
  const std::string pair = schedule.currency + ">" + schedule.transferCurrency;
  if (withoutRate_.contains(pair)) return std::nullopt;
  const auto answer = rates_.Rate(schedule.currency, schedule.transferCurrency);
  if (answer) {
    const bool isTold = answer->notice.empty() || !noticed_.insert(pair).second;
    if (!isTold) platform_.prompts.Tell(kRateTitle, answer->notice);
    return answer->rate;
  }
  if (withoutRate_.empty() && !rates_.WasStopped()) {
    platform_.prompts.Tell(kRateTitle, "Could not connect to website");
  }
  withoutRate_.insert(pair);
  return std::nullopt;
}

// As one step; false when the person stopped it, and nothing is written then.
bool SchedulePosting::Impl::WriteAll(const std::vector<Job>& jobs) {
  for (const Job& job : jobs) total_ += job.missing.size();
  const UndoLog::Step step = ledger_.Undo().Begin("Post Schedules");
  Transaction all = store_.Begin();
  // Passes are cheap where nothing is due, so the time of the last one holds none back.
  store_.Execute("UPDATE tblVerification SET UpdateSchedule = Now();");
  for (const Job& job : jobs) {
    if (!WriteApart(job)) return false;
  }
  all.Commit();
  return true;
}

// A schedule whose rows the data file refuses must not keep the others from being posted for ever.
// A disk that fails ends the pass.
bool SchedulePosting::Impl::WriteApart(const Job& job) {
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

bool SchedulePosting::Impl::Write(const Job& job) {
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
  Job job{found.schedule, {due}, {}, {}};
  if (movesDates_) job.passed = PostedPrefix(found, due);
  FetchRates(job);
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
