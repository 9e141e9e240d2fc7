#include "platform/ConsolePrompts.h"

#include "platform/HiddenTyping.h"
#include "platform/ShownText.h"
#include "platform/TextCase.h"

#include <unistd.h>

#include <csignal>
#include <iostream>
#include <string_view>
#include <utility>

namespace corvanta::inline platform {
namespace {

// A question is called "Add Category?" by the program and "Add Category" by a person.
std::string_view TitleOf(std::string_view question) {
  std::string_view title = Trim(question);
  while (title.ends_with('?')) title = Trim(title.substr(0, title.size() - 1));
  return title;
}

}  // namespace

ConsolePrompts::ConsolePrompts() : ConsolePrompts(ConsoleAnswers{}, std::cerr) {}

ConsolePrompts::ConsolePrompts(ConsoleAnswers answers, std::ostream& messages)
    : answers_(std::move(answers)), messages_(messages) {}

void ConsolePrompts::Tell(const std::string& title, const std::string& text, Icon) {
  messages_ << ShownText(title + ": " + text) << '\n' << std::flush;
}

std::optional<bool> ConsolePrompts::AnswerTo(const std::string& title) const {
  std::optional<bool> answer = answers_.all;
  for (const ConsoleAnswers::Named& named : answers_.named) {
    if (EqualFolded(TitleOf(named.title), TitleOf(title))) answer = named.isYes;
  }
  return answer;
}

bool ConsolePrompts::Ask(const std::string& title, const std::string& text, Icon icon) {
  const std::optional<bool> answer = AnswerTo(title);
  if (!answer) Refuse(title, text);
  if (!*answer) Tell(title, text + " (no)", icon);
  return *answer;
}

std::optional<std::size_t> ConsolePrompts::Choose(const std::string& title, const std::string& text,
                                                  const std::vector<std::string>& answers) {
  std::string question = text;
  for (const std::string& answer : answers) question += "\n  " + answer;
  Refuse(title, question);
}

std::optional<std::string> ConsolePrompts::AskText(const std::string& title,
                                                   const std::string& text, bool secret,
                                                   const std::string& /*typed*/) {
  if (!secret) Refuse(title, text);
  if (answers_.secretDescriptor >= 0) return ReadSecretLine(answers_.secretDescriptor);
  if (::isatty(STDIN_FILENO) == 0) Refuse(title, text);
  return AskTerminal(title + ": " + text);
}

std::optional<std::string> ConsolePrompts::AskTerminal(const std::string& question) {
  for (;;) {
    TypedLine typed =
        ReadHidden(STDIN_FILENO, [&] { messages_ << ShownText(question) << ' ' << std::flush; });
    messages_ << '\n' << std::flush;
    if (typed.signal == 0) return std::move(typed.text);
    // It ends the program, or stops it until a person comes back to the question.
    std::raise(typed.signal);
  }
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

}  // namespace corvanta::inline platform
