// The opening sequence, stopped at its operations on the disk.
#include "store/datafile/opening/KeyRecovery.h"
#include "store/datafile/opening/TransferFile.h"
#include "support/CrashMachine.h"
#include "support/DeafOpening.h"
#include "support/LedgerProblems.h"
#include "support/OldLayout.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace corvanta {
namespace {

constexpr long kSamples = 20;

const CrashMachine::Command kOpen = [](DataFileOpener& opener) {
  DeafOpening questions;
  (void)opener.Open(false, questions);
};

bool IsOldLayout(Connection& connection) {
  return connection.Table("tblTransactions")->Column("AllocatedItem")->TypeCode() == kTypeText;
}

class Crash : public ::testing::TestWithParam<Fault> {
 protected:
  // Memory instead of a disk: syncing it costs nothing, and what is lost is decided by the plan.
  static void SetUpTestSuite() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  static void TearDownTestSuite() { ::unsetenv("TMPDIR"); }

  using Step = std::function<void(CrashMachine&)>;

  // Stops the opening of a prepared machine at every operation, or at as many as time allows.
  void Sweep(const Step& prepare, const Step& verify) {
    CrashMachine counting;
    prepare(counting);
    const long total = counting.RunInChild(GetParam(), 0, kOpen).operations;
    ASSERT_GT(total, 10);
    const long step = std::max(1L, total / kSamples);
    int stopped = 0;
    for (long at = 1; at <= total && !HasFailure(); at += at < kSamples / 4 ? 1 : step) {
      SCOPED_TRACE("operation " + std::to_string(at) + " of " + std::to_string(total));
      CrashMachine machine;
      prepare(machine);
      stopped += machine.RunInChild(GetParam(), at, kOpen).isEnded ? 1 : 0;
      verify(machine);
    }
    const bool endsProcess = GetParam() != Fault::IoError && GetParam() != Fault::DiskFull;
    EXPECT_EQ(stopped > 0, endsProcess);
  }
};

TEST_P(Crash, CreationLeavesNoFileOrAWholeOne) {
  Sweep(
      [](CrashMachine& machine) {
        (void)machine.Password();
        machine.Set("DBPath", machine.test.folder.Path("data"));
      },
      [](CrashMachine& machine) {
        if (FileExists(machine.Path())) ExpectSound(*machine.Connect(machine.Password()));
        const auto file = machine.Open();
        ASSERT_TRUE(file.has_value());
        ExpectSound(*file->connection);
        EXPECT_EQ(LedgerProblems(*file->connection), std::vector<std::string>{});
        EXPECT_TRUE(machine.prompts.told.empty());
        EXPECT_FALSE(FileExists(machine.Path() + ".new"));
      });
}

TEST_P(Crash, CompactionLeavesOneWholeFile) {
  Sweep(
      [](CrashMachine& machine) {
        PutDataFile(machine.test);
        machine.Set("Reindex", "1");
      },
      [](CrashMachine& machine) {
        ExpectSound(*machine.Connect(machine.Password()));
        const auto file = machine.Open();
        ASSERT_TRUE(file.has_value());
        EXPECT_EQ(LedgerProblems(*file->connection), std::vector<std::string>{});
        EXPECT_TRUE(machine.prompts.told.empty());
      });
}

TEST_P(Crash, UpgradeLeavesTheOldFileOrTheNewOne) {
  std::string old;
  {
    TemporaryStore store;
    MakeOldLayout(store.Db());
    store.Close();
    old = ReadFile(store.Path());
  }
  Sweep(
      [&](CrashMachine& machine) {
        PutDataFile(machine.test);
        machine.test.folder.Write("data/Corvanta.dat", old);
        machine.Set("Reindex", "1");
      },
      [](CrashMachine& machine) {
        {
          const auto connection = machine.Connect(machine.Password());
          ExpectSound(*connection);
          if (!IsOldLayout(*connection)) {
            EXPECT_EQ(LedgerProblems(*connection), std::vector<std::string>{});
          }
        }
        machine.Set("Reindex", "1");
        const auto file = machine.Open();
        ASSERT_TRUE(file.has_value());
        EXPECT_FALSE(IsOldLayout(*file->connection));
        ExpectSound(*file->connection);
        EXPECT_EQ(LedgerProblems(*file->connection), std::vector<std::string>{});
        EXPECT_TRUE(machine.prompts.told.empty());
      });
}

TEST_P(Crash, ChangeOfPasswordLeavesAFileThatOneOfBothOpens) {
  TemporaryStore store;
  const std::string foreign = ReadFile(store.Path());
  const std::string oldPassword = store.Password();
  Sweep(
      [&](CrashMachine& machine) {
        (void)machine.Password();
        machine.Set("DBPath", machine.test.folder.Path("data"));
        machine.test.files.CreateFolder(machine.test.folder.Path("data"));
        machine.test.folder.Write("data/Corvanta.dat", foreign);
        WriteTransferFile(machine.test.folder.Path("data/Corvanta.tfr"), oldPassword,
                          machine.test.registry, machine.test.files);
      },
      [&](CrashMachine& machine) {
        const bool isOld = OpensWith(machine.Path(), oldPassword, machine.test.Get());
        ExpectSound(*machine.Connect(isOld ? oldPassword : machine.Password()));
        const auto file = machine.Open();
        ASSERT_TRUE(file.has_value());
        ExpectSound(*file->connection);
        // Only a transfer file whose work is done but that has kept its name is worth a word.
        EXPECT_LE(machine.prompts.told.size(), isOld ? 0U : 1U);
      });
}

INSTANTIATE_TEST_SUITE_P(Faults, Crash,
                         ::testing::Values(Fault::IoError, Fault::DiskFull, Fault::Exit,
                                           Fault::TornWrite, Fault::DropUnsynced),
                         [](const auto& tested) { return FaultName(tested.param); });

}  // namespace
}  // namespace corvanta
