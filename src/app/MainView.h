#pragma once

#include "app/lists/ChosenTotals.h"
#include "platform/Date.h"

#include <QDate>
#include <QSet>
#include <QString>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

class QAction;
class QWidget;

namespace corvanta::inline platform {
class Locale;
class Registry;
struct SpreadsheetTable;
}  // namespace corvanta::inline platform

namespace corvanta::inline controls {
class SortedTable;
}

namespace corvanta::inline reports {
struct PrintTable;
}

namespace corvanta::inline app {

class FilterStrip;
class SearchBox;
struct ViewCommand;

// The commands of the Edit menu, which stand for something else in each view.
enum class EditTask { Insert, Details, Copy, Paste, Delete, SelectAll };

// What the window shows around a view.
struct ViewSurroundings {
  std::int64_t accountId = 0;  // chosen in the tree; 0 for none
  QSet<QDate> days;            // marked in the calendar
  QString status;              // in the status bar; empty for nothing
};

// One view of the main window with the commands that are its own. The window shows one at a time
// and asks it; what a view asks of the window is ViewHost. MainViews.cpp lists them all.
//
// What reads or writes the data file throws StoreError.
class MainView {
 public:
  virtual ~MainView() = default;

  // The command that shows it ("PayeeShow"), and its entry in the View menu.
  [[nodiscard]] virtual std::string_view Name() const = 0;
  // Whether that command shows it; a view may have several.
  [[nodiscard]] virtual bool Answers(std::string_view command) const { return command == Name(); }
  [[nodiscard]] virtual QAction* Entry() const = 0;
  [[nodiscard]] virtual QWidget* Widget() = 0;
  [[nodiscard]] virtual QString Title() const = 0;
  // What adds an item of the kind that it lists; null for a view that lists none.
  [[nodiscard]] virtual QAction* AddCommand() const = 0;
  // Its list, whose columns are sorted and widened from the View menu; null for a view without.
  [[nodiscard]] virtual SortedTable* Table() const = 0;
  // The line over its list that says what the filter of the window hides; null for a view whose
  // rows the filter leaves alone.
  [[nodiscard]] virtual FilterStrip* Strip() const { return nullptr; }
  // The box in its head; null for a view that cannot be searched.
  [[nodiscard]] virtual SearchBox* Search() const { return nullptr; }
  // Shows its own rows, where those that were found elsewhere stand in their place.
  virtual void ShowOwn() {}
  // Whether it is read again while a dialog before it stays open: not where that asks the network.
  [[nodiscard]] virtual bool FollowsDialogs() const { return true; }
  // Whether it shows the rows of one account, which its command names.
  [[nodiscard]] virtual bool IsOfAccount() const { return false; }

  // --- Showing

  // Shows what the command asks for, read anew. The widget is in front already.
  virtual void Show(const ViewCommand& command) = 0;
  // Puts the filter that the view honours, as the person has chosen it there, into a command of
  // it: what going back brings again. The ticks of the View menu are in it already.
  virtual void Remember(ViewCommand& /*command*/) const {}
  [[nodiscard]] virtual ViewSurroundings Surroundings() const { return {}; }
  // The window has read the accounts and their balances, whatever view is in front.
  virtual void ApplyAccounts() {}
  // What it keeps in order to be shown sooner is to be read anew.
  virtual void Forget() {}
  // The data file is about to be closed: no rows of it may be held any longer.
  virtual void LetGo() {}
  // Settings that a person can change while the window stands, or the palette, are others.
  virtual void ApplySettings() {}
  // How it is found again as it was left: from the settings, and into their values.
  virtual void Restore(const Registry& registry) = 0;
  virtual void Keep(std::map<std::string, std::string>& values) const = 0;

  // --- Commands

  // Whether the choice as it stands allows that. Asked of the view in front alone, as is Do().
  [[nodiscard]] virtual bool Can(EditTask task) const = 0;
  virtual void Do(EditTask task) = 0;
  // Enables and ticks the commands that are its own. Asked of all views whenever a choice changes.
  virtual void MarkCommands(bool isShown) = 0;
  // The account that commands on accounts are about; 0 for none.
  [[nodiscard]] virtual std::int64_t ChosenAccount() const { return 0; }
  [[nodiscard]] virtual PrintTable Printed() const = 0;
  // The same for a spreadsheet, by the locale whose numbers and days it shows.
  [[nodiscard]] virtual SpreadsheetTable Sheet(const Locale& locale) const;
  // What the chosen rows come to, for the status bar.
  [[nodiscard]] virtual ChosenTotals TotalsOfChosen() const { return {}; }
  // The ticks of columns that a person may hide.
  [[nodiscard]] virtual std::vector<QAction*> ColumnChoices() const { return {}; }

  // --- Rows

  [[nodiscard]] virtual std::int64_t RowCount() const = 0;
  // The keys that a list shows; of a register, which may be long, those among the transactions.
  [[nodiscard]] virtual std::set<std::int64_t> ShownOf(
      const std::vector<std::int64_t>& transactions) const = 0;
  // Chooses that row alone and brings it into view. False when it is not shown.
  virtual bool ChooseKey(std::int64_t key) = 0;
  // A day was chosen in the calendar.
  virtual void ChooseDay(Date /*day*/) {}
};

}  // namespace corvanta::inline app
