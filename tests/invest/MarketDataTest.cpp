#include "invest/InvestTest.h"
#include "invest/MarketData.h"
#include "platform/Download.h"
#include "platform/IcuLocale.h"
#include "support/HttpServer.h"

#include <filesystem>

namespace corvanta {
namespace {

// Notes what a file holds at the moment it is removed.
class WatchingFiles : public SystemFiles {
 public:
  void Remove(const std::string& path) override {
    lastPath = path;
    lastContent = ReadFile(path);
    SystemFiles::Remove(path);
  }
  std::string lastPath;
  std::string lastContent;
};

// The test's machine with some of its services put in place by others.
Platform With(TestPlatform& machine, Files& files, Download& download, Locale& locale) {
  return {machine.registry, locale,   machine.clock,  machine.machine,     files, machine.prompts,
          machine.progress, download, machine.opener, machine.spreadsheet, "",    ""};
}

class MarketDataTest : public InvestTest {
 protected:
  std::string RateText(const std::string& answer) {
    Machine().download.AnswerAll(answer);
    std::vector<std::string> fields;
    return MarketData(Store(), Services()).FetchRate("EUR", "USD", fields) ? fields.at(1) : "none";
  }
};

TEST_F(MarketDataTest, TheFirstCurrencySourceByNameIsAsked) {
  Store().Execute(
      "INSERT INTO tblStockData ([Name],[URL],[Key],[Type],[Occur]) VALUES "
      "('A first source','http://first.test/?s=PAIR&t=PAIR','PAIR','Currency',0)");
  MarketData market(Store(), Services());
  const auto source = market.GetSourceRow(kCurrencySource, 0);
  ASSERT_TRUE(source);
  EXPECT_EQ(source->name, "A first source");
  EXPECT_EQ(market.GetSourceRow(kCurrencySource, 3)->dataId, 3) << "a key goes before the type";
  EXPECT_FALSE(market.GetSourceRow("O'Type", 0));
  std::vector<std::string> fields;
  EXPECT_FALSE(market.FetchRate("EUR", "USD", fields));
  EXPECT_EQ(Machine().download.Requested(),
            std::vector<std::string>{"http://first.test/?s=EURUSD&t=EURUSD"});
}

TEST_F(MarketDataTest, TheSecondFieldIsTheRate) {
  EXPECT_EQ(RateText("\"EURUSD=X\", 1.0 834 ,\"11/20/2026\",\"5:30pm\",1,2"), "1.0834");
  EXPECT_EQ(RateText("x,8.1E-5,y"), "8.1E-5");
  EXPECT_EQ(RateText("x,N/A,y"), "1");
  EXPECT_EQ(RateText("x,0.000,y"), "1");
  EXPECT_EQ(RateText("x,,y"), "1");
  EXPECT_EQ(RateText("<html>no, but, sorry</html>"), "1");
  EXPECT_EQ(RateText("x,1.0834"), "none");
  EXPECT_EQ(RateText(""), "none");
}

TEST_F(MarketDataTest, WithoutASourceNothingIsAsked) {
  SetSource("");
  EXPECT_EQ(RateText("x,2,y"), "none");
  Store().Execute("DELETE FROM tblStockData WHERE [Type] = 'CURRENCY'");
  EXPECT_EQ(RateText("x,2,y"), "none");
  EXPECT_EQ(Downloads(), 0U);
}

TEST_F(MarketDataTest, NumbersAreReadInTheLocalesSeparators) {
  IcuLocale german("de_DE");
  Platform platform = With(Machine(), Machine().files, Machine().download, german);
  const MarketData market(Store(), platform);
  EXPECT_EQ(market.NormaliseNumber("1,234.56"), "1.234,56");
  EXPECT_EQ(market.NormaliseNumber("1,234"), "1.234");
  EXPECT_EQ(market.NormaliseNumber("0.5.2"), "0,5.2") << "only the first point is a decimal one";
  EXPECT_EQ(market.NormaliseNumber(""), "");
  EXPECT_EQ(market.NumberOf("1.234,56"), 1234.56);
  EXPECT_EQ(market.NumberOf("8,1E-5"), 8.1e-5);
  EXPECT_EQ(market.NumberOf("2e+3"), 2000);
  for (const char* text : {"", "E5", "1E", "1E5x", "1E999", "abc"}) {
    EXPECT_EQ(market.NumberOf(text), std::nullopt) << text;
  }
}

TEST_F(MarketDataTest, TheTemporaryFileIsWipedWhenAskedAndAlwaysRemoved) {
  WatchingFiles files;
  Platform platform = With(Machine(), files, Machine().download, Machine().locale);
  MarketData market(Store(), platform);
  const std::string answer(250, 'a');
  Machine().download.AnswerAll(answer);
  bool ok = false;
  EXPECT_EQ(market.DownloadText("http://a.test", ok, false), answer);
  EXPECT_TRUE(ok);
  EXPECT_EQ(files.lastContent, answer);
  EXPECT_TRUE(std::filesystem::path(files.lastPath).filename().string().starts_with("bt"));
  EXPECT_FALSE(FileExists(files.lastPath));

  const std::size_t yields = Machine().progress.Yields();
  EXPECT_EQ(market.DownloadText("http://a.test", ok, true), answer);
  EXPECT_EQ(files.lastContent, std::string(200, 'X') + std::string(50, 'a'));
  EXPECT_FALSE(FileExists(files.lastPath));
  EXPECT_EQ(Machine().progress.Yields(), yields + 1);

  Machine().download.AnswerAll(std::nullopt);
  EXPECT_EQ(market.DownloadText("http://a.test", ok, true), "");
  EXPECT_FALSE(ok);
}

TEST_F(MarketDataTest, AServerThatIsSilentCutsOffOrRefusesGivesNoRate) {
  const HttpServer server([](const std::string& path) {
    if (path.starts_with("/silent")) return HttpServer::Silence();
    if (path.starts_with("/cut"))
      return std::string("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nx,2,y");
    if (path.starts_with("/good")) return HttpServer::Answer("200 OK", "", "x,1.25,y");
    return HttpServer::Answer("503 Service Unavailable", "", "x,2,y");
  });
  CurlDownload download(1);
  Platform platform = With(Machine(), Machine().files, download, Machine().locale);
  MarketData market(Store(), platform);
  std::vector<std::string> fields;
  for (const char* page : {"/cut/", "/busy/", "/silent/"}) {
    SetSource(server.Url(page) + "CURRENCY");
    EXPECT_FALSE(market.FetchRate("EUR", "USD", fields)) << page;
    EXPECT_TRUE(fields.empty()) << page;
  }
  SetSource(server.Url("/good/CURRENCY"));
  EXPECT_TRUE(market.FetchRate("EUR", "USD", fields));
  EXPECT_EQ(fields, (std::vector<std::string>{"x", "1.25", "y"}));
}

}  // namespace
}  // namespace corvanta
