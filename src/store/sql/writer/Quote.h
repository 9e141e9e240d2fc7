#pragma once

#include <string>
#include <string_view>

namespace corvanta::jet {

// A name in double quotes, for the library's SQL.
[[nodiscard]] std::string QuoteName(std::string_view name);
// A text in single quotes, for the library's SQL.
[[nodiscard]] std::string QuoteText(std::string_view text);

}  // namespace corvanta::jet
