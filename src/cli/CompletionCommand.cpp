#include "cli/CompletionCommand.h"

#include "cli/CompletionScript.h"
#include "cli/Parser.h"
#include "cli/Session.h"

#include <ostream>

namespace corvanta::inline cli {
namespace {

void AddOptions(const Parser& parser, std::vector<CompletionWord>& words) {
  for (const Argument& argument : parser.Arguments()) {
    for (const std::string& name : argument.Names()) {
      words.push_back({name, argument.Meaning(), argument.TakesValue()});
    }
  }
}

// The command and those below it. The options of the whole line may stand behind each of them.
void AddPlaces(const Parser& root, const Parser& parser, const std::string& command,
               std::vector<CompletionPlace>& places) {
  CompletionPlace place{command, {}};
  for (const Parser* below : parser.Commands()) {
    place.words.push_back({below->Name(), below->Meaning(), false});
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
  for (const Parser* below : parser.Commands()) {
    AddPlaces(root, *below, command + '/' + below->Name(), places);
  }
}

}  // namespace

Parser* CompletionCommand::Declare(Parser& parser) {
  parser_ = &parser;
  Parser* command =
      parser.AddCommand("completion", "Print what completes this command line in a shell");
  command->RequireCommand();
  command->AddCommand("bash", "For bash");
  zsh_ = command->AddCommand("zsh", "For zsh");
  fish_ = command->AddCommand("fish", "For fish");
  return command;
}

ExitStatus CompletionCommand::Run(Session& session) {
  std::vector<CompletionPlace> places;
  AddPlaces(*parser_, *parser_, {}, places);
  const auto script =
      fish_->Parsed() ? FishCompletion : (zsh_->Parsed() ? ZshCompletion : BashCompletion);
  session.Out() << script(parser_->Name(), places);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
