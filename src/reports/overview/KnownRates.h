#pragma once

#include "ledger/investments/RateSource.h"
#include "platform/Date.h"

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reports {

// The rates that the file has: nothing is fetched, and nobody is told anything. Where none is known
// it answers 1, with which amounts stay in their currency. Throws StoreError.
class KnownRates : public RateSource {
 public:
  // Of `today` or the days before it.
  KnownRates(clsCorvanta& ledger, Date today) : ledger_(ledger), today_(today) {}
  [[nodiscard]] std::optional<RateAnswer> Rate(const std::string& from,
                                               const std::string& to) override;

 private:
  clsCorvanta& ledger_;
  Date today_;
};

}  // namespace corvanta::inline reports
