#include "cli/reference/MergeCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/NamedItem.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "reference/MergeEditor.h"

namespace corvanta::inline cli {

Parser* MergeCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("merge", "Move all that uses one payee or category to another one");
  command->AddOption("kind", kind_, "payee or category")
      ->Correct(OneOf({"payee", "category"}))
      ->Required();
  command->AddOption("from", from_, "The one to empty: its name, or # and its key")->Required();
  command->AddOption("into", into_, "The one to fill: its name, or # and its key")->Required();
  return command;
}

ExitStatus MergeCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  MergeEditor editor(kind_ == "payee" ? MergeKind::Payee : MergeKind::Category, ledger,
                     session.Machine().prompts);
  std::vector<NamedItem> items;
  for (const MergeItem& item : editor.Items()) items.push_back({item.key, item.name});
  const auto from = FindItem(items, from_, editor.Word(), kind_, session);
  if (!from) return ExitStatus::Refused;
  const auto into = FindItem(items, into_, editor.Word(), kind_, session);
  if (!into) return ExitStatus::Refused;

  if (const auto warning = editor.Check(from->key, into->key)) {
    return session.Refuse(warning->title, warning->text);
  }
  const bool isDone = editor.Merge(from->key, {into->key, into->name});
  return isDone ? ExitStatus::Done : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
