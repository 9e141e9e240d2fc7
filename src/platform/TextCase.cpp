#include "platform/TextCase.h"

#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>

namespace corvanta::inline platform {
namespace {

bool IsAscii(unsigned char byte) {
  return byte < 0x80;
}
bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return IsAscii(static_cast<unsigned char>(c)); });
}
// A byte inside a UTF-8 sequence, never its first one.
bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0U) == 0x80U;
}

unsigned char LowerByte(unsigned char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
}
unsigned char UpperByte(unsigned char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<unsigned char>(byte - 32) : byte;
}

template <typename Change>
std::string ChangeBytes(std::string_view text, Change change) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(change(static_cast<unsigned char>(c)));
  return result;
}

icu::StringPiece Piece(std::string_view text) {
  return {text.data(), static_cast<std::int32_t>(text.size())};
}

// ICU fails here for nothing but memory: ill-formed bytes become U+FFFD.
void CheckMemory(UErrorCode status) {
  if (U_FAILURE(status)) throw std::bad_alloc();
}

// Folded text of a comparison: names are short, so nearly all stay on the stack.
class FoldedText {
 public:
  explicit FoldedText(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::int32_t length = icu::CaseMap::utf8Fold(
        0, text.data(), static_cast<std::int32_t>(text.size()), buffer_.data(),
        static_cast<std::int32_t>(buffer_.size()), nullptr, status);
    if (U_SUCCESS(status)) {
      view_ = {buffer_.data(), static_cast<std::size_t>(length)};
      return;
    }
    long_ = FoldCase(text);
    view_ = long_;
  }
  FoldedText(const FoldedText&) = delete;
  FoldedText& operator=(const FoldedText&) = delete;
  [[nodiscard]] std::string_view View() const { return view_; }

 private:
  std::array<char, 256> buffer_;
  std::string long_;
  std::string_view view_;
};

// The texts agree before `position`, where at least one is not ASCII.
int CompareSuffixes(std::string_view a, std::string_view b, std::size_t position) {
  while (position > 0 && position < std::max(a.size(), b.size()) &&
         ((position < a.size() && IsContinuation(static_cast<unsigned char>(a[position]))) ||
          (position < b.size() && IsContinuation(static_cast<unsigned char>(b[position]))))) {
    --position;
  }
  const FoldedText foldedA(a.substr(position));
  const FoldedText foldedB(b.substr(position));
  return foldedA.View().compare(foldedB.View());
}

}  // namespace

std::string ToLower(std::string_view text) {
  if (IsAscii(text)) return ChangeBytes(text, LowerByte);
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToLower("", 0, Piece(text), sink, nullptr, status);
  CheckMemory(status);
  return result;
}

std::string ToUpper(std::string_view text) {
  if (IsAscii(text)) return ChangeBytes(text, UpperByte);
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToUpper("", 0, Piece(text), sink, nullptr, status);
  CheckMemory(status);
  return result;
}

std::string FoldCase(std::string_view text) {
  if (IsAscii(text)) return ChangeBytes(text, LowerByte);
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8Fold(0, Piece(text), sink, nullptr, status);
  CheckMemory(status);
  return result;
}

int CompareFolded(std::string_view a, std::string_view b) {
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t i = 0;
  for (; i < common; ++i) {
    const auto byteA = static_cast<unsigned char>(a[i]);
    const auto byteB = static_cast<unsigned char>(b[i]);
    if (byteA == byteB) continue;
    if (!IsAscii(byteA) || !IsAscii(byteB)) return CompareSuffixes(a, b, i);
    const int difference = LowerByte(byteA) - LowerByte(byteB);
    if (difference != 0) return difference;
  }
  if (a.size() == b.size()) return 0;
  // A text that ends inside a character of the other is ill-formed there.
  const auto next = static_cast<unsigned char>(a.size() > common ? a[common] : b[common]);
  if (IsContinuation(next)) return CompareSuffixes(a, b, common);
  return a.size() < b.size() ? -1 : 1;
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Composed(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  std::string composed;
  icu::StringByteSink<std::string> sink(&composed);
  const icu::Normalizer2* form = icu::Normalizer2::getNFCInstance(status);
  CheckMemory(status);
  form->normalizeUTF8(0, Piece(text), sink, nullptr, status);
  CheckMemory(status);
  return composed;
}

std::size_t TextLength(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return !IsContinuation(static_cast<unsigned char>(c));
  }));
}

}  // namespace corvanta::inline platform
