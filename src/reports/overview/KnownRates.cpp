#include "reports/overview/KnownRates.h"

#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateBook.h"

namespace corvanta::inline reports {

std::optional<RateAnswer> KnownRates::Rate(const std::string& from, const std::string& to) {
  const auto known = ledger_.Rates().Latest(from, to, today_);
  return RateAnswer{known ? known->rate : 1, std::nullopt};
}

}  // namespace corvanta::inline reports
