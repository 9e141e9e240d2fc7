// A pass that dies on its way and runs again comes to what one pass would have come to.
#include "ledger/PostingTest.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Files.h"
#include "support/FaultVfs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

namespace corvanta {
namespace {

constexpr const char* kVfs = "faulty";
constexpr int kMostOperations = 400;

class PassOnFaultyDisk : public PostingTest {
 protected:
  PassOnFaultyDisk() {
    MoveDates(true);
    rates_.Answer(1.25);
    const std::int64_t split = Save(Plan("m", "2026-09-15", 4));
    SaveLine(split, -30);
    SaveLine(split, -10);
    ScheduleRecord plan = Plan("2ww", "2026-10-17");
    plan.transferAccountId = euros_;
    Save(plan);
    Save(Plan("1d", "2026-11-01"));
  }

  PostingResult PassOn(Connection& store) {
    AgreeingPlatform machine(store_.platform.Get());
    clsCorvanta ledger(store, machine.Get());
    return SchedulePosting(ledger, machine.Get(), rates_).PostSchedules();
  }

  static std::string ContentsOf(Connection& store) {
    std::string text;
    for (const char* table : {"tblTransactions", "tblSchedule"}) {
      Recordset rows = store.OpenRecordset(table);
      for (; !rows.Eof(); rows.MoveNext()) {
        for (int i = 0; i < static_cast<int>(rows.Fields().size()); ++i) {
          text.append(rows.Text(i)).append("|");
        }
        text += "\n";
      }
    }
    return text;
  }

  // Runs in a process of its own in which operation `at` fails; true when it came to its end.
  bool PassInChild(const std::string& password, Fault fault, long at) {
    const pid_t child = ::fork();
    if (child == 0) {
      FaultPlan plan(fault, at);
      const FaultVfs vfs(kVfs, plan);
      try {
        PassOn(*Connection::Open({store_.Path(), password, kVfs}, store_.platform.clock));
      } catch (const std::exception&) {
        ::_exit(1);
      }
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
};

class PostingCrash : public PassOnFaultyDisk, public testing::WithParamInterface<Fault> {};

TEST_P(PostingCrash, RunningAgainCompletesIt) {
  const std::string password = store_.Password();
  const auto open = [&] {
    return Connection::Open({store_.Path(), password, {}}, store_.platform.clock);
  };
  store_.Close();
  const std::string bytes = ReadFile(store_.Path());
  const std::string before = ContentsOf(*open());
  EXPECT_GT(PassOn(*open()).occurrences, 8U);
  const std::string whole = ContentsOf(*open());
  int stopped = 0;
  bool isDone = false;
  for (long at = 1; !isDone && at < kMostOperations && !HasFailure(); ++at) {
    SCOPED_TRACE("operation " + std::to_string(at));
    std::ofstream(store_.Path(), std::ios::binary) << bytes;
    isDone = PassInChild(password, GetParam(), at);
    const auto store = open();
    EXPECT_TRUE(store->Check().empty());
    EXPECT_EQ(LedgerProblems(*store), std::vector<std::string>{});
    const std::string found = ContentsOf(*store);
    EXPECT_TRUE(found == before || found == whole) << "a pass is whole or not at all";
    PassOn(*store);
    EXPECT_EQ(ContentsOf(*store), whole);
    stopped += isDone ? 0 : 1;
  }
  EXPECT_TRUE(isDone);
  EXPECT_GT(stopped, 5);
}

// However long it is.
TEST_F(PassOnFaultyDisk, ALongPassOnAFullDiskChangesNothing) {
  for (const char* day : {"2026-11-21", "2026-11-22", "2026-11-23", "2026-11-24"}) {
    Save(Plan("d", day));
  }
  LookAhead("10 Years");
  const std::string password = store_.Password();
  const auto open = [&] {
    return Connection::Open({store_.Path(), password, {}}, store_.platform.clock);
  };
  store_.Close();
  const std::string bytes = ReadFile(store_.Path());
  const std::string before = ContentsOf(*open());
  PassOn(*open());
  const std::string whole = ContentsOf(*open());
  int stopped = 0;
  bool isDone = false;
  for (long at = 40; !isDone; at = at * 8 / 5) {
    std::ofstream(store_.Path(), std::ios::binary) << bytes;
    isDone = PassInChild(password, Fault::DiskFull, at);
    stopped += isDone ? 0 : 1;
    const auto store = open();
    EXPECT_TRUE(ContentsOf(*store) == (isDone ? whole : before)) << "operation " << at;
  }
  EXPECT_GT(stopped, 3);
}

INSTANTIATE_TEST_SUITE_P(Faults, PostingCrash,
                         testing::Values(Fault::IoError, Fault::DiskFull, Fault::Exit,
                                         Fault::TornWrite, Fault::DropUnsynced));

}  // namespace
}  // namespace corvanta
