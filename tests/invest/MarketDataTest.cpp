#include "invest/InvestTest.h"
#include "invest/prices/MarketData.h"
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
  clsCorvanta ledger_{Store(), Services()};

  std::string RateText(const std::string& answer) {
    Machine().download.AnswerAll(answer);
    std::vector<std::string> fields;
    return MarketData(ledger_, Services()).FetchRate("EUR", "USD", fields) ? fields.at(1) : "none";
  }
};

TEST_F(MarketDataTest, TheFirstCurrencySourceByNameIsAsked) {
  Store().Execute(
      "INSERT INTO tblStockData ([Name],[URL],[Key],[Type],[Occur]) VALUES "
      "('A first source','http://first.test/?s=PAIR&t=PAIR','PAIR','Currency',0)");
  MarketData market(ledger_, Services());
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
  clsCorvanta ledger(Store(), platform);
  const MarketData market(ledger, platform);
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
  clsCorvanta ledger(Store(), platform);
  MarketData market(ledger, platform);
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
  EXPECT_EQ(Machine().progress.Yields(), yields + 2) << "one while it is fetched";

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
  clsCorvanta ledger(Store(), platform);
  MarketData market(ledger, platform);
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

// Every way in which a service can answer, and what becomes of it.
TEST_F(MarketDataTest, AQuoteIsReadFromWhatAServerAnswers) {
  const std::string line = "\"X\",1234.5,\"11/20/2026\",\"5:30pm\",-0.25,1,2,3,4\r\n";
  const std::string challenge = "<html><title>7</title>One moment, we check, your browser</html>";
  const HttpServer server([&](const std::string& path) {
    if (path == "/good") return HttpServer::Answer("200 OK", "", line);
    if (path == "/moved") return HttpServer::Answer("302 Found", "Location: /good\r\n", "");
    if (path == "/page") return HttpServer::Answer("200 OK", "", "<i class=pr>1,234.5</i>");
    if (path == "/empty") return HttpServer::Answer("200 OK", "", "");
    if (path == "/challenge") return HttpServer::Answer("200 OK", "", challenge);
    if (path == "/cut") return std::string("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\nx,2,y");
    if (path == "/huge") return HttpServer::Answer("200 OK", "", std::string(17U << 20U, '1'));
    if (path == "/silent") return HttpServer::Silence();
    return HttpServer::Answer(path == "/none" ? "404 Not Found" : "500 Oops", "", line);
  });
  CurlDownload download(1);
  Platform platform = With(Machine(), Machine().files, download, Machine().locale);
  clsCorvanta ledger(Store(), platform);
  MarketData market(ledger, platform);
  std::vector<std::string> fields;
  const auto quote = [&](const char* path, std::int64_t dataId) -> std::string {
    Store().Execute("UPDATE tblStockData SET [URL] = " + SqlText(server.Url(path)) +
                    " WHERE DataID = " + SqlNumber(dataId));
    if (!market.FetchQuote("X", fields, dataId)) return "failed";
    return fields.size() > 1 ? fields[1] : "no value";
  };
  EXPECT_EQ(quote("/good", 2), "1234.5");
  EXPECT_EQ(fields.at(2) + fields.at(3) + fields.at(4), "\"11/20/2026\"\"5:30pm\"-0.25");
  EXPECT_EQ(market.Trouble().text, "");
  EXPECT_EQ(quote("/moved", 2), "1234.5");
  EXPECT_EQ(quote("/page", 4), "1,234.5");
  EXPECT_EQ(quote("/challenge", 4), "no value");
  EXPECT_NE(market.Trouble().text, "");
  EXPECT_EQ(market.NumberOf(quote("/challenge", 2)), std::nullopt);
  EXPECT_EQ(quote("/empty", 2), "no value");
  EXPECT_EQ(quote("/empty", 4), "no value");
  for (const char* path : {"/cut", "/huge", "/none", "/oops", "/silent"}) {
    EXPECT_EQ(quote(path, 2), "failed") << path;
    EXPECT_TRUE(fields.empty()) << path;
    EXPECT_EQ(market.Trouble().isServiceDead, std::string(path) == "/silent") << path;
    EXPECT_FALSE(market.Trouble().text.empty()) << path;
  }
  EXPECT_EQ(Machine().progress.Status(), "") << "what was waited for is over";
  EXPECT_EQ(Machine().progress.Texts().front(), "Downloading from Yahoo Stock... (Esc stops)");
}

TEST_F(MarketDataTest, APersonStopsADownloadThatNobodyAnswers) {
  const HttpServer server([](const std::string&) { return HttpServer::Silence(); });
  CurlDownload patient(100000);
  Platform platform = With(Machine(), Machine().files, patient, Machine().locale);
  clsCorvanta ledger(Store(), platform);
  MarketData market(ledger, platform);
  SetSource(server.Url("/"));
  Machine().progress.StopAfter(2);
  std::vector<std::string> fields;
  EXPECT_FALSE(market.FetchRate("EUR", "USD", fields));
  EXPECT_TRUE(market.Trouble().wasStopped);
}

TEST_F(MarketDataTest, AKeyOfOnesOwnIsSentAndNeverShown) {
  SourceRow source;
  source.name = "A service";
  source.url = "http://a.test/?s=STOCK&k=APIKEY";
  source.key = "STOCK";
  source.kind = AnswerKind::Pointer;
  source.field = "/price";
  MarketData market(ledger_, Services());
  const auto tried = [&] { return market.Try(source, SourceQuestion::OfStock("X")); };
  EXPECT_NE(tried().problem.find("key of your own"), std::string::npos);
  EXPECT_EQ(Downloads(), 0U);
  source.ownKey = "s3cret";
  EXPECT_EQ(tried().problem.find("s3cret"), std::string::npos);
  Machine().download.Answer("http://a.test/?s=X&k=s3cret", R"({"price":12.5,"key":"s3cret"})");
  const MarketData::Trial good = tried();
  EXPECT_EQ(good.value, 12.5);
  EXPECT_EQ(good.answer, R"({"price":12.5,"key":"***"})");
  EXPECT_EQ(good.problem, "");
  source.field = "/APIKEY";
  EXPECT_EQ(tried().problem, "A service: There is nothing at /*** in the answer.");
  source.field = "/key";
  const MarketData::Trial bad = tried();
  EXPECT_EQ(bad.value, std::nullopt);
  EXPECT_EQ(bad.problem.find("s3cret"), std::string::npos) << bad.problem;
  EXPECT_EQ(bad.found.find("s3cret"), std::string::npos) << bad.found;
}

}  // namespace
}  // namespace corvanta
