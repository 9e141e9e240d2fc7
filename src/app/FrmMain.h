#pragma once

#include "app/ViewHistory.h"
#include "ledger/clsCorvanta.h"
#include "platform/Settings.h"

#include <QMainWindow>

#include <functional>
#include <vector>

class QLabel;
class QSplitter;
class QStackedWidget;

namespace corvanta {

class AccountTree;
class AccountsView;
class EmptyState;
class LedgerSession;
class MainActions;
class QtProgress;
class RegisterView;
class ucCalendar;
class ucRibbon;
struct Platform;

// The main window: menus, ribbon, the account tree over the calendar, one view at a time, and the
// place of the reminders. It works on the session's data file, which it may close and open again.
class FrmMain : public QMainWindow {
  Q_OBJECT

 public:
  // All arguments must outlive the window; `progress` is shown in its status bar from now on.
  FrmMain(LedgerSession& session, Platform& platform, QtProgress& progress);

  // Takes size, place and the last view from the settings and fills the views. Shows nothing yet.
  void Restore();

  // Issues a command: shows its view and remembers it for going back.
  void Show(const ViewCommand& command);
  [[nodiscard]] const ViewCommand& Shown() const { return shown_; }
  // Reads accounts and the current view again.
  void Reload();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QWidget* MakeCentre();
  QWidget* MakeLeftColumn();
  QWidget* MakeReminders();
  void MakeStatusBar();
  void Connect();
  void ConnectCommands();

  void Guard(const std::function<void()>& command);
  void ReadAccounts();
  void ShowAgain(const ViewCommand& command);
  void ShowAccounts();
  void ShowRegister(std::int64_t accountId);
  void ShowClosed();
  void MarkCommands();
  void ApplySettings();
  void KeepColumns();
  void SaveLayout();

  void OpenDataFile();
  void ValidateDataFile();
  // Opens again what is in the settings and begins with its first view.
  bool Reopen(bool quiet);
  void ShowRecoveryKey();
  void ShowTips();
  void ShowAbout();

  LedgerSession& session_;
  Platform& platform_;
  Settings settings_;
  QtProgress& progress_;
  ViewHistory history_;
  ViewCommand shown_;
  std::vector<AccountRow> accounts_;
  std::int64_t account_ = 0;  // last shown in the register

  MainActions* actions_;
  ucRibbon* ribbon_ = nullptr;
  QSplitter* columns_ = nullptr;
  QSplitter* leftRows_ = nullptr;
  AccountTree* tree_ = nullptr;
  ucCalendar* calendar_ = nullptr;
  QStackedWidget* views_ = nullptr;
  AccountsView* accountsView_ = nullptr;
  RegisterView* registerView_ = nullptr;
  EmptyState* closedView_ = nullptr;
  QWidget* reminders_ = nullptr;
  QLabel* fileName_ = nullptr;
};

}  // namespace corvanta
