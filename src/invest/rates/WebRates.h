#pragma once

#include "invest/prices/MarketData.h"
#include "ledger/investments/RateSource.h"

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace corvanta::inline invest {

// Exchange rates from the currency source of the data file, and the latest one that is kept in it
// where the source gives none.
//
// A rate that was fetched serves for a minute. A failure is remembered for a few seconds: for the
// pair it was asked for, and for every pair when the service took seconds to fail, so that a list
// of rates from a dead service costs one wait and not one for each of them. What the person stopped
// is no failure, and asked for again.
class WebRates : public RateSource {
 public:
  using Time = std::chrono::steady_clock::time_point;

  // Both outlive this object. `now` is the time that memories age by.
  WebRates(clsCorvanta& ledger, Platform& platform,
           std::function<Time()> now = std::chrono::steady_clock::now);

  // 1 for one and the same currency, which is not asked for. Where the answer of the source held no
  // rate and none is known, 1 stands in for it.
  [[nodiscard]] std::optional<RateAnswer> Rate(const std::string& from,
                                               const std::string& to) override;
  [[nodiscard]] bool WasStopped() const override { return wasStopped_; }

 private:
  struct Fetched {
    std::optional<double> rate;
    std::string trouble;  // in words; of a rate, that it stands in for one
    bool wasStopped = false;
  };
  struct Memory {
    Fetched fetched;
    Time until;
  };

  [[nodiscard]] Fetched FetchOrRemember(const std::string& from, const std::string& to);
  [[nodiscard]] Fetched Fetch(const std::string& from, const std::string& to);
  [[nodiscard]] std::optional<RateAnswer> Latest(const std::string& from, const std::string& to);

  clsCorvanta& ledger_;
  Platform& platform_;
  MarketData market_;
  std::function<Time()> now_;
  std::map<std::string, Memory> known_;  // by the two codes together
  std::optional<Time> deadUntil_;        // of the service
  bool wasStopped_ = false;
};

}  // namespace corvanta::inline invest
