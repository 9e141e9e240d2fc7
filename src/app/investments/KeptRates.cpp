#include "app/investments/KeptRates.h"

namespace corvanta::inline app {

std::optional<RateAnswer> KeptRates::Rate(const std::string& from, const std::string& to) {
  const auto known = known_.find(from + to);
  return known == known_.end() ? std::nullopt : std::optional(known->second);
}

void KeptRates::Fetch(const std::vector<HoldingTotal>& totals, const std::string& to,
                      RateSource& rates) {
  for (const HoldingTotal& total : totals) {
    if (total.currency == to) continue;
    if (const auto rate = rates.Rate(total.currency, to)) known_[total.currency + to] = *rate;
  }
}

}  // namespace corvanta::inline app
