// Bytes of files as text.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

[[nodiscard]] bool IsUtf8(std::string_view bytes);

struct DecodedText {
  std::string text;          // UTF-8 without a byte-order mark
  std::size_t replaced = 0;  // places that make no sense in their encoding: U+FFFD in the text
};

// The bytes as text. A chosen encoding holds whatever the bytes say. Otherwise a byte-order mark
// decides; without one the bytes are UTF-8 where they are valid UTF-8, else what a header of OFX or
// XML names, where they make sense in it, else the encoding in which they look like words.
[[nodiscard]] DecodedText DecodeText(std::string bytes, const std::string& chosen = {});

// Whether that is an encoding, such as windows-1250, iso-8859-2, cp852 or shift_jis.
[[nodiscard]] bool IsEncoding(const std::string& name);

// The ones that a person can choose from.
struct Encoding {
  const char* name;
  const char* label;
};
[[nodiscard]] std::span<const Encoding> Encodings();

// Windows-1252; a character that it has not becomes a numeric reference (&#8470;).
[[nodiscard]] std::string EncodeWindows1252(std::string_view text);

}  // namespace corvanta::inline exchange
