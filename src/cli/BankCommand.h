#pragma once

#include "cli/EditorCommand.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "reference/BankEditor.h"

namespace corvanta {

// bank: the banks that accounts are at.
class BankCommand
    : public EditorCommand<BankEditor, BankRecord, &BankRecord::bankId, &BankRecord::bank> {
 public:
  BankCommand() : EditorCommand({"bank", "Bank", "bank", "banks"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  std::vector<BankRecord> All(clsCorvanta& ledger) override { return ledger.References().Banks(); }
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
