#pragma once

#include "cli/EditorCommand.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "reference/AccountTypeEditor.h"

namespace corvanta {

// group: the groups that accounts are listed in.
class GroupCommand
    : public EditorCommand<AccountTypeEditor, AccountGroupRecord,
                           &AccountGroupRecord::accountTypeId, &AccountGroupRecord::accountType> {
 public:
  GroupCommand() : EditorCommand({"group", "Account Group", "account group", "account groups"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  std::vector<AccountGroupRecord> All(clsCorvanta& ledger) override {
    return ledger.References().AccountGroups();
  }
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
