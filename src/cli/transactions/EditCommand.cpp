#include "cli/transactions/EditCommand.h"

#include "cli/Parser.h"
#include "cli/SavedForm.h"
#include "cli/Session.h"
#include "entry/TransactionEditor.h"
#include "invest/rates/WebRates.h"
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/TransactionRecord.h"

namespace corvanta::inline cli {

Parser* EditCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("edit", "Change a transaction, as far as options are given");
  transaction_.DeclareOne(*command);
  command->AddOption("--type", type_, "expense, income or transfer")
      ->TypeName("TYPE")
      ->Correct(EntryTypeWord());
  arguments_.Declare(*command, false);
  return command;
}

ExitStatus EditCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const auto rows = transaction_.Find(ledger, session);
  if (!rows) return ExitStatus::Refused;
  const TransactionDetails& row = rows->front();
  if (row.allocatedItem != 0) {
    return session.Refuse("Amend Item", "This is a line of transaction " +
                                            std::to_string(row.allocatedItem) +
                                            ". Lines are changed with split.");
  }
  if (row.action != 0) {
    return session.Refuse("Amend Item",
                          "This is a transaction of an investment. It is changed with invest "
                          "transaction edit.");
  }
  WebRates rates(ledger, session.Machine());
  TransactionEditor editor(ledger, session.Machine(), rates);
  if (const auto warning = editor.CheckOpen(row.transactionId)) {
    return session.Refuse(warning->title, warning->text);
  }
  std::optional<TransactionForm> form = editor.Load(row.transactionId);
  const TransactionForm loaded = *form;
  if (!type_.empty()) TransactionEditor::ChooseType(*form, EntryTypeOf(type_));
  if (!arguments_.Fill(*form, ledger, session)) return ExitStatus::Refused;
  return SaveChanges(editor, loaded, *form, "Edit",
                     "Transaction " + std::to_string(row.transactionId), session);
}

}  // namespace corvanta::inline cli
