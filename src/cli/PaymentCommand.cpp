#include "cli/PaymentCommand.h"

#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"

#include <CLI/CLI.hpp>

namespace corvanta {

void PaymentCommand::DeclareAdd(CLI::App& add) {
  add.add_option("--description", details_.description, "What it is");
}

OutputTable PaymentCommand::List(clsCorvanta& ledger) {
  OutputTable table({{"ID", OutputKind::Integer}, {"Payment"}, {"Description"}});
  for (const PaymentRecord& row : ledger.References().Payments()) {
    table.AddRow({row.paymentId, row.payment, row.description});
  }
  return table;
}

}  // namespace corvanta
