#pragma once

#include "invest/holdings/Holdings.h"
#include "ledger/investments/RateSource.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline app {

// Rates that were fetched when the person asked for them: reading a view again fetches none.
class KeptRates : public RateSource {
 public:
  // One that is kept; nullopt for any other.
  [[nodiscard]] std::optional<RateAnswer> Rate(const std::string& from,
                                               const std::string& to) override;
  // Fetches those of the totals' currencies to that one, as far as there are any.
  void Fetch(const std::vector<HoldingTotal>& totals, const std::string& to, RateSource& rates);

 private:
  std::map<std::string, RateAnswer> known_;  // by both codes
};

}  // namespace corvanta::inline app
