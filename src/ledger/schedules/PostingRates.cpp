#include "ledger/schedules/PostingRates.h"

#include "ledger/investments/RateSource.h"
#include "platform/Prompts.h"

namespace corvanta::inline ledger {
namespace {
constexpr const char* kRateTitle = "Download Currency";
}

void PostingRates::Begin() {
  without_.clear();
  noticed_.clear();
}

std::optional<double> PostingRates::Rate(const std::string& from, const std::string& to) {
  const std::string pair = from + ">" + to;
  if (without_.contains(pair)) return std::nullopt;
  const auto answer = rates_.Rate(from, to);
  if (answer) {
    const bool isTold = answer->notice.empty() || !noticed_.insert(pair).second;
    if (!isTold) prompts_.Tell(kRateTitle, answer->notice);
    return answer->rate;
  }
  if (without_.empty() && !rates_.WasStopped()) {
    prompts_.Tell(kRateTitle, "Could not connect to website");
  }
  without_.insert(pair);
  return std::nullopt;
}

}  // namespace corvanta::inline ledger
