#include "controls/LongText.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(LongText, WordsOfAnyLengthCanBeBroken) {
  const QString usual = QStringLiteral("Names of a usual length stay as they are");
  EXPECT_EQ(Breakable(usual), usual);
  EXPECT_EQ(Breakable({}), QString());
  const QString word(60, u'W');
  QString shown = Breakable(word);
  EXPECT_EQ(shown.count(QChar(0x200b)), 2);
  EXPECT_EQ(shown.remove(QChar(0x200b)), word);
  const QString accents = QStringLiteral("e\u0301").repeated(30);
  shown = Breakable(accents);
  EXPECT_EQ(shown.count(QChar(0x200b)), 1);
  EXPECT_EQ(shown.indexOf(QChar(0x200b)) % 2, 0) << "no letter is parted from its mark";
}

TEST(LongText, ALongNameLosesItsMiddle) {
  EXPECT_EQ(Shortened(QStringLiteral("Corner Shop"), 12), "Corner Shop");
  EXPECT_EQ(Shortened(QStringLiteral("0123456789abcdef"), 9), "012345…def");
  const QString accents = QStringLiteral("e\u0301").repeated(20);
  EXPECT_EQ(Shortened(accents, 9),
            QStringLiteral("e\u0301").repeated(3) + u'…' + QStringLiteral("e\u0301"));
}

}  // namespace
}  // namespace corvanta
