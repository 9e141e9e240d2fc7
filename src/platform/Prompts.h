#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {

enum class Icon { Information, Question, Warning, Error };

struct FileQuestion {
  std::string title;             // of the dialog
  std::string filterName;        // "Data Files"
  std::string filterPattern;     // "*.dat"
  std::string defaultExtension;  // "dat"
  std::string folder;            // where to begin; empty for the last one used
};

// The only way to a person: everything that the program says or asks outside a form of its own.
class Prompts {
 public:
  virtual ~Prompts() = default;

  virtual void Tell(const std::string& title, const std::string& text,
                    Icon icon = Icon::Information) = 0;
  // Yes or No; closing the box counts as No.
  [[nodiscard]] virtual bool Ask(const std::string& title, const std::string& text,
                                 Icon icon = Icon::Question) = 0;
  // One of several answers: its index, or nullopt when the person cancels.
  [[nodiscard]] virtual std::optional<std::size_t> Choose(
      const std::string& title, const std::string& text,
      const std::vector<std::string>& answers) = 0;
  // A line of text; nullopt when the person cancels. A secret is not shown while it is typed.
  // `typed` stands in the line at first: what was typed and could not be taken is not lost.
  [[nodiscard]] virtual std::optional<std::string> AskText(const std::string& title,
                                                           const std::string& text,
                                                           bool secret = false,
                                                           const std::string& typed = {}) = 0;
  // A file that exists, or a path to write to (an existing one has been confirmed); nullopt when
  // the person cancels.
  [[nodiscard]] virtual std::optional<std::string> OpenFile(const FileQuestion& question) = 0;
  [[nodiscard]] virtual std::optional<std::string> SaveFile(const FileQuestion& question) = 0;
};

}  // namespace corvanta::inline platform
