// What the commands of the main window do.
#include "app/AccountTree.h"
#include "app/FrmAbout.h"
#include "app/FrmMain.h"
#include "app/FrmRecoveryKey.h"
#include "app/FrmTips.h"
#include "app/LedgerSession.h"
#include "app/ListColours.h"
#include "app/MainActions.h"
#include "app/RegisterView.h"
#include "app/ScheduleView.h"
#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/ucCalendar.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QStackedWidget>
#include <QStatusBar>

#include <limits>

namespace corvanta {
namespace {
constexpr std::string_view kReindex = "Reindex";
constexpr int kNoticeTime = 10000;  // milliseconds

// Of transactions and their split lines.
struct RowCount {
  qint64 rows = 0;
  qint64 last = 0;  // key
};

RowCount CountRows(const LedgerSession& session) {
  // Whatever is found then, nothing went.
  if (!session.IsOpen()) return {0, std::numeric_limits<qint64>::max()};
  Connection& store = session.Ledger().Store();
  return {store.QueryValue("Select Count(*) from tblTransactions").Int(),
          store.QueryValue("Select Max(TransactionID) from tblTransactions").Int()};
}

bool Opens(const std::string& path, const std::string& password, Platform& platform) {
  try {
    return OpensWith(path, password, platform);
  } catch (const StoreError&) {
    return false;
  }
}

// How many of the rows up to that key are left; what was added since does not count.
qint64 CountLeft(const LedgerSession& session, std::int64_t last) {
  return session.Ledger()
      .Store()
      .QueryValue("Select Count(*) from tblTransactions Where TransactionID <= " + SqlNumber(last))
      .Int();
}

}  // namespace

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
  connect(action, &QAction::triggered, this, [this, command] { Guard(command); });
}

void FrmMain::ConnectCommands() {
  On(actions_->mnuFileOpen, [this] { OpenDataFile(); });
  On(actions_->mnuFileValidate, [this] { ValidateDataFile(); });
  On(actions_->mnuFilePassword, [this] { ChangePassword(); });
  On(actions_->mnuFileKey, [this] { ShowRecoveryKey(); });
  On(actions_->mnuHelpTips, [this] { ShowTips(); });
  On(actions_->mnuHelpAbout, [this] { ShowAbout(); });
  connect(actions_->mnuFileExit, &QAction::triggered, this, &QWidget::close);
  ConnectEdit();
  ConnectTransactions();
  ConnectEntry();
  ConnectSchedules();
  ConnectExchange();
  ConnectReference();
  ConnectViews();
}

void FrmMain::ConnectEdit() {
  On(actions_->mnuEditUndo, [this] { Undo(false); });
  On(actions_->mnuEditRedo, [this] { Undo(true); });
  On(actions_->mnuEditInsert, [this] {
    if (const auto kind = ShownKind()) return EditItem(*kind, 0);
    if (shown_.name == kScheduleShow) return EditSchedule(0);
    if (shown_.name == kTransactionShow) AddTransaction();
  });
  On(actions_->mnuEditDetails, [this] {
    const auto kind = ShownKind();
    if (shown_.name == kScheduleShow) return EditSchedule(scheduleView_->ChosenKey());
    if (!kind) return EditTransactions();
    if (ChosenKey(*kind) != 0) EditItem(*kind, ChosenKey(*kind));
  });
  On(actions_->mnuEditCopy, [this] {
    if (shown_.name == kScheduleShow) return CopySchedule();
    CopyTransactions();
  });
  On(actions_->mnuEditPaste, [this] {
    if (shown_.name == kScheduleShow) return PasteSchedule();
    PasteTransactions();
  });
  On(actions_->mnuEditDelete, [this] {
    if (const auto kind = ShownKind()) return DeleteItem(*kind);
    if (shown_.name == kScheduleShow) return DeleteSchedule();
    if (shown_.name == kTransactionShow) DeleteTransactions();
  });
  On(actions_->mnuEditSelect, [this] { registerView_->Table().selectAll(); });
}

void FrmMain::ConnectViews() {
  // The keys of a view work at once, without a way to it.
  const auto go = [this](QAction* action, std::string_view view) {
    On(action, [this, view] {
      ShowView(view, view == kTransactionShow ? account_ : 0);
      views_->currentWidget()->setFocus();
    });
  };
  go(actions_->mnuViewAccounts, kAccountShow);
  go(actions_->mnuViewRegister, kTransactionShow);
  go(actions_->mnuViewCategories, kCategoryShow);
  go(actions_->mnuViewPayees, kPayeeShow);
  go(actions_->mnuViewSchedules, kScheduleShow);
  On(actions_->mnuViewRefresh, [this] { Reload(); });
  for (QAction* tick :
       {actions_->mnuViewUnCleared, actions_->mnuViewCleared, actions_->mnuViewReconciled}) {
    On(tick, [this] { TakeFilter(); });
  }
  On(actions_->mnuViewAll, [this] { ShowEverything(); });
  On(actions_->mnuViewWidths, [this] {
    if (SortedTable* table = ShownTable()) table->SetWidths({});
  });
  for (QAction* tick :
       {actions_->mnuViewDescription, actions_->mnuViewReference, actions_->mnuViewStatus}) {
    On(tick, [this] { KeepColumns(); });
  }
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

void FrmMain::ApplySettings() {
  const bool description = settings_.IsOn(Setting::ShowDesc);
  const bool reference = settings_.IsOn(Setting::ShowRef);
  const bool status = settings_.IsOn(Setting::ShowStatus);
  actions_->mnuViewDescription->setChecked(description);
  actions_->mnuViewReference->setChecked(reference);
  actions_->mnuViewStatus->setChecked(status);
  registerView_->ShowOptionalColumns(description, reference, status);
  registerView_->SetColours(ReadListColours(settings_, palette()));
  tree_->ShowNumbers(settings_.IsOn(Setting::AccountNo));
  calendar_->setVisible(settings_.IsOn(Setting::Calendar));
}

void FrmMain::KeepColumns() {
  settings_.SetOn(Setting::ShowDesc, actions_->mnuViewDescription->isChecked());
  settings_.SetOn(Setting::ShowRef, actions_->mnuViewReference->isChecked());
  settings_.SetOn(Setting::ShowStatus, actions_->mnuViewStatus->isChecked());
  ApplySettings();
}

void FrmMain::TakeLedger() {
  if (!session_.IsOpen()) return;
  UndoLog& log = session_.Ledger().Undo();
  log.Start();
  log.OnChange([window = QPointer<FrmMain>(this)] {
    if (window) window->MarkUndo();
  });
}

bool FrmMain::Reopen(bool quiet) {
  // What is thrown on the way must not leave the window on a ledger that is gone.
  bool opened = false;
  Guard([&] { opened = session_.Open(quiet); });
  Guard([this] { session_.PostSchedules(); });
  TakeLedger();
  history_.Clear();
  account_ = 0;
  ReadAccounts();
  ReadReminders();
  if (!accounts_.empty()) account_ = accounts_.front().accountId;
  ShowView(account_ == 0 ? kAccountShow : kTransactionShow, account_);
  return opened;
}

void FrmMain::OpenDataFile() {
  const auto path = platform_.prompts.OpenFile(
      {"Select File to Open", "Data Files", "*.dat", "dat", std::string()});
  if (!path) return;
  const bool wasOpen = session_.IsOpen();
  session_.Choose(*path);
  if (Reopen(true)) return NoticePosted();
  // The file that cannot be used must not be what the next start begins with.
  session_.Unchoose();
  if (wasOpen) Reopen(true);
}

void FrmMain::ValidateDataFile() {
  const bool wanted =
      platform_.prompts.Ask("Validate Data Files",
                            "This option will validate and fix any problems with the data file.\n"
                            " Do you wish to continue?");
  if (!wanted) return;
  platform_.registry.Write(Hive::CurrentUser, kSettingsKey, kReindex, "1");
  const ViewCommand before = shown_;
  const RowCount rows = CountRows(session_);
  // What could not be validated is open again as it was, where it can be.
  if (!Reopen(false) && !Reopen(true)) return;
  Show(before);
  // What stood in the way of the renewal has been told.
  if (!session_.IsRenewed()) return NoticePosted();
  NoticeValidated(rows.rows, CountLeft(session_, rows.last));
}

void FrmMain::NoticeValidated(qint64 before, qint64 left) {
  QString text =
      left == 1
          ? tr("The data file is sound: 1 row of transactions")
          : tr("The data file is sound: %1 rows of transactions").arg(locale().toString(left));
  if (left < before) {
    text += tr(", %1 that belonged to nothing removed").arg(locale().toString(before - left));
  }
  const QString posted = PostedText();
  Notice(posted.isEmpty() ? text : text + QStringLiteral("; ") + posted);
}

void FrmMain::ChangePassword() {
  if (session_.IsOpen()) session_.Passwords().Change(session_.Ledger().Store());
}

void FrmMain::ShowRecoveryKey() {
  constexpr const char* kTitle = "Recovery Key";
  if (!session_.IsOpen()) {
    platform_.prompts.Tell(kTitle, "Open a data file first: the key belongs to the file.");
    return;
  }
  // It opens the file for whoever reads it: the one who left the window standing may be away.
  if (!session_.Passwords().Confirm(session_.Ledger().Store())) return;
  // A key is handed out for the day when nothing else is left, so it is tried before.
  if (!Opens(session_.Path(), session_.Password(), platform_)) {
    platform_.prompts.Tell(kTitle,
                           "Another program has put another file in the place of the data file. "
                           "Open it again before you write its key down.",
                           Icon::Warning);
    return;
  }
  FrmRecoveryKey dialog(platform_, session_.Password(), this);
  dialog.exec();
}

void FrmMain::ShowTips() {
  FrmTips dialog(platform_, this);
  dialog.exec();
}

void FrmMain::ShowAbout() {
  FrmAbout dialog(this);
  dialog.exec();
}

}  // namespace corvanta
