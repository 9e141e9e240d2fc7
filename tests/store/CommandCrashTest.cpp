// Commands that are killed, one after the other, in a folder with one data file and with two.
#include "platform/Files.h"
#include "store/CrashMachine.h"
#include "store/Recordset.h"
#include "store/opening/KeyRecovery.h"
#include "support/LedgerProblems.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace corvanta {
namespace {

constexpr long kSamples = 16;
constexpr int kRows = 400;

const CrashMachine::Command kValidate = [](DataFileOpener& opener) { (void)opener.Validate(); };
const CrashMachine::Command kNew = [](DataFileOpener& opener) { (void)opener.CreateNew(false); };
// Many rows in one go, as an import books them.
const CrashMachine::Command kImport = [](DataFileOpener& opener) {
  const DataFile file = opener.OpenExisting(true);
  Transaction change = file.connection->Begin();
  for (int row = 0; row < kRows; ++row) {
    file.connection->Execute("INSERT INTO tblPayees (Payee) VALUES ('Imported')");
  }
  change.Commit();
};

std::int64_t Imported(Connection& connection) {
  return connection.QueryValue("SELECT COUNT(*) FROM tblPayees WHERE Payee = 'Imported'").Int();
}

class CommandCrash : public ::testing::TestWithParam<Fault> {
 protected:
  // Memory instead of a disk: syncing it costs nothing, and what is lost is decided by the plan.
  static void SetUpTestSuite() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  static void TearDownTestSuite() { ::unsetenv("TMPDIR"); }

  static std::string Neighbour(CrashMachine& machine) {
    return machine.test.folder.Path("data/other.dat");
  }
  // A second data file in the folder, which has other rows than the first.
  static std::string PutNeighbour(CrashMachine& machine) {
    machine.test.folder.Write("data/other.dat", ReadFile(machine.Path()));
    Connection::Open({Neighbour(machine), machine.Password(), {}}, machine.test.clock)
        ->Execute("UPDATE tblPayees SET Payee = 'Neighbour' WHERE PayeeID = 1");
    return ReadFile(Neighbour(machine));
  }
  static void ExpectNeighbour(CrashMachine& machine) {
    machine.Run(kValidate, Neighbour(machine));
    const auto connection =
        Connection::Open({Neighbour(machine), machine.Password(), {}}, machine.test.clock);
    ExpectSound(*connection);
    EXPECT_EQ(connection->QueryValue("SELECT Payee FROM tblPayees WHERE PayeeID = 1").Text(),
              "Neighbour");
  }
  // What every machine must do afterwards: each command works, and nothing is left over.
  static void ExpectUsable(CrashMachine& machine) {
    machine.Run(kImport);
    machine.Run(kValidate);
    EXPECT_FALSE(FileExists(machine.Path() + "-journal"));
    EXPECT_FALSE(FileExists(machine.test.folder.Path("data/Corvanta.000")));
    EXPECT_FALSE(FileExists(machine.test.folder.Path("data/Corvanta.000-journal")));
    const auto file = machine.Open();
    ASSERT_TRUE(file.has_value());
    ExpectSound(*file->connection);
    EXPECT_EQ(LedgerProblems(*file->connection), std::vector<std::string>{});
    EXPECT_EQ(machine.prompts.told, std::vector<std::string>{});
  }

  using Step = std::function<void(CrashMachine&)>;

  // Kills `first` at one operation after the other, `then` on the machine that is left, and looks.
  static void Sweep(const CrashMachine::Command& first, const CrashMachine::Command& then,
                    const Step& prepare, const Step& verify) {
    CrashMachine counting;
    prepare(counting);
    const long total = counting.RunInChild(GetParam(), 0, first).operations;
    ASSERT_GT(total, 5);
    const long step = std::max(1L, total / kSamples);
    for (long at = 1; at <= total && !HasFailure(); at += at < kSamples / 2 ? 1 : step) {
      SCOPED_TRACE("operation " + std::to_string(at) + " of " + std::to_string(total));
      CrashMachine machine;
      prepare(machine);
      EXPECT_TRUE(machine.RunInChild(GetParam(), at, first).isEnded);
      machine.RunInChild(GetParam(), at * 2 / 3 + 1, then);
      verify(machine);
    }
  }
};

TEST_P(CommandCrash, ValidateBesideAnotherDataFile) {
  Sweep(
      kValidate, kValidate,
      [](CrashMachine& machine) {
        PutDataFile(machine.test);
        PutNeighbour(machine);
      },
      [](CrashMachine& machine) {
        ExpectSound(*machine.Connect(machine.Password()));
        ExpectNeighbour(machine);
        // The first file's copy was in the way of the second's, and may have been kept and told.
        machine.prompts.told.clear();
        ExpectUsable(machine);
      });
}

TEST_P(CommandCrash, ImportKeepsAllOrNothingAndBarsNothing) {
  Sweep(
      kImport, kValidate, [](CrashMachine& machine) { PutDataFile(machine.test); },
      [](CrashMachine& machine) {
        {
          const auto connection = machine.Connect(machine.Password());
          EXPECT_EQ(Imported(*connection) % kRows, 0);
          ExpectSound(*connection);
        }
        ExpectUsable(machine);
      });
}

TEST_P(CommandCrash, NewBesideAnotherDataFile) {
  std::string neighbour;
  Sweep(
      kNew, kNew,
      [&](CrashMachine& machine) {
        PutDataFile(machine.test);
        neighbour = PutNeighbour(machine);
        machine.test.files.Remove(machine.Path());
      },
      [&](CrashMachine& machine) {
        EXPECT_EQ(ReadFile(Neighbour(machine)), neighbour);
        if (FileExists(machine.Path())) {
          ExpectSound(*machine.Connect(machine.Password()));
        } else {
          machine.Run(kNew);
        }
        EXPECT_FALSE(FileExists(machine.Path() + ".new2"));
        ExpectUsable(machine);
        ExpectNeighbour(machine);
      });
}

// Twice over, the key is used on what an import that was killed on the old machine has left.
TEST_P(CommandCrash, KeyUseAfterAKilledImport) {
  TemporaryStore old;
  const std::string foreign = ReadFile(old.Path());
  const std::string password = old.Password();
  const std::string key = RecoveryKeyFromPassword(password);
  const CrashMachine::Command useKey = [&key](DataFileOpener& opener) { (void)opener.UseKey(key); };
  Sweep(
      useKey, useKey,
      [&](CrashMachine& machine) {
        machine.Set("DBPath", machine.test.folder.Path("data"));
        machine.test.files.CreateFolder(machine.test.folder.Path("data"));
        machine.test.folder.Write("data/Corvanta.dat", foreign);
        machine.test.folder.Write("data/Corvanta.dat-journal", std::string(4096, '\0'));
      },
      [&](CrashMachine& machine) {
        const bool isOld = OpensWith(machine.Path(), password, machine.test.Get());
        ExpectSound(*machine.Connect(isOld ? password : machine.Password()));
        if (isOld) machine.Run(useKey);
        ExpectUsable(machine);
      });
}

INSTANTIATE_TEST_SUITE_P(Kills, CommandCrash,
                         ::testing::Values(Fault::Exit, Fault::TornWrite, Fault::DropUnsynced),
                         FaultName);

}  // namespace
}  // namespace corvanta
