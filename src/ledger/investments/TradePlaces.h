#pragma once

#include "ledger/Keys.h"

#include <cstdint>
#include <unordered_map>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// Where an investment transaction stands among others that are sorted by what was done.
struct TradePlace {
  std::int64_t action = 0;  // its code
  std::uint64_t place = 0;  // by units and price, from 0; alike ones have the same
};
using TradePlaces = std::unordered_map<std::int64_t, TradePlace>;  // by the transaction's key

// Those of the transactions that have an action. Throws StoreError.
[[nodiscard]] TradePlaces ReadTradePlaces(Connection& store, Keys transactionIds);

}  // namespace corvanta::inline ledger
