#pragma once

#include "ledger/accounts/AccountRow.h"

#include <QSet>
#include <QTreeWidget>

#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {
struct AccountGroupBalances;
struct CurrencyTotal;
}  // namespace corvanta::inline ledger

namespace corvanta::inline app {

// The accounts by group with their balances, and below each group its total per currency.
class AccountTree : public QTreeWidget {
  Q_OBJECT

 public:
  AccountTree(const Locale& locale, QWidget* parent);

  // Shows these accounts, which stand in the order of their groups; folded groups stay folded and
  // the chosen account stays chosen. Sends no signal.
  void SetAccounts(const std::vector<AccountRow>& accounts);
  // Whether accounts stand with their numbers, from the next SetAccounts on.
  void ShowNumbers(bool show) { showsNumbers_ = show; }
  // The account that the item stands for; 0 for a group, a total and no item.
  [[nodiscard]] static qint64 AccountOf(const QTreeWidgetItem* item);
  // Chooses an account, or none for 0; sends no signal.
  void Choose(std::int64_t accountId);
  // The width, in pixels, at which no name and no balance in sight is cut.
  [[nodiscard]] int WantedWidth() const;

 Q_SIGNALS:
  void AccountChosen(qint64 accountId);
  // By a click or Enter: what is pressed next is meant for the account's register.
  void AccountOpened(qint64 accountId);

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  // The keys may pass over a group, which chooses nothing.
  [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(
      const QModelIndex& index, const QEvent* event) const override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QTreeWidgetItem* AddGroup(const AccountGroupBalances& balances);
  void AddAccount(QTreeWidgetItem* group, const AccountRow& account);
  void AddTotal(QTreeWidgetItem* group, const CurrencyTotal& total);
  void FillGroup(const AccountGroupBalances& balances);
  void ColourItems();
  // A balance gives way before its account's name is gone.
  void ShareWidth();

  const Locale& locale_;
  QSet<qint64> folded_;
  qint64 chosen_ = 0;
  bool showsNumbers_ = false;
};

}  // namespace corvanta::inline app
