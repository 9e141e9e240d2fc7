// A program that dies while a statement is applied leaves all rows settled or none.
#include "ledger/RecordsTest.h"
#include "platform/Progress.h"
#include "reconcile/Reconciliation.h"
#include "support/FaultyDisk.h"

#include <optional>

namespace corvanta {
namespace {

constexpr std::int64_t kRows = 6;

class ApplyCrash : public RecordsTest, public testing::WithParamInterface<Fault> {
 protected:
  ApplyCrash() {
    for (std::int64_t i = 0; i < kRows; ++i) {
      const std::int64_t split = Add(bank_, -10);
      AddLine(split, -4);
      AddLine(split, -6);
    }
  }

  void Apply(Connection& store) {
    clsCorvanta ledger(store, store_.platform.Get());
    Reconciliation balancing(bank_, ledger);
    balancing.ShowUnreconciled();
    balancing.SelectAll();
    SilentProgress progress;
    balancing.Apply(progress);
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
};

TEST_P(ApplyCrash, AllRowsAreSettledOrNone) {
  store_.Close();
  const int stopped = SweepFaults(
      store_, GetParam(), [this](Connection& store) { Apply(store); },
      [](Connection& store, bool isDone) {
        const auto settled = Settled(store);
        ASSERT_TRUE(settled.has_value()) << "a row is half settled";
        EXPECT_TRUE(*settled == kRows || (!isDone && *settled == 0)) << *settled;
      });
  EXPECT_GT(stopped, 5);
}

INSTANTIATE_TEST_SUITE_P(Faults, ApplyCrash,
                         testing::Values(Fault::IoError, Fault::Exit, Fault::TornWrite,
                                         Fault::DropUnsynced),
                         [](const auto& tested) { return FaultName(tested.param); });

}  // namespace
}  // namespace corvanta
