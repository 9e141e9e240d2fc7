#include "platform/TextCase.h"

#include <gtest/gtest.h>

#include <random>

namespace corvanta {
namespace {

int Sign(int value) {
  return (value > 0) - (value < 0);
}

TEST(TextCase, FoldsBeyondAscii) {
  EXPECT_TRUE(EqualFolded("Straße", "STRASSE"));
  EXPECT_TRUE(EqualFolded("ÉCOLE", "école"));
  EXPECT_TRUE(EqualFolded("ΣΊΣΥΦΟΣ", "σίσυφος"));
  EXPECT_TRUE(EqualFolded("\u212Aelvin", "kELVIN"));
  EXPECT_TRUE(EqualFolded("😀 Fun", "😀 fUN"));
  EXPECT_TRUE(EqualFolded("ŻÓŁĆ", "żółć"));
  EXPECT_TRUE(EqualFolded("x\u0130", "xi\u0307"));
  EXPECT_FALSE(EqualFolded("resume", "résumé"));
  EXPECT_FALSE(EqualFolded("I", "ı"));
}

TEST(TextCase, ChangesCaseInTheRootLocale) {
  EXPECT_EQ(ToLower("TITLE I"), "title i");
  EXPECT_EQ(ToUpper("title i"), "TITLE I");
  EXPECT_EQ(ToUpper("straße"), "STRASSE");
  EXPECT_EQ(ToLower("ÀÉ"), "àé");
  EXPECT_EQ(FoldCase(""), "");
}

TEST(TextCase, OrdersTextsThatAreNoUtf8) {
  for (const char* bad :
       {"\xFF", "\x80", "\xE2\x82", "ab\xC3", "\xF0\x9F", "\xC3(", "\xED\xA0\x80"}) {
    EXPECT_EQ(CompareFolded(bad, bad), 0);
    EXPECT_NE(CompareFolded(bad, "plain"), 0);
    EXPECT_FALSE(ToUpper(bad).empty());
    EXPECT_FALSE(ToLower(bad).empty());
  }
}

// The fast comparison must be the order of the folded bytes, whatever the texts are.
TEST(TextCase, ComparesAsFoldedBytes) {
  const std::vector<std::string> pieces{
      "a", "A", "k", "\u212A", "ß",    "ss",   "S",    "İ",    "i",    "\xCC\x87", "é", "É",
      "😀", "😁", "z", "[",      "\xE2", "\x82", "\xAC", "\xFF", "\xC3", "_",        "ſ"};
  std::mt19937 random(7);
  const auto text = [&] {
    std::string result;
    for (auto count = random() % 6; count > 0; --count) result += pieces[random() % pieces.size()];
    return result;
  };
  for (int i = 0; i < 200000; ++i) {
    const std::string a = text();
    const std::string b = text();
    ASSERT_EQ(Sign(CompareFolded(a, b)), Sign(FoldCase(a).compare(FoldCase(b)))) << a << " | " << b;
  }
  const std::string longText(1000, 'x');
  EXPECT_LT(CompareFolded("é" + longText + "a", "É" + longText + "B"), 0);
}

TEST(TextCase, TrimsAndCounts) {
  EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
  EXPECT_EQ(Trim(" \t"), "");
  EXPECT_EQ(TextLength("añ😀"), 3U);
}

}  // namespace
}  // namespace corvanta
