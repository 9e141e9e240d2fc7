#include "invest/WebRates.h"

#include "invest/MarketData.h"
#include "platform/PlatformError.h"
#include "store/sql/StoreError.h"

#include <vector>

namespace corvanta::inline invest {
namespace {

using namespace std::chrono_literals;

// Long enough for all rates of one report or one round of posting, short enough for a rate that
// a person asks for again to be a fresh one.
constexpr auto kRateServes = 60s;
constexpr auto kPairFailed = 3s;
constexpr auto kServiceDead = 10s;
// What takes so long to fail waited for an answer that never came.
constexpr auto kWaitOfDeadService = 2s;

}  // namespace

WebRates::WebRates(Connection& connection, Platform& platform, std::function<Time()> now)
    : connection_(connection), platform_(platform), now_(std::move(now)) {}

std::optional<double> WebRates::Rate(const std::string& from, const std::string& to) {
  if (from == to) return 1;
  const Time start = now_();
  const std::string pair = from + to;
  if (const auto known = known_.find(pair); known != known_.end() && start < known->second.until) {
    return known->second.rate;
  }
  if (deadUntil_ && start < *deadUntil_) return std::nullopt;
  const std::optional<double> rate = Fetch(from, to);
  const Time end = now_();
  if (!rate && end - start >= kWaitOfDeadService) {
    deadUntil_ = end + kServiceDead;
  } else if (rate != 1) {  // 1 may stand for a broken answer, which is better asked for again
    known_[pair] = {rate, end + (rate ? kRateServes : kPairFailed)};
  }
  return rate;
}

std::optional<double> WebRates::Fetch(const std::string& from, const std::string& to) {
  try {
    MarketData market(connection_, platform_);
    std::vector<std::string> fields;
    if (!market.FetchRate(from, to, fields)) return std::nullopt;
    const auto rate = market.NumberOf(fields.at(1));
    return rate && *rate > 0 ? rate : std::nullopt;
  } catch (const PlatformError&) {
    return std::nullopt;
  } catch (const StoreError&) {
    return std::nullopt;
  }
}

}  // namespace corvanta::inline invest
