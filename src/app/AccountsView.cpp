#include "app/AccountsView.h"

#include "app/AccountsModel.h"
#include "app/QtText.h"
#include "app/TotalsLine.h"
#include "app/ViewHeader.h"
#include "controls/EmptyState.h"
#include "controls/ListTable.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "ledger/Money.h"
#include "platform/Locale.h"

#include <QAction>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <map>

namespace corvanta {
namespace {

std::vector<ListTable::Column> Columns(const Locale& locale, const QFontMetrics& metrics) {
  const auto text = [&](const QString& sample) {
    return metrics.horizontalAdvance(sample) + 3 * kRhythm;
  };
  const int money = TabularWidth(metrics, ToQt(locale.FormatNumber(-999999.99))) + 3 * kRhythm;
  std::vector<ListTable::Column> columns(AccountsModel::kColumns);
  columns[AccountsModel::kAccount] = {text(QStringLiteral("An account's name")), 4};
  columns[AccountsModel::kGroup] = {text(QStringLiteral("Investment Accounts")), 2};
  columns[AccountsModel::kBank] = {text(QStringLiteral("A bank's name")), 3};
  columns[AccountsModel::kNumber] = {text(QStringLiteral("1234567890")), 1};
  columns[AccountsModel::kCurrency] = {text(QStringLiteral("Currency")), 0};
  columns[AccountsModel::kOpening] = {std::max(money, text(QStringLiteral("Opening Balance"))), 0};
  columns[AccountsModel::kBalance] = {money, 0};
  return columns;
}

}  // namespace

AccountsView::AccountsView(const Locale& locale, QAction* emptyAction, QWidget* parent)
    : QWidget(parent),
      header_(new ViewHeader(this)),
      pages_(new QStackedWidget(this)),
      table_(new ListTable(this)),
      empty_(new EmptyState(this)),
      totals_(new TotalsLine(this)),
      model_(new AccountsModel(locale, this)),
      emptyAction_(emptyAction),
      locale_(locale) {
  table_->setObjectName(QStringLiteral("lvbalance"));
  table_->setAccessibleName(tr("Accounts"));
  table_->setAlternatingRowColors(true);
  table_->setModel(model_);
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
  connect(table_, &QAbstractItemView::activated, this, [this](const QModelIndex& index) {
    Q_EMIT AccountOpened(model_->Row(index.row()).accountId);
  });
}

void AccountsView::ShowAccounts(std::vector<AccountRow> accounts) {
  header_->Show(tr("Accounts"), tr("Open an account to see its register"));
  const auto count = static_cast<qulonglong>(accounts.size());
  totals_->Show(count == 1 ? tr("1 account") : tr("%1 accounts").arg(locale().toString(count)),
                Totals(accounts), false);
  totals_->setVisible(count > 0);
  if (count == 0) {
    empty_->Show(QStringLiteral("accounts"), tr("No accounts in this data file"),
                 tr("Everything begins with an account: the data file that is open holds none. "
                    "If yours is kept elsewhere, open it here."),
                 emptyAction_);
  }
  model_->SetRows(std::move(accounts));
  pages_->setCurrentIndex(count == 0 ? 1 : 0);
}

QString AccountsView::Totals(const std::vector<AccountRow>& accounts) const {
  std::map<QString, double> totals;
  for (const AccountRow& account : accounts) totals[ToQt(account.currency)] += account.balance;
  QStringList parts;
  for (const auto& [currency, total] : totals) {
    parts.append(QStringLiteral("Total (") + currency + QStringLiteral("): ") +
                 ToQt(locale_.FormatNumber(RoundMoney(total))));
  }
  return parts.join(QStringLiteral("    "));
}

QString AccountsView::Widths() const {
  return table_->Widths();
}
void AccountsView::SetWidths(const QString& widths) {
  table_->SetWidths(widths);
}

}  // namespace corvanta
