#include "cli/invest/InvestFields.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/arguments/CurrencyArgument.h"
#include "cli/arguments/NamedItem.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"

#include <vector>

namespace corvanta::inline cli {

void InvestFields::Declare(Parser& command, bool isNew) {
  command.AddOption("--symbol", symbol_, "The symbol by which its source knows it")
      ->Required(isNew);
  command.AddOption("--source", source_, "Where its price comes from, such as \"Manual Update\"")
      ->Required(isNew);
  command.AddOption("--currency", currency_,
                    isNew ? "The code of the currency of its account (that of the latest account "
                            "without it)"
                          : "The code of the currency of its account");
  command.AddOption("--quote-currency", quoteCurrency_,
                    isNew ? "The code of the currency in which the market quotes it (--currency "
                            "without it)"
                          : "The code of the currency in which the market quotes it");
  command
      .AddOption("--conversion", conversion_,
                 "What a quote is multiplied by, such as 0.01 for hundredths")
      ->TypeName("N")
      ->Check(NumberFault);
  command.AddOption("--description", description_, "What it is");
}

bool InvestFields::Fill(InvestmentRecord& record, clsCorvanta& ledger, Session& session) const {
  if (currency_ && !FindCurrency(ledger, *currency_, record.currencyId, session)) return false;
  if (record.investmentId == 0) record.investCurrencyId = record.currencyId;
  if (quoteCurrency_ && !FindCurrency(ledger, *quoteCurrency_, record.investCurrencyId, session)) {
    return false;
  }
  if (source_) {
    std::vector<NamedItem> sources;
    for (const StockSource& each : ledger.Investments().StockSources()) {
      sources.push_back({each.dataId, each.name});
    }
    const auto source = FindItem(sources, *source_, "Data Source", "source", session);
    if (!source) return false;
    record.dataId = source->key;
  }
  record.symbol = symbol_.value_or(record.symbol);
  if (conversion_) record.conversion = NumberOf(*conversion_);
  record.description = description_.value_or(record.description);
  return true;
}

}  // namespace corvanta::inline cli
