#include "app/AccountTree.h"

#include "app/QtText.h"
#include "controls/AmountDelegate.h"
#include "controls/Style.h"
#include "ledger/Money.h"
#include "platform/Locale.h"

#include <QEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include <map>

namespace corvanta {
namespace {

constexpr int kName = 0;
constexpr int kAmount = 1;
constexpr int kAccountRole = Qt::UserRole;     // on an account
constexpr int kGroupRole = Qt::UserRole + 1;   // on a group
constexpr int kAmountRole = Qt::UserRole + 2;  // the number behind a shown amount

}  // namespace

AccountTree::AccountTree(const Locale& locale, QWidget* parent)
    : QTreeWidget(parent), locale_(locale) {
  setObjectName(QStringLiteral("tvAccounts"));
  setAccessibleName(tr("Accounts"));
  setColumnCount(2);
  setHeaderLabels({tr("Account"), tr("Balance")});
  setHeaderHidden(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(kName, QHeaderView::Stretch);
  header()->setSectionResizeMode(kAmount, QHeaderView::ResizeToContents);
  setItemDelegateForColumn(kAmount, new AmountDelegate(this));
  setUniformRowHeights(true);
  setIndentation(2 * kRhythm);
  setFrameShape(NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  setAllColumnsShowFocus(true);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    const qint64 account = item == nullptr ? 0 : item->data(kName, kAccountRole).toLongLong();
    if (account == 0 || account == chosen_) return;
    chosen_ = account;
    Q_EMIT AccountChosen(account);
  });
  // Coming back from another view, the account that is still chosen is pressed again.
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    const qint64 account = item->data(kName, kAccountRole).toLongLong();
    if (account != 0) Q_EMIT AccountChosen(account);
  });
  connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
    folded_.insert(item->data(kName, kGroupRole).toLongLong());
  });
  connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
    folded_.remove(item->data(kName, kGroupRole).toLongLong());
  });
}

void AccountTree::SetAccounts(const std::vector<AccountRow>& accounts) {
  const QSignalBlocker quiet(this);
  clear();
  for (std::size_t begin = 0; begin < accounts.size();) {
    std::size_t end = begin + 1;
    while (end < accounts.size() && accounts[end].accountTypeId == accounts[begin].accountTypeId) {
      ++end;
    }
    FillGroup(accounts, begin, end);
    begin = end;
  }
  ColourItems();
  Choose(chosen_);
}

void AccountTree::FillGroup(const std::vector<AccountRow>& accounts, std::size_t begin,
                            std::size_t end) {
  QTreeWidgetItem* group = AddGroup(accounts[begin]);
  std::map<QString, double> totals;
  for (std::size_t index = begin; index < end; ++index) {
    AddAccount(group, accounts[index]);
    totals[ToQt(accounts[index].currency)] += accounts[index].balance;
  }
  for (const auto& [currency, total] : totals) AddTotal(group, currency, RoundMoney(total));
  group->setExpanded(!folded_.contains(accounts[begin].accountTypeId));
}

QTreeWidgetItem* AccountTree::AddGroup(const AccountRow& first) {
  const QString name = first.accountType.empty() ? tr("Other Accounts") : ToQt(first.accountType);
  auto* group = new QTreeWidgetItem(this, {name, QString()});
  group->setData(kName, kGroupRole, QVariant::fromValue<qint64>(first.accountTypeId));
  group->setFont(kName, ScaledFont(0, QFont::DemiBold));
  group->setSizeHint(kName, QSize(0, fontMetrics().height() + kRhythm + 2));
  group->setFlags(Qt::ItemIsEnabled);
  group->setFirstColumnSpanned(true);
  return group;
}

void AccountTree::AddAccount(QTreeWidgetItem* group, const AccountRow& account) {
  QString name = ToQt(account.account);
  if (account.closed) name += QStringLiteral(" [Closed] ");
  auto* item = new QTreeWidgetItem(group, {name, ToQt(locale_.FormatNumber(account.balance))});
  item->setData(kName, kAccountRole, QVariant::fromValue<qint64>(account.accountId));
  item->setData(kAmount, kAmountRole, account.balance);
  QString tip = ToQt(account.account);
  for (const std::string* part : {&account.bank, &account.accountNo, &account.description}) {
    if (!part->empty()) tip += u'\n' + ToQt(*part);
  }
  item->setToolTip(kName, tip);
  item->setToolTip(kAmount, item->text(kAmount) + u' ' + ToQt(account.currency));
}

void AccountTree::AddTotal(QTreeWidgetItem* group, const QString& currency, double total) {
  auto* item = new QTreeWidgetItem(
      group, {QStringLiteral("Total (") + currency + u')', ToQt(locale_.FormatNumber(total))});
  item->setData(kAmount, kAmountRole, total);
  item->setFont(kAmount, ScaledFont(0, QFont::DemiBold));
  item->setFlags(Qt::ItemIsEnabled);
}

void AccountTree::ColourItems() {
  for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
    QTreeWidgetItem* item = *it;
    const bool isAccount = item->data(kName, kAccountRole).toLongLong() != 0;
    if (item->parent() != nullptr && !isAccount) item->setForeground(kName, MutedText(palette()));
    if (item->data(kAmount, kAmountRole).toDouble() < 0) {
      item->setForeground(kAmount, MoneyOutColour(palette()));
    }
  }
}

void AccountTree::Choose(std::int64_t accountId) {
  const QSignalBlocker quiet(this);
  chosen_ = accountId;
  for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
    if (accountId != 0 && (*it)->data(kName, kAccountRole).toLongLong() == accountId) {
      setCurrentItem(*it);
      return;
    }
  }
  clearSelection();
}

void AccountTree::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) ColourItems();
  QTreeWidget::changeEvent(event);
}

}  // namespace corvanta
