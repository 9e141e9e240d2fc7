#include "ledger/investments/TradeText.h"

#include "ledger/investments/InvestmentRecord.h"
#include "ledger/register/RegisterRow.h"
#include "platform/Decimal.h"
#include "platform/Locale.h"

namespace corvanta::inline ledger {
namespace {
constexpr int kMaxDecimals = 9;
}

std::string TradeText(const RegisterRow& row, const Locale& locale) {
  std::string text = ActionName(row.action);
  const auto figure = [&](double value, int least) {
    return locale.FormatNumber(value, NeededDecimals(value, least, kMaxDecimals));
  };
  if (text.empty() || row.shares == 0) return text;
  text += ' ' + figure(row.shares, 0);
  if (row.price != 0) text += " at " + figure(row.price, locale.DefaultDecimals());
  return text;
}

}  // namespace corvanta::inline ledger
