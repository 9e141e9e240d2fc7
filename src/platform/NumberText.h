#pragma once

#include <optional>
#include <string_view>

namespace corvanta::inline platform {

// Reads a number as a person types it, with `decimal` and `group` the locale's separators (one
// character each as UTF-8). IcuLocale::ParseNumber says what is accepted.
[[nodiscard]] std::optional<double> ReadNumber(std::string_view text, std::string_view decimal,
                                               std::string_view group);

}  // namespace corvanta::inline platform
