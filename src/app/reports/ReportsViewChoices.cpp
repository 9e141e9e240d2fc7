// What a person chooses of a report, and what the view says about it.
#include "app/LedgerSession.h"
#include "app/reports/ReportBar.h"
#include "app/reports/ReportsView.h"
#include "controls/QtText.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "reports/budget/BudgetEditor.h"
#include "reports/print/ReportPrint.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline app {

void ReportsView::ShowChoices() {
  bar_->SetToday(place_.host.Today());
  FillCurrencies();
  bar_->Show(state_, PaymentNames());
  bar_->ShowCarries(CarriesBudgetOver(place_.platform.registry));
}

void ReportsView::FillCurrencies() {
  std::vector<std::string> first;
  for (const AccountRow& account : place_.host.Accounts()) first.push_back(account.currency);
  const std::string own = place_.platform.locale.CurrencyCode();
  first.push_back(own);
  bar_->SetCurrencies(place_.session.Ledger().References().Currencies(), first);
  if (state_.currency.empty()) state_.currency = own;
}

QString ReportsView::PaymentNames() const {
  if (state_.paymentTypes.empty()) return {};
  QStringList names;
  for (const PaymentRecord& payment : place_.session.Ledger().References().Payments()) {
    if (std::ranges::find(state_.paymentTypes, payment.paymentId) != state_.paymentTypes.end()) {
      names.append(ToQt(payment.payment));
    }
  }
  return names.isEmpty() ? tr("none that is left") : names.join(QStringLiteral(", "));
}

QString ReportsView::Details() const {
  QStringList details;
  if (!state_.definition.empty()) details.append(ToQt(state_.definition));
  std::vector<Period> periods = report_.periods;
  if (periods.empty() && state_.dates) periods = {{state_.dates->start, state_.dates->end}};
  details.append(ToQt(DaysText(periods, place_.platform.locale)));
  if (!state_.emptied.empty()) details.append(tr("what it is of is not in this data file"));
  return details.join(QString::fromUtf8(kBetweenDetails));
}

// At which rates the figures were converted.
ViewSurroundings ReportsView::Surroundings() const {
  if (page_ == Page::List) return {};
  return {0, {}, ToQt(RatesText(report_, place_.platform.locale))};
}

ViewCommand ReportsView::Base() const {
  const ViewCommand& shown = place_.host.Shown();
  ViewCommand command{kReportSelected};
  command.uncleared = shown.uncleared;
  command.cleared = shown.cleared;
  command.reconciled = shown.reconciled;
  command.rows = shown.rows;
  command.report = state_;
  bar_->Read(command.report);
  return command;
}

}  // namespace corvanta::inline app
