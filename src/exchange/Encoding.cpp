#include "exchange/Encoding.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace corvanta {
namespace {

// What Windows-1252 has at 0x80 to 0x9F; the five that it leaves free stand for themselves.
constexpr std::array<char32_t, 32> kUpper = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

constexpr char32_t kReplacement = 0xFFFD;

std::uint8_t Byte(char c) {
  return static_cast<std::uint8_t>(c);
}

void Append(std::string& text, char32_t c) {
  const auto add = [&text](char32_t byte) {
    text += static_cast<char>(static_cast<std::uint8_t>(byte));
  };
  if (c < 0x80) return add(c);
  if (c < 0x800) {
    add(0xC0 | (c >> 6U));
  } else if (c < 0x10000) {
    add(0xE0 | (c >> 12U));
    add(0x80 | ((c >> 6U) & 0x3FU));
  } else {
    add(0xF0 | (c >> 18U));
    add(0x80 | ((c >> 12U) & 0x3FU));
    add(0x80 | ((c >> 6U) & 0x3FU));
  }
  add(0x80 | (c & 0x3FU));
}

// The character at the front, which is taken off; nullopt where the bytes are none.
std::optional<char32_t> TakeCharacter(std::string_view& bytes) {
  const std::uint8_t first = Byte(bytes.front());
  if (first < 0x80) {
    bytes.remove_prefix(1);
    return first;
  }
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return std::nullopt;
  char32_t c = first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((Byte(bytes[i]) & 0xC0U) != 0x80U) return std::nullopt;
    c = (c << 6U) | (Byte(bytes[i]) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kLeast = {0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = c >= 0xD800 && c <= 0xDFFF;
  if (c < kLeast[length] || c > 0x10FFFF || isSurrogate) return std::nullopt;
  bytes.remove_prefix(length);
  return c;
}

std::string FromUtf16(std::string_view bytes, bool bigEndian) {
  std::string text;
  const auto unit = [&](std::size_t at) -> char32_t {
    const char32_t low = Byte(bytes[at + (bigEndian ? 1 : 0)]);
    const char32_t high = Byte(bytes[at + (bigEndian ? 0 : 1)]);
    return (high << 8U) | low;
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    char32_t c = unit(i);
    if (c >= 0xD800 && c <= 0xDFFF) {
      const char32_t next = c < 0xDC00 && i + 3 < bytes.size() ? unit(i + 2) : 0;
      const bool isPair = next >= 0xDC00 && next <= 0xDFFF;
      c = isPair ? 0x10000 + ((c - 0xD800) << 10U) + (next - 0xDC00) : kReplacement;
      if (isPair) i += 2;
    }
    Append(text, c);
  }
  return text;
}

std::string FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 16);
  for (const char c : bytes) {
    const std::uint8_t byte = Byte(c);
    Append(text, byte >= 0x80 && byte < 0xA0 ? kUpper[byte - 0x80U] : byte);
  }
  return text;
}

// Whether the file's header names an encoding of Windows or Latin-1.
bool HeaderSaysWindows(std::string_view bytes) {
  constexpr std::size_t kHeader = 1024;
  const std::string head = ToLower(bytes.substr(0, kHeader));
  if (head.starts_with("ofxheader")) {
    if (head.find("encoding:utf-8") != std::string::npos) return false;
    return head.find("charset:1252") != std::string::npos ||
           head.find("charset:iso-8859-1") != std::string::npos ||
           head.find("charset:8859-1") != std::string::npos;
  }
  const std::size_t start = head.find("<?xml");
  if (start == std::string::npos) return false;
  const std::string declaration = head.substr(start, head.find("?>", start) - start);
  return declaration.find("windows-1252") != std::string::npos ||
         declaration.find("iso-8859-1") != std::string::npos;
}

std::optional<std::uint8_t> ToWindows1252(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<std::uint8_t>(c);
  const auto* const found = std::ranges::find(kUpper, c);
  if (found == kUpper.end()) return std::nullopt;
  return static_cast<std::uint8_t>(0x80 + (found - kUpper.begin()));
}

}  // namespace

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    if (!TakeCharacter(bytes)) return false;
  }
  return true;
}

std::string DecodeText(std::string bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) {
    bytes.erase(0, 3);
    return IsUtf8(bytes) ? bytes : FromWindows1252(bytes);
  }
  if (bytes.starts_with("\xFF\xFE")) return FromUtf16(std::string_view(bytes).substr(2), false);
  if (bytes.starts_with("\xFE\xFF")) return FromUtf16(std::string_view(bytes).substr(2), true);
  if (!HeaderSaysWindows(bytes) && IsUtf8(bytes)) return bytes;
  return FromWindows1252(bytes);
}

std::string EncodeWindows1252(std::string_view text) {
  std::string bytes;
  while (!text.empty()) {
    const std::optional<char32_t> c = TakeCharacter(text);
    if (!c) {
      bytes += '?';
      text.remove_prefix(1);
    } else if (const auto byte = ToWindows1252(*c)) {
      bytes += static_cast<char>(*byte);
    } else {
      bytes += "&#" + std::to_string(static_cast<std::uint32_t>(*c)) + ";";
    }
  }
  return bytes;
}

}  // namespace corvanta
