#include "exchange/ExchangeTest.h"
#include "exchange/text/DateStyle.h"
#include "exchange/text/Encoding.h"
#include "platform/IcuLocale.h"
#include "platform/NumberStyle.h"

#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <utility>

namespace corvanta {
namespace {

constexpr const char* kNone = "-";

std::string Shown(const std::optional<double>& number) {
  return number ? SqlNumber(*number) : kNone;
}
std::string Shown(const std::optional<Date>& date) {
  return date ? date->ToIso() : kNone;
}

TEST(FileNumbers, AreReadByTheMarkOfTheirFile) {
  struct Case {
    const char* text;
    const char* point;
    const char* comma;
  };
  const Case cases[] = {
      {"1,234.56", "1234.56", "1234.56"},
      {"1.234,56", "1234.56", "1234.56"},
      {"1 234,56", "1234.56", "1234.56"},
      {"1\xC2\xA0"
       "234,56",
       "1234.56", "1234.56"},
      {"1'234.56", "1234.56", "1234.56"},
      {"-200,00", "-200", "-200"},
      {"-200.00", "-200", "-200"},
      {"200,5", "200.5", "200.5"},
      {"1,234", "1234", "1.234"},
      {"1.234", "1.234", "1234"},
      {"1,234,567", "1234567", "1234567"},
      {"1.234.567", "1234567", "1234567"},
      {"0,125", "0.125", "0.125"},
      {"1234.567", "1234.567", "1234.567"},
      {"(12.50)", "-12.5", "-12.5"},
      {"12.50-", "-12.5", "-12.5"},
      {"\xE2\x88\x92"
       "12.50",
       "-12.5", "-12.5"},
      {"$1,234.50", "1234.5", "1234.5"},
      {"-\xC2\xA3"
       "5",
       "-5", "-5"},
      {"12,50 \xE2\x82\xAC", "12.5", "12.5"},
      {"EUR 12,50", "12.5", "12.5"},
      {"12.50 DR", "-12.5", "-12.5"},
      {"12.50CR", "12.5", "12.5"},
      {"kr 5", "5", "5"},
      {"-kr 5,00", "-5", "-5"},
      {"-USD 5.00", "-5", "-5"},
      {"(EUR 5,00)", "-5", "-5"},
      {"US$5.00", "5", "5"},
      {"-A$5.00", "-5", "-5"},
      {"CHF 5.-", "5", "5"},
      {"-5,\xE2\x80\x93", "-5", "-5"},
      {"5,--", "5", "5"},
      {"-1\xE2\x80\x99"
       "234.50",
       "-1234.5", "-1234.5"},
      {"1\xE2\x80\xAF"
       "234,56-",
       "-1234.56", "-1234.56"},
      {"12.50 \xE2\x82\xAC-", "-12.5", "-12.5"},
      {"(\xC2\xA3"
       "12.50)",
       "-12.5", "-12.5"},
      {"\xE2\x88\x92\xC2\xA0"
       "12,50\xC2\xA0z\xC5\x82",
       "-12.5", "-12.5"},
      {"12,50 K\xC4\x8D", "12.5", "12.5"},
      {"12,50 \xD0\xBB\xD0\xB2.", "12.5", "12.5"},
      {"1.234,50 S", "-1234.5", "-1234.5"},
      {"1.234,50 H", "1234.5", "1234.5"},
      {".5", "0.5", "0.5"},
      {"5.", "5", "5"},
      {"-0.00", "0", "0"},
      {"+7", "7", "7"},
      {"", kNone, kNone},
      {"abc", kNone, kNone},
      {"12x", kNone, kNone},
      {"No 5", kNone, kNone},
      {"-No 5", kNone, kNone},
      {"-", kNone, kNone},
      {"--5", kNone, kNone},
      {"1.2.3", kNone, kNone},
      {"1,23,4.5", kNone, kNone},
      {"1e5", kNone, kNone},
      {"nan", kNone, kNone},
      {"0x10", kNone, kNone},
      {"9999999999999999", kNone, kNone},
      {"-5 DR", kNone, kNone},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Shown(ReadFileNumber(c.text, DecimalMark::Point)), c.point);
    EXPECT_EQ(Shown(ReadFileNumber(c.text, DecimalMark::Comma)), c.comma);
  }
}

TEST(FileNumbers, WithoutAMarkOfTheirFileTheOnlyOneIsDecimal) {
  for (const auto& [text, value] : {std::pair("1.234", "1.234"),
                                    {"1,234", "1.234"},
                                    {"-10.500", "-10.5"},
                                    {"1,234,567", "1234567"},
                                    {"1.234,500", "1234.5"},
                                    {"1234", "1234"}}) {
    EXPECT_EQ(Shown(ReadFileNumber(text, std::nullopt)), value) << text;
  }
}

TEST(FileNumbers, TheMarkIsFoundFromAllOfThem) {
  const IcuLocale british("en_GB");
  const IcuLocale german("de_DE");
  const auto find = [](std::initializer_list<const char*> texts, const Locale& locale) {
    DecimalMarkFinder finder;
    for (const char* text : texts) finder.Add(text);
    return finder.Find(locale);
  };
  EXPECT_EQ(find({"1.234", "5,5"}, british), DecimalMark::Comma);
  EXPECT_EQ(find({"1,234", "5.5"}, german), DecimalMark::Point);
  EXPECT_EQ(find({"1.234.567", "1.234"}, british), DecimalMark::Comma);
  EXPECT_EQ(find({"1.234", "100"}, british), DecimalMark::Point);
  EXPECT_EQ(find({"1.234", "100"}, german), DecimalMark::Comma);
}

TEST(FileDates, AreReadInTheOrderOfTheirFile) {
  struct Case {
    const char* text;
    const char* day;    // Day/Month/Year
    const char* month;  // Month/Day/Year
    const char* year;   // Year/Month/Day
  };
  const Case cases[] = {
      {"1/2/2020", "2020-02-01", "2020-01-02", kNone},
      {"01.02.2020", "2020-02-01", "2020-01-02", kNone},
      {"1-2-20", "2020-02-01", "2020-01-02", "2001-02-20"},
      {"13/2/2020", "2020-02-13", kNone, kNone},
      {"1/15'05", kNone, "2005-01-15", kNone},
      {"3/ 9' 0", "2000-09-03", "2000-03-09", kNone},
      {"2/14'2020", kNone, "2020-02-14", kNone},
      {" 1/ 5/98", "1998-05-01", "1998-01-05", kNone},
      {"2020-02-13", kNone, kNone, "2020-02-13"},
      {"2020/2/3", kNone, kNone, "2020-02-03"},
      {"01022020", "2020-02-01", "2020-01-02", kNone},
      {"20200213", kNone, kNone, "2020-02-13"},
      {"010220", "2020-02-01", "2020-01-02", "2001-02-20"},
      {"13 Feb 2020", "2020-02-13", "2020-02-13", "2020-02-13"},
      {"February 13, 2020", "2020-02-13", "2020-02-13", "2020-02-13"},
      {"Thu 13-Feb-20", "2020-02-13", "2020-02-13", "2013-02-20"},
      {"1/2/2020 10:30", "2020-02-01", "2020-01-02", kNone},
      {"2020-02-13T10:30:00Z", kNone, kNone, "2020-02-13"},
      {"13.2.2020.", "2020-02-13", kNone, kNone},
      {"13.02.20 \xD0\xB3.", "2020-02-13", kNone, "2013-02-20"},
      {"13.02.2020\xD0\xB3", "2020-02-13", kNone, kNone},
      {"2020. 02. 13.", kNone, kNone, "2020-02-13"},
      {"2020. 02. 13. 10:30", kNone, kNone, "2020-02-13"},
      {"2020\xE5\xB9\xB4"
       "2\xE6\x9C\x88"
       "13\xE6\x97\xA5",
       kNone, kNone, "2020-02-13"},
      {"13\xC2\xA0"
       "Feb\xC2\xA0"
       "2020",
       "2020-02-13", "2020-02-13", "2020-02-13"},
      {"2/13/20, 5:04\xE2\x80\xAFPM", kNone, "2020-02-13", kNone},
      {"\xD9\xA1\xD9\xA3/\xD9\xA2/\xD9\xA2\xD9\xA0\xD9\xA2\xD9\xA0", "2020-02-13", kNone, kNone},
      {"20200213103000", kNone, kNone, "2020-02-13"},
      {"13.2.2020.5", kNone, kNone, kNone},
      {"31/2/2020", kNone, kNone, kNone},
      {"13/2/69", "2069-02-13", kNone, kNone},
      {"13/2/70", "1970-02-13", kNone, kNone},
      {"13th of February 2020", "2020-02-13", "2020-02-13", "2020-02-13"},
      {"14 Feb 20220", kNone, kNone, kNone},
      {"14 Feb 202", kNone, kNone, kNone},
      {"14 Foo 2020", kNone, kNone, kNone},
      {"30 Feb 2020", kNone, kNone, kNone},
      {"1/2", kNone, kNone, kNone},
      {"1/2/202", kNone, kNone, kNone},
      {"1/2/20201", kNone, kNone, kNone},
      {"0/1/2020", kNone, kNone, kNone},
      {"", kNone, kNone, kNone},
      {"soon", kNone, kNone, kNone},
      {"123456789", kNone, kNone, kNone},
  };
  const IcuLocale locale("en_GB");
  const auto read = [&](const char* text, DateOrder order) {
    return Shown(ReadFileDate(text, order, locale, DateTolerance::OrderOnly));
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(read(c.text, DateOrder::DayMonthYear), c.day);
    EXPECT_EQ(read(c.text, DateOrder::MonthDayYear), c.month);
    EXPECT_EQ(read(c.text, DateOrder::YearMonthDay), c.year);
  }
  // Outside a chosen order a year of four digits in front speaks for itself.
  EXPECT_EQ(Shown(ReadFileDate("2020-02-13", DateOrder::MonthDayYear, locale)), "2020-02-13");
  EXPECT_EQ(
      Shown(ReadFileDate("13. M\xC3\xA4rz 2020", DateOrder::DayMonthYear, IcuLocale("de_DE"))),
      "2020-03-13");
}

// Every country's own way of writing a day comes back, also where it ends in a full stop.
TEST(FileDates, OfEveryLocaleComeBack) {
  std::int32_t count = 0;
  const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
  ASSERT_GT(count, 300);
  for (std::int32_t i = 0; i < count; ++i) {
    const IcuLocale locale(locales[i].getName());
    DateOrderFinder finder;
    for (const char* iso : {"2020-02-13", "2021-11-05"}) {
      finder.Add(locale.FormatShortDate(*Date::FromIso(iso)));
    }
    for (const char* iso : {"2020-02-13", "2021-11-05", "1999-12-31", "2004-03-02"}) {
      const std::string text = locale.FormatShortDate(*Date::FromIso(iso));
      EXPECT_EQ(Shown(ReadFileDate(text, finder.Find(locale), locale)), iso)
          << locales[i].getName() << " " << text;
    }
  }
  // So does the day in words.
  for (const char* name :
       {"hu", "hr", "bs", "sr", "ko", "bg", "ru", "uk", "lt", "lv", "ja", "zh", "de", "fr", "es",
        "pt", "it", "nl", "pl", "cs", "fi", "sv", "tr", "el", "vi", "eu", "ca", "th", "ar", "he"}) {
    const IcuLocale locale(name);
    const std::string text = locale.FormatLongDate(*Date::FromIso("2020-02-13"));
    EXPECT_EQ(Shown(ReadFileDate(text, locale.ShortDateOrder(), locale)), "2020-02-13") << text;
  }
}

TEST(FileDates, TheOrderIsFoundFromAllOfThem) {
  const IcuLocale british("en_GB");
  const IcuLocale american("en_US");
  const auto find = [](std::initializer_list<const char*> texts, const Locale& locale) {
    DateOrderFinder finder;
    for (const char* text : texts) finder.Add(text);
    return finder.Find(locale);
  };
  EXPECT_EQ(find({"1/2/2020", "2/13/2020"}, british), DateOrder::MonthDayYear);
  EXPECT_EQ(find({"1/2/2020", "13/2/2020"}, american), DateOrder::DayMonthYear);
  EXPECT_EQ(find({"1/2/2020"}, british), DateOrder::DayMonthYear);
  EXPECT_EQ(find({"1/2/2020"}, american), DateOrder::MonthDayYear);
  EXPECT_EQ(find({"20-02-13", "98-01-01"}, british), DateOrder::YearMonthDay);
  EXPECT_EQ(find({"2020-01-02"}, american), DateOrder::YearMonthDay);
  EXPECT_EQ(find({"31/2/2020", "1/2/2020"}, american), DateOrder::DayMonthYear);
  EXPECT_EQ(find({}, american), DateOrder::MonthDayYear);
}

class Styles : public ExchangeTest {};

TEST_F(Styles, OneOrderAndOneMarkPerFile) {
  ImportBank("D1/2/2020\nT-1.234\n^\nD2/13/2020\nT-200,00\n^\n");
  EXPECT_EQ(Dates("Mine"), (Texts{"2020-01-02", "2020-02-13"}));
  EXPECT_EQ(Amounts("Mine"), (Texts{"-1234", "-200"}));
  job_.dateOrder = DateOrder::DayMonthYear;
  job_.decimalMark = DecimalMark::Point;
  const ImportSummary chosen = ImportBank("D1/2/2021\nT-1.234\n^\nD2/13/2020\nT-200,00\n^\n");
  EXPECT_EQ(Dates("Mine").back(), "2021-02-01");
  EXPECT_EQ(Amounts("Mine").back(), "-1.23");
  EXPECT_EQ(Problems(chosen), (Texts{"8: \"2/13/2020\" is no date."}));
}

TEST_F(Styles, Encodings) {
  const std::string record = "!Account\nNMine\n^\n!Type:Bank\nD13/2/2020\nT1\nP";
  Import(record + "Caf\xC3\xA9\n^\n");
  Import("\xEF\xBB\xBF" + record + "B\xC3\xA4r\nT2\n^\n");
  Import(record +
         "\x80 f\xFCr Z\xFC"
         "rich\nT3\n^\n\x1A");
  std::string wide("\xFF\xFE", 2);
  for (const char c : record + "Wide\nT4\n^\n") wide += std::string{c, '\0'};
  Import(wide);
  EXPECT_EQ(Rows("Mine"),
            (Texts{"2020-02-13|Caf\xC3\xA9|Credit|1||", "2020-02-13|B\xC3\xA4r|Credit|2||",
                   "2020-02-13|\xE2\x82\xAC f\xC3\xBCr Z\xC3\xBCrich|Credit|3||",
                   "2020-02-13|Wide|Credit|4||"}));
}

TEST(Encodings, AreNeverLost) {
  EXPECT_FALSE(IsUtf8("\xC0\x80"));
  EXPECT_FALSE(IsUtf8("\xED\xA0\x80"));
  EXPECT_FALSE(IsUtf8("\xF4\x90\x80\x80"));
  EXPECT_FALSE(IsUtf8("a\xE2\x82"));
  EXPECT_TRUE(IsUtf8("\xF0\x9F\x92\xB0 \xE2\x82\xAC"));
  EXPECT_EQ(EncodeWindows1252("\xE2\x82\xAC\xC3\xBC \xE2\x84\x96"), "\x80\xFC &#8470;");
}

TEST(Encodings, ValidUtf8GoesBeforeAHeaderAndADeclaredPageBeforeTheUsualOne) {
  const std::string head = "OFXHEADER:100\nDATA:OFXSGML\nENCODING:USASCII\nCHARSET:";
  struct Case {
    std::string bytes;
    std::string end;  // of the text
  };
  const Case cases[] = {
      {head + "1252\n\nCaf\xC3\xA9", "Caf\u00E9"},
      {head + "1252\n\nCaf\xE9", "Caf\u00E9"},
      {head + "1250\n\nK\xF5v\xE1ri", "K\u0151v\u00E1ri"},
      {head + "ISO-8859-2\n\n\xA3\xF3"
              "d\xBC",
       "\u0141\u00F3d\u017A"},
      {head + "8859-1\n\n\x80", "\u20AC"},
      {head + "932\n\n\x93\xFA\x96{", "\u65E5\u672C"},
      {head + "NONE\n\n\xE9", "\u00E9"},
      {head + "nonsense\n\n\xE9", "\u00E9"},
      {"<?xml version=\"1.0\" encoding=\"windows-1251\"?><OFX>\xCC\xE0\xE3", "\u041C\u0430\u0433"},
      {"<?xml version='1.0' encoding='KOI8-R'?><OFX>\xED\xC1\xC7", "\u041C\u0430\u0433"},
      // A page that the bytes make no sense in, and one that is said of valid UTF-8.
      {head + "932\n\nCaf\xE9", "Caf\u00E9"},
      {"<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><OFX>\u0151", "\u0151"},
      {"<?xml version=\"1.0\" encoding=\"UTF-8\"?><OFX>\xE9", "\u00E9"},
      {"plain \xE9", "\u00E9"},
  };
  for (const Case& c : cases) {
    const DecodedText decoded = DecodeText(c.bytes);
    EXPECT_TRUE(decoded.text.ends_with(c.end)) << c.bytes << " " << decoded.text;
    EXPECT_EQ(decoded.replaced, 0U) << c.bytes;
  }
  EXPECT_EQ(DecodeText("K\xF5v\xE1ri", "windows-1250").text, "K\u0151v\u00E1ri");
  EXPECT_EQ(DecodeText("\xC3\xA9", "windows-1252").text, "\u00C3\u00A9");
  const DecodedText broken = DecodeText("a\xE9 b", "UTF-8");
  EXPECT_EQ(broken.text, "a\uFFFD b");
  EXPECT_EQ(broken.replaced, 1U);
  EXPECT_EQ(DecodeText(std::string("a\0\xE9\0", 4)).text, "a\u00E9");
  for (const Encoding& encoding : Encodings()) EXPECT_TRUE(IsEncoding(encoding.name));
  EXPECT_FALSE(IsEncoding("nonsense"));
}

// Without a declaration the words tell, where they tell anything.
TEST(Encodings, AreGuessedFromTheWords) {
  for (const char* text : {
           "13.02.2020;\u017Babka \u0141\u00F3d\u017A\n14.02.2020;Wyp\u0142ata\n|windows-1250",
           "\u041C\u0430\u0433\u0430\u0437\u0438\u043D;"
           "\u0417\u0430\u0440\u043F\u043B\u0430\u0442\u0430|windows-1251",
           "\u041C\u0430\u0433\u0430\u0437\u0438\u043D;"
           "\u0417\u0430\u0440\u043F\u043B\u0430\u0442\u0430|koi8-r",
           "\u041C\u0430\u0433\u0430\u0437\u0438\u043D;"
           "\u0417\u0430\u0440\u043F\u043B\u0430\u0442\u0430;"
           "\u041F\u043E\u043B\u0443\u0447\u0430\u0442\u0435\u043B\u044C;"
           "\u0421\u0443\u043C\u043C\u0430|cp866",
           "\u03A3\u03BF\u03CD\u03C0\u03B5\u03C1 \u03BC\u03AC\u03C1\u03BA\u03B5\u03C4|windows-1253",
           "M\u00FCller, B\u00E4ckerei Gr\u00F6\u00DFe 12,50 \u20AC|windows-1252",
           "l\u2019\u00E9t\u00E9 c\u0153ur re\u00E7u n\u00B05|windows-1252",
           "Se\u00F1or \u00BFqu\u00E9? S\u00E3o Jo\u00E3o \u00C5ngstr\u00F6m|windows-1252",
           "M\u00FCller B\u00E4ckerei|cp850",
           "\u65E5\u4ED8,\u5185\u5BB9,\u91D1\u984D\n1,\u30B3\u30F3\u30D3\u30CB,2\n3,\u7D66\u4E0E,4|"
           "shift_jis",
           "\uB0A0\uC9DC,\uB0B4\uC6A9,\uAE08\uC561\n1,\uD3B8\uC758\uC810,2\n3,\uAE09\uC5EC,4|euc-"
           "kr",
       }) {
    const std::string_view whole = text;
    const std::size_t bar = whole.rfind('|');
    const std::string words(whole.substr(0, bar));
    const std::string encoding(whole.substr(bar + 1));
    std::string bytes(400, ' ');
    const icu::UnicodeString letters = icu::UnicodeString::fromUTF8(words);
    bytes.resize(static_cast<std::size_t>(
        letters.extract(0, letters.length(), bytes.data(), 400, encoding.c_str())));
    EXPECT_EQ(DecodeText(bytes).text, words) << encoding;
  }
}

TEST_F(Styles, TheEncodingCanBeChosenForEveryFormat) {
  const std::int64_t mine = AddAccount("Mine");
  job_.encoding = "windows-1250";
  job_.csv.date = 1;
  job_.csv.payee = 2;
  job_.csv.income = job_.csv.expense = 3;
  Import("!Type:Bank\nD13/2/2020\nT1\nPK\xF5v\xE1ri\n^\n", "a.qif", mine);
  Import("<OFX><STMTTRN><DTPOSTED>20200213<TRNAMT>2<NAME>K\xF5v\xE1ri</STMTTRN></OFX>", "a.ofx",
         mine);
  Import("13/02/2020,K\xF5v\xE1ri,3\n", "a.csv", mine);
  EXPECT_EQ(Rows("Mine"), (Texts{"2020-02-13|K\u0151v\u00E1ri|Credit|1||",
                                 "2020-02-13|K\u0151v\u00E1ri|Credit|2||",
                                 "2020-02-13|K\u0151v\u00E1ri|Credit|3||"}));
  job_.encoding = "UTF-8";
  EXPECT_EQ(Problems(Import("14/02/2020,K\xF5v,3\n", "a.csv", mine)),
            Texts{"0: Places that make no sense in the encoding of the text: 1. Choose another "
                  "encoding."});
}

}  // namespace
}  // namespace corvanta
