// What the commands of the main window do that belong to no view.
#include "app/FrmAbout.h"
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/QtProgress.h"
#include "app/SafetyCommands.h"
#include "app/start/FrmTips.h"
#include "app/tree/AccountTree.h"
#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/ucCalendar.h"
#include "controls/ucRibbon.h"
#include "invest/InvestDialogs.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Spreadsheet.h"
#include "reports/print/ReportDialogs.h"
#include "reports/sheet/SheetExport.h"
#include "store/sql/UndoLog.h"
#include "tools/ToolDialogs.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>

#include <algorithm>
#include <set>

namespace corvanta::inline app {
namespace {
constexpr int kNoticeTime = 10000;  // milliseconds
}

void FrmMain::Guard(const std::function<void()>& command) {
  RunCommand(platform_.prompts, command);
}

void FrmMain::Notice(const QString& text) {
  statusBar()->showMessage(text, kNoticeTime);
}

QString FrmMain::PostedText() {
  const auto posted = static_cast<qulonglong>(session_.TakePosted());
  if (posted == 0) return {};
  return posted == 1 ? tr("1 payment was posted")
                     : tr("%1 payments were posted").arg(locale().toString(posted));
}

void FrmMain::NoticePosted() {
  const QString text = PostedText();
  if (!text.isEmpty()) Notice(text);
}

void FrmMain::On(QAction* action, const std::function<void()>& command) {
  place_.On(action, this, command);
}

void FrmMain::ConnectEdit() {
  On(actions_->mnuEditUndo, [this] { Undo(false); });
  On(actions_->mnuEditRedo, [this] { Undo(true); });
  for (const auto& [action, task] : actions_->EditTasks()) {
    On(action, [this, task = task] {
      if (view_ != nullptr) view_->Do(task);
    });
  }
}

void FrmMain::ConnectViews() {
  // The keys of a view work at once, without a way to it.
  for (const MainView* view : views_) {
    On(view->Entry(), [this, view] {
      ViewCommand command = CommandOf(*view, account_);
      // The entry says which of its pages it is.
      command.name = view->Name();
      Show(command);
      FocusView();
    });
  }
  On(actions_->mnuViewRefresh, [this] { Reload(); });
  for (QAction* tick :
       {actions_->mnuViewUnCleared, actions_->mnuViewCleared, actions_->mnuViewReconciled}) {
    On(tick, [this] { ApplyFilter(); });
  }
  On(actions_->mnuViewAll, [this] { ShowEverything(); });
  On(actions_->mnuViewWidths, [this] {
    if (SortedTable* table = ShownTable()) table->SetWidths({});
  });
  connect(actions_->mnuViewSort, &QMenu::aboutToShow, this, &FrmMain::FillSortMenu);
  const auto step = [this](QAction* action, std::optional<ViewCommand> (ViewHistory::*turn)()) {
    On(action, [this, turn] {
      if (const auto command = (history_.*turn)()) ShowAgain(*command);
      MarkCommands();
    });
  };
  step(actions_->mnuViewBack, &ViewHistory::Back);
  step(actions_->mnuViewForward, &ViewHistory::Forward);
}

void FrmMain::ConnectDialogs() {
  On(actions_->mnuFilePrint, [this] { PrintShown(false); });
  On(actions_->mnuFilePreview, [this] { PrintShown(true); });
  On(actions_->mnuFilePageSetup, [this] { OpenPageSetup({platform_, this}); });
  On(actions_->mnuFileSpreadsheet, [this] {
    if (view_ != nullptr) {
      AskAndExportSheet(view_->Sheet(platform_.locale), platform_);
    }
  });
  On(actions_->mnuViewAccountTypes, [this] { ShowList(ListKind::AccountType); });
  On(actions_->mnuViewBanks, [this] { ShowList(ListKind::Bank); });
  On(actions_->mnuViewPayments, [this] { ShowList(ListKind::Payment); });
  On(actions_->mnuToolsCurrencies, [this] { ShowList(ListKind::Currency); });
  On(actions_->mnuToolsKeywords, [this] { ShowList(ListKind::Keywords); });
  On(actions_->mnuToolsCurrency, [this] { ConvertCurrency(); });
  On(actions_->mnuToolsShares, [this] { ShowWatchList(Invest(), WatchMode::Stocks); });
  On(actions_->mnuToolsLookup, [this] { ShowWatchList(Invest(), WatchMode::Currency); });
  On(actions_->mnuToolsRates, [this] { ShowRates(Invest()); });
  On(actions_->mnuToolsSources, [this] { OpenSources(Invest()); });
  On(actions_->mnuToolsLoan, [this] { ShowLoan(LoanMode::Loan, platform_, this); });
  On(actions_->mnuToolsMortgage, [this] { ShowLoan(LoanMode::Mortgage, platform_, this); });
  On(actions_->mnuViewReminders,
     [this] { FoldReminders(!actions_->mnuViewReminders->isChecked()); });
  On(actions_->mnuToolsCalculator, [this] { ShowCalculator(platform_, this); });
  On(actions_->mnuViewRibbon, [this] { FoldRibbon(!actions_->mnuViewRibbon->isChecked()); });
  connect(ribbon_, &ucRibbon::FoldRequested, actions_->mnuViewRibbon, &QAction::trigger);
  On(actions_->mnuRibbonAdd, [this] {
    if (view_ != nullptr) view_->AddCommand()->trigger();
  });
  On(actions_->mnuHelpTips, [this] {
    FrmTips dialog(platform_, this);
    dialog.exec();
  });
  On(actions_->mnuHelpAbout, [this] {
    FrmAbout dialog(this);
    dialog.exec();
  });
}

void FrmMain::ShowList(ListKind kind) {
  if (OpenReferenceList(kind, {platform_, session_.Ledger(), this})) Reload();
}

InvestPlace FrmMain::Invest() {
  return {platform_, session_.Ledger(), session_.Rates(), this};
}

void FrmMain::ConvertCurrency() {
  const auto row = std::ranges::find(accounts_, EntryAccount(), &AccountRow::accountId);
  const std::string own = platform_.locale.CurrencyCode();
  ShowCurrency(Invest(), row == accounts_.end() || row->currency.empty() ? own : row->currency);
}

void FrmMain::PrintShown(bool preview) {
  if (view_ == nullptr) return;
  const PrintPlace place{platform_, this};
  if (preview) return OpenPrintPreview(view_->Printed(), place);
  PrintList(view_->Printed(), place);
}

void FrmMain::ApplyDay() {
  const Date today = platform_.clock.Today();
  // A window in front, a menu or a running operation works on rows that must not change below it.
  const bool isBusy = progress_.IsBusy() || QApplication::activeModalWidget() != nullptr ||
                      QApplication::activePopupWidget() != nullptr;
  if (today == day_ || isBusy) return;
  day_ = today;
  calendar_->SetToday(ToQt(day_));
  if (!session_.IsOpen()) return;
  // A window that stands for days is never left.
  BackUpOnLeaving(session_, platform_);
  ApplySchedules();
}

void FrmMain::Undo(bool again) {
  if (view_ == nullptr || !session_.IsOpen()) return;
  constexpr std::string_view kRows = "tblTransactions";
  UndoLog& log = session_.Ledger().Undo();
  const auto touched = again ? log.RedoKeys(kRows) : log.UndoKeys(kRows);
  const std::set<std::int64_t> before = view_->ShownOf(touched);
  const qint64 rowsBefore = view_->RowCount();
  const QString name = ToQt(again ? log.RedoName() : log.UndoName());
  if (again) {
    log.Redo();
  } else {
    log.Undo();
  }
  Reload();
  NoticeUndone(again ? tr("Done again: %1").arg(name) : tr("Undone: %1").arg(name),
               view_->RowCount() - rowsBefore);
  // What came back is what the next key is meant for.
  for (const std::int64_t key : view_->ShownOf(touched)) {
    if (before.contains(key)) continue;
    view_->ChooseKey(key);
    return;
  }
}

void FrmMain::NoticeUndone(const QString& what, qint64 rows) {
  QString count;
  if (rows == 1) count = tr(" (1 row is back)");
  if (rows > 1) count = tr(" (%1 rows are back)").arg(locale().toString(rows));
  if (rows == -1) count = tr(" (1 row is gone)");
  if (rows < -1) count = tr(" (%1 rows are gone)").arg(locale().toString(-rows));
  Notice(what + count);
}

}  // namespace corvanta::inline app
