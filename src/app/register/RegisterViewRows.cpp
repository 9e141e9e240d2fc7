// The rows that the register shows, and what stands in their place where there are none.
#include "app/ViewHeader.h"
#include "app/filter/PeriodBar.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "app/register/TotalsLine.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/Balances.h"
#include "ledger/register/RegisterRows.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Locale.h"
#include "reports/print/ReportDialogs.h"

#include <QItemSelection>
#include <QScrollBar>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta::inline app {
namespace {

QString Details(const AccountRow& account) {
  QStringList parts;
  for (const std::string* part :
       {&account.accountType, &account.currency, &account.bank, &account.accountNo}) {
    if (!part->empty()) parts.append(ToQt(*part));
  }
  return parts.join(QStringLiteral("  ·  "));
}

}  // namespace

void RegisterView::ShowAccount(const AccountRow& account,
                               const std::shared_ptr<RegisterRows>& rows) {
  header_->Show(ToQt(AccountCaption(account)), Ahead(account, *rows) + Details(account));
  ShowRows({account}, rows);
}

void RegisterView::ShowFiltered(const std::vector<AccountRow>& accounts,
                                const std::shared_ptr<RegisterRows>& rows) {
  if (accounts.size() == 1) {
    header_->Show(ToQt(AccountCaption(accounts.front())), Details(accounts.front()));
  } else {
    QStringList names;
    for (const AccountRow& account : accounts) names.append(ToQt(AccountCaption(account)));
    header_->Show(tr("%1 Accounts").arg(locale().toString(static_cast<int>(accounts.size()))),
                  names.join(QStringLiteral("  ·  ")));
  }
  ShowRows(accounts, rows);
}

void RegisterView::ShowRows(const std::vector<AccountRow>& accounts,
                            const std::shared_ptr<RegisterRows>& rows) {
  PlacePeriod();
  ShowTotals(*rows);
  period_->show();
  std::map<std::int64_t, std::string> shown;
  for (const AccountRow& account : accounts) shown[account.accountId] = account.currency;
  const bool isSame = currencies_ == shown;
  currencies_ = std::move(shown);
  ShowAccountColumn(accounts.size() > 1);
  Fill(rows, isSame);
  if (rows->Count() == 0) ShowEmpty();
  ShowPage();
  Q_EMIT Shown();
}

void RegisterView::ShowPage() {
  QWidget* page = table_;
  if (IsEmpty()) page = empty_;
  if (covers_) page = cover_;
  pages_->setCurrentWidget(page);
  setFocusProxy(page);
  totals_->setVisible(!currencies_.empty() && !covers_);
}

void RegisterView::ShowTotals(const RegisterRows& rows) {
  const auto number = [this](std::size_t count) {
    return locale().toString(static_cast<qulonglong>(count));
  };
  const std::size_t count = rows.Count();
  const bool isFiltered = !rows.Scope().rows.IsEmpty();
  QString text = count == 1 ? tr("1 transaction") : tr("%1 transactions").arg(number(count));
  if (count != rows.CountUnfiltered()) {
    text = tr("%1 of %2 transactions").arg(number(count), number(rows.CountUnfiltered()));
  }
  // Figures of several currencies are no sum of any.
  if (isFiltered && count > 0 && !rows.Totals().balance) text += tr(", in several currencies");
  totals_->Show(text, rows.Totals(), locale_, isFiltered);
}

void RegisterView::ShowHidden(std::int64_t count, const StatusFilter& filter, bool isFiltered) {
  if (count == 0) return;
  const QString title = count == 1 ? tr("The one transaction is hidden")
                                   : tr("All %1 transactions are hidden")
                                         .arg(locale().toString(static_cast<qlonglong>(count)));
  empty_->Show(QStringLiteral("register"), title, FilterText(filter, isFiltered),
               offers_.everything);
}

QString RegisterView::FilterText(const StatusFilter& filter, bool isFiltered) const {
  QStringList parts;
  if (isFiltered) parts.append(tr("The filters above the list choose none of them."));
  if (const auto days = Period()) {
    parts.append(tr("The period above the list keeps to the days from %1 to %2.")
                     .arg(ToQt(locale_.FormatShortDate(days->start)),
                          ToQt(locale_.FormatShortDate(days->end))));
  }
  QStringList statuses;
  if (filter.uncleared) statuses.append(tr("uncleared"));
  if (filter.cleared) statuses.append(tr("cleared"));
  if (filter.reconciled) statuses.append(tr("reconciled"));
  if (statuses.size() == 1) {
    parts.append(tr("Of the statuses, the View menu shows only %1 funds.").arg(statuses[0]));
  } else if (statuses.size() == 2) {
    parts.append(tr("Of the statuses, the View menu shows only %1 and %2 funds.")
                     .arg(statuses[0], statuses[1]));
  }
  return parts.join(u' ');
}

void RegisterView::ShowEmpty() {
  empty_->Show(QStringLiteral("register"), tr("No transactions in this account yet"),
               tr("What is paid into the account and out of it will be listed here, the newest "
                  "last. Until then its balance is its opening balance."),
               offers_.add);
}

void RegisterView::Fill(std::shared_ptr<RegisterRows> rows, bool isSame) {
  const std::int64_t focused = isSame ? FocusedKey() : 0;
  const int place = table_->currentIndex().row();
  const int scrolled = table_->verticalScrollBar()->value();
  model_->SetRows(std::move(rows));
  WidenForFigures();
  const int count = model_->rowCount();
  if (count == 0) {
    Q_EMIT ChoiceChanged();
    return;
  }
  if (!isSame) {
    GoToToday();
  } else {
    table_->verticalScrollBar()->setValue(scrolled);
    const int row = std::clamp(place, 0, count - 1);
    if (focused == 0) {
      table_->selectionModel()->setCurrentIndex(model_->index(row, 0),
                                                QItemSelectionModel::NoUpdate);
    } else if (!ChooseKey(focused)) {
      table_->ChooseRow(row);
    }
  }
  Q_EMIT ChoiceChanged();
}

void RegisterView::ShowNoAccount() {
  header_->Show(tr("Register"), QString());
  totals_->hide();
  period_->hide();
  currencies_.clear();
  model_->SetRows(nullptr);
  empty_->Show(QStringLiteral("register"), tr("No account is chosen"),
               tr("Choose an account on the left to see what was paid into it and out of it."),
               offers_.accounts);
  ShowPage();
  Q_EMIT Shown();
}

QString RegisterView::Ahead(const AccountRow& account, RegisterRows& rows) const {
  const std::optional<LowestPoint> lowest = LowestAhead(rows, today_);
  if (!lowest) return {};
  return tr("Lowest ahead: %1 %2 on %3")
             .arg(ToQt(locale_.FormatNumber(lowest->balance)), ToQt(account.currency),
                  ToQt(locale_.FormatShortDate(lowest->day))) +
         QStringLiteral("  ·  ");
}

void RegisterView::GoToToday() {
  const int last = model_->rowCount() - 1;
  const SortState& sort = table_->Sorted();
  const bool isByDay = sort.column == RegisterModel::kDate;
  int row = isByDay && !sort.isDescending ? last : 0;
  const int step = row == 0 ? 1 : -1;
  while (isByDay && model_->IsAhead(row) && row + step >= 0 && row + step <= last) row += step;
  if (row == last) {
    table_->scrollToBottom();
  } else if (row == 0) {
    table_->scrollToTop();
  } else {
    table_->scrollTo(model_->index(row, 0), QAbstractItemView::PositionAtCenter);
  }
  table_->selectionModel()->setCurrentIndex(model_->index(row, 0), QItemSelectionModel::NoUpdate);
}

PrintTable RegisterView::Printed() const {
  PrintTable printed = PrintTableOf(*table_, FromQt(Title()));
  if (totals_->isVisibleTo(this)) printed.summaries = totals_->Printed();
  if (const auto days = Period()) {
    printed.subject = FromQt(tr("%1 to %2")
                                 .arg(ToQt(locale_.FormatLongDate(days->start)),
                                      ToQt(locale_.FormatLongDate(days->end))));
  }
  return printed;
}

}  // namespace corvanta::inline app
