#include "cli/CommandLine.h"
#include "support/HttpServer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvanta {
namespace {

std::string Serve(const std::string& path) {
  if (path == "/moved/EURUSD") return "HTTP/1.1 302 Found\r\nLocation: /good/EURUSD\r\n\r\n";
  if (path == "/good/EURUSD") {
    return HttpServer::Answer("200 OK", "", "\"EURUSD=X\",1.0834,\"11/20/2026\",\"5:30pm\",1,2");
  }
  if (path == "/words/EURUSD") return HttpServer::Answer("200 OK", "", "closed,today,sorry");
  if (path == "/empty/EURUSD") return HttpServer::Answer("200 OK", "", "");
  if (path == "/cut/EURUSD") return "HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n\"x\",1.5,3,4";
  return HttpServer::Answer("404 Not Found", "", "a,2,b,c");
}

// The command over a data file whose currency source is a server of the test's own.
class RateCommandTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(Run({"new", "--empty"}), ExitStatus::Done); }

  ExitStatus Run(std::vector<std::string> arguments) {
    out_.str("");
    messages_.str("");
    arguments.insert(arguments.begin(),
                     {"--profile", folder_.Path("profile"), "--data", folder_.Path("data")});
    return CommandLine(out_, messages_).Run(std::move(arguments));
  }
  ExitStatus RateFrom(const std::string& page) {
    const std::string url = server_.Url("/" + page + "/CURRENCY");
    EXPECT_EQ(Run({"sql", "UPDATE tblStockData SET [URL] = '" + url + "' WHERE DataID = 1"}),
              ExitStatus::Done);
    return Run({"--format", "csv", "rate", "eur", "USD"});
  }

  TemporaryFolder folder_;
  HttpServer server_{Serve};
  std::ostringstream out_;
  std::ostringstream messages_;
};

TEST_F(RateCommandTest, PrintsWhatTheServerAnswers) {
  for (const char* page : {"good", "moved"}) {
    EXPECT_EQ(RateFrom(page), ExitStatus::Done) << page;
    EXPECT_EQ(out_.str(), "From,To,Rate\r\nEUR,USD,1.0834\r\n") << page;
    EXPECT_EQ(messages_.str(), "") << page;
  }
}

TEST_F(RateCommandTest, AnAnswerWithoutARateIsSaidAndARateThatIsKnownGoesBefore1) {
  const std::string trouble = "Download Currency: The answer of Yahoo Currency held no rate. ";
  EXPECT_EQ(RateFrom("words"), ExitStatus::Done);
  EXPECT_EQ(out_.str(), "From,To,Rate\r\nEUR,USD,1\r\n");
  EXPECT_EQ(messages_.str(), trouble + "One EUR was taken for one USD.\n");
  EXPECT_EQ(RateFrom("good"), ExitStatus::Done);
  EXPECT_EQ(RateFrom("words"), ExitStatus::Done);
  EXPECT_EQ(out_.str(), "From,To,Rate\r\nEUR,USD,1.0834\r\n");
  EXPECT_TRUE(messages_.str().starts_with(trouble + "The rate of ")) << messages_.str();
}

TEST_F(RateCommandTest, AServerThatFailsIsNamedAsTheReason) {
  for (const char* page : {"empty", "cut", "missing"}) {
    EXPECT_EQ(RateFrom(page), ExitStatus::MachineFailed) << page;
    EXPECT_EQ(messages_.str(), "Download Currency: Could not connect to website\n") << page;
    EXPECT_EQ(out_.str(), "") << page;
  }
}

}  // namespace
}  // namespace corvanta
