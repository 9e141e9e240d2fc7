#include "cli/invest/DownloadCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/InvestmentArgument.h"
#include "cli/output/OutputTable.h"
#include "invest/prices/PriceRound.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline cli {

Parser* DownloadCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("download", "Fetch today's prices of investments");
  command->AddOption("investments", names_,
                     "Their names or symbols, or # and their keys (default: all that have a "
                     "source with an address)");
  return command;
}

ExitStatus DownloadCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  PriceRound round(ledger, session.Machine());
  std::vector<PriceRound::Asked> chosen = round.All();
  if (!names_.empty()) {
    const std::vector<PriceRound::Asked> all = std::exchange(chosen, {});
    for (const std::string& name : names_) {
      const auto item = InvestmentArgument{name}.Find(ledger, session);
      if (!item) return ExitStatus::Refused;
      const auto known = std::ranges::find(all, item->key, &PriceRound::Asked::investmentId);
      chosen.push_back(known == all.end() ? PriceRound::Asked{item->key, item->name, 0} : *known);
    }
  }
  OutputTable table({{"Investment"}, {"Date", OutputKind::Date}, {"Price", OutputKind::Number}});
  const PriceRound::Result result =
      round.Download(chosen, [&](const PriceRound::Asked& asked, const StoredPrice& stored) {
        table.AddRow({asked.investment, stored.date, stored.price});
      });
  for (const PriceRound::Remark& remark : result.remarks) {
    session.Tell(remark.asked.investment, remark.why);
  }
  session.Print(table);
  return result.stored == chosen.size() ? ExitStatus::Done : ExitStatus::MachineFailed;
}

}  // namespace corvanta::inline cli
