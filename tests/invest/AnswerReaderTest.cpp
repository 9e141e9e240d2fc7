#include "invest/prices/AnswerReader.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

SourceRow Page(const std::string& marker, std::int64_t occur, std::int64_t dataId = 10) {
  SourceRow source;
  source.dataId = dataId;
  source.name = "Pages";
  source.kind = AnswerKind::Page;
  source.start = marker;
  source.occur = occur;
  return source;
}

std::string ValueIn(const SourceRow& source, const std::string& answer,
                    const SourceQuestion& question = SourceQuestion::OfStock("BT-A.L")) {
  const SourceReading reading = ReadAnswer(source, question, answer);
  EXPECT_EQ(reading.fields.empty(), !reading.problem.empty());
  return reading.fields.empty() ? "none" : reading.fields.at(1);
}

TEST(AnswerReader, ThePriceOfAPageStandsBehindItsMarker) {
  const SourceRow source = Page("class=\"pr\"", 1);
  EXPECT_EQ(ValueIn(source, "<b>7</b><span class=\"pr\"><span id=1>\n 1,234.50 </span></span>"),
            "1,234.50");
  EXPECT_EQ(ValueIn(source, "<b>7</b><span class=pr>\"3.1\" </span>"), "3.1")
      << "attributes without quotes";
  EXPECT_EQ(ValueIn(source, "<html><title>404</title><p>Prove that you are no robot</p></html>"),
            "none")
      << "a page without the marker has no price, whatever number stands in it";
  EXPECT_EQ(ValueIn(source, "<i class=\"pr\">12"), "none") << "cut off";
  EXPECT_EQ(ValueIn(source, ""), "none");
  EXPECT_EQ(ValueIn(Page("", 1), "<i>12</i>"), "none");
}

TEST(AnswerReader, AMarkerThatOccursTwiceCountsAsOftenAsItIsAskedFor) {
  const std::string page = "<i class=\"pr\">1</i><i class=\"pr\">2</i><i class=pr>3</i>";
  EXPECT_EQ(ValueIn(Page("class=\"pr\"", 1), page), "1");
  EXPECT_EQ(ValueIn(Page("class=\"pr\"", 2), page), "2");
  EXPECT_EQ(ValueIn(Page("class=\"pr\"", 3), page), "3") << "the last one without quotes";
  EXPECT_EQ(ValueIn(Page("class=\"pr\"", 4), page), "none");
}

TEST(AnswerReader, TwoSourcesCloseThePriceInWaysOfTheirOwn) {
  const std::string page = "<div class=\" price\">12.5 <img src=x> up</div>";
  EXPECT_EQ(ValueIn(Page("class=\" price\"", 1, 6), page), "12.5");
  EXPECT_EQ(ValueIn(Page("class=\" price\"", 1, 8), page), "12.5");
  EXPECT_EQ(ValueIn(Page("class=\" price\"", 1, 9), page), "up");
  EXPECT_EQ(ValueIn(Page("id=\"quickquote\"", 1, 8),
                    "<td id=\"quickquote\"><b>9.1<img src=up></b>10</td>"),
            "9.1");
}

TEST(AnswerReader, ALineHasItsFieldsBetweenCommas) {
  const SourceReading reading =
      ReadAnswer({}, {}, "\"MSF\", 1 234.5 ,\"11/20/2026\",\"5:30pm\",+0.5,1,2,3,4\r\n");
  EXPECT_EQ(reading.fields.size(), 9U);
  EXPECT_EQ(reading.fields.at(1), "1234.5");
  EXPECT_EQ(reading.fields.at(4), "+0.5");
  EXPECT_EQ(ValueIn({}, "\"MSF\",12"), "none");
  EXPECT_EQ(ValueIn({}, ""), "none");
}

TEST(AnswerReader, ATableHasTheValueInItsNamedColumn) {
  SourceRow source;
  source.kind = AnswerKind::Column;
  source.field = "Close";
  EXPECT_EQ(ValueIn(source, "Symbol,Name,close\r\nX,\"A, B\",\"1,234.5\"\r\nY,,7\r\n"), "1,234.5");
  EXPECT_EQ(ValueIn(source, "Symbol;Close\nX;3\n"), "3");
  EXPECT_EQ(ValueIn(source, "Symbol,Open\nX,3\n"), "none");
  EXPECT_EQ(ValueIn(source, "Symbol,Close\n"), "none");
  EXPECT_EQ(ValueIn(source, "Symbol,Close\nX\n"), "none");
  source.field = "TO";
  EXPECT_EQ(
      ValueIn(source, "Date,GBP,USD\n2026-11-20,0.86,1.08\n", SourceQuestion::OfRate("EUR", "USD")),
      "1.08")
      << "the column may be named by what is asked";
}

TEST(AnswerReader, AJsonTextHasTheValueAtItsPointer) {
  SourceRow source;
  source.kind = AnswerKind::Pointer;
  source.key = "STOCK";
  const auto at = [&](const std::string& pointer, const std::string& text) {
    source.field = pointer;
    return ValueIn(source, text, SourceQuestion::OfRate("EUR", "USD"));
  };
  EXPECT_EQ(at("/rates/TO", R"({"base":"EUR","rates":{"USD":1.0834}})"), "1.0834");
  EXPECT_EQ(at("/Global Quote/05. price", R"({"Global Quote":{"05. price":"1,234.5"}})"),
            "1,234.5");
  EXPECT_EQ(at("/0/c", R"([{"c":0.00008}])"), "8e-05");
  EXPECT_EQ(at("/rates/TO", R"({"rates":{"GBP":1}})"), "none");
  EXPECT_EQ(at("/rates", R"({"rates":{"USD":1}})"), "none");
  EXPECT_EQ(at("/rates/x", R"({"rates":[1]})"), "none");
  EXPECT_EQ(at("rates", R"({"rates":1})"), "none");
  EXPECT_EQ(at("/c", "<html>no</html>"), "none");
  EXPECT_EQ(at("/c", R"({"c":null})"), "none");
  source.field = "/STOCK/price";
  EXPECT_EQ(ValueIn(source, R"({"A/B~":{"price":7}})", SourceQuestion::OfStock("A/B~")), "7");
}

TEST(AnswerReader, AnAddressHoldsWhatIsAsked) {
  SourceRow source;
  source.key = "STOCK";
  const auto address = [&](const std::string& url, const std::string& symbol) {
    source.url = url;
    return AddressOf(source, SourceQuestion::OfStock(symbol));
  };
  EXPECT_EQ(address("http://a.test/STOCK?s=STOCK&t=stock", "BT-A.L"),
            "http://a.test/BT-A.L?s=BT-A.L&t=stock");
  EXPECT_EQ(address("http://a.test/page", "BT-A.L"), "http://a.test/page");
  EXPECT_EQ(address("http://a.test/STOCK", "^FT SE&M#1"), "http://a.test/%5EFT%20SE%26M%231");
  EXPECT_EQ(address("http://a.test/STOCK", "%5EFTSE"), "http://a.test/%5EFTSE");
  source.ownKey = "sec/ret+";
  EXPECT_EQ(address("http://a.test/STOCK?k=APIKEY&x=MYAPIKEY", "APIKEY"),
            "http://a.test/APIKEY?k=sec/ret%2B&x=MYAPIKEY")
      << "what was put in is not replaced itself";
  EXPECT_EQ(WithoutOwnKey(source, "cannot get ?k=sec/ret%2B or sec/ret+"),
            "cannot get ?k=*** or ***");

  source.key = "CURRENCY";
  source.url = "http://a.test/TOKEN?s=CURRENCY=X&base=FROM&symbols=TO";
  EXPECT_EQ(AddressOf(source, SourceQuestion::OfRate("USD", "TOP")),
            "http://a.test/TOKEN?s=USDTOP=X&base=USD&symbols=TOP");
}

}  // namespace
}  // namespace corvanta
