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

}  // namespace

bool MatchesPattern(std::string_view pattern, std::string_view text) {
  const std::string foldedPattern = FoldCase(pattern);
  const std::string foldedText = FoldCase(text);
  return Matcher(foldedPattern, foldedText).Run();
}

}  // namespace corvanta::jet
