#include "cli/RateCommand.h"

#include "cli/NamedItem.h"
#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "invest/CurrencyConverter.h"
#include "invest/WebRates.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ReferenceRecords.h"
#include "ledger/clsCorvanta.h"
#include "platform/Platform.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace corvanta::inline cli {
namespace {
constexpr const char* kTitle = "Download Currency";
}  // namespace

CLI::App* RateCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("rate", "Fetch an exchange rate");
  command->add_option("from", from_, "The code of the currency that is given: EUR")->required();
  command->add_option("to", to_, "The code of the currency that is got for one of it")->required();
  return command;
}

ExitStatus RateCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  std::vector<NamedItem> codes;
  for (const CurrencyRecord& row : ledger.References().Currencies()) {
    codes.push_back({row.currencyId, row.currency});
  }
  const auto from = FindItem(codes, from_, kTitle, "currency", session);
  if (!from) return ExitStatus::Refused;
  const auto to = FindItem(codes, to_, kTitle, "currency", session);
  if (!to) return ExitStatus::Refused;

  WebRates rates(ledger, session.Machine());
  const auto rate = rates.Rate(from->name, to->name);
  if (!rate) {
    session.Tell(kTitle, "Could not connect to website");
    return ExitStatus::MachineFailed;
  }
  if (!rate->notice.empty()) session.Tell(kTitle, rate->notice);
  if (session.Options().format == "text") {
    const CurrencyConverter converter(rates, session.Machine().locale);
    session.Out() << "1 " << from->name << " = " << converter.PlainNumber(rate->rate) << ' '
                  << to->name << '\n';
    return ExitStatus::Done;
  }
  OutputTable table({{"From"}, {"To"}, {"Rate", OutputKind::Number}});
  table.AddRow({from->name, to->name, rate->rate});
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
