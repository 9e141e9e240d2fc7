#include "invest/FrmCurrency.h"
#include "invest/InvestDialogs.h"

namespace corvanta::inline invest {

std::optional<CurrencyResult> OpenCurrency(const InvestPlace& place, const std::string& currency,
                                           double amount) {
  FrmCurrency form(FrmCurrency::Use::TakeOver, place, currency);
  form.SetAmount(amount);
  form.exec();
  return form.Result();
}

void ShowCurrency(const InvestPlace& place, const std::string& currency) {
  FrmCurrency(FrmCurrency::Use::Tool, place, currency).exec();
}

}  // namespace corvanta::inline invest
