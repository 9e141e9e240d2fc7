// A file typed by a person, as text.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

// A larger file is no statement; what is read stays in memory while it is imported.
inline constexpr std::size_t kLargestImport = 256U << 20U;

struct FileText {
  std::string text;                  // UTF-8, whatever the file's encoding
  std::size_t replaced = 0;          // places that make no sense in that encoding
  std::optional<std::string> fault;  // why this is no text to import, in words for a person
};

// Reads the whole file in the chosen encoding (see DecodeText; empty: as the file shows).
// `whileReading` is called between its pieces; false stops, and the text is empty then. What a
// person can mistake for a statement (a folder, a picture, a file that is too large or still being
// written) is a fault; throws PlatformError where the machine cannot read it.
[[nodiscard]] FileText ReadFileText(const std::string& path, const std::string& encoding = {},
                                    const std::function<bool()>& whileReading = {},
                                    std::size_t limit = kLargestImport);

// The number of the first line that is too long for any line of a QIF or CSV file; 0 when none is.
[[nodiscard]] std::size_t FindEndlessLine(std::string_view text);

}  // namespace corvanta::inline exchange
