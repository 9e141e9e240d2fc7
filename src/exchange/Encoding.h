// Bytes of files as text.
#pragma once

#include <string>
#include <string_view>

namespace corvanta {

[[nodiscard]] bool IsUtf8(std::string_view bytes);

// The bytes as UTF-8 without a byte-order mark. The mark decides (UTF-8, UTF-16); without one a
// header of OFX or XML that names Windows-1252 or Latin-1 does; without that the bytes are UTF-8
// where they are valid UTF-8, else Windows-1252.
[[nodiscard]] std::string DecodeText(std::string bytes);

// Windows-1252; a character that it has not becomes a numeric reference (&#8470;).
[[nodiscard]] std::string EncodeWindows1252(std::string_view text);

}  // namespace corvanta
