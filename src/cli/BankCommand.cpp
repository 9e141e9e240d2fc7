#include "cli/BankCommand.h"

#include "ledger/ReferenceBook.h"

#include <CLI/CLI.hpp>

namespace corvanta {

void BankCommand::DeclareAdd(CLI::App& add) {
  add.add_option("--address", details_.address, "Its address");
  add.add_option("--postcode", details_.postcode, "Its postcode");
  add.add_option("--telephone", details_.telephone, "Its telephone number");
  add.add_option("--account", details_.account, "Your customer reference there");
  add.add_option("--sortcode", details_.sortcode, "Its sort code");
  add.add_option("--web", details_.web, "Its web address");
  add.add_option("--description", details_.description, "What it is");
}

OutputTable BankCommand::List(clsCorvanta& ledger) {
  OutputTable table({{"ID", OutputKind::Integer},
                     {"Bank"},
                     {"Address"},
                     {"Postcode"},
                     {"Telephone"},
                     {"Account"},
                     {"Sortcode"},
                     {"Web"},
                     {"Description"}});
  for (const BankRecord& row : ledger.References().Banks()) {
    table.AddRow({row.bankId, row.bank, row.address, row.postcode, row.telephone, row.account,
                  row.sortcode, row.web, row.description});
  }
  return table;
}

}  // namespace corvanta
