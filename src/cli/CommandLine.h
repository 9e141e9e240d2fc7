#pragma once

#include "cli/Command.h"
#include "cli/ExitStatus.h"
#include "cli/GlobalOptions.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvanta::inline cli {

class UsageError;

// The whole command line: global options, the commands, and what a failure becomes.
class CommandLine {
 public:
  // Data goes to `out`, messages to `messages`; both must outlive this object.
  CommandLine(std::ostream& out, std::ostream& messages);

  // Runs the command that the arguments (without the program's name) ask for. Throws nothing: what
  // fails is told and becomes the status.
  [[nodiscard]] ExitStatus Run(std::vector<std::string> arguments);

 private:
  ExitStatus Parse(std::vector<std::string> arguments);
  ExitStatus RunChosen();
  [[nodiscard]] std::string UsageFault(const Parser& parser, const UsageError& error) const;
  void DeclareOptions(Parser& parser);
  void DeclareCommands(Parser& parser);
  void DeclareFiles(Parser& parser);
  void DeclareEntries(Parser& parser);
  void DeclareLists(Parser& parser);
  void DeclareExchange(Parser& parser);
  void DeclareReports(Parser& parser);
  // Makes the command of that kind and has it say its arguments.
  template <typename Declared, typename... Arguments>
  void Declare(Parser& parser, Arguments... arguments);
  ExitStatus Report(const std::string& title, const std::string& text, ExitStatus status);

  std::ostream& out_;
  std::ostream& messages_;
  GlobalOptions options_;
  std::vector<std::pair<Parser*, std::unique_ptr<Command>>> commands_;
};

}  // namespace corvanta::inline cli
