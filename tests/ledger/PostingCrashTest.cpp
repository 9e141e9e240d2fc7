// A pass that dies on its way and runs again comes to what one pass would have come to.
#include "ledger/PostingTest.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Files.h"
#include "support/Contents.h"
#include "support/FaultyDisk.h"

#include <fstream>

namespace corvanta {
namespace {

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

  static std::string Posted(Connection& store) {
    return ContentsOf(store, {"tblTransactions", "tblSchedule"});
  }
};

class PostingCrash : public PassOnFaultyDisk, public testing::WithParamInterface<Fault> {};

TEST_P(PostingCrash, RunningAgainCompletesIt) {
  const std::string before = Posted(store_.Db());
  store_.Close();
  const std::string bytes = ReadFile(store_.Path());
  EXPECT_GT(PassOn(*OpenSound(store_)).occurrences, 8U);
  const std::string whole = Posted(*OpenSound(store_));
  std::ofstream(store_.Path(), std::ios::binary) << bytes;
  const int stopped = SweepFaults(
      store_, GetParam(), [this](Connection& store) { PassOn(store); },
      [&](Connection& store, bool isDone) {
        const std::string found = Posted(store);
        EXPECT_TRUE(found == whole || (!isDone && found == before)) << "whole or not at all";
        PassOn(store);
        EXPECT_EQ(Posted(store), whole);
      });
  EXPECT_GT(stopped, 5);
}

// However long it is.
TEST_F(PassOnFaultyDisk, ALongPassOnAFullDiskChangesNothing) {
  for (const char* day : {"2026-11-21", "2026-11-22", "2026-11-23", "2026-11-24"}) {
    Save(Plan("d", day));
  }
  LookAhead("10 Years");
  const std::string before = Posted(store_.Db());
  store_.Close();
  const std::string bytes = ReadFile(store_.Path());
  PassOn(*OpenSound(store_));
  const std::string whole = Posted(*OpenSound(store_));
  int stopped = 0;
  bool isDone = false;
  for (long at = 40; !isDone; at = at * 8 / 5) {
    std::ofstream(store_.Path(), std::ios::binary) << bytes;
    isDone =
        WorkOnFaultyDisk(store_, Fault::DiskFull, at, [this](Connection& store) { PassOn(store); });
    stopped += isDone ? 0 : 1;
    EXPECT_TRUE(Posted(*OpenSound(store_)) == (isDone ? whole : before)) << "operation " << at;
  }
  EXPECT_GT(stopped, 3);
}

INSTANTIATE_TEST_SUITE_P(Faults, PostingCrash,
                         testing::Values(Fault::IoError, Fault::DiskFull, Fault::Exit,
                                         Fault::TornWrite, Fault::DropUnsynced),
                         [](const auto& tested) { return FaultName(tested.param); });

}  // namespace
}  // namespace corvanta
