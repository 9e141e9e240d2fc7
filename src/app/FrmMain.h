#pragma once

#include "app/ViewHistory.h"
#include "app/ViewHost.h"
#include "app/search/Palette.h"
#include "controls/QuietEnd.h"
#include "ledger/accounts/AccountRow.h"
#include "platform/Settings.h"
#include "reference/ReferenceDialogs.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAction;
class QLabel;
class QSplitter;
class QStackedWidget;

namespace corvanta::inline controls {
class EmptyState;
class SortedTable;
class ucCalendar;
class ucRibbon;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {
struct InvestPlace;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

class AccountTree;
class FilterCommands;
class LedgerSession;
class MainActions;
class MainView;
class QtProgress;
class ReminderCommands;
class RemindersPanel;
class WelcomeCommands;
struct ViewSurroundings;

// The main window: menus, ribbon, the account tree over the calendar, one view at a time, and the
// place of the reminders. It works on the session's data file, which it may close and open again.
// What is done in a view is the view's own; the window knows none of them by name.
class FrmMain : public QuietEnd<QMainWindow>, public ViewHost {
  Q_OBJECT

 public:
  // All arguments must outlive the window; `progress` is shown in its status bar from now on.
  FrmMain(LedgerSession& session, Platform& platform, QtProgress& progress);
  ~FrmMain() override;

  // Takes size, place and the last view from the settings and fills the views. Shows nothing yet.
  void Restore();

  // Issues a command: shows its view and remembers it for going back.
  void Show(const ViewCommand& command) override;

  // Greets who has never used the program, once. To be called when the window stands.
  void Greet();
  // Begins the import of that file as soon as the window is free.
  void BeginImport(const std::string& path);

  // ViewHost
  void Guard(const std::function<void()>& command) override;
  void Notice(const QString& text) override;
  void Reload() override;
  void ApplySchedules() override;
  void ApplyFilter() override;
  void MarkChoice() override;
  void ShowSurroundings() override;
  void ShowView(std::string_view name) override;
  void OpenAccount(std::int64_t accountId) override;
  void ShowTransaction(std::int64_t accountId, std::int64_t key) override;
  bool ChooseRow(std::string_view view, std::int64_t key) override;
  void Import(const std::string& path) override { ImportFile(path); }
  void ShowRows(const RowFilter& filter) override;
  void FocusView() override;
  [[nodiscard]] const ViewCommand& Shown() const override { return shown_; }
  [[nodiscard]] const std::vector<AccountRow>& Accounts() const override { return accounts_; }
  [[nodiscard]] bool AreAccountsCurrent() const override;
  [[nodiscard]] std::int64_t ChosenAccount() const override;
  [[nodiscard]] std::int64_t EntryAccount() const override;
  [[nodiscard]] Date Today() const override { return day_; }

 Q_SIGNALS:
  // The data file that is open for changes by now; empty for none.
  void FileShown(const QString& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  QWidget* MakeCentre();
  void MakeViews();
  QWidget* MakeLeftColumn();
  void MakeStatusBar();
  void Connect();
  void ConnectFiles();
  void ConnectEdit();
  void ConnectViews();
  void ConnectDialogs();
  void ConnectSettings();
  void ConnectSearch();
  // Runs the command, at the window's edge, whenever the action is triggered.
  void On(QAction* action, const std::function<void()>& command);
  // What was posted on the way; empty where nothing was.
  [[nodiscard]] QString PostedText();
  void NoticePosted();

  // --- Views

  // Null where there is none of that name.
  [[nodiscard]] MainView* FindView(std::string_view name) const;
  // The one that shows the rows of an account.
  [[nodiscard]] MainView& RegisterOfAccount() const;
  // The command that shows this view with the ticks and days that the person has chosen; of the
  // account where the view is of one.
  [[nodiscard]] ViewCommand CommandOf(const MainView& view, std::int64_t accountId) const;
  void ShowAccount(std::int64_t accountId);
  void ShowAgain(const ViewCommand& command);
  void Surround(const ViewSurroundings& surroundings);
  void ShowClosed();
  // Takes every filter off.
  void ShowEverything();
  void ReadAccounts();
  void ShowFile();
  // Null where the view in front has no list, or the data file is closed.
  [[nodiscard]] SortedTable* ShownTable() const;
  void FillSortMenu();
  // Marks and enables the commands for the view that is shown, and for the row that is chosen.
  void MarkCommands();
  void MarkUndo();
  void ApplySettings();
  void ChangeOptions();
  // What was reset in the settings is so in the window.
  void ForgetColumns();
  void Undo(bool again);
  // `rows` is how many more there are than before.
  void NoticeUndone(const QString& what, qint64 rows);
  void PrintShown(bool preview);
  void ShowList(ListKind kind);
  [[nodiscard]] InvestPlace Invest();
  void ConvertCurrency();
  // What a new day brings, while the program stands.
  void ApplyDay();

  // --- Finding

  void MarkSearch();
  // Lets the person choose where to go.
  void OpenPalette();
  void AddNames(std::vector<PaletteItem>& items) const;
  // What is no command.
  void GoTo(const PaletteItem& item);
  // Looks for it in all accounts, as if it had been typed.
  void FindEverywhere(const std::string& text);

  // --- Layout

  void FoldReminders(bool fold);
  // Names and balances of the accounts have their room, as far as there is some to spare.
  void FitTree();
  void FoldRibbon(bool fold);
  void SaveLayout();

  // --- The data file

  void AdoptLedger();
  void OpenDataFile();
  void ConnectSafety();
  // Leaves the open file for that one; where it cannot be opened, the former is open again: false.
  bool SwitchTo(const std::string& path);
  void NewDataFile();
  void SaveDataFile();
  void MakeBackup();
  void RestoreBackup();
  void ArchiveRows();
  void WriteTransferFile();
  void RememberFile();
  void FillRecentMenu();
  void OpenRecent(const std::string& path);
  void ValidateDataFile();
  // How many rows there were, and how many of them are left.
  void NoticeValidated(qint64 before, qint64 left);
  // Opens again what is in the settings and begins with its first view.
  bool Reopen(bool quiet);
  // With that file chosen; empty for none.
  void ImportFile(const std::string& path);
  void ChangePassword();
  [[nodiscard]] bool ConfirmPassphrase();
  void ChangePassphrase();
  void ShowRecoveryKey();

  LedgerSession& session_;
  Platform& platform_;
  Settings settings_;
  QtProgress& progress_;
  ViewHistory history_;
  ViewCommand shown_;
  ViewCommand counted_;  // what the accounts' balances are of
  std::vector<AccountRow> accounts_;
  std::uint64_t countedAt_ = 0;      // how the data stood then
  std::int64_t account_ = 0;         // last looked at
  std::vector<PaletteItem> recent_;  // gone to before, the latest first
  Date day_;                         // that the views are of

  MainActions* actions_;
  ViewPlace place_;
  ucRibbon* ribbon_ = nullptr;
  QSplitter* columns_ = nullptr;
  QSplitter* leftRows_ = nullptr;
  AccountTree* tree_ = nullptr;
  ucCalendar* calendar_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  FilterCommands* filters_ = nullptr;
  std::vector<MainView*> views_;
  MainView* view_ = nullptr;  // in front; null while the data file is closed
  EmptyState* closedView_ = nullptr;
  RemindersPanel* reminders_ = nullptr;
  ReminderCommands* reminderCommands_ = nullptr;
  std::unique_ptr<WelcomeCommands> welcome_;
  bool isTreeByHand_ = false;  // the person has moved the edge of the accounts
  int remindersRoom_ = 0;      // by which the window has grown for them
  QLabel* chosen_ = nullptr;
  QLabel* uncleared_ = nullptr;
  QLabel* fileName_ = nullptr;
};

}  // namespace corvanta::inline app
