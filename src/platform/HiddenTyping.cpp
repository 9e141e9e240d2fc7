#include "platform/HiddenTyping.h"

#include "platform/FileHandle.h"
#include "platform/PlatformError.h"

#include <poll.h>
#include <pthread.h>
#include <sys/signalfd.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

namespace corvanta::inline platform {
namespace {

constexpr const char* kUnreadable = "The password cannot be read.";

// Keeps the signals that would end or stop the program from doing so while it lives; a descriptor
// says that one has come.
class WaitingSignals {
 public:
  WaitingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGTSTP}) {
      sigaddset(&signals, signal);
    }
    arrivals_ = FileHandle(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!arrivals_.IsOpen()) throw PlatformError(kUnreadable);
    ::pthread_sigmask(SIG_BLOCK, &signals, &former_);
  }
  ~WaitingSignals() { ::pthread_sigmask(SIG_SETMASK, &former_, nullptr); }
  WaitingSignals(const WaitingSignals&) = delete;
  WaitingSignals& operator=(const WaitingSignals&) = delete;

  [[nodiscard]] int Descriptor() const { return arrivals_.Get(); }
  // The signal that has come; 0 for none.
  [[nodiscard]] int Caught() const {
    signalfd_siginfo arrival{};
    const ssize_t size = ::read(arrivals_.Get(), &arrival, sizeof arrival);
    return size == sizeof arrival ? static_cast<int>(arrival.ssi_signo) : 0;
  }

 private:
  sigset_t former_{};
  FileHandle arrivals_;
};

// Switches the terminal's echo off and puts it back. What was typed and not read goes.
class HiddenTyping {
 public:
  explicit HiddenTyping(int terminal) : terminal_(terminal) {
    if (::tcgetattr(terminal, &former_) != 0) return;
    termios hidden = former_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    isHidden_ = ::tcsetattr(terminal, TCSAFLUSH, &hidden) == 0;
  }
  ~HiddenTyping() {
    if (isHidden_) ::tcsetattr(terminal_, TCSAFLUSH, &former_);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;
  [[nodiscard]] bool IsHidden() const { return isHidden_; }

 private:
  int terminal_;
  termios former_{};
  bool isHidden_ = false;
};

// The signal that came before there was something to read; 0 when there is.
int WaitForTyping(int terminal, const WaitingSignals& signals) {
  for (;;) {
    std::array<pollfd, 2> waiting{{{terminal, POLLIN, 0}, {signals.Descriptor(), POLLIN, 0}}};
    if (::poll(waiting.data(), waiting.size(), -1) < 0) {
      if (errno == EINTR) continue;
      throw PlatformError(kUnreadable);
    }
    if (const int signal = signals.Caught(); signal != 0) return signal;
    if (waiting[0].revents != 0) return 0;
  }
}

// The next byte; nullopt at the end.
std::optional<char> ReadByte(int descriptor) {
  char byte = 0;
  for (;;) {
    const ssize_t count = ::read(descriptor, &byte, 1);
    if (count == 1) return byte;
    if (count == 0) return std::nullopt;
    if (errno != EINTR) throw PlatformError(kUnreadable);
  }
}

// True when the line goes on.
bool Extend(std::string& line, std::optional<char> byte) {
  if (!byte || *byte == '\n') {
    if (line.ends_with('\r')) line.pop_back();
    return false;
  }
  line += *byte;
  return true;
}

}  // namespace

std::optional<std::string> ReadSecretLine(int descriptor) {
  std::string line;
  std::optional<char> byte = ReadByte(descriptor);
  if (!byte) return std::nullopt;
  while (Extend(line, byte)) byte = ReadByte(descriptor);
  return line;
}

TypedLine ReadHidden(int terminal, const std::function<void()>& ask) {
  // Goes last: the terminal must be as it was when the signals are let through.
  const WaitingSignals signals;
  const HiddenTyping typing(terminal);
  if (!typing.IsHidden()) throw PlatformError("The terminal cannot hide what is typed.");
  ask();
  TypedLine typed;
  std::string line;
  for (bool isFirst = true;; isFirst = false) {
    typed.signal = WaitForTyping(terminal, signals);
    if (typed.signal != 0) return typed;
    const std::optional<char> byte = ReadByte(terminal);
    if (!byte && isFirst) return typed;
    if (!Extend(line, byte)) break;
  }
  typed.text = std::move(line);
  return typed;
}

}  // namespace corvanta::inline platform
