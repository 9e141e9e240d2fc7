#include "ledger/register/RegisterShelf.h"

#include <algorithm>

namespace corvanta::inline ledger {
namespace {

// Of all registers together; each entry takes some fifty bytes.
constexpr std::size_t kEntries = 2'500'000;

}  // namespace

RegisterShelf::Kept::iterator RegisterShelf::Find(const RegisterScope& scope) {
  std::erase_if(kept_, [](const auto& rows) { return !rows->IsCurrent(); });
  return std::ranges::find_if(kept_, [&](const auto& rows) { return rows->Scope() == scope; });
}

std::size_t RegisterShelf::Entries() const {
  std::size_t entries = 0;
  for (const auto& one : kept_) entries += one->Count();
  return entries;
}

std::shared_ptr<RegisterRows> RegisterShelf::Fetch(Connection& store, const RegisterScope& scope,
                                                   double openingBalance,
                                                   const std::optional<EntrySums>& sums) {
  const auto known = Find(scope);
  std::shared_ptr<RegisterRows> rows;
  if (known != kept_.end()) {
    rows = *known;
    kept_.erase(known);
  } else {
    rows = std::make_shared<RegisterRows>(store, scope, openingBalance, sums);
  }
  Keep(rows);
  return rows;
}

void RegisterShelf::Keep(const std::shared_ptr<RegisterRows>& rows) {
  kept_.push_back(rows);
  std::size_t entries = Entries();
  while (kept_.size() > 1 && entries > kEntries) {
    entries -= kept_.front()->Count();
    kept_.erase(kept_.begin());
  }
}

std::shared_ptr<RegisterRows> RegisterShelf::FetchFiltered(
    Connection& store, const RegisterScope& scope, const std::vector<FilteredAccount>& accounts) {
  if (const auto known = Find(scope); known != kept_.end()) {
    const std::shared_ptr<RegisterRows> rows = *known;
    kept_.erase(known);
    kept_.push_back(rows);
    return rows;
  }
  std::vector<std::shared_ptr<RegisterRows>> whole;
  for (const FilteredAccount& account : accounts) {
    const RegisterScope own{account.accountId, scope.filter, scope.period};
    whole.push_back(Fetch(store, own, account.openingBalance, account.sums));
  }
  auto rows = FilterRegister(store, scope, accounts, whole);
  Keep(rows);
  return rows;
}

std::shared_ptr<RegisterRows> RegisterShelf::FetchAhead(Connection& store,
                                                        const RegisterScope& scope,
                                                        double openingBalance,
                                                        const EntrySums& sums) {
  if (const auto known = Find(scope); known != kept_.end()) return *known;
  if (Entries() + static_cast<std::size_t>(sums.count) > kEntries) return nullptr;
  auto rows = std::make_shared<RegisterRows>(store, scope, openingBalance, sums);
  kept_.insert(kept_.begin(), rows);
  return rows;
}

}  // namespace corvanta::inline ledger
