#include "invest/prices/PriceFile.h"
#include "platform/IcuLocale.h"
#include "support/FixedLocale.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

Date Day(const char* iso) {
  return *Date::FromIso(iso);
}

TEST(PriceFile, AnExchangesHistoryIsReadByItsClosingPrices) {
  const FixedLocale locale;
  const std::string text =
      "Date,Open,High,Low,Close,Adj Close,Volume\n"
      "2026-11-19,310.5,318,309,\"1,316.25\",300,12345\n"
      "2026-11-20,317,320,315,319.5,301,22222\n"
      "2026-11-21,null,null,null,null,null,null\n\n"
      "2026-02-30,1,1,1,1,1,1\n";
  const CsvMapping mapping = ProposePriceMapping(text, locale);
  EXPECT_EQ(mapping.date, 1);
  EXPECT_EQ(mapping.income, 5);
  EXPECT_EQ(mapping.skip, 1);
  const PriceFileRows read = ReadPriceFile(text, mapping, locale);
  ASSERT_EQ(read.prices.size(), 2U);
  EXPECT_EQ(read.prices[0].date, Day("2026-11-19"));
  EXPECT_EQ(read.prices[0].price, 1316.25);
  EXPECT_EQ(read.prices[1].price, 319.5);
  ASSERT_EQ(read.problems.size(), 2U);
  EXPECT_EQ(read.problems[0].line, 4U);
  EXPECT_EQ(read.problems[0].text, "\"null\" is no price.");
  EXPECT_EQ(read.problems[1].text, "\"2026-02-30\" is no date.");
}

TEST(PriceFile, AFileOfAnotherCountryIsReadAsItShows) {
  const IcuLocale locale("de_DE");
  const std::string text = "Datum;Schlusskurs\r\n19.11.2026;1.316,25\r\n20.11.2026;9,5\r\n";
  const PriceFileRows read = ReadPriceFile(text, ProposePriceMapping(text, locale), locale);
  ASSERT_EQ(read.prices.size(), 2U);
  EXPECT_EQ(read.prices[0].price, 1316.25);
  EXPECT_EQ(read.prices[1].date, Day("2026-11-20"));
  EXPECT_TRUE(read.problems.empty());
}

TEST(PriceFile, WithoutHeadingsTheFirstNumberIsThePrice) {
  const FixedLocale locale;
  const std::string text = "20/11/2026,3.5\n21/11/2026,0\n22/11/2026,-1\n";
  const PriceFileRows read = ReadPriceFile(text, ProposePriceMapping(text, locale), locale);
  ASSERT_EQ(read.prices.size(), 1U);
  EXPECT_EQ(read.prices[0].price, 3.5);
  EXPECT_EQ(read.problems.size(), 2U) << "nothing is worth nothing or less";
  EXPECT_TRUE(ReadPriceFile("", {}, locale).prices.empty());
}

}  // namespace
}  // namespace corvanta
