#include "store/sql/engine/Pattern.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <string>

namespace corvanta::jet {
namespace {

std::size_t CharLength(std::string_view text, std::size_t at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  const std::size_t length = lead < 0x80    ? 1
                             : lead >= 0xF0 ? 4
                             : lead >= 0xE0 ? 3
                             : lead >= 0xC0 ? 2
                                            : 1;
  return std::min(length, text.size() - at);
}

// Whether the character stands in the class whose inside is `body` ("a-cx" or "!a-c").
bool InClass(std::string_view body, std::string_view character) {
  const bool negated = !body.empty() && (body[0] == '!' || body[0] == '^');
  if (negated) body.remove_prefix(1);
  bool found = false;
  for (std::size_t at = 0; at < body.size() && !found;) {
    const std::string_view low = body.substr(at, CharLength(body, at));
    at += low.size();
    if (at + 1 < body.size() && body[at] == '-') {
      const std::string_view high = body.substr(at + 1, CharLength(body, at + 1));
      at += 1 + high.size();
      found = low <= character && character <= high;
    } else {
      found = low == character;
    }
  }
  return found != negated;
}

class Matcher {
 public:
  Matcher(std::string_view pattern, std::string_view text) : pattern_(pattern), text_(text) {}

  // One pass with a single point of return, behind the last "%": linear in practice and bounded
  // by the product of the lengths.
  bool Run() {
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t starP = std::string_view::npos;
    std::size_t starT = 0;
    while (t < text_.size()) {
      if (p < pattern_.size() && pattern_[p] == '%') {
        starP = ++p;
        starT = t;
      } else if (p < pattern_.size() && MatchOne(p, t)) {
        t += CharLength(text_, t);
      } else if (starP != std::string_view::npos) {
        p = starP;
        starT += CharLength(text_, starT);
        t = starT;
      } else {
        return false;
      }
    }
    while (p < pattern_.size() && pattern_[p] == '%') ++p;
    return p == pattern_.size();
  }

 private:
  // Matches the pattern's next element with the text's next character and moves p past it.
  bool MatchOne(std::size_t& p, std::size_t t) const {
    const std::string_view character = text_.substr(t, CharLength(text_, t));
    if (pattern_[p] == '_') {
      ++p;
      return true;
    }
    if (pattern_[p] == '[') {
      const std::size_t close = pattern_.find(']', p + 1);
      if (close != std::string_view::npos) {
        if (!InClass(pattern_.substr(p + 1, close - p - 1), character)) return false;
        p = close + 1;
        return true;
      }
    }
    const std::size_t length = CharLength(pattern_, p);
    if (pattern_.substr(p, length) != character) return false;
    p += length;
    return true;
  }

  std::string_view pattern_;
  std::string_view text_;
};

// The text that a pattern such as "%text%" looks for; nullopt for any other pattern. A sign in
// brackets of its own stands for itself.
std::optional<std::string> ContainedText(std::string_view pattern) {
  if (pattern.size() < 2 || pattern.front() != '%' || pattern.back() != '%') return std::nullopt;
  pattern = pattern.substr(1, pattern.size() - 2);
  std::string text;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const char sign = pattern[at];
    const bool isAlone = sign == '[' && at + 2 < pattern.size() && pattern[at + 2] == ']' &&
                         pattern[at + 1] != '!' && pattern[at + 1] != '^';
    if (isAlone) {
      text += pattern[at + 1];
      at += 2;
    } else if (sign == '%' || sign == '_' || sign == '[') {
      return std::nullopt;
    } else {
      text += sign;
    }
  }
  return text;
}

// Folds into a text that has its room already, which most texts of a column find.
void FoldInto(std::string& folded, std::string_view text) {
  folded.resize(text.size());
  char* to = folded.data();
  unsigned char met = 0;
  for (const char sign : text) {
    met |= static_cast<unsigned char>(sign);
    *to++ = sign >= 'A' && sign <= 'Z' ? static_cast<char>(sign + ('a' - 'A')) : sign;
  }
  if (met >= 0x80) folded = FoldCase(text);
}

}  // namespace

Pattern::Pattern(std::string_view pattern)
    : pattern_(FoldCase(pattern)), contains_(ContainedText(pattern_)) {}

bool Pattern::Matches(std::string_view text) {
  FoldInto(folded_, text);
  if (contains_) return std::string_view(folded_).find(*contains_) != std::string_view::npos;
  return Matcher(pattern_, folded_).Run();
}

}  // namespace corvanta::jet
