#include "support/FaultyDisk.h"

#include "platform/Files.h"
#include "support/FaultVfs.h"
#include "support/LedgerProblems.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <fstream>

namespace corvanta {
namespace {

constexpr const char* kVfs = "faulty";
constexpr long kMaxOperations = 400;

}  // namespace

std::unique_ptr<Connection> OpenSound(TemporaryStore& store) {
  return Connection::Open({store.Path(), store.Password(), {}}, store.platform.clock);
}

bool WorkOnFaultyDisk(TemporaryStore& store, Fault fault, long at, const StoreWork& work) {
  const std::string password = store.Password();
  const pid_t child = ::fork();
  if (child == 0) {
    FaultPlan plan(fault, at);
    const FaultVfs vfs(kVfs, plan);
    try {
      work(*Connection::Open({store.Path(), password, kVfs}, store.platform.clock));
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

int SweepFaults(TemporaryStore& store, Fault fault, const StoreWork& work,
                const std::function<void(Connection&, bool isDone)>& check) {
  const std::string bytes = ReadFile(store.Path());
  int stopped = 0;
  bool isDone = false;
  for (long at = 1; !isDone && at < kMaxOperations && !testing::Test::HasFailure(); ++at) {
    SCOPED_TRACE("operation " + std::to_string(at));
    std::ofstream(store.Path(), std::ios::binary) << bytes;
    isDone = WorkOnFaultyDisk(store, fault, at, work);
    stopped += isDone ? 0 : 1;
    const auto left = OpenSound(store);
    EXPECT_TRUE(left->Check().empty());
    EXPECT_EQ(LedgerProblems(*left), std::vector<std::string>{});
    check(*left, isDone);
  }
  EXPECT_TRUE(isDone);
  return stopped;
}

}  // namespace corvanta
