#include "cli/invest/WatchCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/NamedItem.h"
#include "cli/output/OutputTable.h"
#include "invest/prices/StockLookup.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta::inline cli {
namespace {

std::vector<NamedItem> Currencies(clsCorvanta& ledger) {
  std::vector<NamedItem> codes;
  for (const CurrencyRecord& row : ledger.References().Currencies()) {
    codes.push_back({row.currencyId, row.currency});
  }
  return codes;
}

const WatchEntry* Find(const std::vector<WatchEntry>& entries, const std::string& symbol) {
  const auto found = std::ranges::find_if(
      entries, [&](const WatchEntry& entry) { return EqualFolded(entry.symbol, symbol); });
  return found == entries.end() ? nullptr : &*found;
}

ExitStatus NotListed(const StockLookup& lookup, const std::string& symbol, Session& session) {
  return session.Refuse(lookup.Caption(), "\"" + symbol + "\" is not on the list.");
}

ExitStatus List(const StockLookup& lookup, Session& session) {
  OutputTable table({{"Symbol"}});
  for (const WatchEntry& entry : lookup.Entries()) table.AddRow({entry.symbol});
  session.Print(table);
  return ExitStatus::Done;
}

}  // namespace

Parser* WatchCommand::Declare(Parser& parser) {
  Parser* command = parser.AddCommand("watch", "The watch lists of quotes and of rates");
  command->RequireCommand();
  stocksParser_ = command->AddCommand("stocks", "The list of stocks");
  DeclareList(*stocksParser_, stocks_);
  stocks_.download->AddOption("--source", source_, "The source of quotes; the first without it");
  DeclareList(*command->AddCommand("currencies", "The list of currencies"), currencies_);
  return command;
}

void WatchCommand::DeclareList(Parser& command, Parsers& parsers) {
  command.AllowCommand();
  parsers.list = command.AddCommand("list", "What is on the list");
  parsers.add = command.AddCommand("add", "Put a symbol, or a currency's code, on the list");
  parsers.remove = command.AddCommand("delete", "Take it off the list");
  for (Parser* one : {parsers.add, parsers.remove}) {
    one->AddOption("symbol", symbol_, "The symbol or code")->Required();
  }
  parsers.download = command.AddCommand("download", "Fetch the latest values");
  parsers.download->AddOption("symbols", symbols_, "Only these of the list");
  parsers.download->AddOption("--currency", currency_,
                              "The code of the currency in; the one used last without it");
}

ExitStatus WatchCommand::Run(Session& session) {
  const std::optional<DataFile> file = session.Open(Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const bool isStocks = stocksParser_->Parsed();
  const Parsers& parsers = isStocks ? stocks_ : currencies_;
  StockLookup lookup(isStocks ? WatchMode::Stocks : WatchMode::Currency, ledger, session.Machine());
  if (parsers.add->Parsed()) return Add(lookup, ledger, session);
  if (parsers.remove->Parsed()) return Delete(lookup, session);
  if (parsers.download->Parsed()) return Download(lookup, ledger, session);
  return List(lookup, session);
}

ExitStatus WatchCommand::Add(StockLookup& lookup, clsCorvanta& ledger, Session& session) const {
  std::string symbol = symbol_;
  if (lookup.Mode() == WatchMode::Currency) {
    const auto code = FindItem(Currencies(ledger), symbol_, lookup.Caption(), "currency", session);
    if (!code) return ExitStatus::Refused;
    symbol = code->name;
  }
  const auto warning = lookup.Add(symbol);
  return warning ? session.Refuse(warning->title, warning->text) : ExitStatus::Done;
}

ExitStatus WatchCommand::Delete(StockLookup& lookup, Session& session) const {
  const std::vector<WatchEntry> entries = lookup.Entries();
  const WatchEntry* entry = Find(entries, symbol_);
  if (entry == nullptr) return NotListed(lookup, symbol_, session);
  return lookup.Delete({&entry->number, 1}) ? ExitStatus::Done : ExitStatus::Refused;
}

std::optional<std::int64_t> WatchCommand::FindSource(StockLookup& lookup, Session& session) const {
  std::vector<NamedItem> sources;
  for (const WatchSource& row : lookup.Sources()) sources.push_back({row.dataId, row.name});
  if (source_.empty()) return sources.empty() ? 0 : sources.front().key;
  const auto source = FindItem(sources, source_, lookup.Caption(), "data source", session);
  return source ? std::optional(source->key) : std::nullopt;
}

ExitStatus WatchCommand::Download(StockLookup& lookup, clsCorvanta& ledger,
                                  Session& session) const {
  LookupForm form{0, lookup.Currency()};
  if (!currency_.empty()) {
    const auto code =
        FindItem(Currencies(ledger), currency_, lookup.Caption(), "currency", session);
    if (!code) return ExitStatus::Refused;
    form.currency = code->name;
  }
  const std::optional<std::int64_t> source = FindSource(lookup, session);
  if (!source) return ExitStatus::Refused;
  form.dataId = *source;
  const std::vector<WatchEntry> entries = lookup.Entries();
  std::vector<std::string> symbols;
  for (const std::string& symbol : symbols_) {
    const WatchEntry* entry = Find(entries, symbol);
    if (entry == nullptr) return NotListed(lookup, symbol, session);
    symbols.push_back(entry->symbol);
  }
  for (const WatchEntry& entry : entries) {
    if (symbols_.empty()) symbols.push_back(entry.symbol);
  }
  OutputTable table({{"Symbol"}, {"Value", OutputKind::Number}, {"Date/Time"}, {"Trend"}});
  const Locale& locale = session.Machine().locale;
  const auto warning =
      lookup.Download(form, symbols, [&](std::size_t row, const WatchValue& value) {
        table.AddRow({symbols[row], locale.ParseNumber(value.value).value_or(0), value.dateTime,
                      value.trend});
      });
  if (!table.Rows().empty()) session.Print(table);
  if (!lookup.Note().empty()) session.Tell(lookup.Caption(), lookup.Note());
  if (!warning) return ExitStatus::Done;
  session.Tell(warning->title, warning->text);
  return lookup.IsUnanswered() ? ExitStatus::MachineFailed : ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
