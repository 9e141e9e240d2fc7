#include "cli/arguments/CurrencyArgument.h"

#include "cli/arguments/NamedItem.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"

#include <vector>

namespace corvanta::inline cli {

bool FindCurrency(clsCorvanta& ledger, const std::string& code, std::int64_t& currencyId,
                  Session& session) {
  std::vector<NamedItem> currencies;
  for (const CurrencyRecord& row : ledger.References().Currencies()) {
    currencies.push_back({row.currencyId, row.currency});
  }
  const auto currency = FindItem(currencies, code, "Currency", "currency", session);
  if (currency) currencyId = currency->key;
  return currency.has_value();
}

}  // namespace corvanta::inline cli
