#include "platform/ShownText.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>

namespace corvanta::inline platform {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
constexpr UChar32 kDelete = 0x7F;

bool IsPlain(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return (byte >= 0x20 && byte < kDelete) || character == '\n';
}

// U+2400 and the following ones are pictures of the control characters.
std::string Picture(UChar32 control) {
  const int number = control == kDelete ? 0x21 : control;
  return {'\xE2', '\x90', static_cast<char>(0x80 + number)};
}

bool Steers(UChar32 character) {
  switch (u_charType(character)) {
    case U_CONTROL_CHAR:
    case U_LINE_SEPARATOR:
    case U_PARAGRAPH_SEPARATOR:
      return true;
    default:
      // U+206A to U+206F once changed shapes and digits.
      return u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) != 0 ||
             (character >= 0x206A && character <= 0x206F);
  }
}

void Append(std::string& shown, std::string_view bytes, UChar32 character) {
  if (character == '\t' || character == '\r') {
    shown += ' ';
  } else if (character >= 0 && (character < 0x20 || character == kDelete)) {
    shown += Picture(character);
  } else if (character < 0 || Steers(character)) {
    shown += kReplacement;
  } else {
    shown += bytes;
  }
}

// The character that begins there, behind which `at` is moved; negative for bytes that are none.
UChar32 Next(std::string_view text, std::int64_t& at) {
  UChar32 character = 0;
  const auto length = static_cast<std::int64_t>(text.size());
// The library's macro narrows an int that it has masked.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
  U8_NEXT(text.data(), at, length, character);
#pragma GCC diagnostic pop
  return character;
}

}  // namespace

std::string ShownText(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  const auto length = static_cast<std::int64_t>(text.size());
  for (std::int64_t at = 0; at < length;) {
    const auto begin = static_cast<std::size_t>(at);
    if (text.substr(begin, 2) == "\r\n") {
      ++at;
    } else if (IsPlain(text[begin])) {
      shown += text[begin];
      ++at;
    } else {
      const UChar32 character = Next(text, at);
      Append(shown, text.substr(begin, static_cast<std::size_t>(at) - begin), character);
    }
  }
  return shown;
}

}  // namespace corvanta::inline platform
