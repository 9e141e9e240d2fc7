// Runs the real corvanta-cli at a terminal, as a person does.
#include "cli/CommandLine.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace corvanta {
namespace {

constexpr int kPatience = 60'000;  // milliseconds that nothing may need: a test that hangs must end
constexpr const char* kQuestion = "Enter the password of this data file: ";

// A terminal with a data file beside it.
class Terminal : public testing::Test {
 protected:
  void SetUp() override { Run({"new"}); }
  ~Terminal() override { Leave(); }

  void Leave() const {
    if (keys_ >= 0) ::close(keys_);
    if (screen_ >= 0) ::close(screen_);
  }

  void Run(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), places_.begin(), places_.end());
    std::ostringstream messages;
    std::ostringstream out;
    EXPECT_EQ(CommandLine(out, messages).Run(std::move(arguments)), ExitStatus::Done)
        << messages.str();
  }
  void SetPassword() {
    Run({"sql", "UPDATE tblVerification SET [Password] = 'x'"});
    Run({"settings", "Login", "1"});
  }

  // Starts the command in the foreground of the terminal, as a shell does.
  void Start(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), places_.begin(), places_.end());
    arguments.insert(arguments.begin(), CORVANTA_CLI);
    Leave();
    if (::openpty(&keys_, &screen_, nullptr, nullptr, nullptr) != 0) {
      throw std::runtime_error("no terminal");
    }
    program_ = ::fork();
    if (program_ != 0) return;
    ::close(keys_);
    ::setsid();
    ::ioctl(screen_, TIOCSCTTY, 0);
    // The shell of this terminal, which sees its program stop and go on.
    const pid_t job = ::fork();
    if (job == 0) {
      ::setpgid(0, 0);
      ::signal(SIGTTOU, SIG_IGN);
      ::tcsetpgrp(screen_, ::getpid());
      ::signal(SIGTTOU, SIG_DFL);
      for (const int end : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(screen_, end);
      std::vector<char*> words;
      for (std::string& argument : arguments) words.push_back(argument.data());
      words.push_back(nullptr);
      ::execv(words.front(), words.data());
      ::_exit(127);
    }
    int status = 0;
    while (::waitpid(job, &status, WUNTRACED) == job && WIFSTOPPED(status)) Say("[stopped]");
    ::_exit(WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status));
  }
  void Say(const char* text) const {
    (void)!::write(screen_, text, std::char_traits<char>::length(text));
  }

  // What the terminal shows from now on, up to that text.
  std::string WaitFor(const std::string& text) {
    std::string shown;
    while (shown.find(text) == std::string::npos) {
      pollfd waiting{keys_, POLLIN, 0};
      if (::poll(&waiting, 1, kPatience) != 1)
        throw std::runtime_error("never shown: " + text + " in " + shown);
      std::array<char, 4096> bytes{};
      const ssize_t count = ::read(keys_, bytes.data(), bytes.size());
      if (count <= 0) throw std::runtime_error("the terminal is gone");
      shown.append(bytes.data(), static_cast<std::size_t>(count));
    }
    return shown;
  }
  void Type(const std::string& text) const { (void)!::write(keys_, text.data(), text.size()); }
  [[nodiscard]] bool Echoes() const {
    termios state{};
    ::tcgetattr(keys_, &state);
    return (state.c_lflag & ECHO) != 0;
  }
  int End() const {
    int status = 0;
    ::waitpid(program_, &status, 0);
    return WEXITSTATUS(status);
  }

  TemporaryFolder folder_;
  std::vector<std::string> places_{"--profile", folder_.Path("profile"), "--data",
                                   folder_.Path("data")};
  int keys_ = -1;    // the end at which a person sits
  int screen_ = -1;  // the program's end
  pid_t program_ = -1;
};

TEST_F(Terminal, GivesItsEchoBackWhateverEndsThePassword) {
  SetPassword();
  struct Ending {
    const char* typed;
    int status;
  };
  for (const auto& [typed, status] :
       {Ending{"\x03", 128 + SIGINT}, Ending{"secr\x03", 128 + SIGINT}, Ending{"\x04", 1},
        Ending{"wrong\n", 1}, Ending{"x\n", 0}}) {
    Start({"accounts"});
    WaitFor(kQuestion);
    EXPECT_FALSE(Echoes());
    Type(typed);
    EXPECT_EQ(End(), status);
    EXPECT_TRUE(Echoes()) << status;
  }
}

TEST_F(Terminal, AsksAgainAfterItWasStopped) {
  SetPassword();
  Start({"--format", "csv", "accounts"});
  WaitFor(kQuestion);
  Type("half\x1A");
  WaitFor("[stopped]");
  EXPECT_TRUE(Echoes());
  const pid_t job = ::tcgetpgrp(keys_);
  ::kill(-job, SIGCONT);
  WaitFor(kQuestion);
  EXPECT_FALSE(Echoes());
  Type("x\n");
  WaitFor("Sample Bank Account");
  EXPECT_EQ(End(), 0);
  EXPECT_TRUE(Echoes());
}

TEST_F(Terminal, IsNotSteeredInAnyForm) {
  Run({"payee", "add", "A\x1B[2J\u009B\u202EZQ"});
  for (const char* form : {"text", "csv", "json"}) {
    Start({"--format", form, "payee"});
    const std::string shown = WaitFor("ZQ");
    for (const char* byte : {"\x1B", "\u009B", "\u202E"}) {
      EXPECT_EQ(shown.find(byte), std::string::npos) << form;
    }
    EXPECT_EQ(End(), 0) << form;
  }
}

}  // namespace
}  // namespace corvanta
