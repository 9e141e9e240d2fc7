#include "cli/arguments/InvestmentArgument.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

namespace corvanta::inline cli {
namespace {

// The column is "Payee" for the names, "Symbol" for the symbols.
std::vector<NamedItem> Items(clsCorvanta& ledger, const char* column) {
  std::vector<NamedItem> items;
  Recordset rows = ledger.Store().OpenRecordset(
      "Select PayeeID, Payee, [Symbol] from tblPayees Where Investment = 1 Order by Payee");
  for (; !rows.Eof(); rows.MoveNext()) items.push_back({rows.Int("PayeeID"), rows.Text(column)});
  return items;
}

}  // namespace

Argument* InvestmentArgument::Declare(Parser& command) {
  return command.AddOption("investment", name, "Its name or symbol, or # and its key");
}

std::optional<NamedItem> InvestmentArgument::Find(clsCorvanta& ledger, Session& session) const {
  const std::vector<NamedItem> items = InvestmentItems(ledger);
  for (const NamedItem& symbol : Items(ledger, "Symbol")) {
    if (Trim(symbol.name).empty() || !EqualFolded(Trim(symbol.name), Trim(name))) continue;
    return FindItem(items, "#" + std::to_string(symbol.key), "Investment", "investment", session);
  }
  return FindItem(items, name, "Investment", "investment", session);
}

std::vector<NamedItem> InvestmentItems(clsCorvanta& ledger) {
  return Items(ledger, "Payee");
}

}  // namespace corvanta::inline cli
