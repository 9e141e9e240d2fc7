#include "platform/ConsolePrompts.h"

#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <iostream>

namespace corvanta {
namespace {

// Switches the terminal's echo off and puts it back, also when reading fails.
class HiddenTyping {
 public:
  explicit HiddenTyping(int descriptor) : descriptor_(descriptor) {
    if (::tcgetattr(descriptor, &former_) != 0) return;
    termios hidden = former_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    isHidden_ = ::tcsetattr(descriptor, TCSAFLUSH, &hidden) == 0;
  }
  ~HiddenTyping() {
    if (isHidden_) ::tcsetattr(descriptor_, TCSAFLUSH, &former_);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;
  [[nodiscard]] bool IsHidden() const { return isHidden_; }

 private:
  int descriptor_;
  termios former_{};
  bool isHidden_ = false;
};

// One line without its end; nullopt when nothing is left. Byte by byte: what follows the line
// belongs to the next question.
std::optional<std::string> ReadLine(int descriptor) {
  std::string line;
  char c = 0;
  for (;;) {
    const ssize_t count = ::read(descriptor, &c, 1);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw PlatformError("The password cannot be read.");
    if (count == 0 && line.empty()) return std::nullopt;
    if (count == 0 || c == '\n') break;
    line += c;
  }
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

}  // namespace

ConsolePrompts::ConsolePrompts() : ConsolePrompts(ConsoleAnswers{}, std::cerr) {}

ConsolePrompts::ConsolePrompts(ConsoleAnswers answers, std::ostream& messages)
    : answers_(answers), messages_(messages) {}

void ConsolePrompts::Tell(const std::string& title, const std::string& text, Icon) {
  messages_ << title << ": " << text << '\n' << std::flush;
}

bool ConsolePrompts::Ask(const std::string& title, const std::string& text, Icon) {
  if (!answers_.assumeYes) Refuse(title, text);
  return true;
}

std::optional<std::size_t> ConsolePrompts::Choose(const std::string& title, const std::string& text,
                                                  const std::vector<std::string>& answers) {
  std::string question = text;
  for (const std::string& answer : answers) question += "\n  " + answer;
  Refuse(title, question);
}

std::optional<std::string> ConsolePrompts::AskText(const std::string& title,
                                                   const std::string& text, bool secret) {
  if (!secret) Refuse(title, text);
  if (answers_.secretDescriptor >= 0) return ReadLine(answers_.secretDescriptor);
  if (::isatty(STDIN_FILENO) == 0) Refuse(title, text);
  messages_ << title << ": " << text << ' ' << std::flush;
  const HiddenTyping typing(STDIN_FILENO);
  if (!typing.IsHidden()) throw PlatformError("The terminal cannot hide what is typed.");
  auto line = ReadLine(STDIN_FILENO);
  messages_ << '\n' << std::flush;
  return line;
}

std::optional<std::string> ConsolePrompts::OpenFile(const FileQuestion& question) {
  Refuse(question.title, "A file has to be named on the command line.");
}

std::optional<std::string> ConsolePrompts::SaveFile(const FileQuestion& question) {
  Refuse(question.title, "A file has to be named on the command line.");
}

void ConsolePrompts::Refuse(const std::string& title, const std::string& text) {
  Tell(title, text, Icon::Question);
  throw PromptRefused("No option answers the question \"" + title + "\".");
}

}  // namespace corvanta
