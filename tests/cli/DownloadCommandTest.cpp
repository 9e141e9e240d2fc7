#include "cli/CommandLine.h"
#include "support/HttpServer.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvanta {
namespace {

std::string Serve(const std::string& path) {
  if (path == "/BT") return HttpServer::Answer("200 OK", "", "\"BT\",316.5,\"11/20/2026\",\"5pm\"");
  if (path == "/ODD") return HttpServer::Answer("200 OK", "", "<html>who, are, you</html>");
  if (path == "/rate?f=EUR&t=USD") {
    return HttpServer::Answer("200 OK", "", R"({"rates":{"USD":1.0834}})");
  }
  return HttpServer::Answer("404 Not Found", "", "\"X\",1,2,3");
}

// Commands over a data file whose sources are a server of the test's own.
class DownloadCommandTest : public testing::Test {
 protected:
  void SetUp() override {
    Run({"new", "--empty"});
    Run({"source", "edit", "Yahoo Stock", "--address", server_.Url("/STOCK")});
    for (const char* symbol : {"BT", "ODD", "GONE"}) {
      Run({"sql", std::string("INSERT INTO tblPayees (Payee, [Symbol], CurrencyID, "
                              "InvestCurrencyID, DataID, [Conversion], Investment) VALUES ('") +
                      symbol + " plc','" + symbol + "',17,17,2,0.01,1)"});
    }
  }
  ExitStatus Run(std::vector<std::string> arguments) {
    out_.str("");
    messages_.str("");
    arguments.insert(arguments.begin(), {"--profile", folder_.Path("profile"), "--data",
                                         folder_.Path("data"), "--today", "2026-11-21"});
    return CommandLine(out_, messages_).Run(std::move(arguments));
  }

  TemporaryFolder folder_;
  HttpServer server_{Serve};
  std::ostringstream out_;
  std::ostringstream messages_;
};

TEST_F(DownloadCommandTest, StoresThePricesThatCameAndSaysWhichDidNot) {
  EXPECT_EQ(Run({"--format", "csv", "download", "bt"}), ExitStatus::Done);
  EXPECT_EQ(out_.str(), "Investment,Date,Price\r\nBT plc,2026-11-21,3.165\r\n");
  EXPECT_EQ(messages_.str(), "");
  EXPECT_EQ(Run({"--format", "csv", "download"}), ExitStatus::MachineFailed);
  EXPECT_EQ(out_.str(), "Investment,Date,Price\r\nBT plc,2026-11-21,3.165\r\n");
  EXPECT_NE(messages_.str().find("Invalid Symbol ODD entered"), std::string::npos);
  EXPECT_NE(messages_.str().find("GONE plc: Could not connect to website. Yahoo Stock: the server answered 404."),
            std::string::npos)
      << messages_.str();
  EXPECT_EQ(Run({"--format", "csv", "sql", "SELECT COUNT(*) AS Prices FROM tblHistory"}),
            ExitStatus::Done);
  EXPECT_EQ(out_.str(), "Prices\r\n1\r\n");
}

TEST_F(DownloadCommandTest, ASourceShowsItsAnswerAndTheValueInIt) {
  ASSERT_EQ(Run({"source", "add", "Bank", "--for", "rates", "--answer", "json", "--field",
                 "/rates/TO", "--address", server_.Url("/rate?f=FROM&t=TO")}),
            ExitStatus::Done);
  EXPECT_EQ(Run({"source", "test", "bank", "eur/usd"}), ExitStatus::Done);
  EXPECT_EQ(out_.str(), "{\"rates\":{\"USD\":1.0834}}\n");
  EXPECT_TRUE(messages_.str().starts_with("Data Source: The value is 1")) << messages_.str();
  EXPECT_EQ(Run({"source", "test", "Yahoo Stock", "ODD"}), ExitStatus::MachineFailed);
  EXPECT_EQ(out_.str(), "<html>who, are, you</html>\n");
  EXPECT_EQ(Run({"rate", "EUR", "USD"}), ExitStatus::Done) << "the first by name";
  EXPECT_EQ(Run({"--format", "csv", "rate", "list"}), ExitStatus::Done);
  EXPECT_EQ(out_.str(), "ID,From,To,Date,Rate,Source\r\n1,EUR,USD,2026-11-21,1.0834,Bank\r\n");
}

}  // namespace
}  // namespace corvanta
