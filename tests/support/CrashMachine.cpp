#include "support/CrashMachine.h"

#include "store/datafile/upgrade/Balances.h"
#include "store/sql/StoreError.h"
#include "support/DeafOpening.h"
#include "support/FaultFiles.h"
#include "support/FaultVfs.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvanta {
namespace {

constexpr int kThrown = 78;

Platform With(TestPlatform& test, Files& files, Prompts& prompts) {
  const Platform& all = test.Get();
  return {all.registry, all.locale,      all.clock,         all.machine,
          files,        prompts,         all.progress,      all.download,
          all.opener,   all.spreadsheet, all.profileFolder, all.dataFolder};
}

CrashMachine::Task TaskOf(const CrashMachine::Command& command, const std::string& dataPath) {
  return [&command, &dataPath](Platform& platform) {
    DataFileOpener opener(platform, "a test");
    if (!dataPath.empty()) opener.SetDataPath(dataPath);
    command(opener);
  };
}

int RunWith(Platform platform, const CrashMachine::Task& task) {
  try {
    task(platform);
    return 0;
  } catch (const std::exception&) {
    return kThrown;
  }
}

}  // namespace

std::optional<DataFile> CrashMachine::Open() {
  Platform platform = With(test, test.files, prompts);
  DeafOpening questions;
  return DataFileOpener(platform, "a test").Open(false, questions);
}

void CrashMachine::Run(const Command& command, const std::string& dataPath) {
  Run(TaskOf(command, dataPath));
}

void CrashMachine::Run(const Task& task) {
  Platform platform = With(test, test.files, prompts);
  task(platform);
}

CrashMachine::Outcome CrashMachine::RunInChild(Fault fault, long at, const Command& command,
                                               const std::string& dataPath) {
  return RunInChild(fault, at, TaskOf(command, dataPath));
}

CrashMachine::Outcome CrashMachine::RunInChild(Fault fault, long at, const Task& task) {
  void* const shared =
      ::mmap(nullptr, sizeof(long), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  long* const counted = static_cast<long*>(shared);
  const pid_t child = ::fork();
  if (child == 0) {
    FaultPlan plan(fault, at);
    const FaultVfs vfs("faulty", plan, true);
    FaultFiles files(plan);
    const int code = RunWith(With(test, files, prompts), task);
    *counted = plan.Counted();
    ::_exit(code);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  const int code = WEXITSTATUS(status);
  EXPECT_TRUE(code == 0 || code == FaultPlan::kFaultExit || code == kThrown) << code;
  const Outcome outcome{*counted, code == FaultPlan::kFaultExit, code == kThrown};
  ::munmap(shared, sizeof(long));
  return outcome;
}

void ExpectSound(Connection& connection) {
  EXPECT_TRUE(connection.Check().empty());
  EXPECT_EQ(connection.QueryValue("SELECT COUNT(*) FROM tblTransactions").Int(), 16);
  EXPECT_EQ(connection.QueryValue("SELECT COUNT(*) FROM tblCurrency").Int(), 164);
  const auto balances = AccountBalances(connection);
  ASSERT_EQ(balances.size(), 1U);
  EXPECT_NEAR(balances.at(1), 314.49, 0.001);
}

}  // namespace corvanta
