#include "cli/CompletionCommand.h"

#include "cli/CompletionScript.h"
#include "cli/Session.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace corvanta::inline cli {
namespace {

std::vector<const CLI::App*> CommandsOf(const CLI::App& parser) {
  return parser.get_subcommands(
      [](const CLI::App* command) { return !command->get_name().empty(); });
}

void AddOptions(const CLI::App& parser, std::vector<CompletionWord>& words) {
  for (const CLI::Option* option : parser.get_options()) {
    const bool takesValue = option->get_items_expected_max() > 0;
    for (const std::string& name : option->get_lnames()) {
      words.push_back({"--" + name, option->get_description(), takesValue});
    }
    for (const std::string& name : option->get_snames()) {
      words.push_back({"-" + name, option->get_description(), takesValue});
    }
  }
}

// The command and those below it. The options of the whole line may stand behind each of them.
void AddPlaces(const CLI::App& root, const CLI::App& parser, const std::string& command,
               std::vector<CompletionPlace>& places) {
  CompletionPlace place{command, {}};
  for (const CLI::App* below : CommandsOf(parser)) {
    place.words.push_back({below->get_name(), below->get_description(), false});
  }
  AddOptions(parser, place.words);
  if (&root != &parser) {
    std::vector<CompletionWord> all;
    AddOptions(root, all);
    for (CompletionWord& word : all) {
      if (word.word.starts_with("--") && word.word != "--help" && word.word != "--version") {
        place.words.push_back(std::move(word));
      }
    }
  }
  places.push_back(std::move(place));
  for (const CLI::App* below : CommandsOf(parser)) {
    AddPlaces(root, *below, command + '/' + below->get_name(), places);
  }
}

}  // namespace

CLI::App* CompletionCommand::Declare(CLI::App& parser) {
  parser_ = &parser;
  CLI::App* command =
      parser.add_subcommand("completion", "Print what completes this command line in a shell");
  command->require_subcommand(1);
  command->add_subcommand("bash", "For bash");
  zsh_ = command->add_subcommand("zsh", "For zsh");
  fish_ = command->add_subcommand("fish", "For fish");
  return command;
}

ExitStatus CompletionCommand::Run(Session& session) {
  std::vector<CompletionPlace> places;
  AddPlaces(*parser_, *parser_, {}, places);
  const auto script =
      fish_->parsed() ? FishCompletion : (zsh_->parsed() ? ZshCompletion : BashCompletion);
  session.Out() << script(parser_->get_name(), places);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
