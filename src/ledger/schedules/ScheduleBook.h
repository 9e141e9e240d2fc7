#pragma once

#include "ledger/Keys.h"
#include "ledger/schedules/ScheduleReader.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionRecord.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline ledger {

class clsCorvanta;
struct PlanChange;
struct SchedulePlan;

// Writing and deleting schedules (posting: SchedulePosting.h, reminders: Reminders.h).
class ScheduleBook : public ScheduleReader {
 public:
  ScheduleBook(LedgerCore& core, clsCorvanta& ledger) : ScheduleReader(core), ledger_(ledger) {}

  // Writes the schedule; its key is put into the record and returned. A parent's amount is the sum
  // of its lines, whatever the record says, and the lines take what they share with it; a transfer
  // keeps no lines. A line (allocatedItem, or a row that is one) changes the parent's amount.
  // A change concerns what is still to come (see ScheduleChange.h, ScheduleForecasts.h): start and
  // number in the record are then those that were stored. 0 when there is no such schedule or
  // parent.
  std::int64_t SaveSchedule(ScheduleRecord& record);
  // The plan that saving the record would store.
  [[nodiscard]] SchedulePlan PlanAfterSaving(ScheduleRecord record);
  // A copy with its lines that begins behind what its source has posted, and is finished where that
  // is; returns its key, 0 when there is no such schedule.
  std::int64_t PasteSchedule(std::int64_t scheduleId);
  // A copy of each, as one step; the last one's key, 0 when there is none of them.
  std::int64_t PasteSchedules(Keys scheduleIds);
  // With its lines. The rows posted from it are deleted too, or stay as rows entered by hand.
  void DeleteSchedule(std::int64_t scheduleId, bool withPostedRows);
  // The row is no longer the schedule's occurrence.
  void DetachFromSchedule(std::int64_t transactionId);

 private:
  std::int64_t CopySchedule(std::int64_t sourceId, std::int64_t parentId);
  void DeletePostedRows(std::int64_t scheduleId);
  bool SumScheduleLines(std::int64_t scheduleId);
  [[nodiscard]] bool InheritFromParent(ScheduleRecord& line);
  void FitAmount(ScheduleRecord& record, const std::optional<ScheduleDetails>& former);
  std::int64_t WriteSchedule(const ScheduleRecord& record);
  void ScheduleLinesFollow(const ScheduleRecord& parent);
  [[nodiscard]] bool SaveScheduleLine(ScheduleRecord& record,
                                      const std::optional<ScheduleDetails>& former);
  void SaveWholeSchedule(ScheduleRecord& record, const std::optional<ScheduleDetails>& former);
  [[nodiscard]] PlanChange ChangeOf(const ScheduleDetails& former, const ScheduleRecord& record);
  void BeginBehind(const ScheduleDetails& source, std::int64_t copy);

  clsCorvanta& ledger_;
};

}  // namespace corvanta::inline ledger
