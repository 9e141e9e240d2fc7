#include "cli/transactions/AddCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "entry/TransactionEditor.h"
#include "invest/rates/WebRates.h"
#include "ledger/clsCorvanta.h"

namespace corvanta::inline cli {

Parser* AddCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("add", "Enter a transaction and print its key");
  command->AddOption("type", type_, "expense, income or transfer")
      ->Correct(EntryTypeWord())
      ->Required();
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
