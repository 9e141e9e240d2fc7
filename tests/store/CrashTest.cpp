#include "platform/SettingsTable.h"
#include "store/InstallationKey.h"
#include "store/OpenDataFile.h"
#include "store/opening/KeyRecovery.h"
#include "store/opening/TransferFile.h"
#include "store/upgrade/Balances.h"
#include "support/FaultFiles.h"
#include "support/FaultVfs.h"
#include "support/LedgerProblems.h"
#include "support/OldLayout.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace corvanta {
namespace {

constexpr long kSamples = 25;

// Answers nothing; what was told is counted.
class DeafPrompts : public Prompts {
 public:
  void Tell(const std::string&, const std::string& text, Icon) override { told.push_back(text); }
  bool Ask(const std::string&, const std::string&, Icon) override { return false; }
  std::optional<std::size_t> Choose(const std::string&, const std::string& text,
                                    const std::vector<std::string>&) override {
    told.push_back(text);
    return std::nullopt;
  }
  std::optional<std::string> AskText(const std::string&, const std::string&, bool) override {
    return std::nullopt;
  }
  std::optional<std::string> OpenFile(const FileQuestion&) override { return std::nullopt; }
  std::optional<std::string> SaveFile(const FileQuestion&) override { return std::nullopt; }

  std::vector<std::string> told;
};

Platform With(TestPlatform& test, Files& files, Prompts& prompts) {
  const Platform& all = test.Get();
  return {all.registry, all.locale,      all.clock,         all.machine,
          files,        prompts,         all.progress,      all.download,
          all.opener,   all.spreadsheet, all.profileFolder, all.dataFolder};
}

// A machine on which the data file is opened, with something to be done to it on the way.
class Machine {
 public:
  TestPlatform test;
  DeafPrompts prompts;

  void Set(std::string_view name, const std::string& value) {
    test.registry.Write(Hive::CurrentUser, kSettingsKey, name, value);
  }
  [[nodiscard]] std::string Path() const { return test.folder.Path("data/Corvanta.dat"); }
  [[nodiscard]] std::string Password() { return InstallationPassword(test.Get()); }
  std::unique_ptr<Connection> Connect(const std::string& password) {
    return Connection::Open({Path(), password, {}}, test.clock);
  }
  std::optional<DataFile> Open() {
    Platform platform = With(test, test.files, prompts);
    return DataFileOpener(platform, "a test").Open(false);
  }
  // Opens in a process of its own that obeys the plan. Returns the operations it came to.
  long OpenInChild(Fault fault, long at, bool* isEnded) {
    void* const shared =
        ::mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    long* const counted = static_cast<long*>(shared);
    const pid_t child = ::fork();
    if (child == 0) {
      FaultPlan plan(fault, at);
      const FaultVfs vfs("faulty", plan, true);
      FaultFiles files(plan);
      Platform platform = With(test, files, prompts);
      (void)DataFileOpener(platform, "a test").Open(false);
      *counted = plan.Counted();
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    const int code = WEXITSTATUS(status);
    EXPECT_TRUE(code == 0 || code == FaultPlan::kFaultExit) << code;
    if (isEnded != nullptr) *isEnded = code == FaultPlan::kFaultExit;
    const long operations = *counted;
    ::munmap(shared, sizeof(long));
    return operations;
  }
};

void ExpectSound(Connection& connection) {
  EXPECT_TRUE(connection.Check().empty());
  EXPECT_EQ(connection.QueryValue("SELECT COUNT(*) FROM tblTransactions").Int(), 16);
  EXPECT_EQ(connection.QueryValue("SELECT COUNT(*) FROM tblCurrency").Int(), 164);
  const auto balances = AccountBalances(connection);
  ASSERT_EQ(balances.size(), 1U);
  EXPECT_NEAR(balances.at(1), 314.49, 0.001);
}

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

  using Step = std::function<void(Machine&)>;

  // Stops the opening of a prepared machine at every operation, or at as many as time allows.
  void Sweep(const Step& prepare, const Step& verify) {
    Machine counting;
    prepare(counting);
    const long total = counting.OpenInChild(GetParam(), 0, nullptr);
    ASSERT_GT(total, 10);
    const long step = std::max(1L, total / kSamples);
    int stopped = 0;
    for (long at = 1; at <= total && !HasFailure(); at += at < kSamples / 4 ? 1 : step) {
      SCOPED_TRACE("operation " + std::to_string(at) + " of " + std::to_string(total));
      Machine machine;
      prepare(machine);
      bool isEnded = false;
      machine.OpenInChild(GetParam(), at, &isEnded);
      stopped += isEnded ? 1 : 0;
      verify(machine);
    }
    const bool endsProcess = GetParam() != Fault::IoError && GetParam() != Fault::DiskFull;
    EXPECT_EQ(stopped > 0, endsProcess);
  }
};

TEST_P(Crash, CreationLeavesNoFileOrAWholeOne) {
  Sweep(
      [](Machine& machine) {
        (void)machine.Password();
        machine.Set("DBPath", machine.test.folder.Path("data"));
      },
      [](Machine& machine) {
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
      [](Machine& machine) {
        PutDataFile(machine.test);
        machine.Set("Reindex", "1");
      },
      [](Machine& machine) {
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
      [&](Machine& machine) {
        PutDataFile(machine.test);
        machine.test.folder.Write("data/Corvanta.dat", old);
        machine.Set("Reindex", "1");
      },
      [](Machine& machine) {
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
      [&](Machine& machine) {
        (void)machine.Password();
        machine.Set("DBPath", machine.test.folder.Path("data"));
        machine.test.files.CreateFolder(machine.test.folder.Path("data"));
        machine.test.folder.Write("data/Corvanta.dat", foreign);
        WriteTransferFile(machine.test.folder.Path("data/Corvanta.tfr"), oldPassword,
                          machine.test.registry, machine.test.files);
      },
      [&](Machine& machine) {
        const bool isOld = OpensWith(machine.Path(), oldPassword, machine.test.Get());
        ExpectSound(*machine.Connect(isOld ? oldPassword : machine.Password()));
        const auto file = machine.Open();
        ASSERT_TRUE(file.has_value());
        ExpectSound(*file->connection);
        // Only a transfer file whose work is done but that has kept its name is worth a word.
        EXPECT_LE(machine.prompts.told.size(), isOld ? 0U : 1U);
      });
}

std::string NameOf(const ::testing::TestParamInfo<Fault>& tested) {
  constexpr const char* kNames[] = {"IoError", "DiskFull", "Exit", "TornWrite", "DropUnsynced"};
  return kNames[static_cast<int>(tested.param)];
}

INSTANTIATE_TEST_SUITE_P(Faults, Crash,
                         ::testing::Values(Fault::IoError, Fault::DiskFull, Fault::Exit,
                                           Fault::TornWrite, Fault::DropUnsynced),
                         NameOf);

}  // namespace
}  // namespace corvanta
