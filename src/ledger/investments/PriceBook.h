#pragma once

#include "ledger/Keys.h"
#include "ledger/LedgerCore.h"
#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace corvanta::inline ledger {

// What one unit of an investment was worth on a day, in the currency in which it is held.
struct PriceRecord {
  std::int64_t historyId = 0;
  std::int64_t payeeId = 0;  // the investment
  Date date;
  double price = 0;
};

struct DayPrice {
  Date date;
  double price = 0;
};

// The stored prices of investments, at most one for each day. Operations throw StoreError.
class PriceBook {
 public:
  explicit PriceBook(LedgerCore& core) : core_(core) {}

  // The price of that day, in place of the one that the day had.
  void StorePrice(std::int64_t payeeId, Date date, double price);
  // All of them as one step; of several for one day the last counts. `progress` may stop it: then
  // none is stored, and false returned.
  bool StorePrices(std::int64_t payeeId, std::span<const DayPrice> prices);
  // Newest first; of one day the one that counts first.
  [[nodiscard]] std::vector<PriceRecord> PricesOf(std::int64_t payeeId);
  // The newest; of one day the one that was added last. nullopt when there is none.
  [[nodiscard]] std::optional<PriceRecord> LatestPrice(std::int64_t payeeId);
  void DeletePrices(Keys historyIds);

 private:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
