// Opens the windows of investments and market data, each modal before its parent.
#pragma once

#include "invest/WatchList.h"
#include "platform/Date.h"

#include <cstdint>
#include <functional>
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
  // Called when rows have changed while a dialog goes on standing ("Add &New"); may be empty.
  std::function<void()> changed{};
};

// What became of an editor: whether the data file was changed, and the row saved last (0 for none).
struct InvestResult {
  bool isChanged = false;
  std::int64_t savedKey = 0;
};

// Which investment transaction the editor opens with: the row of that key ("EDIT"), otherwise a new
// one ("ADD") in the account, of the investment and of that day, of today without one; 0 leaves
// account or investment to the person.
struct InvestTransRequest {
  std::int64_t key = 0;
  std::int64_t accountId = 0;
  std::int64_t investmentId = 0;
  std::optional<Date> day{};
};

// The editor of the investment of that key, or of a new one for 0. One that is gone opens nothing
// and is reported as a change. With `goesOnToHistory` the price history of what was saved follows.
// Throws StoreError when it cannot be read, as the next does.
InvestResult OpenInvest(std::int64_t key, const InvestPlace& place, bool goesOnToHistory = false);
// The editor of investment transactions. Without any account, and on a row of a closed one, it says
// so and opens nothing; a row that is gone opens nothing and is reported as a change.
InvestResult OpenInvestTrans(const InvestTransRequest& request, const InvestPlace& place);

// The dialog for a split of shares, a merger or a spin-off. `investmentId` is the one it begins with;
// 0 for none. Throws StoreError when it cannot be read.
InvestResult OpenCorporateAction(std::int64_t investmentId, const InvestPlace& place);

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
// The watch list of quotes or of exchange rates.
void ShowWatchList(const InvestPlace& place, WatchMode mode);

// The stored prices of an investment. True when any was changed.
bool OpenHistory(const InvestPlace& place, std::int64_t investmentId);

// The exchange rates that were fetched or entered.
void ShowRates(const InvestPlace& place);

// Where prices and exchange rates come from: every dialog that fails to download leads here. The
// source of that key is chosen at first, for 0 the one that is asked for rates. True when any was
// changed.
bool OpenSources(const InvestPlace& place, std::int64_t dataId = 0);

}  // namespace corvanta::inline invest
