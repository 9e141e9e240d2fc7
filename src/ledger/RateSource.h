#pragma once

#include <optional>
#include <string>

namespace corvanta::inline ledger {

// Where exchange rates come from.
class RateSource {
 public:
  virtual ~RateSource() = default;
  // Units of `to` for one unit of `from` (ISO 4217 codes), above 0; nullopt when it could not be
  // fetched. May take some seconds and never throws: ask before a write, not inside it.
  [[nodiscard]] virtual std::optional<double> Rate(const std::string& from,
                                                   const std::string& to) = 0;
};

}  // namespace corvanta::inline ledger
