#pragma once

#include "cli/EditorCommand.h"
#include "reference/AccountTypeEditor.h"

namespace corvanta {

// group: the groups that accounts are listed in.
class GroupCommand
    : public EditorCommand<AccountTypeEditor, AccountGroupRecord,
                           &AccountGroupRecord::accountTypeId, &AccountGroupRecord::accountType,
                           &clsCorvanta::AccountGroups> {
 public:
  GroupCommand() : EditorCommand({"group", "Account Group", "account group", "account groups"}) {}

 protected:
  void DeclareAdd(CLI::App& add) override;
  OutputTable List(clsCorvanta& ledger) override;
};

}  // namespace corvanta
