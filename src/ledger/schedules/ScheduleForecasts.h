#pragma once

#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {

class clsCorvanta;
struct PlanChange;

// The posted rows of a schedule that is about to change. A forecast, dated after today, that still
// says what the schedule said follows the change. What a person has made of a row stays, and so
// does what has come to pass; only which payment such a row stands for may change.
//
// The caller has begun the transaction. Operations throw StoreError.
class ScheduleForecasts {
 public:
  // Reads them; `former` is the schedule as it is stored, with its lines.
  ScheduleForecasts(clsCorvanta& ledger, ScheduleDetails former, const Platform& platform);

  // The schedule has been written: its forecasts become what it now says. Those of the posting pass
  // that it would no longer make are deleted; so is a transfer into another currency for which
  // there is no rate to go by, and which is posted anew when there is one.
  void Follow(const PlanChange& change);
  // The same with a plan that has not changed.
  void Follow();
  // Deletes the forecasts that nobody has touched.
  void Remove();

 private:
  using Line = std::tuple<std::int64_t, double, std::string, std::string>;
  struct Row {
    std::int64_t transactionId = 0;
    Date due;
    bool isForecast = false;  // that nobody has touched
    double amount = 0;
    double otherAmount = 0;  // of a transfer: what arrives
  };

  [[nodiscard]] bool IsUntouched(Row& row, std::int64_t twinCategory);
  [[nodiscard]] std::vector<Line> LinesOf(std::int64_t scheduleId);
  [[nodiscard]] bool IsMadeNow(Date formerDue, Date due, const ScheduleDetails& now) const;
  [[nodiscard]] bool SaysTheSame(const ScheduleDetails& now);
  [[nodiscard]] std::optional<double> OtherAmount(const Row& row, const ScheduleDetails& now) const;
  void SetDue(const Row& row, std::optional<Date> due, bool keepsDates);

  clsCorvanta& ledger_;
  ScheduleDetails former_;
  std::vector<Line> lines_;
  std::vector<Row> rows_;
};

}  // namespace corvanta::inline ledger
