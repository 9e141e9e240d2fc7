#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvanta::inline datafile {

// The keys of a text such as "35, 36" in order; what is no positive whole number is left out.
[[nodiscard]] std::vector<std::int64_t> KeysOfList(std::string_view list);

}  // namespace corvanta::inline datafile
