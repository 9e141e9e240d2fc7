#pragma once

#include "app/ViewHistory.h"
#include "controls/QuietEnd.h"
#include "ledger/AccountRow.h"
#include "ledger/RegisterShelf.h"
#include "ledger/StatusBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/Settings.h"
#include "reference/ReferenceDialogs.h"

#include <QMainWindow>

#include <functional>
#include <memory>
#include <set>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QPoint;
class QSplitter;
class QStackedWidget;

namespace corvanta {

class AccountTree;
class AccountsView;
class CategoriesView;
class EmptyState;
class LedgerSession;
class MainActions;
class PayeesView;
class QtProgress;
class ReadAhead;
class ReferenceView;
class RegisterView;
class RemindersPanel;
class ScheduleView;
class SortedTable;
class ucCalendar;
class ucRibbon;
struct EntryPlace;
struct EntryResult;
struct ReconcileOutcome;
struct Platform;

// The main window: menus, ribbon, the account tree over the calendar, one view at a time, and the
// place of the reminders. It works on the session's data file, which it may close and open again.
class FrmMain : public QuietEnd<QMainWindow> {
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
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  QWidget* MakeCentre();
  void MakeViews();
  QWidget* MakeLeftColumn();
  void MakeMenus();
  void MakeStatusBar();
  void Connect();
  void ConnectCommands();
  void ConnectEdit();
  void ConnectTransactions();
  void ConnectEntry();
  void ConnectSchedules();
  void ConnectExchange();
  void ConnectReference();
  void ConnectViews();
  // Runs the command, at the window's edge, whenever the action is triggered.
  void On(QAction* action, const std::function<void()>& command);
  void Guard(const std::function<void()>& command);
  // Says in the status bar what a command has done, for a while.
  void Notice(const QString& text);
  // The same of the payments that were posted on the way; nothing where there were none.
  void NoticePosted();
  [[nodiscard]] QString PostedText();

  // --- Views

  // The command that shows this view with the ticks and days that the person has chosen.
  [[nodiscard]] ViewCommand CommandOf(std::string_view name, std::int64_t accountId = 0) const;
  void ShowView(std::string_view name, std::int64_t accountId = 0);
  // Shows the account's register, where that is not yet in front, and gives it the keys.
  void OpenAccount(std::int64_t accountId);
  void ShowAgain(const ViewCommand& command);
  void TakeOptions(const ViewCommand& command);
  // The ticks or the days are others: reads what is shown again, as they say.
  void TakeFilter();
  // Takes every filter off.
  void ShowEverything();
  void ReadAccounts();
  // Has the long registers read that may be gone to next.
  void PrepareOthers();
  void ShowAccounts();
  void ShowRegister(std::int64_t accountId);
  [[nodiscard]] RegisterScope ShownScope() const;
  void ShowUncleared(const std::shared_ptr<RegisterRows>& rows);
  void ShowCategories();
  void ShowPayees();
  void ShowSchedules();
  void ShowClosed();
  void ShowFile();
  // Null for another view than the lists of named things.
  [[nodiscard]] ReferenceView* ShownList() const;
  [[nodiscard]] SortedTable* ShownTable() const;
  void FillSortMenu();
  // Marks and enables the commands for the view that is shown, and for the row that is chosen.
  void MarkCommands();
  void MarkUndo();
  void MarkChoice();
  void ApplySettings();
  void KeepColumns();
  void SaveLayout();

  // --- Transactions

  void MarkTransaction();
  void ShowTransactionMenu(QPoint place);
  // Tells that the account is closed and returns true when it is.
  bool IsAccountClosed(const char* title);
  // Runs a change of many rows with the words for it in the status bar.
  void ChangeRows(const std::function<void()>& change);
  void ApplyStatus(StatusCommand command, bool isTicked);
  void CopyTransactions();
  void PasteTransactions();
  void DeleteTransactions();
  void ShowTwin();
  void ShowTransaction(std::int64_t accountId, std::int64_t key);
  void Undo(bool again);
  // `rows` is how many more there are than before.
  void NoticeUndone(const QString& what, qint64 rows);
  [[nodiscard]] qint64 RowsShown() const;
  // The keys that a list shows; of a register, which may be long, those among the touched ones.
  [[nodiscard]] std::set<std::int64_t> ShownOf(const std::vector<std::int64_t>& touched) const;
  // Of what the view shows.
  void ChooseShown(std::int64_t key);

  // --- Entry, balancing, printing

  [[nodiscard]] EntryPlace EntryPlaceHere();
  // The account that a new transaction belongs to; 0 without any account.
  [[nodiscard]] std::int64_t EntryAccount() const;
  // False when it cannot be added to, which has been told.
  bool CanAddTo(std::int64_t accountId);
  // Shows what a dialog has written.
  void TakeEntry(const EntryResult& result);
  // Of that day; of today without one.
  void AddTransaction(std::optional<Date> day = std::nullopt);
  void AutofillTransaction();
  // By the quick entry or the full editor, as the setting says.
  void AddQuickly();
  // The chosen transaction, or several at once.
  void EditTransactions();
  void EditTransaction(std::int64_t key);
  // A row was opened in the list: it, or with it all that are chosen.
  void OpenTransactions(std::int64_t key);
  void Reconcile();
  void NoticeBalanced(const ReconcileOutcome& outcome);
  void ConvertCurrency();
  void PrintShown(bool preview);

  // --- Files in and out

  // With that file chosen; empty for none.
  void ImportFile(const std::string& path);
  void ExportRegister();

  // --- Schedules and reminders

  void EditSchedule(std::int64_t key);
  // The schedule that the row of the register was made from.
  void EditScheduleOfRow();
  void DeleteSchedule();
  void CopySchedule();
  void PasteSchedule();
  // Schedules are others than before: posts what is due by them and shows everything again.
  void TakeSchedules();
  void ReadReminders();
  // Up to when the calendar wants to know what is due.
  [[nodiscard]] Date LastDueDay() const;
  // The calendar shows other days.
  void TakePage();
  void FoldReminders(bool fold);
  void OpenReminder();
  void PostReminder();
  void SkipReminder();
  void MarkReminder();
  // What a new day brings, while the program stands.
  void TakeDay();

  // --- Named things

  [[nodiscard]] DialogPlace Place();
  // The account that the account commands work on; 0 for none.
  [[nodiscard]] std::int64_t ChosenAccount() const;
  [[nodiscard]] std::int64_t ChosenKey(ReferenceKind kind) const;
  // What the shown list holds.
  [[nodiscard]] std::optional<ReferenceKind> ShownKind() const;
  // The editor of the row, of a new one for 0.
  void EditItem(ReferenceKind kind, std::int64_t key);
  void DeleteItem(ReferenceKind kind);
  void ShowList(ListKind kind);

  // --- The data file

  void TakeLedger();
  void OpenDataFile();
  void ValidateDataFile();
  // How many rows there were, and how many of them are left.
  void NoticeValidated(qint64 before, qint64 left);
  // Opens again what is in the settings and begins with its first view.
  bool Reopen(bool quiet);
  void ChangePassword();
  void ShowRecoveryKey();
  void ShowTips();
  void ShowAbout();

  LedgerSession& session_;
  Platform& platform_;
  Settings settings_;
  QtProgress& progress_;
  ViewHistory history_;
  ViewCommand shown_;
  ViewCommand counted_;  // what the accounts' balances are of
  std::vector<AccountRow> accounts_;
  std::uint64_t countedAt_ = 0;  // how the data stood then
  RegisterShelf shelf_;
  ReadAhead* ahead_;
  std::int64_t account_ = 0;      // last shown in the register
  bool isAccountClosed_ = false;  // whether that one is
  Date day_;                      // that the views are of
  Date dueUntil_;                 // up to when the calendar knows what is due

  MainActions* actions_;
  ucRibbon* ribbon_ = nullptr;
  QSplitter* columns_ = nullptr;
  QSplitter* leftRows_ = nullptr;
  AccountTree* tree_ = nullptr;
  ucCalendar* calendar_ = nullptr;
  QStackedWidget* views_ = nullptr;
  AccountsView* accountsView_ = nullptr;
  RegisterView* registerView_ = nullptr;
  CategoriesView* categoriesView_ = nullptr;
  PayeesView* payeesView_ = nullptr;
  ScheduleView* scheduleView_ = nullptr;
  EmptyState* closedView_ = nullptr;
  RemindersPanel* reminders_ = nullptr;
  int remindersRoom_ = 0;  // by which the window has grown for them
  QMenu* transactionMenu_ = nullptr;
  QLabel* uncleared_ = nullptr;
  QLabel* fileName_ = nullptr;
};

}  // namespace corvanta
