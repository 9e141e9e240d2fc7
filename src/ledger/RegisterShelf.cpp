#include "ledger/RegisterShelf.h"

#include <algorithm>

namespace corvanta {
namespace {

// Of all registers together; each entry takes some fifty bytes.
constexpr std::size_t kEntries = 2'500'000;

}  // namespace

std::shared_ptr<RegisterRows> RegisterShelf::Take(Connection& store, const RegisterScope& scope,
                                                  double openingBalance,
                                                  const std::optional<EntrySums>& sums) {
  std::erase_if(kept_, [](const auto& rows) { return !rows->IsCurrent(); });
  const auto known =
      std::ranges::find_if(kept_, [&](const auto& rows) { return rows->Scope() == scope; });
  std::shared_ptr<RegisterRows> rows;
  if (known != kept_.end()) {
    rows = *known;
    kept_.erase(known);
  } else {
    rows = std::make_shared<RegisterRows>(store, scope, openingBalance, sums);
  }
  kept_.push_back(rows);
  std::size_t entries = 0;
  for (const auto& one : kept_) entries += one->Count();
  while (kept_.size() > 1 && entries > kEntries) {
    entries -= kept_.front()->Count();
    kept_.erase(kept_.begin());
  }
  return rows;
}

}  // namespace corvanta
