// A program that dies while a statement is applied leaves all rows settled or none.
#include "ledger/RecordsTest.h"
#include "platform/Files.h"
#include "platform/Progress.h"
#include "reconcile/Reconciliation.h"
#include "support/FaultVfs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <optional>

namespace corvanta {
namespace {

constexpr const char* kVfs = "faulty";
constexpr int kMaxOperations = 400;
constexpr std::size_t kRows = 6;

class ApplyCrash : public RecordsTest, public testing::WithParamInterface<Fault> {
 protected:
  ApplyCrash() {
    for (std::size_t i = 0; i < kRows; ++i) {
      const std::int64_t split = Add(bank_, -10);
      AddLine(split, -4);
      AddLine(split, -6);
    }
  }

  // In a process of its own that obeys the plan; true when it came to its end.
  bool ApplyInChild(const std::string& password, long at) {
    const pid_t child = ::fork();
    if (child == 0) {
      FaultPlan plan(GetParam(), at);
      const FaultVfs vfs(kVfs, plan);
      try {
        const auto store = Connection::Open({store_.Path(), password, kVfs}, store_.platform.clock);
        clsCorvanta ledger(*store, store_.platform.Get());
        Reconciliation balancing(bank_, ledger);
        balancing.ShowUnreconciled();
        balancing.SelectAll();
        SilentProgress progress;
        balancing.Apply(progress);
      } catch (const std::exception&) {
        ::_exit(1);
      }
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  // How many rows are settled with their lines; nullopt when one is half so.
  static std::optional<std::int64_t> Settled(Connection& store) {
    const auto count = [&](const std::string& where) {
      return store.QueryValue("SELECT COUNT(*) FROM tblTransactions WHERE " + where).Int();
    };
    if (count("BankChk <> BankRec") > 0) return std::nullopt;
    const std::int64_t whole = count("AllocatedItem = 0 AND BankRec = 1");
    const std::int64_t lines = count(
        "BankRec = 1 AND AllocatedItem IN (SELECT TransactionID FROM tblTransactions WHERE "
        "BankRec = 1)");
    if (lines != 2 * whole || count("BankRec = 1") != 3 * whole) return std::nullopt;
    return whole;
  }

  void Sweep() {
    const std::string password = store_.Password();
    store_.Close();
    const std::string bytes = ReadFile(store_.Path());
    bool isDone = false;
    for (long at = 1; !isDone && at < kMaxOperations && !HasFailure(); ++at) {
      SCOPED_TRACE("operation " + std::to_string(at));
      isDone = ApplyInChild(password, at);
      const auto store = Connection::Open({store_.Path(), password, {}}, store_.platform.clock);
      const auto settled = Settled(*store);
      EXPECT_TRUE(settled.has_value()) << "a row is half settled";
      EXPECT_TRUE(store->Check().empty());
      EXPECT_EQ(LedgerProblems(*store), std::vector<std::string>{});
      EXPECT_TRUE(!isDone || settled.value_or(0) == static_cast<std::int64_t>(kRows));
      EXPECT_TRUE(settled.value_or(0) == 0 || settled == static_cast<std::int64_t>(kRows));
      std::ofstream(store_.Path(), std::ios::binary) << bytes;
    }
    EXPECT_TRUE(isDone);
  }
};

TEST_P(ApplyCrash, AllRowsAreSettledOrNone) {
  Sweep();
}

std::string NameOf(const testing::TestParamInfo<Fault>& tested) {
  constexpr const char* kNames[] = {"IoError", "DiskFull", "Exit", "TornWrite", "DropUnsynced"};
  return kNames[static_cast<std::size_t>(tested.param)];
}

INSTANTIATE_TEST_SUITE_P(Faults, ApplyCrash,
                         testing::Values(Fault::IoError, Fault::Exit, Fault::TornWrite,
                                         Fault::DropUnsynced),
                         NameOf);

}  // namespace
}  // namespace corvanta
