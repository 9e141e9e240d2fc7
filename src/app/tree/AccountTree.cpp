#include "app/tree/AccountTree.h"

#include "controls/AmountDelegate.h"
#include "controls/ListDelegate.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/register/Balances.h"
#include "platform/Locale.h"

#include <QEvent>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace corvanta::inline app {
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
  header()->setSectionResizeMode(kAmount, QHeaderView::Fixed);
  header()->setMinimumSectionSize(0);
  setItemDelegateForColumn(kAmount, new AmountDelegate(this));
  setUniformRowHeights(true);
  setIndentation(2 * kRhythm);
  setFrameShape(NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  setAllColumnsShowFocus(true);
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    const qint64 account = AccountOf(item);
    if (account == 0 || account == chosen_) return;
    chosen_ = account;
    Q_EMIT AccountChosen(account);
  });
  const auto open = [this](QTreeWidgetItem* item) {
    const qint64 account = AccountOf(item);
    if (account != 0) Q_EMIT AccountOpened(account);
  };
  connect(this, &QTreeWidget::itemClicked, this, open);
  connect(this, &QTreeWidget::itemActivated, this, open);
  connect(this, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
    folded_.insert(item->data(kName, kGroupRole).toLongLong());
    ShareWidth();
  });
  connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
    folded_.remove(item->data(kName, kGroupRole).toLongLong());
    ShareWidth();
  });
}

qint64 AccountTree::AccountOf(const QTreeWidgetItem* item) {
  return item == nullptr ? 0 : item->data(kName, kAccountRole).toLongLong();
}

void AccountTree::SetAccounts(const std::vector<AccountRow>& accounts) {
  const QSignalBlocker quiet(this);
  clear();
  for (const AccountGroupBalances& group : ByGroup(accounts)) FillGroup(group);
  ColourItems();
  Choose(chosen_);
  ShareWidth();
}

void AccountTree::ShareWidth() {
  const int name = 2 * indentation() + fontMetrics().horizontalAdvance(QStringLiteral("Abc..."));
  const int room = viewport()->width();
  header()->resizeSection(kAmount,
                          std::min(sizeHintForColumn(kAmount), std::max(room - name, room / 3)));
}

int AccountTree::WantedWidth() const {
  const int beside = width() - viewport()->width();
  return sizeHintForColumn(kName) + sizeHintForColumn(kAmount) + beside;
}

void AccountTree::resizeEvent(QResizeEvent* event) {
  QTreeWidget::resizeEvent(event);
  ShareWidth();
}

void AccountTree::FillGroup(const AccountGroupBalances& balances) {
  QTreeWidgetItem* group = AddGroup(balances);
  for (const AccountRow& account : balances.accounts) AddAccount(group, account);
  for (const CurrencyTotal& total : balances.totals) AddTotal(group, total);
  group->setExpanded(!folded_.contains(balances.accountTypeId));
}

QTreeWidgetItem* AccountTree::AddGroup(const AccountGroupBalances& balances) {
  const QString name =
      balances.accountType.empty() ? tr("Other Accounts") : ToQt(balances.accountType);
  auto* group = new QTreeWidgetItem(this, {name, QString()});
  group->setData(kName, kGroupRole, QVariant::fromValue<qint64>(balances.accountTypeId));
  group->setFont(kName, ScaledFont(0, QFont::DemiBold));
  group->setSizeHint(kName, QSize(0, fontMetrics().height() + kRhythm + 2));
  group->setFlags(Qt::ItemIsEnabled);
  group->setFirstColumnSpanned(true);
  return group;
}

void AccountTree::AddAccount(QTreeWidgetItem* group, const AccountRow& account) {
  QString name = ToQt(AccountCaption(account));
  if (showsNumbers_ && !account.accountNo.empty()) {
    name += QStringLiteral(" (") + ToQt(account.accountNo) + u')';
  }
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

void AccountTree::AddTotal(QTreeWidgetItem* group, const CurrencyTotal& total) {
  auto* item =
      new QTreeWidgetItem(group, {ToQt(total.Caption()), ToQt(locale_.FormatNumber(total.total))});
  item->setData(kAmount, kAmountRole, total.total);
  for (const int column : {kName, kAmount}) {
    item->setToolTip(column, item->text(kName) + QStringLiteral(": ") + item->text(kAmount));
  }
  item->setFont(kAmount, ScaledFont(0, QFont::DemiBold));
  // Neither the keys nor the mouse stop at it.
  item->setFlags(Qt::NoItemFlags);
}

void AccountTree::ColourItems() {
  for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
    QTreeWidgetItem* item = *it;
    const bool isAccount = AccountOf(item) != 0;
    if (item->parent() != nullptr && !isAccount) {
      item->setForeground(kName, MutedText(palette()));
      item->setForeground(kAmount, palette().color(QPalette::Active, QPalette::Text));
    }
    if (item->data(kAmount, kAmountRole).toDouble() < 0) {
      item->setForeground(kAmount, MoneyOutColour(palette()));
    }
  }
}

void AccountTree::Choose(std::int64_t accountId) {
  const QSignalBlocker quiet(this);
  chosen_ = accountId;
  for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
    if (accountId != 0 && AccountOf(*it) == accountId) {
      setCurrentItem(*it);
      return;
    }
  }
  clearSelection();
}

void AccountTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  MuteSelection(row);
  QTreeWidget::drawRow(painter, row, index);
}

QItemSelectionModel::SelectionFlags AccountTree::selectionCommand(const QModelIndex& index,
                                                                  const QEvent* event) const {
  const bool isAccount = (index.flags() & Qt::ItemIsSelectable) != 0;
  return isAccount ? QTreeWidget::selectionCommand(index, event) : QItemSelectionModel::NoUpdate;
}

void AccountTree::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) ColourItems();
  QTreeWidget::changeEvent(event);
}

}  // namespace corvanta::inline app
