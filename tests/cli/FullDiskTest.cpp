// Commands on a disk that fills up at one write after the other.
#include "cli/CommandLine.h"
#include "platform/Files.h"
#include "support/FaultVfs.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace corvanta {
namespace {

using Arguments = std::vector<std::string>;

class FullDisk : public testing::TestWithParam<Arguments> {
 protected:
  void SetUp() override {
    const Arguments row{"add",       "expense", "--account",  "Everyday", "--payee",  "Corner Shop",
                        "--payment", "Cash",    "--category", "Gifts",    "--amount", "5"};
    const Arguments schedule{"schedule", "add",        "expense",     "--account", "Everyday",
                             "--payee",  "Water",      "--amount",    "30",        "--payment",
                             "Cash",     "--category", "Gifts",       "--start",   "2026-11-01",
                             "--period", "Weekly",     "--automatic", "due"};
    Do({"new", "--empty"});
    Do({"accounts", "add", "Everyday", "--group", "Bank Accounts", "--currency", "GBP"});
    Do(row);
    Do(row);
    Do(schedule);
    folder_.Write("some.qif", "!Type:Bank\nD13/2/2020\nT-1\nPShop\n^\nD14/2/2020\nT-2\nPMill\n^\n");
    file_ = ReadFile(DataPath());
    rows_ = Rows();
  }

  ExitStatus Run(Arguments arguments) {
    out_.str("");
    messages_.str("");
    arguments.insert(arguments.begin(), {"--profile", folder_.Path("profile"), "--data",
                                         folder_.Path("data"), "--today", "2026-11-21", "--yes"});
    return CommandLine(out_, messages_).Run(std::move(arguments));
  }
  void Do(const Arguments& arguments) {
    ASSERT_EQ(Run(arguments), ExitStatus::Done) << messages_.str();
  }
  std::string DataPath() const { return folder_.Path("data/Corvanta.dat"); }
  std::string Rows() {
    std::string rows;
    for (const char* table : {"tblTransactions", "tblSchedule", "tblPayees", "tblCategory"}) {
      Do({"--format", "csv", "sql", std::string("SELECT * FROM ") + table});
      rows += out_.str();
    }
    return rows;
  }

  TemporaryFolder folder_;
  std::ostringstream out_;
  std::ostringstream messages_;
  std::string file_;
  std::string rows_;
};

TEST_P(FullDisk, IsToldAndLeavesEverythingAsItWas) {
  Arguments arguments = GetParam();
  for (std::string& argument : arguments) {
    if (argument == "some.qif") argument = folder_.Path(argument);
  }
  int refused = 0;
  // What writes much writes alike: there not every write is tried.
  constexpr long kEach = 40;
  constexpr long kApart = 5;
  for (long at = 1; at < 1000 && !HasFailure(); at += at < kEach ? 1 : kApart) {
    SCOPED_TRACE("write " + std::to_string(at));
    FaultPlan plan(Fault::DiskFull, at);
    ExitStatus status{};
    std::string told;
    {
      const FaultVfs vfs("full", plan, true);
      status = Run(arguments);
      told = messages_.str();
    }
    const bool isOver = plan.Counted() < at;
    // What needs no room any more may come to its end.
    if (status != ExitStatus::Done) {
      ++refused;
      EXPECT_EQ(status, ExitStatus::MachineFailed);
      EXPECT_NE(told.find("The disk is full"), std::string::npos) << told;
      EXPECT_NE(told.find("Nothing was changed."), std::string::npos) << told;
      EXPECT_EQ(Rows(), rows_);
    }
    const auto entries = std::filesystem::directory_iterator(folder_.Path("data"));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "something was left beside it";
    folder_.Write("data/Corvanta.dat", file_);
    if (isOver) break;
  }
  EXPECT_GT(refused, 3);
  EXPECT_EQ(Run(arguments), ExitStatus::Done) << messages_.str();
}

INSTANTIATE_TEST_SUITE_P(
    Commands, FullDisk,
    testing::Values(Arguments{"add", "income", "--account", "Everyday", "--payee", "Somebody New",
                              "--payment", "Cash", "--category", "Gifts", "--amount", "5"},
                    Arguments{"multi-edit", "1", "2", "--type", "reverse"}, Arguments{"post"},
                    Arguments{"import", "some.qif", "--account", "Everyday"},
                    Arguments{"validate"}),
    [](const auto& tested) {
      return tested.param.front() == "multi-edit" ? "multiedit" : tested.param.front();
    });

}  // namespace
}  // namespace corvanta
