#include "exchange/text/Encoding.h"

#include "exchange/text/EncodingGuess.h"
#include "platform/TextCase.h"

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <vector>

namespace corvanta::inline exchange {
namespace {

constexpr const char* kUtf8 = "UTF-8";
constexpr const char* kWindows = "windows-1252";

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

Converter OpenConverter(const std::string& name) {
  UErrorCode status = U_ZERO_ERROR;
  Converter converter(name.empty() ? nullptr : ucnv_open(name.c_str(), &status));
  return U_SUCCESS(status) ? std::move(converter) : nullptr;
}

Converter OpenKnown(const char* name) {
  Converter converter = OpenConverter(name);
  if (converter == nullptr) throw std::bad_alloc();
  return converter;
}

// Counts what makes no sense and puts U+FFFD in its place.
void CountReplaced(const void* count, UConverterToUnicodeArgs* arguments, const char* bytes,
                   std::int32_t length, UConverterCallbackReason reason, UErrorCode* status) {
  if (reason > UCNV_IRREGULAR) return;
  ++*static_cast<std::size_t*>(const_cast<void*>(count));
  UCNV_TO_U_CALLBACK_SUBSTITUTE(nullptr, arguments, bytes, length, reason, status);
}

// From one converter to the other, piece by piece: a file may be large.
std::string Convert(UConverter& from, UConverter& to, std::string_view bytes) {
  constexpr std::size_t kPivot = 4096;
  std::array<UChar, kPivot> pivot{};
  std::array<char, 4 * kPivot> piece{};
  std::string result;
  result.reserve(bytes.size() + bytes.size() / 16);
  const char* source = bytes.data();
  UChar* pivotSource = pivot.data();
  UChar* pivotTarget = pivot.data();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  for (bool isFirst = true; status == U_BUFFER_OVERFLOW_ERROR; isFirst = false) {
    status = U_ZERO_ERROR;
    char* target = piece.data();
    ucnv_convertEx(&to, &from, &target, piece.data() + piece.size(), &source,
                   bytes.data() + bytes.size(), pivot.data(), &pivotSource, &pivotTarget,
                   pivot.data() + pivot.size(), isFirst ? 1 : 0, 1, &status);
    result.append(piece.data(), target);
  }
  return result;
}

DecodedText Decode(UConverter& from, std::string_view bytes) {
  DecodedText decoded;
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setToUCallBack(&from, CountReplaced, &decoded.replaced, nullptr, nullptr, &status);
  decoded.text = Convert(from, *OpenKnown(kUtf8), bytes);
  return decoded;
}

// What stands behind the key in a header of lines or in a declaration, such as 1252.
std::string ValueBehind(std::string_view head, std::string_view key) {
  const std::size_t at = head.find(key);
  if (at == std::string_view::npos) return {};
  std::string_view rest = head.substr(at + key.size());
  rest = rest.substr(0, rest.find_first_of("\r\n<>?"));
  rest = Trim(rest);
  if (rest.starts_with('"') || rest.starts_with('\'')) {
    return std::string(rest.substr(1, rest.find(rest.front(), 1) - 1));
  }
  return std::string(rest.substr(0, rest.find_first_of(" \t")));
}

// The name of a code page that is declared by its number, as in "CHARSET:1250".
std::string NameOf(std::string declared) {
  if (declared.starts_with("8859-")) declared.insert(0, "iso-");
  // What is called Latin-1 uses the Windows page all the same.
  if (declared == "iso-8859-1" || declared == "latin1") return kWindows;
  const bool isNumber =
      !declared.empty() && declared.find_first_not_of("0123456789") == std::string::npos;
  if (!isNumber) return declared;
  const std::string windows = "windows-" + declared;
  return IsEncoding(windows) ? windows : "cp" + declared;
}

// The encoding that the header of an OFX or XML file names; empty for none.
std::string DeclaredIn(std::string_view bytes) {
  constexpr std::size_t kHeader = 1024;
  const std::string head = ToLower(bytes.substr(0, kHeader));
  if (head.starts_with("ofxheader")) {
    const std::string charset = ValueBehind(head, "charset:");
    if (!charset.empty() && charset != "none") return NameOf(charset);
    const std::string encoding = ValueBehind(head, "encoding:");
    return encoding == "usascii" || encoding == "unicode" ? std::string() : NameOf(encoding);
  }
  const std::size_t start = head.find("<?xml");
  if (start == std::string::npos) return {};
  const std::string declaration = head.substr(start, head.find("?>", start) - start);
  return NameOf(ValueBehind(declaration, "encoding="));
}

// By the mark at the beginning, which is taken off, or by the zeros between plain letters.
const char* MarkedEncoding(std::string_view& bytes) {
  const auto takes = [&bytes](std::string_view mark) {
    if (!bytes.starts_with(mark)) return false;
    bytes.remove_prefix(mark.size());
    return true;
  };
  if (takes("\xEF\xBB\xBF")) return kUtf8;
  if (takes("\xFF\xFE")) return "UTF-16LE";
  if (takes("\xFE\xFF")) return "UTF-16BE";
  if (bytes.size() < 4) return nullptr;
  const auto isZero = [&bytes](std::size_t at) { return bytes[at] == '\0'; };
  if (!isZero(0) && isZero(1) && !isZero(2) && isZero(3)) return "UTF-16LE";
  if (isZero(0) && !isZero(1) && isZero(2) && !isZero(3)) return "UTF-16BE";
  return nullptr;
}

constexpr auto kEncodings = std::to_array<Encoding>({
    {"UTF-8", "Unicode (UTF-8)"},
    {"UTF-16LE", "Unicode (UTF-16)"},
    {"windows-1252", "Western European (Windows-1252)"},
    {"iso-8859-15", "Western European (ISO 8859-15)"},
    {"cp850", "Western European (DOS 850)"},
    {"windows-1250", "Central European (Windows-1250)"},
    {"iso-8859-2", "Central European (ISO 8859-2)"},
    {"cp852", "Central European (DOS 852)"},
    {"windows-1257", "Baltic (Windows-1257)"},
    {"windows-1251", "Cyrillic (Windows-1251)"},
    {"koi8-r", "Cyrillic (KOI8-R)"},
    {"cp866", "Cyrillic (DOS 866)"},
    {"windows-1253", "Greek (Windows-1253)"},
    {"windows-1254", "Turkish (Windows-1254)"},
    {"windows-1255", "Hebrew (Windows-1255)"},
    {"windows-1256", "Arabic (Windows-1256)"},
    {"windows-1258", "Vietnamese (Windows-1258)"},
    {"windows-874", "Thai (Windows-874)"},
    {"shift_jis", "Japanese (Shift JIS)"},
    {"gb18030", "Chinese, simplified (GB 18030)"},
    {"big5", "Chinese, traditional (Big5)"},
    {"windows-949", "Korean (Windows-949)"},
});

}  // namespace

bool IsUtf8(std::string_view bytes) {
  const auto* start = reinterpret_cast<const std::uint8_t*>(bytes.data());
  for (std::size_t at = 0; at < bytes.size();) {
    UChar32 c = 0;
    U8_NEXT(start, at, bytes.size(), c);
    if (c < 0) return false;
  }
  return true;
}

DecodedText DecodeText(std::string bytes, const std::string& chosen) {
  std::string_view rest = bytes;
  const char* marked = MarkedEncoding(rest);
  if (const Converter converter = OpenConverter(chosen)) return Decode(*converter, rest);
  const bool isWide = marked != nullptr && marked != std::string_view(kUtf8);
  if (isWide) return Decode(*OpenKnown(marked), rest);
  if (IsUtf8(rest)) {
    bytes.erase(0, bytes.size() - rest.size());
    return {std::move(bytes), 0};
  }
  if (const Converter converter = OpenConverter(DeclaredIn(rest))) {
    DecodedText decoded = Decode(*converter, rest);
    if (decoded.replaced == 0) return decoded;
  }
  if (const Converter converter = OpenConverter(GuessEncoding(rest))) {
    DecodedText decoded = Decode(*converter, rest);
    if (decoded.replaced == 0) return decoded;
  }
  return Decode(*OpenKnown(kWindows), rest);
}

bool IsEncoding(const std::string& name) {
  return OpenConverter(name) != nullptr;
}

std::span<const Encoding> Encodings() {
  return kEncodings;
}

std::string EncodeWindows1252(std::string_view text) {
  const Converter windows = OpenKnown(kWindows);
  UErrorCode status = U_ZERO_ERROR;
  ucnv_setFromUCallBack(windows.get(), UCNV_FROM_U_CALLBACK_ESCAPE, UCNV_ESCAPE_XML_DEC, nullptr,
                        nullptr, &status);
  return Convert(*OpenKnown(kUtf8), *windows, text);
}

}  // namespace corvanta::inline exchange
