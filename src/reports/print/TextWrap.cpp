#include "reports/print/TextWrap.h"

#include <unicode/brkiter.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

namespace corvanta::inline reports {
namespace {

constexpr std::string_view kBlanks = " \t\r";

// Where the characters of a text end, as a person counts them: a letter with its accents, a flag
// or a family of several signs is one.
std::vector<std::int32_t> CharacterEnds(const icu::UnicodeString& text) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
  std::vector<std::int32_t> ends;
  if (U_FAILURE(error)) return {text.length()};
  characters->setText(text);
  for (auto end = characters->next(); end != icu::BreakIterator::DONE; end = characters->next()) {
    ends.push_back(end);
  }
  return ends;
}

std::string Utf8(const icu::UnicodeString& text, std::int32_t start, std::int32_t end) {
  std::string bytes;
  text.tempSubStringBetween(start, end).toUTF8String(bytes);
  return bytes;
}

class Wrapper {
 public:
  Wrapper(double width, LongWord words, const TextMeasure& measure)
      : width_(width), words_(words), measure_(measure) {}

  void AddParagraph(std::string_view text) {
    if (Fits(text)) {  // as most cells do
      lines_.emplace_back(text);
      return;
    }
    const std::size_t before = lines_.size();
    for (std::size_t at = text.find_first_not_of(kBlanks); at < text.size();
         at = text.find_first_not_of(kBlanks, at)) {
      const std::size_t end = std::min(text.find_first_of(kBlanks, at), text.size());
      AddWord(text.substr(at, end - at));
      at = end;
    }
    if (!line_.empty() || lines_.size() == before) EndLine();
  }

  [[nodiscard]] std::vector<std::string> Take() { return std::move(lines_); }

 private:
  [[nodiscard]] bool Fits(std::string_view text) const { return measure_(text) <= width_; }
  void EndLine() { lines_.push_back(std::exchange(line_, {})); }

  void AddWord(std::string_view word) {
    const std::string longer = line_.empty() ? std::string(word) : line_ + " " + std::string(word);
    if (Fits(longer)) {
      line_ = longer;
      return;
    }
    if (!line_.empty()) EndLine();
    if (Fits(word)) {
      line_ = word;
    } else if (words_ == LongWord::Marked) {
      line_ = kDoesNotFit;
    } else {
      BreakWord(word);
    }
  }

  void BreakWord(std::string_view word) {
    const auto text = icu::UnicodeString::fromUTF8(
        icu::StringPiece(word.data(), static_cast<std::int32_t>(word.size())));
    const std::vector<std::int32_t> ends = CharacterEnds(text);
    std::int32_t start = 0;
    for (auto next = ends.begin(); next != ends.end();) {
      // The first character goes in whether it fits or not, so that there is always a next one.
      const auto last = std::partition_point(
          next + 1, ends.end(), [&](std::int32_t end) { return Fits(Utf8(text, start, end)); });
      line_ = Utf8(text, start, *(last - 1));
      start = *(last - 1);
      next = last;
      if (next != ends.end()) EndLine();
    }
  }

  double width_;
  LongWord words_;
  const TextMeasure& measure_;
  std::vector<std::string> lines_;
  std::string line_;
};

}  // namespace

std::string_view LongestWord(std::string_view text) {
  constexpr std::string_view kEnds = " \t\r\n";
  std::string_view longest;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of(kEnds, at), text.size());
    if (end - at > longest.size()) longest = text.substr(at, end - at);
    at = end + 1;
  }
  return longest;
}

std::vector<std::string> WrapText(std::string_view text, double width, LongWord words,
                                  const TextMeasure& measure) {
  Wrapper wrapper(width, words, measure);
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
  for (;;) {
    const std::size_t end = text.find('\n');
    std::string_view paragraph = text.substr(0, end);
    if (paragraph.ends_with('\r')) paragraph.remove_suffix(1);
    wrapper.AddParagraph(paragraph);
    if (end == std::string_view::npos) return wrapper.Take();
    text.remove_prefix(end + 1);
  }
}

}  // namespace corvanta::inline reports
