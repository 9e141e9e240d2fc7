#pragma once

#include "ledger/Keys.h"

#include <functional>
#include <string>

namespace corvanta::inline ledger {

// Hands over the keys as they stand in SQL between the brackets of IN, so many at a time as one
// statement takes well: "1,2,3". Never an empty list.
void ForEachKeyList(Keys keys, const std::function<void(const std::string& list)>& visitor);

}  // namespace corvanta::inline ledger
