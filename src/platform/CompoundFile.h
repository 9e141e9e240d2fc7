#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvanta::inline platform {

// The bytes of a compound file (the container of older office documents) with one stream of that
// name, which is of ASCII and has at most 31 characters.
[[nodiscard]] std::string CompoundFileOf(std::string_view name, std::string stream);

// The number in its lowest bytes, the least first.
void AppendNumber(std::string& bytes, std::uint64_t number, int count);

}  // namespace corvanta::inline platform
