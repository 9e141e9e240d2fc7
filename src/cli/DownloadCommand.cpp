#include "cli/DownloadCommand.h"

#include "cli/InvestmentArgument.h"
#include "cli/OutputTable.h"
#include "cli/Session.h"
#include "invest/PriceDownload.h"
#include "invest/SourceBook.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <CLI/CLI.hpp>

#include <map>
#include <set>

namespace corvanta::inline cli {
namespace {

// The source of every investment that has one with an address, by the investment's key.
std::map<std::int64_t, std::int64_t> DownloadedFrom(clsCorvanta& ledger) {
  std::map<std::int64_t, std::int64_t> sources;
  Recordset rows = ledger.Store().OpenRecordset(
      "Select P.PayeeID, P.DataID from tblPayees P INNER JOIN tblStockData D ON D.DataID = "
      "P.DataID Where P.Investment = 1 AND D.[URL] <> ''");
  for (; !rows.Eof(); rows.MoveNext()) sources[rows.Int(0)] = rows.Int(1);
  return sources;
}

}  // namespace

CLI::App* DownloadCommand::Declare(CLI::App& parser) {
  CLI::App* command = parser.add_subcommand("download", "Fetch today's prices of investments");
  command->add_option("investments", names_,
                      "Their names or symbols, or # and their keys (default: all that have a "
                      "source with an address)");
  return command;
}

ExitStatus DownloadCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Write);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::map<std::int64_t, std::int64_t> sources = DownloadedFrom(ledger);
  std::vector<NamedItem> chosen;
  for (const std::string& name : names_) {
    const auto item = InvestmentArgument{name}.Find(ledger, session);
    if (!item) return ExitStatus::Refused;
    chosen.push_back(*item);
  }
  if (names_.empty()) {
    for (const NamedItem& item : InvestmentItems(ledger)) {
      if (sources.contains(item.key)) chosen.push_back(item);
    }
  }
  OutputTable table({{"Investment"}, {"Date", OutputKind::Date}, {"Price", OutputKind::Number}});
  PriceDownload download(ledger, session.Machine());
  std::set<std::int64_t> dead;  // sources that nobody answers for
  bool isWhole = true;
  for (const NamedItem& item : chosen) {
    const auto source = sources.find(item.key);
    const std::int64_t dataId = source == sources.end() ? 0 : source->second;
    if (dead.contains(dataId)) continue;
    const auto stored = download.DownloadInvestmentPrice(item.key);
    if (!download.Note().empty()) session.Tell(item.name, download.Note());
    isWhole = isWhole && stored;
    if (stored) table.AddRow({item.name, stored->date, stored->price});
    if (download.IsServiceDead()) dead.insert(dataId);
  }
  session.Print(table);
  return isWhole ? ExitStatus::Done : ExitStatus::MachineFailed;
}

}  // namespace corvanta::inline cli
