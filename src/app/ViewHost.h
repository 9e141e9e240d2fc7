#pragma once

#include "ledger/accounts/AccountRow.h"
#include "platform/Date.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

class QAction;
class QObject;
class QString;
class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class RowFilter;
}

namespace corvanta::inline app {

class LedgerSession;
class MainActions;
struct ViewCommand;

// What a view, and a command that works in any of them, asks of the window.
class ViewHost {
 public:
  virtual ~ViewHost() = default;

  // Runs a command at the window's edge: what refuses it is told, and the program goes on.
  virtual void Guard(const std::function<void()>& command) = 0;
  // Says in the status bar what a command has done, for a while.
  virtual void Notice(const QString& text) = 0;

  // --- After a change

  // Reads accounts, reminders and the view in front again.
  virtual void Reload() = 0;
  // Schedules are others than before: posts what is due by them, and the same.
  virtual void ApplySchedules() = 0;
  // The filter of the view in front is another.
  virtual void ApplyFilter() = 0;
  // What is chosen is another.
  virtual void MarkChoice() = 0;
  // The surroundings of the view in front are others.
  virtual void ShowSurroundings() = 0;

  // --- Going somewhere

  // The view that the command asks for, as it asks; the former one can be gone back to.
  virtual void Show(const ViewCommand& command) = 0;
  // The view with what was chosen in it before.
  virtual void ShowView(std::string_view name) = 0;
  // The account's register, which gets the keys.
  virtual void OpenAccount(std::int64_t accountId) = 0;
  // The transaction in its account's register, even where the filter would hide it.
  virtual void ShowTransaction(std::int64_t accountId, std::int64_t key) = 0;
  // Chooses the row where that view is in front; false where another one is, or the row is not
  // among those that it shows.
  virtual bool ChooseRow(std::string_view view, std::int64_t key) = 0;
  // The import of that file into the account that entries go to.
  virtual void Import(const std::string& path) = 0;
  // The view in front with that filter; where it leaves its rows alone, the register.
  virtual void ShowRows(const RowFilter& filter) = 0;
  // Gives the view in front the keys.
  virtual void FocusView() = 0;

  // --- What is there

  [[nodiscard]] virtual const ViewCommand& Shown() const = 0;
  // With their balances by the filter of what is shown, and whether these still hold.
  [[nodiscard]] virtual const std::vector<AccountRow>& Accounts() const = 0;
  [[nodiscard]] virtual bool AreAccountsCurrent() const = 0;
  // The account that the view in front has chosen; 0 for none.
  [[nodiscard]] virtual std::int64_t ChosenAccount() const = 0;
  // That one, or else the one last looked at, or the first: it gets what is entered. 0 without any
  // account.
  [[nodiscard]] virtual std::int64_t EntryAccount() const = 0;
  // The day that the views are of.
  [[nodiscard]] virtual Date Today() const = 0;
};

// What a view works on and stands in. All of it outlives the view.
struct ViewPlace {
  LedgerSession& session;
  Platform& platform;
  MainActions& actions;
  ViewHost& host;
  QWidget& window;  // before which dialogs stand

  // Runs the command at the window's edge whenever the action is triggered while `owner` lives.
  void On(QAction* action, QObject* owner, const std::function<void()>& command) const;
};

}  // namespace corvanta::inline app
