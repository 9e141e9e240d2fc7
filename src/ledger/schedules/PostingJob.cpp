#include "ledger/schedules/PostingJob.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/schedules/PostingRates.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRows.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline ledger {

std::vector<std::int64_t> OpenSchedules(Connection& store) {
  std::vector<std::int64_t> keys;
  Recordset rows = store.OpenRecordset(
      "Select S.* from tblSchedule S INNER JOIN tblAccounts A ON S.AccountID = A.AccountID "
      " Where Nz(CloseAccount, 0) <> 1 AND AllocatedItem = 0");
  const int key = rows.FieldIndex("ScheduleID");
  for (; !rows.Eof(); rows.MoveNext()) keys.push_back(rows.Int(key));
  return keys;
}

std::optional<PostingJob> DuePayments(clsCorvanta& ledger, std::int64_t scheduleId,
                                      bool movesDates) {
  // It may have gone while window messages ran.
  const auto schedule = ledger.Schedules().ReadSchedule(scheduleId);
  if (!schedule || schedule->isFinished || !HasOpenAccounts(*schedule)) return std::nullopt;
  if (!schedule->automaticUntil) return std::nullopt;
  // Every payment up to that day. The estimate of DueDates for a schedule without end may fall one
  // short of it, and would grow again with each move of the start.
  PostingJob job{*schedule, PaymentsBookedUntil(*schedule, *schedule->automaticUntil), {}, {}};
  if (movesDates) job.passed = job.missing;
  const PostedRows posted = PostedOf(ledger.Store(), scheduleId);
  std::erase_if(job.missing, [&](Date day) { return posted.Has(day); });
  if (job.missing.empty() && job.passed.empty()) return std::nullopt;
  return job;
}

// A clock that is set wrong, or a start that is, makes thousands.
bool IsAgreed(const std::vector<PostingJob>& jobs, Platform& platform) {
  constexpr std::size_t kMany = 300;
  std::size_t count = 0;
  std::optional<Date> last;
  for (const PostingJob& job : jobs) {
    count += job.missing.size();
    if (!job.missing.empty())
      last = std::max(last.value_or(job.missing.back()), job.missing.back());
  }
  if (count <= kMany) return true;
  const Locale& locale = platform.locale;
  return platform.prompts.Ask("Post Schedules?",
                              "There are " + locale.FormatNumber(static_cast<double>(count), 0) +
                                  " scheduled payments to post, the last of them due on " +
                                  locale.FormatShortDate(*last) + ". Today is " +
                                  locale.FormatShortDate(platform.clock.Today()) +
                                  ", says the clock. Do you wish to post them all?",
                              Icon::Warning);
}

std::size_t FetchRates(PostingJob& job, PostingRates& rates) {
  const ScheduleDetails& schedule = job.schedule;
  const double amount =
      schedule.IsTransfer() ? -RoundToCurrency(schedule.amount, schedule.currency) : 0;
  job.otherAmounts.assign(job.missing.size(), amount);
  if (!schedule.NeedsRate()) return 0;
  std::vector<Date> posted;
  job.otherAmounts.clear();
  std::optional<Date> firstWithout;
  for (const Date due : job.missing) {
    const std::optional<double> rate = rates.Rate(schedule.currency, schedule.transferCurrency);
    if (rate) {
      posted.push_back(due);
      job.otherAmounts.push_back(RoundToCurrency(*rate * amount, schedule.transferCurrency));
    } else if (!firstWithout) {
      firstWithout = due;
    }
  }
  const std::size_t waiting = job.missing.size() - posted.size();
  job.missing = std::move(posted);
  if (firstWithout) std::erase_if(job.passed, [&](Date due) { return due >= *firstWithout; });
  return waiting;
}

}  // namespace corvanta::inline ledger
