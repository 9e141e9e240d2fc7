// What the main window shows, and what it marks for it.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/filter/FilterCommands.h"
#include "app/reminders/ReminderCommands.h"
#include "app/tree/AccountTree.h"
#include "controls/EmptyState.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "controls/ucCalendar.h"
#include "ledger/accounts/AccountBook.h"
#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta::inline app {
namespace {
constexpr int kFileWidth = 34 * kRhythm;
constexpr int kChosenWidth = 48 * kRhythm;
}  // namespace

MainView* FrmMain::FindView(std::string_view name) const {
  const auto found =
      std::ranges::find_if(views_, [name](const MainView* view) { return view->Answers(name); });
  return found == views_.end() ? nullptr : *found;
}

MainView& FrmMain::RegisterOfAccount() const {
  return **std::ranges::find_if(views_, &MainView::IsOfAccount);
}

ViewCommand FrmMain::CommandOf(const MainView& view, std::int64_t accountId) const {
  ViewCommand command{view.Name(), view.IsOfAccount() ? accountId : 0};
  command.uncleared = actions_->mnuViewUnCleared->isChecked();
  command.cleared = actions_->mnuViewCleared->isChecked();
  command.reconciled = actions_->mnuViewReconciled->isChecked();
  command.rows = shown_.rows;
  view.Remember(command);
  return command;
}

void FrmMain::ShowView(std::string_view name) {
  if (const MainView* view = FindView(name)) Show(CommandOf(*view, account_));
}

// Whoever goes to an account wants that one, whichever the filter has chosen.
void FrmMain::ShowAccount(std::int64_t accountId) {
  ViewCommand command = CommandOf(RegisterOfAccount(), accountId);
  command.rows.SetKeys(FilterKind::Account, {});
  Show(command);
}

void FrmMain::OpenAccount(std::int64_t accountId) {
  const bool isShown = shown_.accountId == accountId && !shown_.rows.IsSet(FilterKind::Account);
  if (!isShown) ShowAccount(accountId);
  if (view_ != nullptr) view_->ShowOwn();
  FocusView();
}

void FrmMain::ShowRows(const RowFilter& filter) {
  const bool honours = view_ != nullptr && view_->Strip() != nullptr;
  ViewCommand command = CommandOf(honours ? *view_ : RegisterOfAccount(), account_);
  command.rows = filter;
  Show(command);
}

void FrmMain::ShowTransaction(std::int64_t accountId, std::int64_t key) {
  ShowAccount(accountId);
  if (ChooseRow(shown_.name, key)) return;
  // The ticks or the days hide it: shown without them, it is there.
  Show({shown_.name, accountId});
  ChooseRow(shown_.name, key);
}

bool FrmMain::ChooseRow(std::string_view view, std::int64_t key) {
  if (view_ == nullptr || view_->Name() != view) return false;
  return view_->ChooseKey(key);
}

void FrmMain::FocusView() {
  pages_->currentWidget()->setFocus();
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
    for (MainView* view : views_) view->Forget();
    ReadAccounts();
    reminderCommands_->Read();
    ShowAgain(shown_);
    MarkCommands();
    NoticePosted();
  });
}

void FrmMain::ApplySchedules() {
  session_.PostSchedules();
  Reload();
}

void FrmMain::ApplyFilter() {
  if (view_ == nullptr) return;
  shown_ = CommandOf(*view_, shown_.accountId);
  history_.Replace(shown_);
  Reload();
}

void FrmMain::ShowEverything() {
  const bool hasKeys = pages_->isAncestorOf(QApplication::focusWidget());
  ViewCommand everything{shown_.name, shown_.accountId};
  everything.report = shown_.report.OfEverything();
  shown_ = everything;
  history_.Replace(shown_);
  Reload();
  // The button that asked for it is gone.
  if (hasKeys) FocusView();
}

void FrmMain::ShowAgain(const ViewCommand& command) {
  shown_ = command;
  Surround({});
  view_ = session_.IsOpen() ? FindView(command.name) : nullptr;
  if (view_ == nullptr) return ShowClosed();
  actions_->mnuViewUnCleared->setChecked(command.uncleared);
  actions_->mnuViewCleared->setChecked(command.cleared);
  actions_->mnuViewReconciled->setChecked(command.reconciled);
  shown_.rows = filters_->Existing(command.rows);
  if (!command.CountsAs(counted_)) ReadAccounts();
  pages_->setCurrentWidget(view_->Widget());
  view_->Show(shown_);
  const ViewSurroundings surroundings = view_->Surroundings();
  if (surroundings.accountId != 0) account_ = surroundings.accountId;
  tree_->Choose(surroundings.accountId);
  Surround(surroundings);
}

void FrmMain::ShowSurroundings() {
  if (view_ != nullptr) Surround(view_->Surroundings());
}

void FrmMain::Surround(const ViewSurroundings& surroundings) {
  calendar_->SetMarkedDays(surroundings.days);
  uncleared_->setText(surroundings.status);
  uncleared_->setVisible(!surroundings.status.isEmpty());
}

void FrmMain::ShowClosed() {
  closedView_->Show(QStringLiteral("open"), tr("No data file is open"),
                    tr("Open the file that holds your accounts. It is usually called "
                       "Corvanta.dat. What could not be opened before can be tried again; nothing "
                       "in it was changed."),
                    actions_->mnuFileOpen);
  pages_->setCurrentWidget(closedView_);
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
  FitTree();
  for (MainView* view : views_) view->ApplyAccounts();
  ShowFile();
  actions_->SetDataOpen(session_.IsOpen());
}

bool FrmMain::AreAccountsCurrent() const {
  return session_.IsOpen() && countedAt_ == session_.Ledger().Store().Changes();
}

std::int64_t FrmMain::ChosenAccount() const {
  return view_ == nullptr ? 0 : view_->ChosenAccount();
}

std::int64_t FrmMain::EntryAccount() const {
  const std::int64_t chosen = ChosenAccount();
  if (chosen != 0) return chosen;
  // One that was just made nobody has looked at yet.
  return account_ != 0 || accounts_.empty() ? account_ : accounts_.front().accountId;
}

void FrmMain::ShowFile() {
  const QString path = ToQt(session_.Path());
  QString shown = path;
  if (path.startsWith(QDir::homePath() + u'/')) shown.replace(0, QDir::homePath().size(), u'~');
  // A long path must not make the window wide.
  fileName_->setText(fontMetrics().elidedText(shown, Qt::ElideMiddle, kFileWidth));
  fileName_->setToolTip(path);
  Q_EMIT FileShown(session_.IsWritable() ? path : QString());
}

SortedTable* FrmMain::ShownTable() const {
  return view_ == nullptr ? nullptr : view_->Table();
}

void FrmMain::FillSortMenu() {
  QMenu& menu = *actions_->mnuViewSort;
  menu.clear();
  SortedTable* table = ShownTable();
  if (table == nullptr) return;
  for (int column = 0; column < table->model()->columnCount(); ++column) {
    // Also by one that there is no room for now.
    if (table->WantedWidth(column) <= 0) continue;
    QAction* entry = menu.addAction(table->model()->headerData(column, Qt::Horizontal).toString());
    entry->setCheckable(true);
    entry->setChecked(table->Sorted().column == column);
    connect(entry, &QAction::triggered, table, [table, column] { table->ChooseColumn(column); });
  }
}

void FrmMain::MarkCommands() {
  const bool isOpen = session_.IsOpen();
  for (const MainView* view : views_) view->Entry()->setChecked(view->Answers(shown_.name));
  actions_->mnuViewBack->setEnabled(isOpen && history_.CanGoBack());
  actions_->mnuViewForward->setEnabled(isOpen && history_.CanGoForward());
  actions_->mnuViewSort->setEnabled(isOpen && ShownTable() != nullptr);
  actions_->mnuViewAll->setEnabled(isOpen && shown_.IsFiltered());
  actions_->mnuViewWidths->setEnabled(isOpen && ShownTable() != nullptr);
  filters_->Mark();
  MarkSearch();
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
  Guard([this] {
    for (const auto& [action, task] : actions_->EditTasks()) {
      action->setEnabled(view_ != nullptr && view_->Can(task));
    }
    QAction* add = view_ == nullptr ? nullptr : view_->AddCommand();
    actions_->mnuRibbonAdd->setEnabled(add != nullptr && add->isEnabled());
    actions_->mnuRibbonAdd->setToolTip(add == nullptr ? QString() : add->toolTip());
    actions_->mnuFilePrint->setEnabled(view_ != nullptr);
    actions_->mnuFilePreview->setEnabled(view_ != nullptr);
    actions_->mnuFileSpreadsheet->setEnabled(view_ != nullptr);
    for (MainView* view : views_) view->MarkCommands(view == view_);
    reminderCommands_->Mark();
    const QString totals =
        view_ == nullptr ? QString() : ToQt(view_->TotalsOfChosen().Text(platform_.locale));
    chosen_->setText(fontMetrics().elidedText(totals, Qt::ElideRight, kChosenWidth));
    chosen_->setToolTip(totals);
    chosen_->setVisible(!totals.isEmpty());
  });
}

}  // namespace corvanta::inline app
