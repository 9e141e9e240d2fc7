#pragma once

#include <string>
#include <vector>

namespace corvanta::inline cli {

// A word that may follow on the command line: a command, or an option with its hyphens.
struct CompletionWord {
  std::string word;
  std::string meaning;
  bool takesValue = false;  // of an option
};

// What may follow a command. The command is named by its words, each behind a slash
// ("/attach/add"); before any command that is the empty text.
struct CompletionPlace {
  std::string command;
  std::vector<CompletionWord> words;
};

// Scripts with which a shell completes the command line of `program`. Where no word fits, and
// behind an option that takes a value, names of files are offered.
[[nodiscard]] std::string BashCompletion(const std::string& program,
                                         const std::vector<CompletionPlace>& places);
[[nodiscard]] std::string ZshCompletion(const std::string& program,
                                        const std::vector<CompletionPlace>& places);
[[nodiscard]] std::string FishCompletion(const std::string& program,
                                         const std::vector<CompletionPlace>& places);

}  // namespace corvanta::inline cli
