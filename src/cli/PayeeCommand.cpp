#include "cli/PayeeCommand.h"

#include "ledger/ReferenceBook.h"

#include <CLI/CLI.hpp>

namespace corvanta {

void PayeeCommand::DeclareAdd(CLI::App& add) {
  add.add_option("--description", details_.description, "What it is");
}

OutputTable PayeeCommand::List(clsCorvanta& ledger) {
  OutputTable table({{"ID", OutputKind::Integer}, {"Payee"}, {"Description"}});
  for (const PayeeRecord& row : ledger.References().Payees()) {
    table.AddRow({row.payeeId, row.payee, row.description});
  }
  return table;
}

}  // namespace corvanta
