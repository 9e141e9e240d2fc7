#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace corvanta::inline reference {

// The record whose key is `value`; nullopt when there is none.
template <typename Record>
[[nodiscard]] std::optional<Record> RowOf(const std::vector<Record>& rows,
                                          std::int64_t Record::*key, std::int64_t value) {
  const auto row = std::find_if(rows.begin(), rows.end(),
                                [&](const Record& candidate) { return candidate.*key == value; });
  return row == rows.end() ? std::nullopt : std::optional(*row);
}

}  // namespace corvanta::inline reference
