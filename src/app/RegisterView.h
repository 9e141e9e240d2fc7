#pragma once

#include "app/RegisterDelegate.h"
#include "ledger/clsCorvanta.h"

#include <QSet>
#include <QWidget>

#include <vector>

class QAction;
class QStackedWidget;

namespace corvanta {

class EmptyState;
class ListTable;
class Locale;
class RegisterModel;
class TotalsLine;
class ViewHeader;

// The view of "TransactionShow": the register of one account, newest last.
class RegisterView : public QWidget {
  Q_OBJECT

 public:
  // `emptyAction` is what a register without rows offers.
  RegisterView(const Locale& locale, QAction* emptyAction, QWidget* parent);

  // Shows the register at its end. The rows stand in date order.
  void ShowAccount(const AccountRow& account, std::vector<RegisterRow> rows);
  // Shows instead of a register that no account is chosen.
  void ShowNoAccount();

  void SetColours(const ListColours& colours);
  void ShowOptionalColumns(bool description, bool reference, bool status);
  [[nodiscard]] QString Widths() const;
  void SetWidths(const QString& widths);

  // Chooses the rows of that day and brings them into view; without any, the place where they
  // would stand.
  void ChooseDay(Date day);
  // The days on which the register has rows.
  [[nodiscard]] QSet<QDate> Days() const;

 private:
  ViewHeader* header_;
  QStackedWidget* pages_;
  ListTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  RegisterModel* model_;
  RegisterDelegate* delegate_;
  QAction* emptyAction_;
  const Locale& locale_;
};

}  // namespace corvanta
