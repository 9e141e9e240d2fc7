#pragma once

#include "ledger/schedules/ScheduleRecord.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Argument;
class Parser;
class Session;

// A schedule named on the command line by its key.
class ScheduleArgument {
 public:
  Argument* Declare(Parser& command);
  // nullopt when there is none, or it is a line of one, which has then been told.
  [[nodiscard]] std::optional<ScheduleDetails> Find(clsCorvanta& ledger, Session& session) const;
  [[nodiscard]] bool IsGiven() const { return key_.has_value(); }

 private:
  std::optional<std::int64_t> key_;
};

}  // namespace corvanta::inline cli
