#pragma once

#include "platform/PlatformError.h"
#include "platform/Prompts.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {

// A question came up that the command line has no answer for. The text names the question.
class PromptRefused : public PlatformError {
 public:
  explicit PromptRefused(const std::string& message) : PlatformError(message) {}
};

struct ConsoleAnswers {
  struct Named {
    std::string title;  // of the question, with or without its question mark, in any case
    bool isYes = false;
  };
  std::optional<bool> all;    // every yes-or-no question is answered so
  std::vector<Named> named;   // but these, of which a later one counts
  int secretDescriptor = -1;  // where secrets are read from, one a line; -1: the terminal
};

// Prompts of a command line: what is told goes to standard error as "Title: text", what is asked
// is answered by options. Without an option it refuses rather than guesses.
class ConsolePrompts : public Prompts {
 public:
  ConsolePrompts();  // no answers, messages to standard error
  // `messages` takes what is told and must outlive this object.
  ConsolePrompts(ConsoleAnswers answers, std::ostream& messages);

  void Tell(const std::string& title, const std::string& text, Icon icon) override;
  // Each of these throws PromptRefused, after writing the question, when no option answers it. A
  // question that is answered with no is written too: it is why nothing is done.
  [[nodiscard]] bool Ask(const std::string& title, const std::string& text, Icon icon) override;
  [[nodiscard]] std::optional<std::size_t> Choose(const std::string& title, const std::string& text,
                                                  const std::vector<std::string>& answers) override;
  // Secrets are typed at the terminal, unseen, or come from the descriptor; nullopt at its end. A
  // signal that ends or stops the program while one is typed leaves the terminal as it was.
  [[nodiscard]] std::optional<std::string> AskText(const std::string& title,
                                                   const std::string& text, bool secret,
                                                   const std::string& typed = {}) override;
  [[nodiscard]] std::optional<std::string> OpenFile(const FileQuestion& question) override;
  [[nodiscard]] std::optional<std::string> SaveFile(const FileQuestion& question) override;

 private:
  [[nodiscard]] std::optional<bool> AnswerTo(const std::string& title) const;
  [[nodiscard]] std::optional<std::string> AskTerminal(const std::string& question);
  [[noreturn]] void Refuse(const std::string& title, const std::string& text);

  ConsoleAnswers answers_;
  std::ostream& messages_;
};

}  // namespace corvanta::inline platform
