#include "invest/FrmCurrency.h"
#include "invest/FrmHistory.h"
#include "invest/FrmRates.h"
#include "invest/FrmSources.h"
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

void ShowRates(const InvestPlace& place) {
  FrmRates(place).exec();
}

bool OpenSources(const InvestPlace& place, std::int64_t dataId) {
  FrmSources form(place, dataId);
  form.exec();
  return form.IsChanged();
}

bool OpenHistory(const InvestPlace& place, std::int64_t investmentId) {
  FrmHistory form(place, investmentId);
  form.exec();
  return form.IsChanged();
}

}  // namespace corvanta::inline invest
