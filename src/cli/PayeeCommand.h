#pragma once

#include "cli/EditorCommand.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "reference/PayeeEditor.h"

namespace corvanta {

// payee: who money goes to and comes from.
class PayeeCommand
    : public EditorCommand<PayeeEditor, PayeeRecord, &PayeeRecord::payeeId, &PayeeRecord::payee> {
 public:
  PayeeCommand() : EditorCommand({"payee", "Payee", "payee", "payees"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  std::vector<PayeeRecord> All(clsCorvanta& ledger) override {
    return ledger.References().Payees();
  }
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
