// What the main window shows, and how its commands are marked for it.
#include "app/AccountTree.h"
#include "app/AccountsView.h"
#include "app/CategoriesView.h"
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/PayeesView.h"
#include "app/ReadAhead.h"
#include "app/RegisterView.h"
#include "app/ScheduleView.h"
#include "app/TransactionClip.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/ucCalendar.h"
#include "ledger/AccountBook.h"
#include "ledger/AccountRow.h"
#include "ledger/Balances.h"
#include "ledger/CategoryBook.h"
#include "ledger/Period.h"
#include "ledger/ReferenceBook.h"
#include "ledger/ScheduleBook.h"
#include "ledger/StatusFilter.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QTimer>

#include <algorithm>

namespace corvanta {
namespace {
constexpr int kFileWidth = 34 * kRhythm;
}

ViewCommand FrmMain::CommandOf(std::string_view name, std::int64_t accountId) const {
  ViewCommand command{name, accountId};
  command.uncleared = actions_->mnuViewUnCleared->isChecked();
  command.cleared = actions_->mnuViewCleared->isChecked();
  command.reconciled = actions_->mnuViewReconciled->isChecked();
  if (name == kTransactionShow) command.dates = registerView_->Period();
  return command;
}

void FrmMain::ShowView(std::string_view name, std::int64_t accountId) {
  Show(CommandOf(name, accountId));
}

void FrmMain::OpenAccount(std::int64_t accountId) {
  const bool isShown = shown_.name == kTransactionShow && shown_.accountId == accountId;
  if (!isShown) ShowView(kTransactionShow, accountId);
  registerView_->setFocus();
}

void FrmMain::Show(const ViewCommand& command) {
  Guard([&] {
    ShowAgain(command);
    history_.Push(shown_);
    MarkCommands();
  });
}

void FrmMain::Reload() {
  Guard([this] {
    shelf_.Clear();
    ReadAccounts();
    ReadReminders();
    ShowAgain(shown_);
    MarkCommands();
    NoticePosted();
  });
}

void FrmMain::TakeFilter() {
  shown_ = CommandOf(shown_.name, shown_.accountId);
  history_.Replace(shown_);
  Reload();
}

void FrmMain::ShowEverything() {
  const bool hasKeys = registerView_->isAncestorOf(QApplication::focusWidget());
  const ViewCommand open{shown_.name, shown_.accountId};
  TakeOptions(open);
  TakeFilter();
  // The button that asked for it is gone.
  if (hasKeys) registerView_->setFocus();
}

void FrmMain::ShowAgain(const ViewCommand& command) {
  shown_ = command;
  if (!session_.IsOpen()) return ShowClosed();
  TakeOptions(command);
  if (!command.CountsAs(counted_)) ReadAccounts();
  calendar_->SetMarkedDays({});
  uncleared_->hide();
  if (command.name == kTransactionShow) return ShowRegister(command.accountId);
  tree_->Choose(0);
  if (command.name == kCategoryShow) return ShowCategories();
  if (command.name == kPayeeShow) return ShowPayees();
  if (command.name == kScheduleShow) return ShowSchedules();
  ShowAccounts();
}

void FrmMain::TakeOptions(const ViewCommand& command) {
  actions_->mnuViewUnCleared->setChecked(command.uncleared);
  actions_->mnuViewCleared->setChecked(command.cleared);
  actions_->mnuViewReconciled->setChecked(command.reconciled);
  if (command.name == kTransactionShow) registerView_->SetPeriod(command.dates);
}

void FrmMain::ReadAccounts() {
  accounts_.clear();
  counted_ = shown_;
  if (session_.IsOpen()) {
    TreeOptions options;
    options.filter = shown_.Filter();
    options.includeClosed = settings_.IsOn(Setting::Closed);
    options.valuation = settings_.IsOn(Setting::Investment);
    if (shown_.dates) options.end = shown_.dates->end;
    accounts_ = session_.Ledger().Accounts().Accounts(options);
    countedAt_ = session_.Ledger().Store().Changes();
  }
  tree_->SetAccounts(accounts_);
  PrepareOthers();
  ShowFile();
  actions_->SetDataOpen(session_.IsOpen());
}

void FrmMain::PrepareOthers() {
  // The days of a period are soon read.
  if (!session_.IsOpen() || shown_.dates) return ahead_->Stop();
  ahead_->Start(session_.Ledger().Store(), accounts_, shown_.Filter(),
                [this] { return registerView_->IsReading(); });
}

void FrmMain::ShowFile() {
  const QString path = ToQt(session_.Path());
  QString shown = path;
  if (path.startsWith(QDir::homePath() + u'/')) shown.replace(0, QDir::homePath().size(), u'~');
  // A long path must not make the window wide.
  fileName_->setText(fontMetrics().elidedText(shown, Qt::ElideMiddle, kFileWidth));
  fileName_->setToolTip(path);
}

void FrmMain::ShowAccounts() {
  accountsView_->ShowAccounts(accounts_);
  views_->setCurrentWidget(accountsView_);
}

void FrmMain::ShowCategories() {
  categoriesView_->ShowCategories(session_.Ledger().Categories().Categories(),
                                  session_.Ledger().References().Periods());
  views_->setCurrentWidget(categoriesView_);
}

void FrmMain::ShowPayees() {
  payeesView_->ShowPayees(session_.Ledger().References().Payees());
  views_->setCurrentWidget(payeesView_);
}

void FrmMain::ShowSchedules() {
  scheduleView_->ShowSchedules(session_.Ledger().Schedules().Schedules());
  views_->setCurrentWidget(scheduleView_);
}

void FrmMain::ShowRegister(std::int64_t accountId) {
  clsCorvanta& ledger = session_.Ledger();
  const auto found =
      std::find_if(accounts_.begin(), accounts_.end(),
                   [accountId](const AccountRow& row) { return row.accountId == accountId; });
  std::optional<AccountRow> account;
  if (found != accounts_.end()) account = *found;
  // One that is closed and hidden can still be gone to, as the other side of a transfer.
  if (!account && accountId != 0)
    account = ledger.Accounts().FindAccount('#' + std::to_string(accountId));
  views_->setCurrentWidget(registerView_);
  if (!account) {
    registerView_->ShowNoAccount();
    tree_->Choose(0);
    return;
  }
  account_ = accountId;
  isAccountClosed_ = account->closed;
  // What the tree has counted need not be counted again, as long as it is still so.
  std::optional<EntrySums> sums;
  if (found != accounts_.end() && countedAt_ == ledger.Store().Changes()) sums = found->sums;
  const auto rows = shelf_.Take(ledger.Store(), ShownScope(), account->openingBalance, sums);
  registerView_->ShowAccount(*account, rows);
  if (registerView_->IsEmpty() && shown_.IsFiltered()) {
    const EntrySums all =
        ReadSums(ledger.Store(), accountId, StatusFilter(), std::nullopt, std::nullopt);
    registerView_->ShowHidden(all.count, shown_.Filter());
  }
  tree_->Choose(accountId);
  calendar_->SetMarkedDays(registerView_->Days());
  ShowUncleared(rows);
}

RegisterScope FrmMain::ShownScope() const {
  return {shown_.accountId, shown_.Filter(), shown_.RegisterPeriod()};
}

// Counting them reads all of the account's entries: of a long register that is done once the rows
// stand there.
void FrmMain::ShowUncleared(const std::shared_ptr<RegisterRows>& rows) {
  constexpr std::size_t kAtOnce = 20000;
  constexpr int kDrawn = 100;  // milliseconds
  const auto show = [this](RegisterRows& of) {
    uncleared_->setText(ToQt(UnclearedText(of.UnclearedCount())));
    uncleared_->show();
  };
  if (rows->Count() < kAtOnce) return show(*rows);
  // They are let go where the data file is closed before that.
  QTimer::singleShot(kDrawn, this, [this, show, waiting = std::weak_ptr(rows)] {
    const auto still = waiting.lock();
    const bool isShown = still != nullptr && shown_.name == kTransactionShow &&
                         shown_.accountId == still->Scope().accountId;
    if (isShown && still->IsCurrent()) Guard([&] { show(*still); });
  });
}

void FrmMain::ShowClosed() {
  closedView_->Show(QStringLiteral("open"), tr("No data file is open"),
                    tr("Open the file that holds your accounts. It is usually called "
                       "Corvanta.dat. What could not be opened before can be tried again; nothing "
                       "in it was changed."),
                    actions_->mnuFileOpen);
  calendar_->SetMarkedDays({});
  uncleared_->hide();
  views_->setCurrentWidget(closedView_);
}

ReferenceView* FrmMain::ShownList() const {
  return qobject_cast<ReferenceView*>(views_->currentWidget());
}

SortedTable* FrmMain::ShownTable() const {
  if (views_->currentWidget() == registerView_) return &registerView_->Table();
  return ShownList() == nullptr ? nullptr : &ShownList()->Table();
}

void FrmMain::FillSortMenu() {
  QMenu& menu = *actions_->mnuViewSort;
  menu.clear();
  SortedTable* table = ShownTable();
  if (table == nullptr) return;
  for (int column = 0; column < table->model()->columnCount(); ++column) {
    if (table->isColumnHidden(column)) continue;
    QAction* entry = menu.addAction(table->model()->headerData(column, Qt::Horizontal).toString());
    entry->setCheckable(true);
    entry->setChecked(table->Sorted().column == column);
    connect(entry, &QAction::triggered, table, [table, column] { table->ChooseColumn(column); });
  }
}

void FrmMain::MarkCommands() {
  const bool isOpen = session_.IsOpen();
  actions_->mnuViewAccounts->setChecked(shown_.name == kAccountShow);
  actions_->mnuViewRegister->setChecked(shown_.name == kTransactionShow);
  actions_->mnuViewCategories->setChecked(shown_.name == kCategoryShow);
  actions_->mnuViewPayees->setChecked(shown_.name == kPayeeShow);
  actions_->mnuViewSchedules->setChecked(shown_.name == kScheduleShow);
  actions_->mnuViewBack->setEnabled(isOpen && history_.CanGoBack());
  actions_->mnuViewForward->setEnabled(isOpen && history_.CanGoForward());
  actions_->mnuViewSort->setEnabled(isOpen);
  actions_->mnuViewAll->setEnabled(isOpen && shown_.IsFiltered());
  actions_->mnuViewWidths->setEnabled(isOpen);
  MarkUndo();
  MarkChoice();
}

void FrmMain::MarkUndo() {
  const UndoLog* log = session_.IsOpen() ? &session_.Ledger().Undo() : nullptr;
  const auto mark = [](QAction* action, bool can, const QString& word, const std::string& step) {
    action->setEnabled(can);
    action->setText(can ? word + u' ' + ToQt(step) : word);
  };
  const bool canUndo = log != nullptr && log->CanUndo();
  const bool canRedo = log != nullptr && log->CanRedo();
  mark(actions_->mnuEditUndo, canUndo, tr("&Undo"), canUndo ? log->UndoName() : std::string());
  mark(actions_->mnuEditRedo, canRedo, tr("&Redo"), canRedo ? log->RedoName() : std::string());
}

void FrmMain::MarkChoice() {
  const bool isRegister = session_.IsOpen() && views_->currentWidget() == registerView_;
  const ReferenceView* list = session_.IsOpen() ? ShownList() : nullptr;
  const bool isChosen = list != nullptr && list->ChosenKey() != 0;
  const bool isRow = isRegister && registerView_->FocusedKey() != 0;
  actions_->mnuEditInsert->setEnabled(list != nullptr || isRegister);
  actions_->mnuEditDetails->setEnabled(isChosen || isRow);
  actions_->mnuTransEdit->setEnabled(isRow);
  const bool isList = list != nullptr || isRegister;
  actions_->mnuFileExport->setEnabled(isRegister && shown_.accountId != 0);
  actions_->mnuFilePrint->setEnabled(isList);
  actions_->mnuFilePreview->setEnabled(isList);
  actions_->mnuEditDelete->setEnabled(isChosen || isRow);
  const bool isSchedules = list != nullptr && list == scheduleView_;
  actions_->mnuEditCopy->setEnabled(isRow || (isSchedules && isChosen));
  const auto clip = isSchedules ? ClipKind::Schedules : ClipKind::Transactions;
  actions_->mnuEditPaste->setEnabled((isSchedules || (isRegister && shown_.accountId != 0)) &&
                                     !FromClip(clip, ToQt(session_.Path())).empty());
  actions_->mnuEditSelect->setEnabled(isRegister && !registerView_->IsEmpty());
  const bool isAccount = session_.IsOpen() && ChosenAccount() != 0;
  actions_->mnuAccountEdit->setEnabled(isAccount);
  actions_->mnuAccountDelete->setEnabled(isAccount);
  const bool isCategory = list == categoriesView_ && isChosen;
  actions_->mnuCategoryEdit->setEnabled(isCategory);
  actions_->mnuCategoryDelete->setEnabled(isCategory);
  const bool isPayee = list == payeesView_ && isChosen;
  actions_->mnuPayeeEdit->setEnabled(isPayee);
  actions_->mnuPayeeDelete->setEnabled(isPayee);
  const bool isSchedule = list == scheduleView_ && isChosen;
  actions_->mnuScheduleEdit->setEnabled(isSchedule);
  actions_->mnuScheduleDelete->setEnabled(isSchedule);
  actions_->mnuScheduleCopy->setEnabled(isSchedule);
  actions_->mnuSchedulePaste->setEnabled(
      session_.IsOpen() && !FromClip(ClipKind::Schedules, ToQt(session_.Path())).empty());
  MarkTransaction();
  MarkReminder();
}

}  // namespace corvanta
