#include "app/RegisterView.h"

#include "app/QtText.h"
#include "app/RegisterModel.h"
#include "app/TotalsLine.h"
#include "app/ViewHeader.h"
#include "controls/EmptyState.h"
#include "controls/ListTable.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "platform/Locale.h"

#include <QAction>
#include <QItemSelection>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace corvanta {
namespace {

// Widths from what the locale writes, so that no date or amount is cut.
std::vector<ListTable::Column> Columns(const Locale& locale, const QFontMetrics& metrics) {
  const auto text = [&](const QString& sample) {
    return metrics.horizontalAdvance(sample) + 2 * kRhythm + kRhythm / 2;
  };
  const Date longDate = *Date::FromYmd(2028, 12, 28);
  const int date = text(ToQt(locale.FormatShortDate(longDate))) + kRhythm;
  const int money = TabularWidth(metrics, ToQt(locale.FormatNumber(-99999.99))) + 2 * kRhythm;
  std::vector<ListTable::Column> columns(RegisterModel::kColumns);
  columns[RegisterModel::kDate] = {date + kRhythm, 0};
  columns[RegisterModel::kPayee] = {text(QStringLiteral("A name of usual size")), 4};
  columns[RegisterModel::kCategory] = {text(QStringLiteral("Category:Sub-category xx")), 4};
  columns[RegisterModel::kPayment] = {text(QStringLiteral("Direct Debit")), 1};
  columns[RegisterModel::kRef] = {text(QStringLiteral("123456")), 0};
  columns[RegisterModel::kDescription] = {text(QStringLiteral("Description")), 3};
  columns[RegisterModel::kStatus] = {text(QStringLiteral("Status")), 0};
  columns[RegisterModel::kPaidOut] = {money, 0};
  columns[RegisterModel::kPaidIn] = {money, 0};
  columns[RegisterModel::kBalance] = {money + 2 * kRhythm, 0};
  return columns;
}

QString Details(const AccountRow& account) {
  QStringList parts;
  for (const std::string* part :
       {&account.accountType, &account.currency, &account.bank, &account.accountNo}) {
    if (!part->empty()) parts.append(ToQt(*part));
  }
  return parts.join(QStringLiteral("  ·  "));
}

}  // namespace

RegisterView::RegisterView(const Locale& locale, QAction* emptyAction, QWidget* parent)
    : QWidget(parent),
      header_(new ViewHeader(this)),
      pages_(new QStackedWidget(this)),
      table_(new ListTable(this)),
      empty_(new EmptyState(this)),
      totals_(new TotalsLine(this)),
      model_(new RegisterModel(locale, this)),
      delegate_(new RegisterDelegate(this)),
      emptyAction_(emptyAction),
      locale_(locale) {
  table_->setObjectName(QStringLiteral("lvbank"));
  table_->setAccessibleName(tr("Register"));
  table_->setModel(model_);
  table_->setItemDelegate(delegate_);
  table_->SetColumns(Columns(locale, fontMetrics()));
  pages_->addWidget(table_);
  pages_->addWidget(empty_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(pages_, 1);
  column->addWidget(totals_);
  setFocusProxy(table_);
}

void RegisterView::ShowAccount(const AccountRow& account, std::vector<RegisterRow> rows) {
  QString title = ToQt(account.account);
  if (account.closed) title += QStringLiteral(" [Closed] ");
  header_->Show(title, Details(account));
  const double balance = rows.empty() ? account.balance : rows.back().balance;
  const std::size_t count = rows.size();
  totals_->Show(count == 1
                    ? tr("1 transaction")
                    : tr("%1 transactions").arg(locale().toString(static_cast<qulonglong>(count))),
                tr("Balance: ") + ToQt(locale_.FormatNumber(balance)), balance < 0);
  totals_->show();
  model_->SetRows(std::move(rows));
  if (count == 0) {
    empty_->Show(QStringLiteral("register"), tr("No transactions in this account yet"),
                 tr("What is paid into the account and out of it will be listed here, the newest "
                    "last. Until then its balance is its opening balance."),
                 emptyAction_);
  }
  pages_->setCurrentIndex(count == 0 ? 1 : 0);
  table_->scrollToBottom();
  if (count > 0) {
    table_->selectionModel()->setCurrentIndex(model_->index(model_->rowCount() - 1, 0),
                                              QItemSelectionModel::NoUpdate);
  }
}

void RegisterView::ShowNoAccount() {
  header_->Show(tr("Register"), QString());
  totals_->hide();
  model_->SetRows({});
  empty_->Show(QStringLiteral("register"), tr("No account is chosen"),
               tr("Choose an account on the left to see what was paid into it and out of it."),
               emptyAction_);
  pages_->setCurrentIndex(1);
}

void RegisterView::SetColours(const ListColours& colours) {
  delegate_->SetColours(colours);
  table_->viewport()->update();
}

void RegisterView::ShowOptionalColumns(bool description, bool reference, bool status) {
  table_->ShowColumn(RegisterModel::kDescription, description);
  table_->ShowColumn(RegisterModel::kRef, reference);
  table_->ShowColumn(RegisterModel::kStatus, status);
}

QString RegisterView::Widths() const {
  return table_->Widths();
}
void RegisterView::SetWidths(const QString& widths) {
  table_->SetWidths(widths);
}

void RegisterView::ChooseDay(Date day) {
  const int first = model_->FirstRowFrom(day);
  const int end = model_->FirstRowFrom(day.AddDays(1));
  table_->clearSelection();
  if (model_->rowCount() == 0) return;
  const int shown = std::min(first, model_->rowCount() - 1);
  table_->scrollTo(model_->index(shown, 0), QAbstractItemView::PositionAtCenter);
  if (first == end) return;
  table_->selectionModel()->setCurrentIndex(model_->index(first, 0), QItemSelectionModel::NoUpdate);
  table_->selectionModel()->select(
      QItemSelection(model_->index(first, 0), model_->index(end - 1, 0)),
      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QSet<QDate> RegisterView::Days() const {
  QSet<QDate> days;
  Date last;
  for (int row = 0; row < model_->rowCount(); ++row) {
    const Date date = model_->Row(row).date;
    if (row == 0 || date != last) days.insert(ToQt(date));
    last = date;
  }
  return days;
}

}  // namespace corvanta
