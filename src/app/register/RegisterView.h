#pragma once

#include "app/register/RegisterDelegate.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/Period.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Settings.h"

#include <QSet>
#include <QWidget>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QAction;
class QBoxLayout;
class QPoint;
class QStackedWidget;

namespace corvanta::inline controls {
class EmptyState;
class SortedTable;
}  // namespace corvanta::inline controls

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline ledger {
class RegisterRows;
}

namespace corvanta::inline reports {
struct PrintTable;
}

namespace corvanta::inline app {

class ChosenTotals;
class FilterStrip;
class PeriodBar;
class RegisterModel;
class SearchBox;
class TotalsLine;
class ViewHeader;

// The view of "TransactionShow": the register of one account, or of what a filter has chosen of
// several, newest last.
class RegisterView : public QWidget {
  Q_OBJECT

 public:
  // What an empty register offers, a window without a chosen account, and one whose rows are all
  // hidden.
  struct Offers {
    QAction* add;
    QAction* accounts;
    QAction* everything;
  };
  RegisterView(const Locale& locale, const Offers& offers, QWidget* parent);

  // Shows the register at its end; the one already shown where it was, with the row chosen again
  // that had the focus.
  // Throws StoreError.
  void ShowAccount(const AccountRow& account, const std::shared_ptr<RegisterRows>& rows);
  // The same of the rows of these accounts, one or several, that a filter has chosen.
  void ShowFiltered(const std::vector<AccountRow>& accounts,
                    const std::shared_ptr<RegisterRows>& rows);
  // Says, in place of a register without rows, that filters hide those that the account has. The
  // days are those of Period().
  void ShowHidden(std::int64_t count, const StatusFilter& filter, bool isFiltered);
  // Shows instead of a register that no account is chosen.
  void ShowNoAccount();

  // Lets the rows go: their data file is about to be closed.
  void LetGo();

  // Rows after it are still to come.
  void SetToday(Date today);
  void SetColours(const ListColours& colours);
  void ShowOptionalColumns(bool description, bool reference, bool status);
  [[nodiscard]] SortedTable& Table() const { return *table_; }
  // The widths set by hand, of the columns that there always are.
  [[nodiscard]] QString Widths() const;
  [[nodiscard]] FilterStrip& Strip() const { return *strip_; }
  [[nodiscard]] RegisterModel& Model() const { return *model_; }
  // What the chosen rows come to.
  [[nodiscard]] ChosenTotals Totals() const;

  // The period that the person asks for; the account's rows are the caller's to read.
  [[nodiscard]] std::optional<DateRange> Period() const;
  [[nodiscard]] DateRange Dates() const;
  void SetDates(const DateRange& dates);
  void SetPeriod(const std::optional<DateRange>& period);

  [[nodiscard]] SearchBox& Search() const;
  // A list that may stand in the place of the register, whose rows nobody can choose meanwhile.
  void SetCover(QWidget* cover);
  void Cover(bool covers);
  [[nodiscard]] bool IsCovered() const;
  // All rows from the first to the last.
  [[nodiscard]] std::vector<std::int64_t> ShownKeys() const;
  // The chosen rows from the first to the last.
  [[nodiscard]] std::vector<std::int64_t> ChosenKeys() const;
  // The chosen row that has the focus, or else the first chosen one; 0 when none is chosen.
  [[nodiscard]] std::int64_t FocusedKey() const;
  // Whether it is a split row among those that are shown.
  [[nodiscard]] bool IsSplit(std::int64_t transactionId) const;
  // Chooses that row alone and brings it into view. False when it is not shown.
  bool ChooseKey(std::int64_t transactionId);
  // The chosen rows as text with headings.
  [[nodiscard]] QString ChosenText() const;
  [[nodiscard]] bool IsEmpty() const;
  // What stands above the list: the account's name.
  [[nodiscard]] QString Title() const;
  // With the figures below it.
  [[nodiscard]] PrintTable Printed() const;

  // Chooses the rows of that day and brings them into view; without any, the place where they
  // would stand.
  void ChooseDay(Date day);
  // The days on which the register has rows, as far as it is read.
  [[nodiscard]] QSet<QDate> Days() const;
  // Whether the register is not read to its end yet.
  [[nodiscard]] bool IsReading() const;

 Q_SIGNALS:
  void PeriodChanged();
  void ChoiceChanged();
  void Shown();                             // other rows than before, or the same read anew
  void Opened(std::int64_t transactionId);  // a double click, or Enter
  void MenuRequested(QPoint place);         // on the screen
  void DaysRead();                          // Days() knows all of them now
  void Outdated();                          // the register must be shown anew
  void Failed(const QString& reason);       // the data file refuses to be read

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Connect();
  void PlacePeriod();
  void RequestMenu(QPoint place);
  void ShowEmpty();
  [[nodiscard]] QString FilterText(const StatusFilter& filter, bool isFiltered) const;
  void ShowRows(const std::vector<AccountRow>& accounts, const std::shared_ptr<RegisterRows>& rows);
  void ShowTotals(const RegisterRows& rows);
  // The account of each row is said where they are of several.
  void ShowAccountColumn(bool show);
  // The register, what stands in its place while it is empty, or what covers it.
  void ShowPage();
  // Says where the balance is lowest among the rows still to come; empty without any.
  [[nodiscard]] QString Ahead(const AccountRow& account, RegisterRows& rows) const;
  void Fill(std::shared_ptr<RegisterRows> rows, bool isSame);
  // No figure of the list is wider than its column.
  void WidenForFigures();
  // A register is opened at today, where the last rows are unless some are still to come.
  void GoToToday();
  [[nodiscard]] std::vector<int> ChosenRows() const;

  QBoxLayout* head_;
  ViewHeader* header_;
  PeriodBar* period_;
  FilterStrip* strip_;
  QStackedWidget* pages_;
  SortedTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  QWidget* cover_ = nullptr;
  bool covers_ = false;
  RegisterModel* model_;
  RegisterDelegate* delegate_;
  Offers offers_;
  const Locale& locale_;
  std::map<std::int64_t, std::string> currencies_;  // of the accounts that are shown
  Date today_;
};

}  // namespace corvanta::inline app
