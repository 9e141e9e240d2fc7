#include "ledger/KeyLists.h"

#include "store/sql/SqlText.h"

#include <algorithm>
#include <cstddef>

namespace corvanta::inline ledger {

void ForEachKeyList(Keys keys, const std::function<void(const std::string& list)>& visitor) {
  constexpr std::size_t kAtOnce = 500;
  for (std::size_t first = 0; first < keys.size(); first += kAtOnce) {
    std::string list;
    for (const std::int64_t key : keys.subspan(first, std::min(kAtOnce, keys.size() - first))) {
      list += (list.empty() ? "" : ",") + SqlNumber(key);
    }
    visitor(list);
  }
}

}  // namespace corvanta::inline ledger
