#pragma once

#include "invest/holdings/CostBasis.h"
#include "invest/holdings/HoldingTrack.h"
#include "ledger/register/Period.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline ledger {
class RateSource;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline invest {

// One investment in one account, as it stands. Amounts in the account's currency, rounded to cents
// where a currency has them; the value is units times the latest price, whatever day that is of.
struct Holding {
  std::int64_t accountId = 0;
  std::string account;
  std::int64_t payeeId = 0;
  std::string investment;
  std::string symbol;
  std::int64_t currencyId = 0;
  std::string currency;  // the code
  double units = 0;
  double averageCost = 0;  // of a unit; 0 where none is held
  double cost = 0;         // of those held
  std::optional<DayPrice> price;
  double value = 0;
  double share = 0;       // of all that the list holds in the currency, 0 to 1
  double unrealised = 0;  // value less cost
  double realised = 0;    // with what was sold
  double dividends = 0;
  PeriodReturn earned;  // where a period was asked for
};

// What holdings of one currency come to.
struct HoldingTotal {
  std::int64_t currencyId = 0;
  std::string currency = {};
  double cost = 0;
  double value = 0;
  double unrealised = 0;
  double realised = 0;
  double dividends = 0;
  PeriodReturn earned = {};
};

struct HoldingsScope {
  std::int64_t accountId = 0;  // 0: all accounts
  CostMethod method = CostMethod::Average;
  bool withSold = false;         // also those of which nothing is left
  std::optional<Period> period;  // that returns are asked of, which takes all prices
};

struct HoldingsList {
  std::vector<Holding> holdings;     // by account and investment
  std::vector<HoldingTotal> totals;  // in the order in which the currencies occur
  std::vector<HoldingTrack> tracks;  // of the holdings, where a period was asked for

  // Of those of one currency.
  [[nodiscard]] std::vector<const HoldingTrack*> TracksOf(std::int64_t currencyId) const;
};

// What the totals come to in one currency.
struct ConvertedTotal {
  HoldingTotal total;
  std::vector<std::string> missing;  // currencies without a rate, which are left out
  std::vector<std::string> notices;  // of rates that are of another day, in words
};

// How the person wants costs to be assigned, and the setting of it. Throws PlatformError.
[[nodiscard]] CostMethod ChosenCostMethod(Registry& registry);
void ChooseCostMethod(Registry& registry, CostMethod method);

// Reads the holdings. Throws StoreError.
[[nodiscard]] HoldingsList ReadHoldings(clsCorvanta& ledger, const HoldingsScope& scope);
// The same at today's rates, which may have to be fetched.
[[nodiscard]] ConvertedTotal Converted(const std::vector<HoldingTotal>& totals,
                                       const std::string& currency, RateSource& rates);

}  // namespace corvanta::inline invest
