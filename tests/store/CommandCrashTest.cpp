// Commands that are killed at every operation on the disk, once and twice in a row, in a folder
// with one data file and with two.
#include "platform/Files.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "support/CrashMachine.h"
#include "support/DeafOpening.h"
#include "support/LedgerProblems.h"
#include "support/OldLayout.h"

#include <unistd.h>

#include <cstdlib>
#include <tuple>

namespace corvanta {
namespace {

using Command = CrashMachine::Command;

constexpr int kParts = 4;  // of a sweep, which run beside each other
constexpr int kRows = 100;

const Command kValidate = [](DataFileOpener& opener) { (void)opener.Validate(); };
const Command kNew = [](DataFileOpener& opener) { (void)opener.CreateNew(false); };
const Command kOpen = [](DataFileOpener& opener) {
  DeafOpening questions;
  (void)opener.Open(false, questions);
};
// Many rows in one go, as an import books them.
const Command kImport = [](DataFileOpener& opener) {
  const DataFile file = opener.OpenExisting(true);
  Transaction change = file.connection->Begin();
  for (int row = 0; row < kRows; ++row) {
    file.connection->Execute(
        "INSERT INTO tblPayees (Payee) VALUES ('Imported under a name that fills pages')");
  }
  change.Commit();
};

std::int64_t Imported(Connection& connection) {
  return connection.QueryValue("SELECT COUNT(*) FROM tblPayees WHERE Payee LIKE 'Imported*'").Int();
}

bool IsOldLayout(Connection& connection) {
  return connection.Table("tblTransactions")->Column("AllocatedItem")->TypeCode() == kTypeText;
}

std::string NeighbourPath(CrashMachine& machine) {
  return machine.test.folder.Path("data/other.dat");
}

// Files that every machine starts with, as they were written once.
struct Prepared {
  std::string dataFile;
  std::string oldLayout;
  std::string neighbour;  // has other rows than the first
};

const Prepared& Files() {
  static const Prepared prepared = [] {
    Prepared made;
    CrashMachine machine;
    PutDataFile(machine.test);
    machine.Run(kValidate);
    made.dataFile = ReadFile(machine.Path());
    machine.Connect(machine.Password())
        ->Execute("UPDATE tblPayees SET Payee = 'Neighbour' WHERE PayeeID = 1");
    made.neighbour = ReadFile(machine.Path());
    machine.test.folder.Write("data/Corvanta.dat", made.dataFile);
    MakeOldLayout(*machine.Connect(machine.Password()));
    made.oldLayout = ReadFile(machine.Path());
    return made;
  }();
  return prepared;
}

void PutFile(CrashMachine& machine, const std::string& bytes) {
  PutDataFile(machine.test);
  machine.test.folder.Write("data/Corvanta.dat", bytes);
}

// What a command is killed on, and what has to be true of what is left.
struct Scene {
  using Step = std::function<void(CrashMachine&)>;

  Step prepare;
  Command first;              // is killed
  std::vector<Command> then;  // one of them is killed on what that left
  Step verify;                // leaves the file in a state in which every command works
  Command useNeighbour = kValidate;
};

struct Kill {
  long first = 0;
  long second = 0;  // 0 for none
  bool hasNeighbour = false;
};

class CommandCrash : public ::testing::TestWithParam<std::tuple<Fault, int>> {
 protected:
  // Memory instead of a disk: syncing it costs nothing, and what is lost is decided by the plan.
  static void SetUpTestSuite() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  static void TearDownTestSuite() { ::unsetenv("TMPDIR"); }

  static Fault Kind() { return std::get<0>(GetParam()); }

  static void ExpectNeighbour(CrashMachine& machine, const Command& useNeighbour) {
    machine.Run(useNeighbour, NeighbourPath(machine));
    const auto connection =
        Connection::Open({NeighbourPath(machine), machine.Password(), {}}, machine.test.clock);
    ExpectSound(*connection);
    EXPECT_EQ(connection->QueryValue("SELECT Payee FROM tblPayees WHERE PayeeID = 1").Text(),
              "Neighbour");
    // The first file's copy was in the way of this one's, and may have been kept and told.
    machine.prompts.told.clear();
  }

  // What every machine must do afterwards: each command works, and nothing is left over.
  static void ExpectUsable(CrashMachine& machine) {
    machine.Run(kImport);
    machine.Run(kValidate);
    EXPECT_FALSE(FileExists(machine.Path() + "-journal"));
    EXPECT_FALSE(FileExists(machine.Path() + ".new"));
    EXPECT_FALSE(FileExists(machine.test.folder.Path("data/Corvanta.000")));
    EXPECT_FALSE(FileExists(machine.test.folder.Path("data/Corvanta.000-journal")));
    const auto file = machine.Open();
    ASSERT_TRUE(file.has_value());
    ExpectSound(*file->connection);
    EXPECT_EQ(LedgerProblems(*file->connection), std::vector<std::string>{});
    EXPECT_EQ(machine.prompts.told, std::vector<std::string>{});
  }

  static void Try(const Scene& scene, const Kill& kill) {
    SCOPED_TRACE("killed at operation " + std::to_string(kill.first) + " and " +
                 std::to_string(kill.second) + (kill.hasNeighbour ? " beside another file" : ""));
    CrashMachine machine;
    scene.prepare(machine);
    if (kill.hasNeighbour) machine.test.folder.Write("data/other.dat", Files().neighbour);
    EXPECT_TRUE(machine.RunInChild(Kind(), kill.first, scene.first).isEnded);
    if (kill.second > 0) {
      const auto& then = scene.then[static_cast<std::size_t>(kill.first) % scene.then.size()];
      machine.RunInChild(Kind(), kill.second, then);
    }
    if (kill.hasNeighbour) {
      EXPECT_EQ(ReadFile(NeighbourPath(machine)), Files().neighbour);
    }
    const bool isNeighbourNext = kill.hasNeighbour && kill.second % 2 == 1;
    scene.verify(machine);
    if (isNeighbourNext) ExpectNeighbour(machine, scene.useNeighbour);
    ExpectUsable(machine);
    if (kill.hasNeighbour && !isNeighbourNext) ExpectNeighbour(machine, scene.useNeighbour);
  }

  // Kills at this part's share of all operations. The second kills come to every operation too, but
  // in another order.
  static void Sweep(const Scene& scene) {
    constexpr long kStride = 61;
    CrashMachine counting;
    scene.prepare(counting);
    const long total = counting.RunInChild(Kind(), 0, scene.first).operations;
    ASSERT_GT(total, 10);
    for (long at = 1 + std::get<1>(GetParam()); at <= total && !HasFailure(); at += kParts) {
      const Kill once{at, 0, false};
      const Kill twice{at, at * kStride % total + 1, true};
      // A loss of power is rarer than a kill: the two take turns.
      const bool isKill = Kind() == Fault::Exit;
      if (isKill || at / kParts % 2 == 0) Try(scene, once);
      if (isKill || at / kParts % 2 == 1) Try(scene, twice);
    }
  }
};

TEST_P(CommandCrash, Validate) {
  Sweep({[](CrashMachine& machine) { PutFile(machine, Files().dataFile); },
         kValidate,
         {kValidate, kImport},
         [](CrashMachine& machine) { ExpectSound(*machine.Connect(machine.Password())); }});
}

TEST_P(CommandCrash, Import) {
  Sweep({[](CrashMachine& machine) { PutFile(machine, Files().dataFile); },
         kImport,
         {kImport, kValidate},
         [](CrashMachine& machine) {
           const auto connection = machine.Connect(machine.Password());
           EXPECT_EQ(Imported(*connection) % kRows, 0);
           ExpectSound(*connection);
         }});
}

TEST_P(CommandCrash, New) {
  Sweep({[](CrashMachine& machine) {
           PutDataFile(machine.test);
           machine.test.files.Remove(machine.Path());
         },
         kNew,
         {kNew},
         [](CrashMachine& machine) {
           if (FileExists(machine.Path())) {
             ExpectSound(*machine.Connect(machine.Password()));
           } else {
             machine.Run(kNew);
           }
           EXPECT_FALSE(FileExists(machine.Path() + ".new2"));
         }});
}

TEST_P(CommandCrash, Upgrade) {
  Sweep({[](CrashMachine& machine) {
           PutFile(machine, Files().oldLayout);
           machine.Set("Reindex", "1");
         },
         kOpen,
         {kOpen, kValidate},
         [](CrashMachine& machine) {
           ExpectSound(*machine.Connect(machine.Password()));
           machine.Set("Reindex", "1");
           const auto file = machine.Open();
           ASSERT_TRUE(file.has_value());
           EXPECT_FALSE(IsOldLayout(*file->connection));
           EXPECT_TRUE(machine.prompts.told.empty());
         }});
}

// What an import that was killed on the old machine has left is brought to a new one.
TEST_P(CommandCrash, KeyUse) {
  struct Left {
    std::string dataFile;
    std::string journal;
  };
  CrashMachine old;
  PutFile(old, Files().dataFile);
  const std::string password = old.Password();
  std::vector<Left> left;
  const long total = old.RunInChild(Fault::Exit, 0, kImport).operations;
  const std::string journal = old.Path() + "-journal";
  for (long at = 1; at <= total; at += 3) {
    PutFile(old, Files().dataFile);
    old.RunInChild(Fault::Exit, at, kImport);
    left.push_back({ReadFile(old.Path()), FileExists(journal) ? ReadFile(journal) : ""});
    old.test.files.Remove(journal);
  }
  const std::string key = RecoveryKeyFromPassword(password);
  const Command useKey = [&key](DataFileOpener& opener) { (void)opener.UseKey(key); };
  std::size_t next = 0;
  Sweep({[&](CrashMachine& machine) {
           const Left& brought = left[next++ % left.size()];
           machine.Set("DBPath", machine.test.folder.Path("data"));
           machine.test.files.CreateFolder(machine.test.folder.Path("data"));
           machine.test.folder.Write("data/Corvanta.dat", brought.dataFile);
           if (brought.journal.empty()) return;
           machine.test.folder.Write("data/Corvanta.dat-journal", brought.journal);
         },
         useKey,
         {useKey},
         [&](CrashMachine& machine) {
           const bool isOld = OpensWith(machine.Path(), password, machine.test.Get());
           {
             const auto connection = machine.Connect(isOld ? password : machine.Password());
             EXPECT_EQ(Imported(*connection) % kRows, 0);
             ExpectSound(*connection);
           }
           // Also where the first one had come to its end.
           machine.Run(useKey);
         },
         useKey});
}

// Until the copy has taken its place the file opens with the key it had, then with the passphrase.
TEST_P(CommandCrash, Passphrase) {
  static const std::string kPassword = NewPasswordFromPassphrase("a phrase of four words");
  const Command protect = [](DataFileOpener& opener) { opener.Protect(kPassword); };
  Sweep({[](CrashMachine& machine) { PutFile(machine, Files().dataFile); },
         protect,
         {protect},
         [&](CrashMachine& machine) {
           const bool isOld = OpensWith(machine.Path(), machine.Password(), machine.test.Get());
           EXPECT_NE(isOld, WantsPassphrase(machine.Path()));
           if (isOld) machine.Run(protect);
           ExpectSound(*machine.Connect(kPassword));
           PutFile(machine, Files().dataFile);
         }});
}

const auto kName = [](const auto& tested) {
  return FaultName(std::get<0>(tested.param)) + std::to_string(std::get<1>(tested.param) + 1);
};

INSTANTIATE_TEST_SUITE_P(Kills, CommandCrash,
                         ::testing::Combine(::testing::Values(Fault::Exit),
                                            ::testing::Range(0, kParts)),
                         kName);
// One operation in four.
INSTANTIATE_TEST_SUITE_P(Losses, CommandCrash,
                         ::testing::Values(std::tuple(Fault::TornWrite, 1),
                                           std::tuple(Fault::DropUnsynced, 2)),
                         kName);

}  // namespace
}  // namespace corvanta
