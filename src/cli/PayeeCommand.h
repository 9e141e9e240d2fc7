#pragma once

#include "cli/EditorCommand.h"
#include "reference/PayeeEditor.h"

namespace corvanta {

// payee: who money goes to and comes from.
class PayeeCommand : public EditorCommand<PayeeEditor, PayeeRecord, &PayeeRecord::payeeId,
                                          &PayeeRecord::payee, &clsCorvanta::Payees> {
 public:
  PayeeCommand() : EditorCommand({"payee", "Payee", "payee", "payees"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
