#pragma once

#include "ledger/clsCorvanta.h"

#include <QWidget>

#include <vector>

class QAction;
class QStackedWidget;

namespace corvanta {

class AccountsModel;
class EmptyState;
class ListTable;
class Locale;
class TotalsLine;
class ViewHeader;

// The view of "AccountShow": the accounts as a list, and what they come to in each currency.
class AccountsView : public QWidget {
  Q_OBJECT

 public:
  // `emptyAction` is what a data file without accounts offers.
  AccountsView(const Locale& locale, QAction* emptyAction, QWidget* parent);

  void ShowAccounts(std::vector<AccountRow> accounts);
  [[nodiscard]] QString Widths() const;
  void SetWidths(const QString& widths);

 Q_SIGNALS:
  void AccountOpened(qint64 accountId);  // a double click, or Enter

 private:
  [[nodiscard]] QString Totals(const std::vector<AccountRow>& accounts) const;

  ViewHeader* header_;
  QStackedWidget* pages_;
  ListTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  AccountsModel* model_;
  QAction* emptyAction_;
  const Locale& locale_;
};

}  // namespace corvanta
