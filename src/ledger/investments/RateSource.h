#pragma once

#include "platform/Date.h"

#include <optional>
#include <string>

namespace corvanta::inline ledger {

// A rate, and what a person has to know of it.
struct RateAnswer {
  double rate = 0;  // above 0
  std::optional<Date>
      day;  // whose rate it is where none could be fetched; nullopt for a fetched one
  std::string notice = {};  // that it is one of another day, or that 1 stands in for it; in words
};

// Where exchange rates come from.
class RateSource {
 public:
  virtual ~RateSource() = default;
  // Units of `to` for one unit of `from` (ISO 4217 codes): fetched, or the latest one known where
  // that fails; nullopt when there is none. May take some seconds and never throws: ask before a
  // write, not inside it.
  [[nodiscard]] virtual std::optional<RateAnswer> Rate(const std::string& from,
                                                       const std::string& to) = 0;
  // Whether the person stopped what the last question asked for.
  [[nodiscard]] virtual bool WasStopped() const { return false; }
};

}  // namespace corvanta::inline ledger
