#include "ledger/register/RowFinder.h"

#include "ledger/register/RegisterRows.h"

#include <algorithm>

namespace corvanta::inline ledger {

RowFinder::RowFinder(const RegisterRows& rows) {
  const std::vector<RegisterEntry>& entries = rows.Entries();
  std::int32_t most = 0;
  std::int32_t least = 0;  // a file that another program wrote may have keys below 0
  for (const RegisterEntry& entry : entries) {
    most = std::max(most, entry.transactionId);
    least = std::min(least, entry.transactionId);
  }
  const auto size = static_cast<std::size_t>(most) + 1;
  constexpr std::size_t kLoose = 16;  // a long account's keys lie closer
  if (least >= 0 && size <= kLoose * entries.size()) dense_.resize(size, kNone);
  std::size_t row = rows.Count();
  for (const RegisterEntry& entry : entries) {
    --row;
    if (dense_.empty()) {
      sparse_.emplace(entry.transactionId, row);
    } else {
      dense_[static_cast<std::size_t>(entry.transactionId)] = static_cast<std::uint32_t>(row);
    }
  }
}

std::optional<std::size_t> RowFinder::Find(std::int64_t key) const {
  if (dense_.empty()) {
    const auto found = sparse_.find(key);
    return found == sparse_.end() ? std::nullopt : std::optional(found->second);
  }
  const auto place = static_cast<std::size_t>(key);
  if (place >= dense_.size() || dense_[place] == kNone) return std::nullopt;
  return dense_[place];
}

}  // namespace corvanta::inline ledger
