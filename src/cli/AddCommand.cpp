#include "cli/AddCommand.h"

#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "entry/TransactionEditor.h"
#include "invest/WebRates.h"
#include "ledger/clsCorvanta.h"

#include <CLI/CLI.hpp>

namespace corvanta::inline cli {

CLI::App* AddCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("add", "Enter a transaction and print its key");
  command->add_option("type", type_, "expense, income or transfer")
      ->transform(CLI::Validator(EntryTypeWord(), ""))
      ->required();
  arguments_.Declare(*command, true);
  return command;
}

ExitStatus AddCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  WebRates rates(ledger, session.Machine());
  TransactionEditor editor(ledger, session.Machine(), rates);

  TransactionForm form = editor.New(0);
  TransactionEditor::ChooseType(form, EntryTypeOf(type_));
  if (!arguments_.Fill(form, ledger, session)) return ExitStatus::Refused;
  const auto key = SaveChecked(editor, form, session);
  if (!key) return ExitStatus::Refused;
  PrintKey(*key, session);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
