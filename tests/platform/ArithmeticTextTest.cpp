#include "platform/ArithmeticText.h"
#include "platform/IcuLocale.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(ArithmeticText, FollowsTheRulesOfArithmetic) {
  const IcuLocale locale("en_GB");
  const struct {
    const char* text;
    double value;
  } rows[] = {
      {"12.50+3*4", 24.5},
      {"(12.50+3)*4", 62},
      {"100-20-30", 50},
      {"100/4/5", 5},
      {" 1,234.50 + 0.50 ", 1235},
      {"-5+2", -3},
      {"3*-2", -6},
      {"2--3", 5},
      {"-(2+3)", -5},
      {"((1+2)*(3+4))", 21},
      {"100/3", 33.33},
      {"0.1+0.2", 0.3},
      {"2.5*0.33", 0.83},
      {"9\u00D73\u22122", 25},
      {"6\u00F74", 1.5},
  };
  for (const auto& row : rows) EXPECT_EQ(WorkOut(row.text, locale), row.value) << row.text;
}

TEST(ArithmeticText, APlainNumberKeepsItsDigitsAndItsMeaning) {
  const IcuLocale locale("en_GB");
  EXPECT_EQ(WorkOut("1.23456", locale), 1.23456);
  EXPECT_EQ(WorkOut("(12)", locale), -12) << "as the books write what is owed";
  EXPECT_EQ(WorkOut("(12)+1", locale), 13) << "a bracket of a sum";
}

TEST(ArithmeticText, SpeaksTheLocale) {
  EXPECT_EQ(WorkOut("1.000,50+2*0,25", IcuLocale("de_DE")), 1001);
  EXPECT_EQ(WorkOut("1 000,50 - 0,50", IcuLocale("fr_FR")), 1000);
  EXPECT_EQ(WorkOut("100/3", IcuLocale("ja_JP")), 33.33) << "money of other countries has cents";
  EXPECT_EQ(WorkOut("100/3", IcuLocale("ja_JP"), 0), 33) << "a currency without decimals";
  EXPECT_EQ(WorkOut("12,50*2+1.5", IcuLocale("en_US")), 26.5) << "a comma that can be nothing else";
}

TEST(ArithmeticText, WhatIsNoSumIsNothing) {
  const IcuLocale locale("en_GB");
  const std::string deep = std::string(1000, '(') + "1" + std::string(1000, ')');
  for (const std::string text :
       {"", " ", "abc", "1*", "*2", "1//2", "(1+2", "1+2)", "()", "1 2 3+4", "5/0", "5/(3-3)",
        "1+2x", "1..2+3", "1e5+1", "999999999999999999999*1e400"}) {
    EXPECT_EQ(WorkOut(text, locale), std::nullopt) << text;
  }
  EXPECT_EQ(WorkOut(deep, locale), std::nullopt);
  EXPECT_EQ(WorkOut(std::string(1000, '-') + "1", locale), std::nullopt);
}

}  // namespace
}  // namespace corvanta
