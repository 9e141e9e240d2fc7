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
  const Locale& own = place_.platform.locale;
  const auto days = [&own](Date from, Date to) {
    return tr("%1 to %2").arg(ToQt(own.FormatLongDate(from)), ToQt(own.FormatLongDate(to)));
  };
  if (report_.periods.size() > 1) {
    const Period& now = report_.periods[0];
    const Period& other = report_.periods[1];
    details.append(
        tr("%1, compared with %2").arg(days(now.from, now.to), days(other.from, other.to)));
  } else if (!report_.periods.empty()) {
    details.append(days(report_.periods[0].from, report_.periods[0].to));
  } else if (state_.dates) {
    details.append(days(state_.dates->start, state_.dates->end));
  } else {
    details.append(tr("All days"));
  }
  if (!state_.emptied.empty()) details.append(tr("what it is of is not in this data file"));
  return details.join(QStringLiteral("  ·  "));
}

// At which rates the figures were converted.
ViewSurroundings ReportsView::Surroundings() const {
  if (page_ == Page::List || !request_.converts) return {};
  QStringList rates;
  for (const ReportRate& rate : report_.rates) {
    // One that is not known leaves the amounts as they are.
    if (rate.rate == 1 || rate.currency == request_.currency) continue;
    rates.append(tr("1 %1 = %2 %3")
                     .arg(ToQt(rate.currency),
                          ToQt(place_.platform.locale.FormatNumber(rate.rate, 4)),
                          ToQt(request_.currency)));
  }
  return {0, {}, rates.join(QStringLiteral("  "))};
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
