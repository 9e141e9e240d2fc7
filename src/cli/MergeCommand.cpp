#include "cli/MergeCommand.h"

#include "cli/Arguments.h"
#include "cli/NamedItem.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"
#include "reference/MergeEditor.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {

CLI::App* MergeCommand::Declare(CLI::App& parser) {
  CLI::App* command =
      parser.add_subcommand("merge", "Move all that uses one payee or category to another one");
  command->add_option("kind", kind_, "payee or category")
      ->transform(CLI::Validator(OneOf({"payee", "category"}), ""))
      ->required();
  command->add_option("from", from_, "The one to empty: its name, or # and its key")->required();
  command->add_option("into", into_, "The one to fill: its name, or # and its key")->required();
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
