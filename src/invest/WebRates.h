#pragma once

#include "ledger/RateSource.h"

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline invest {

// Exchange rates from the currency source of the data file.
//
// A rate that was fetched serves for a minute. A failure is remembered for a few seconds: for the
// pair it was asked for, and for every pair when the service took seconds to fail, so that a list
// of rates from a dead service costs one wait and not one for each of them.
class WebRates : public RateSource {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Both outlive this object. `now` is the time that memories age by.
  WebRates(Connection& connection, Platform& platform,
           std::function<Time()> now = std::chrono::steady_clock::now);

  // 1 for one and the same currency, which is not asked for.
  [[nodiscard]] std::optional<double> Rate(const std::string& from, const std::string& to) override;

 private:
  struct Memory {
    std::optional<double> rate;
    Time until;
  };

  [[nodiscard]] std::optional<double> Fetch(const std::string& from, const std::string& to);

  Connection& connection_;
  Platform& platform_;
  std::function<Time()> now_;
  std::map<std::string, Memory> known_;  // by the two codes together
  std::optional<Time> deadUntil_;        // of the service
};

}  // namespace corvanta::inline invest
