#pragma once

#include "app/RegisterDelegate.h"
#include "ledger/clsCorvanta.h"
#include "platform/Settings.h"

#include <QSet>
#include <QWidget>

#include <optional>
#include <vector>

class QAction;
class QPoint;
class QStackedWidget;

namespace corvanta {

class EmptyState;
class Locale;
class PeriodBar;
class RegisterModel;
class SortedTable;
class TotalsLine;
class ViewHeader;
struct PeriodTotals;

// The view of "TransactionShow": the register of one account, newest last.
class RegisterView : public QWidget {
  Q_OBJECT

 public:
  // What an empty register offers, and what a window without a chosen account does.
  struct Offers {
    QAction* add;
    QAction* accounts;
  };
  RegisterView(const Locale& locale, const Offers& offers, QWidget* parent);

  // Shows the register at its end; the one already shown where it was, with the row chosen again
  // that had the focus. The rows stand in date order.
  void ShowAccount(const AccountRow& account, std::vector<RegisterRow> rows,
                   const PeriodTotals& totals);
  // Shows instead of a register that no account is chosen.
  void ShowNoAccount();

  // Rows after it are still to come.
  void SetToday(Date today);
  void SetColours(const ListColours& colours);
  void ShowOptionalColumns(bool description, bool reference, bool status);
  [[nodiscard]] SortedTable& Table() const { return *table_; }
  [[nodiscard]] QString Widths() const;
  void SetWidths(const QString& widths);

  // The period that the person asks for; the account's rows are the caller's to read.
  [[nodiscard]] std::optional<DateRange> Period() const;
  [[nodiscard]] DateRange Dates() const;
  void SetDates(const DateRange& dates);
  void SetPeriod(const std::optional<DateRange>& period);

  // All rows from the first to the last.
  [[nodiscard]] std::vector<std::int64_t> ShownKeys() const;
  // The chosen rows from the first to the last.
  [[nodiscard]] std::vector<std::int64_t> ChosenKeys() const;
  // The chosen row that has the focus, or else the first chosen one; 0 when none is chosen.
  [[nodiscard]] std::int64_t FocusedKey() const;
  // Chooses that row alone and brings it into view. False when it is not shown.
  bool ChooseKey(std::int64_t transactionId);
  // The chosen rows as lines of cells with tabs between them.
  [[nodiscard]] QString ChosenText() const;
  [[nodiscard]] bool IsEmpty() const;
  // What stands above the list: the account's name.
  [[nodiscard]] QString Title() const;

  // Chooses the rows of that day and brings them into view; without any, the place where they
  // would stand.
  void ChooseDay(Date day);
  // The days on which the register has rows.
  [[nodiscard]] QSet<QDate> Days() const;

 Q_SIGNALS:
  void PeriodChanged();
  void ChoiceChanged();
  void Opened(std::int64_t transactionId);  // a double click, or Enter
  void MenuRequested(QPoint place);         // on the screen

 private:
  void Connect();
  void RequestMenu(QPoint place);
  void ShowEmpty(const AccountRow& account);
  // Says where the balance is lowest among the rows still to come; empty without any.
  [[nodiscard]] QString Ahead(const AccountRow& account,
                              const std::vector<RegisterRow>& rows) const;
  void Fill(std::vector<RegisterRow> rows, bool isSame);
  // A register is opened at today, where the last rows are unless some are still to come.
  void GoToToday();
  [[nodiscard]] std::vector<int> ChosenRows() const;

  ViewHeader* header_;
  PeriodBar* period_;
  QStackedWidget* pages_;
  SortedTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  RegisterModel* model_;
  RegisterDelegate* delegate_;
  Offers offers_;
  const Locale& locale_;
  std::int64_t accountId_ = 0;
  Date today_;
};

}  // namespace corvanta
