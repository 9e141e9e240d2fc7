#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

// What a box offers to pick from.
struct Choice {
  std::int64_t key = 0;
  std::string name;
};

// Open accounts by name, and those of the given keys even when they are closed. Throws StoreError.
[[nodiscard]] std::vector<Choice> AccountChoices(clsCorvanta& ledger,
                                                 const std::vector<std::int64_t>& also = {});

}  // namespace corvanta::inline reference
