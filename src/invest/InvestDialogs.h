// Opens the windows of investments and market data, each modal before its parent.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class RateSource;
class clsCorvanta;
}  // namespace corvanta::inline ledger

namespace corvanta::inline invest {

// What a dialog works with and stands before. Valid while the data file stays open.
struct InvestPlace {
  Platform& platform;
  clsCorvanta& ledger;
  RateSource& rates;
  QWidget* parent;
};

struct CurrencyResult {
  double amount = 0;          // in the account's currency, rounded to its cents
  double amountCurrency = 0;  // in the other one
  std::string code;           // of the other one, "USD"
};

// The currency converter for an amount of a transaction. `currency` is the code of the account's
// currency, `amount` what stands in the transaction without its sign (0 leaves the field empty).
// nullopt when the person closed it without taking the amount over.
std::optional<CurrencyResult> OpenCurrency(const InvestPlace& place, const std::string& currency,
                                           double amount);
// The converter as a tool: nothing is taken over.
void ShowCurrency(const InvestPlace& place, const std::string& currency);

// The stored prices of an investment. True when any was changed.
bool OpenHistory(const InvestPlace& place, std::int64_t investmentId);

// The exchange rates that were fetched or entered.
void ShowRates(const InvestPlace& place);

// Where prices and exchange rates come from: every dialog that fails to download leads here. The
// source of that key is chosen at first, for 0 the one that is asked for rates. True when any was
// changed.
bool OpenSources(const InvestPlace& place, std::int64_t dataId = 0);

}  // namespace corvanta::inline invest
