// Backup, restore, archive, transfer and salvage, killed at every operation on the disk.
#include "ledger/clsCorvanta.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "safety/ArchiveWriter.h"
#include "safety/Backup.h"
#include "safety/Transfer.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/backup/SalvageDataFile.h"
#include "store/datafile/opening/TransferFile.h"
#include "store/datafile/upgrade/Balances.h"
#include "support/CrashMachine.h"
#include "support/LedgerProblems.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace corvanta {
namespace {

using Task = CrashMachine::Task;

constexpr std::int64_t kRows = 16;  // of the sample data

std::int64_t RowsOf(Connection& file) {
  return file.QueryValue("SELECT COUNT(*) FROM tblTransactions").Int();
}

// Each value is a kind of end, and which share of all operations it is tried at.
class SafetyCommandCrash : public ::testing::TestWithParam<std::tuple<Fault, int>> {
 protected:
  static constexpr int kParts = 2;
  using Step = std::function<void(CrashMachine&)>;

  // Memory instead of a disk: syncing it costs nothing, and what is lost is decided by the plan.
  static void SetUpTestSuite() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  static void TearDownTestSuite() { ::unsetenv("TMPDIR"); }

  // A task that begins as `known` does, which is killed at every operation elsewhere, is killed at
  // few of these.
  static void Sweep(const Step& prepare, const Task& task, const Step& verify,
                    const Task& known = {}) {
    constexpr long kFew = 20;
    const Fault kind = std::get<0>(GetParam());
    CrashMachine beginning;
    PutDataFile(beginning.test);
    const long begun = known ? beginning.RunInChild(kind, 0, known).operations : 0;
    CrashMachine counting;
    PutDataFile(counting.test);
    prepare(counting);
    const long total = counting.RunInChild(kind, 0, task).operations;
    ASSERT_GT(total, 3);
    // A loss of power is rarer than a kill, and dearer to try.
    const long stride = kind == Fault::Exit ? kParts : 5 * kParts;
    for (long at = 1 + std::get<1>(GetParam()); at <= total && !HasFailure(); at += stride) {
      if (at < begun && at / stride % kFew != 0) continue;
      SCOPED_TRACE("ended at operation " + std::to_string(at) + " of " + std::to_string(total));
      CrashMachine machine;
      PutDataFile(machine.test);
      prepare(machine);
      EXPECT_TRUE(machine.RunInChild(kind, at, task).isEnded);
      verify(machine);
    }
  }
  static std::unique_ptr<Connection> Connect(CrashMachine& machine, const std::string& path) {
    return Connection::Open({path, machine.Password(), {}}, machine.test.clock);
  }
};

BackedFile FileOn(Platform& platform) {
  return {platform.dataFolder + "/Corvanta.dat", InstallationPassword(platform)};
}

const Writer kWriter{"a test", {}};

const Task kBackup = [](Platform& platform) {
  Backup(platform, kWriter).Make(FileOn(platform), {true, false});
};

TEST_P(SafetyCommandCrash, Backup) {
  const auto place = [](CrashMachine& machine) {
    return machine.test.folder.Path("data/Backup/Corvanta.dat");
  };
  Sweep(
      [&](CrashMachine& machine) {
        machine.test.files.CreateFolder(machine.test.folder.Path("data/FileStore"));
        machine.test.folder.Write("data/FileStore/bill.txt", "paid");
        machine.Run(kBackup);
        machine.test.clock.SetToday(machine.test.clock.Today().AddDays(1));
        machine.test.folder.Write("data/FileStore/bill.txt", "paid twice");
      },
      kBackup,
      [&](CrashMachine& machine) {
        ExpectSound(*machine.Connect(machine.Password()));
        const BackedFile file{machine.Path(), machine.Password()};
        const auto found = Backup(machine.test.Get(), kWriter).Generations(file);
        ASSERT_GE(found.size(), 1U) << "one that counts is always there";
        for (const Generation& each : found) ExpectSound(*Connect(machine, each.path));
        machine.Run(kBackup);
        ExpectSound(*Connect(machine, place(machine)));
        EXPECT_EQ(ReadFile(machine.test.folder.Path("data/Backup/FileStore/bill.txt")),
                  "paid twice");
        EXPECT_FALSE(FileExists(place(machine) + ".new"));
        EXPECT_FALSE(FileExists(place(machine) + ".new2"));
      });
}

TEST_P(SafetyCommandCrash, Restore) {
  const auto backup = [](CrashMachine& machine) {
    return machine.test.folder.Path("data/Backup/Corvanta.dat");
  };
  const Task restore = [](Platform& platform) {
    DataFileOpener opener(platform, "a test");
    (void)opener.Restore(platform.dataFolder + "/Backup/Corvanta.dat",
                         InstallationPassword(platform));
  };
  Sweep(
      [&](CrashMachine& machine) {
        machine.Run(kBackup);
        machine.Connect(machine.Password())->Execute("Delete from tblTransactions");
      },
      restore,
      [&](CrashMachine& machine) {
        {
          const auto file = machine.Open();
          ASSERT_TRUE(file.has_value());
          EXPECT_TRUE(file->connection->Check().empty());
          const std::int64_t rows = RowsOf(*file->connection);
          EXPECT_TRUE(rows == 0 || rows == kRows) << rows;
          // The file before it is there, too, in its place or beside it.
          bool isKept = rows == 0;
          for (const auto& entry :
               std::filesystem::directory_iterator(machine.test.folder.Path("data"))) {
            const std::string path = entry.path().string();
            if (path.find("Corvanta before") == std::string::npos) continue;
            isKept = isKept || RowsOf(*Connect(machine, path)) == 0;
          }
          EXPECT_TRUE(isKept);
        }
        ExpectSound(*Connect(machine, backup(machine)));
        machine.Run(restore);
        ExpectSound(*machine.Connect(machine.Password()));
        EXPECT_FALSE(FileExists(machine.test.folder.Path("data/Corvanta.000")));
      });
}

// Every row is in one readable place, or in both.
TEST_P(SafetyCommandCrash, Archive) {
  const Task archive = [](Platform& platform) {
    DataFileOpener opener(platform, "a test");
    const DataFile file = opener.OpenExisting(true);
    clsCorvanta ledger(*file.connection, platform);
    const std::string path = platform.dataFolder + "/Old.dat";
    const ArchiveForm form{path, platform.clock.Today().AddDays(1), {1}, false};
    ArchiveWriter(ledger, {file.connection->Path(), file.password}, platform, kWriter)
        .Write(PlanArchive(form, ledger, platform), path);
  };
  Sweep([](CrashMachine&) {}, archive,
        [&](CrashMachine& machine) {
          const std::string path = machine.test.folder.Path("data/Old.dat");
          std::int64_t left = 0;
          {
            const auto file = machine.Open();
            ASSERT_TRUE(file.has_value());
            EXPECT_TRUE(file->connection->Check().empty());
            EXPECT_EQ(LedgerProblems(*file->connection), std::vector<std::string>{});
            left = RowsOf(*file->connection);
            EXPECT_NEAR(AccountBalances(*file->connection).at(1), 314.49, 0.001);
          }
          if (left == kRows) return;
          const auto old = Connect(machine, path);
          EXPECT_TRUE(old->Check().empty());
          EXPECT_EQ(RowsOf(*old) + left, kRows);
          EXPECT_EQ(LedgerProblems(*old), std::vector<std::string>{});
        });
}

TEST_P(SafetyCommandCrash, Transfer) {
  const auto path = [](const std::string& folder) { return folder + "/usb/Corvanta.tfr"; };
  const Task transfer = [&](Platform& platform) {
    const BackedFile file = FileOn(platform);
    platform.files.CreateFolder(platform.profileFolder + "/usb");
    WriteTransfer(path(platform.profileFolder), file.path, file.password, FormerFile::Refuse,
                  platform);
    Backup(platform, kWriter)
        .MakeAt(file, platform.profileFolder + "/usb/Corvanta.dat", {false, true});
  };
  Sweep([](CrashMachine&) {}, transfer,
        [&](CrashMachine& machine) {
          const std::string file = path(machine.test.Get().profileFolder);
          if (FileExists(file)) {
            const auto read = TransferFile::FromText(ReadFile(file));
            ASSERT_TRUE(read.has_value());
            EXPECT_EQ(read->password, machine.Password());
          }
          machine.Run(transfer);
          EXPECT_TRUE(FileExists(file));
        });
}

// What has the name that was asked for holds all that could be read, or there is none of that name.
TEST_P(SafetyCommandCrash, Salvage) {
  constexpr int kSome = 6;
  int missing = 0;
  const auto path = [](const std::string& folder) { return folder + "/Salvaged.dat"; };
  const Task salvage = [&](Platform& platform) {
    const BackedFile file = FileOn(platform);
    (void)SalvageDataFile({file.path, file.password, {}}, path(platform.dataFolder), kWriter,
                          platform);
  };
  Sweep([](CrashMachine&) {}, salvage,
        [&](CrashMachine& machine) {
          ExpectSound(*machine.Connect(machine.Password()));
          const std::string salvaged = path(machine.test.Get().dataFolder);
          // Trying again takes as long as the kill: some of them show that nothing bars it.
          if (!FileExists(salvaged) && ++missing % kSome != 0) return;
          if (!FileExists(salvaged)) machine.Run(salvage);
          ExpectSound(*Connect(machine, salvaged));
          EXPECT_FALSE(FileExists(salvaged + ".new"));
          EXPECT_FALSE(FileExists(salvaged + ".new2"));
        },
        [](Platform& platform) {
          CreateDataFile({platform.dataFolder, "Salvaged.dat"}, InstallationPassword(platform),
                         true, platform, kWriter);
        });
}

INSTANTIATE_TEST_SUITE_P(Ends, SafetyCommandCrash,
                         ::testing::Values(std::tuple(Fault::Exit, 0), std::tuple(Fault::Exit, 1),
                                           std::tuple(Fault::TornWrite, 2),
                                           std::tuple(Fault::DropUnsynced, 4)),
                         [](const auto& tested) {
                           return FaultName(std::get<0>(tested.param)) +
                                  std::to_string(std::get<1>(tested.param) + 1);
                         });

}  // namespace
}  // namespace corvanta
