#include "invest/rates/WebRates.h"

#include "invest/rates/CurrencyConverter.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateBook.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
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
constexpr const char* kUnreachable = "Could not connect to website";

}  // namespace

WebRates::WebRates(clsCorvanta& ledger, Platform& platform, std::function<Time()> now)
    : ledger_(ledger), platform_(platform), market_(ledger, platform), now_(std::move(now)) {}

std::optional<RateAnswer> WebRates::Rate(const std::string& from, const std::string& to) {
  wasStopped_ = false;
  if (from == to) return RateAnswer{1, std::nullopt};
  const Fetched fetched = FetchOrRemember(from, to);
  wasStopped_ = fetched.wasStopped;
  if (fetched.rate && fetched.trouble.empty()) return RateAnswer{*fetched.rate, std::nullopt};
  std::optional<RateAnswer> latest = Latest(from, to);
  if (latest) {
    const std::string trouble = fetched.rate         ? fetched.trouble
                                : fetched.wasStopped ? "The download was stopped."
                                                     : std::string(kUnreachable) + ".";
    latest->notice = trouble + " " + latest->notice;
    return latest;
  }
  if (!fetched.rate) return std::nullopt;
  return RateAnswer{*fetched.rate, std::nullopt,
                    fetched.trouble + " One " + from + " was taken for one " + to + "."};
}

WebRates::Fetched WebRates::FetchOrRemember(const std::string& from, const std::string& to) {
  const Time start = now_();
  const std::string pair = from + to;
  if (const auto known = known_.find(pair); known != known_.end() && start < known->second.until) {
    return known->second.fetched;
  }
  if (deadUntil_ && start < *deadUntil_) return {};
  const Fetched fetched = Fetch(from, to);
  if (fetched.wasStopped) return fetched;
  const Time end = now_();
  const bool isStandIn = fetched.rate && !fetched.trouble.empty();
  if (!fetched.rate && end - start >= kWaitOfDeadService) {
    deadUntil_ = end + kServiceDead;
  } else if (!isStandIn) {  // a broken answer is better asked for again
    known_[pair] = {fetched, end + (fetched.rate ? kRateServes : kPairFailed)};
  }
  return fetched;
}

WebRates::Fetched WebRates::Fetch(const std::string& from, const std::string& to) {
  try {
    std::vector<std::string> fields;
    if (!market_.FetchRate(from, to, fields)) {
      return {std::nullopt, market_.Trouble().text, market_.Trouble().wasStopped};
    }
    const auto rate = market_.NumberOf(fields.at(1));
    if (!rate || *rate <= 0) return {};
    return {rate, market_.Trouble().text};
  } catch (const PlatformError&) {
    return {};
  } catch (const StoreError&) {
    return {};
  }
}

std::optional<RateAnswer> WebRates::Latest(const std::string& from, const std::string& to) {
  try {
    const auto known = ledger_.Rates().Latest(from, to, platform_.clock.Today());
    if (!known) return std::nullopt;
    const CurrencyConverter numbers(*this, platform_.locale);
    return RateAnswer{known->rate, known->date,
                      "The rate of " + platform_.locale.FormatShortDate(known->date) +
                          " was used: 1 " + from + " = " + numbers.PlainNumber(known->rate) + " " +
                          to + "."};
  } catch (const StoreError&) {
    return std::nullopt;
  }
}

}  // namespace corvanta::inline invest
