#pragma once

#include "ledger/clsCorvanta.h"

#include <QSet>
#include <QTreeWidget>

#include <vector>

namespace corvanta {

class Locale;

// The accounts by group with their balances, and below each group its total per currency.
class AccountTree : public QTreeWidget {
  Q_OBJECT

 public:
  AccountTree(const Locale& locale, QWidget* parent);

  // Shows these accounts, which stand in the order of their groups; folded groups stay folded and
  // the chosen account stays chosen. Sends no signal.
  void SetAccounts(const std::vector<AccountRow>& accounts);
  // Chooses an account, or none for 0; sends no signal.
  void Choose(std::int64_t accountId);

 Q_SIGNALS:
  void AccountChosen(qint64 accountId);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QTreeWidgetItem* AddGroup(const AccountRow& first);
  void AddAccount(QTreeWidgetItem* group, const AccountRow& account);
  void AddTotal(QTreeWidgetItem* group, const QString& currency, double total);
  // The rows [begin, end) are one group.
  void FillGroup(const std::vector<AccountRow>& accounts, std::size_t begin, std::size_t end);
  void ColourItems();

  const Locale& locale_;
  QSet<qint64> folded_;
  qint64 chosen_ = 0;
};

}  // namespace corvanta
