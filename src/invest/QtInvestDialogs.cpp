#include "invest/FrmInvest.h"
#include "invest/FrmInvestTrans.h"
#include "invest/InvestDialogs.h"
#include "invest/holdings/FrmCorporateAction.h"
#include "invest/prices/FrmHistory.h"
#include "invest/prices/FrmSources.h"
#include "invest/prices/FrmStock.h"
#include "invest/rates/FrmCurrency.h"
#include "invest/rates/FrmRates.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace corvanta::inline invest {

InvestResult OpenCorporateAction(std::int64_t investmentId, const InvestPlace& place) {
  FrmCorporateAction form(investmentId, place);
  form.exec();
  return {form.IsChanged(), 0};
}

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

InvestResult OpenInvest(std::int64_t key, const InvestPlace& place, bool goesOnToHistory) {
  FrmInvest form(place, goesOnToHistory);
  if (!form.Open(key)) return {true, 0};
  form.exec();
  return {form.IsChanged(), form.SavedKey()};
}

InvestResult OpenInvestTrans(const InvestTransRequest& request, const InvestPlace& place) {
  FrmInvestTrans form(request, place);
  if (const auto warning = form.Editor().CheckOpen(request.key)) {
    place.platform.prompts.Tell(warning->title, warning->text);
    return {};
  }
  if (!form.Open(request.key)) return {true, 0};
  form.exec();
  return {form.IsChanged(), form.SavedKey()};
}

void ShowWatchList(const InvestPlace& place, WatchMode mode) {
  FrmStock(mode, place).exec();
}

}  // namespace corvanta::inline invest
