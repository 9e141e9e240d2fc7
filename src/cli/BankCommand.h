#pragma once

#include "cli/EditorCommand.h"
#include "reference/BankEditor.h"

namespace corvanta {

// bank: the banks that accounts are at.
class BankCommand : public EditorCommand<BankEditor, BankRecord, &BankRecord::bankId,
                                         &BankRecord::bank, &clsCorvanta::Banks> {
 public:
  BankCommand() : EditorCommand({"bank", "Bank", "bank", "banks"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
