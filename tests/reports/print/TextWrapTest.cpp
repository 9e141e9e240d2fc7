#include "reports/print/RecordingSurface.h"
#include "reports/print/TextWrap.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

using Lines = std::vector<std::string>;

Lines Wrapped(const std::string& text, double width, LongWord words = LongWord::Broken) {
  RecordingSurface surface(100, 100);
  return WrapText(text, width, words,
                  [&](std::string_view piece) { return surface.TextWidth(piece); });
}

TEST(TextWrap, LinesBreakAtBlanks) {
  EXPECT_EQ(Wrapped("the cat sat", 11), Lines{"the cat sat"});
  EXPECT_EQ(Wrapped("the cat sat", 10), (Lines{"the cat", "sat"}));
  EXPECT_EQ(Wrapped("the   cat\tsat  ", 4), (Lines{"the", "cat", "sat"}));
  EXPECT_EQ(Wrapped("", 4), Lines{""});
  EXPECT_EQ(Wrapped("     ", 4), Lines{""});
  EXPECT_EQ(Wrapped("a\r\n\r\nb c\n", 9), (Lines{"a", "", "b c"})) << "its own line ends hold";
}

TEST(TextWrap, WordsThatAreTooLongAreBrokenBetweenCharacters) {
  EXPECT_EQ(Wrapped("a incomprehensible b", 7), (Lines{"a", "incompr", "ehensib", "le b"}));
  EXPECT_EQ(Wrapped("家計簿家計簿", 5), (Lines{"家計", "簿家", "計簿"}));
  const std::string family = "👩‍👩‍👧";
  EXPECT_EQ(Wrapped(family + family, 9), (Lines{family, family})) << "joined signs stay together";
  EXPECT_EQ(Wrapped("e\u0301e\u0301", 3), (Lines{"e\u0301", "e\u0301"}));
  EXPECT_EQ(Wrapped("abc", 0.5), (Lines{"a", "b", "c"})) << "one character has to go in";
  EXPECT_EQ(Wrapped("\xff\xfe broken", 6).back(), "broken") << "no valid text at all";
}

TEST(TextWrap, ANumberThatIsTooLongIsMarked) {
  EXPECT_EQ(Wrapped("1,234,567.89", 8, LongWord::Marked), Lines{"* * *"});
  EXPECT_EQ(Wrapped("1,234.56", 8, LongWord::Marked), Lines{"1,234.56"});
}

TEST(TextWrap, TheLongestWordStandsBetweenBlanks) {
  EXPECT_EQ(LongestWord("a bcd\nef"), "bcd");
  EXPECT_EQ(LongestWord("lonely"), "lonely");
  EXPECT_EQ(LongestWord("  "), "");
}

}  // namespace
}  // namespace corvanta
