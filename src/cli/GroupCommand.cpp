#include "cli/GroupCommand.h"

#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"

#include <CLI/CLI.hpp>

namespace corvanta {

void GroupCommand::DeclareAdd(CLI::App& add) {
  add.add_option("--description", details_.description, "What it is");
}

OutputTable GroupCommand::List(clsCorvanta& ledger) {
  OutputTable table({{"ID", OutputKind::Integer}, {"Group"}, {"Description"}});
  for (const AccountGroupRecord& row : ledger.References().AccountGroups()) {
    table.AddRow({row.accountTypeId, row.accountType, row.description});
  }
  return table;
}

}  // namespace corvanta
