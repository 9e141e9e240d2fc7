#pragma once

#include <string>
#include <string_view>

namespace corvanta::inline platform {

// A field of a CSV file (RFC 4180): between quotes where it holds a comma, a quote or a line end.
[[nodiscard]] std::string CsvField(std::string_view text);

}  // namespace corvanta::inline platform
