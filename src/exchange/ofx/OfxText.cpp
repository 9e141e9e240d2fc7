#include "exchange/ofx/OfxText.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace corvanta::inline exchange {
namespace {

constexpr std::string_view kCdata = "<![CDATA[";
constexpr std::string_view kCdataEnd = "]]>";
constexpr std::string_view kComment = "<!--";

bool IsNameStart(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

std::optional<std::string> NumericEntity(std::string_view digits) {
  int base = 10;
  if (digits.starts_with("x") || digits.starts_with("X")) {
    base = 16;
    digits.remove_prefix(1);
  }
  std::uint32_t code = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, code, base);
  if (digits.empty() || error != std::errc() || stop != end) return std::nullopt;
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return std::nullopt;
  std::string text;
  const auto add = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (code < 0x80) {
    add(code);
  } else if (code < 0x800) {
    add(0xC0U | (code >> 6U));
    add(0x80U | (code & 0x3FU));
  } else if (code < 0x10000) {
    add(0xE0U | (code >> 12U));
    add(0x80U | ((code >> 6U) & 0x3FU));
    add(0x80U | (code & 0x3FU));
  } else {
    add(0xF0U | (code >> 18U));
    add(0x80U | ((code >> 12U) & 0x3FU));
    add(0x80U | ((code >> 6U) & 0x3FU));
    add(0x80U | (code & 0x3FU));
  }
  return text;
}

std::optional<std::string> Entity(std::string_view name) {
  constexpr std::array<std::pair<std::string_view, const char*>, 6> kNamed = {
      {{"amp", "&"}, {"lt", "<"}, {"gt", ">"}, {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}}};
  if (name.starts_with("#")) return NumericEntity(name.substr(1));
  for (const auto& [known, text] : kNamed) {
    if (EqualFolded(known, name)) return text;
  }
  return std::nullopt;
}

}  // namespace

std::string ResolveEntities(std::string_view text) {
  constexpr std::size_t kLongestName = 10;
  std::string result;
  while (!text.empty()) {
    const std::size_t mark = text.find('&');
    result += text.substr(0, mark);
    if (mark == std::string_view::npos) break;
    text.remove_prefix(mark);
    const std::size_t end = text.substr(0, kLongestName + 2).find(';');
    const auto entity =
        end == std::string_view::npos ? std::nullopt : Entity(text.substr(1, end - 1));
    if (entity) {
      result += *entity;
      text.remove_prefix(end + 1);
    } else {
      result += '&';
      text.remove_prefix(1);
    }
  }
  return result;
}

bool OfxText::IsTagAt(std::size_t at) const {
  if (at + 1 >= text_.size() || text_[at] != '<') return false;
  const char next = text_[at + 1];
  if (next == '/') return at + 2 < text_.size() && IsNameStart(text_[at + 2]);
  return IsNameStart(next) || next == '?' || next == '!';
}

// Counts the lines on the way.
void OfxText::Skip(std::size_t end) {
  end = std::min(end, text_.size());
  for (; at_ < end; ++at_) {
    const char c = text_[at_];
    if (c == '\r' || (c == '\n' && !afterReturn_)) ++line_;
    afterReturn_ = c == '\r';
  }
}

// A declaration or comment at the current place; false when there is neither.
bool OfxText::SkipDeclaration() {
  const std::string_view rest = text_.substr(at_);
  if (!rest.starts_with("<?") && !rest.starts_with("<!")) return false;
  if (rest.starts_with(kCdata)) return false;
  const std::string_view mark = rest.starts_with(kComment) ? "-->" : ">";
  const std::size_t end = text_.find(mark, at_);
  Skip(end == std::string_view::npos ? text_.size() : end + mark.size());
  return true;
}

void OfxText::ReadValue(std::string& value) {
  value.clear();
  while (at_ < text_.size()) {
    if (text_.substr(at_).starts_with(kCdata)) {
      const std::size_t start = at_ + kCdata.size();
      const std::size_t end = text_.find(kCdataEnd, start);
      value += text_.substr(start, end == std::string_view::npos ? end : end - start);
      Skip(end == std::string_view::npos ? text_.size() : end + kCdataEnd.size());
    } else if (IsTagAt(at_)) {
      if (!SkipDeclaration()) break;
    } else {
      // A sign that opens no tag belongs to the text.
      const std::size_t end = std::min(text_.find('<', at_ + 1), text_.size());
      value += ResolveEntities(text_.substr(at_, end - at_));
      Skip(end);
    }
  }
  value = std::string(Trim(value));
}

bool OfxText::Next(OfxElement& element) {
  std::string before;
  ReadValue(before);  // the header, and what stands between closing and opening tags
  if (at_ >= text_.size()) return false;
  element.line = line_;
  const std::size_t end = text_.find('>', at_);
  if (end == std::string_view::npos) return false;  // the file ends inside the tag
  std::string_view name = Trim(text_.substr(at_ + 1, end - at_ - 1));
  const bool isEmpty = name.ends_with("/");
  if (isEmpty) name.remove_suffix(1);
  name = name.substr(0, name.find_first_of(" \t\r\n"));
  element.name = ToUpper(name);
  Skip(end + 1);
  if (element.name.starts_with("/") || isEmpty) {
    element.value.clear();
  } else {
    ReadValue(element.value);
  }
  element.offset = at_;
  return true;
}

}  // namespace corvanta::inline exchange
