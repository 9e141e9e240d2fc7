#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "store/datafile/WriterLock.h"
#include "store/sql/StoreError.h"
#include "support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <functional>

namespace corvanta {
namespace {

constexpr unsigned kPerson = 65534;  // nobody

StoreErrorCode RefusalOf(const std::string& path, std::string* text = nullptr) {
  try {
    const auto lock = WriterLock::Acquire(path, "a test");
  } catch (const StoreError& error) {
    if (text != nullptr) *text = error.what();
    return error.Code();
  }
  ADD_FAILURE() << "the lock was given";
  return StoreErrorCode::Sql;
}

TEST(Lock, SecondWriterIsToldWhoHoldsIt) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("home.dat", "");
  auto lock = WriterLock::Acquire(path, "the Corvanta window");
  std::string text;
  EXPECT_EQ(RefusalOf(path, &text), StoreErrorCode::Locked);
  EXPECT_EQ(text, "The data file is in use by the Corvanta window (process " +
                      std::to_string(::getpid()) +
                      "). Nothing was changed. Close it there and try again.");
  lock.reset();
  EXPECT_FALSE(FileExists(folder.Path(".home.dat.lock")));
  EXPECT_NE(WriterLock::Acquire(path, "the next"), nullptr);
}

TEST(Lock, OneThatIsPatientGetsItsTurn) {
  using std::chrono::milliseconds;
  const TemporaryFolder folder;
  const std::string path = folder.Write("home.dat", "");
  auto held = WriterLock::Acquire(path, "the first");
  milliseconds waited{0};
  Writer second{"the second", {milliseconds(1000), {}}};
  second.patience.pause = [&](milliseconds pause) {
    waited += pause;
    if (waited >= milliseconds(500)) held.reset();
  };
  EXPECT_NE(WriterLock::Acquire(path, second), nullptr);
  EXPECT_LT(waited, milliseconds(1000));

  held = WriterLock::Acquire(path, "the first");
  waited = milliseconds(0);
  second.patience.pause = [&](milliseconds pause) { waited += pause; };
  EXPECT_THROW((void)WriterLock::Acquire(path, second), StoreError);
  EXPECT_EQ(waited, milliseconds(1000)) << "refused when the time is over, not before";
}

TEST(Lock, LinkToTheFileSharesItsLock) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("home.dat", "");
  std::filesystem::create_directory(folder.Path("elsewhere"));
  std::filesystem::create_symlink(path, folder.Path("elsewhere/link.dat"));
  const auto lock = WriterLock::Acquire(path, "a test");
  EXPECT_EQ(RefusalOf(folder.Path("elsewhere/link.dat")), StoreErrorCode::Locked);
}

TEST(Lock, DiesWithItsHolder) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("home.dat", "");
  const pid_t child = ::fork();
  if (child == 0) {
    const auto lock = WriterLock::Acquire(path, "a program that crashes");
    ::_exit(0);
  }
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(FileExists(folder.Path(".home.dat.lock")));
  EXPECT_NE(WriterLock::Acquire(path, "a test"), nullptr);
}

TEST(Lock, ExcludesEachOfManyThatComeAndGo) {
  const TemporaryFolder folder;
  ::chmod(folder.Path().c_str(), 0777);
  const std::string path = folder.Write("home.dat", "");
  ::chmod(path.c_str(), 0666);
  const std::string lockPath = folder.Path(".home.dat.lock");
  const std::string marker = folder.Path("inside");
  constexpr int kWriters = 4;
  for (int writer = 0; writer < kWriters; ++writer) {
    if (::fork() != 0) continue;
    if (::geteuid() == 0 && ::setuid(kPerson) != 0) ::_exit(3);
    for (int round = 0; round < 300; ++round) {
      // One that another user's killed program has left comes between.
      const FileHandle left(::open(lockPath.c_str(), O_CREAT | O_EXCL | O_RDONLY, 0444));
      try {
        const auto lock = WriterLock::Acquire(path, "a writer");
        if (round % 3 == 0) ::chmod(lockPath.c_str(), 0444);
        // Made by one that has the lock, gone before it lets go: nobody else may see it.
        if (::mkdir(marker.c_str(), 0700) != 0) ::_exit(1);
        ::rmdir(marker.c_str());
      } catch (const StoreError& error) {
        if (error.Code() != StoreErrorCode::Locked) ::_exit(2);
      }
    }
    ::_exit(0);
  }
  for (int writer = 0; writer < kWriters; ++writer) {
    int status = 0;
    ::wait(&status);
    EXPECT_EQ(WEXITSTATUS(status), 0);
  }
}

// Runs as a person who is no administrator, in a process of its own, and returns its answer. Some
// tests are run by the administrator, who may do all and so shows nothing.
int AsAPerson(const std::function<int()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    const bool isPerson = ::geteuid() != 0 || (::setgid(kPerson) == 0 && ::setuid(kPerson) == 0);
    ::_exit(isPerson ? work() : 99);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 98;
}

struct Shared {
  Shared() {
    ::chmod(folder.Path().c_str(), 0777);
    ::chmod(path.c_str(), 0666);
  }
  // What a killed program of another user leaves, which may be read at most.
  void Leave(mode_t mode) const {
    folder.Write(".home.dat.lock", "a program that crashed\n1\n");
    ::chmod(lock.c_str(), mode);
  }

  TemporaryFolder folder;
  std::string path = folder.Write("home.dat", "");
  std::string lock = folder.Path(".home.dat.lock");
};

TEST(Lock, WhatAnotherUsersProgramLeftBarsNobody) {
  const Shared shared;
  shared.Leave(0444);
  EXPECT_EQ(AsAPerson([&] {
              const auto held = WriterLock::Acquire(shared.path, "a person");
              std::string text;
              const bool isHeld = RefusalOf(shared.path, &text) == StoreErrorCode::Locked;
              return isHeld && text.find("in use by a person (") != std::string::npos ? 0 : 1;
            }),
            0);
  EXPECT_FALSE(FileExists(shared.lock));
  // While it is held it is as good as any.
  shared.Leave(0444);
  const FileHandle holder(::open(shared.lock.c_str(), O_RDONLY | O_CLOEXEC));
  ASSERT_EQ(::flock(holder.Get(), LOCK_EX), 0);
  EXPECT_EQ(AsAPerson([&] { return RefusalOf(shared.path) == StoreErrorCode::Locked ? 0 : 1; }), 0);
}

TEST(Lock, OneThatCannotBeReadIsNamed) {
  const Shared shared;
  shared.Leave(0000);
  EXPECT_EQ(
      AsAPerson([&] {
        std::string text;
        const bool isLocked = RefusalOf(shared.path, &text) == StoreErrorCode::Locked;
        return isLocked && text.find("remove the file " + shared.lock) != std::string::npos ? 0 : 1;
      }),
      0);
}

TEST(Lock, WhoMayWriteTheDataFileMayLockIt) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("home.dat", "");
  for (const mode_t mode : {0600, 0660, 0640, 0666}) {
    ::chmod(path.c_str(), mode);
    const bool isGiven = ::geteuid() == 0 && ::chown(path.c_str(), kPerson, kPerson) == 0;
    const auto lock = WriterLock::Acquire(path, "a test");
    struct stat status {};
    ASSERT_EQ(::stat(folder.Path(".home.dat.lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0222U, mode & 0222U);
    if (isGiven) {
      EXPECT_EQ(status.st_uid, kPerson);
      EXPECT_EQ(status.st_gid, kPerson);
    }
  }
}

// Its holder's name is a courtesy; what is on a full disk must still be opened and shown.
TEST(Lock, ADiskWithoutRoomForItsNameKeepsNobodyOut) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("home.dat", "");
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit none{0, 0};
    if (::setrlimit(RLIMIT_FSIZE, &none) != 0) ::_exit(2);
    try {
      const auto lock = WriterLock::Acquire(path, "a test");
      std::string text;
      const bool isHeld = RefusalOf(path, &text) == StoreErrorCode::Locked;
      ::_exit(isHeld && text.find("in use by another program.") != std::string::npos ? 0 : 1);
    } catch (const StoreError&) {
      ::_exit(3);
    }
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(Lock, MissingFolderIsNamed) {
  const TemporaryFolder folder;
  EXPECT_EQ(RefusalOf(folder.Path("nowhere/home.dat")), StoreErrorCode::Missing);
}

}  // namespace
}  // namespace corvanta
