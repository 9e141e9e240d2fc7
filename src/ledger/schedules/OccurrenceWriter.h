#pragma once

#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

class clsCorvanta;

// Writes the rows of one schedule's occurrences. The caller has begun the transaction.
class OccurrenceWriter {
 public:
  OccurrenceWriter(clsCorvanta& ledger, const ScheduleDetails& schedule);

  // The row of the payment due on that day with its split lines, or with its other half, to which
  // `otherAmount` goes in its account's currency (0 where there is none).
  void Write(Date due, double otherAmount);

 private:
  double AddLines(clsCorvanta& ledger, const ScheduleDetails& schedule);
  void WriteLines(const std::string& day);
  void WriteOtherHalf(const std::string& day, double amount);
  [[nodiscard]] std::string NewestKey();

  Connection& store_;
  bool isTransfer_;
  DayRule days_;
  std::string schedule_;  // the keys and texts as they stand in the statements
  std::string shared_;
  std::string own_;
  std::string other_;
  std::vector<std::string> lines_;
};

}  // namespace corvanta::inline ledger
