// The data file that the main window works on, and files in and out of it.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/QtProgress.h"
#include "app/reminders/ReminderCommands.h"
#include "app/secrets/FrmPassphrase.h"
#include "app/secrets/FrmRecoveryKey.h"
#include "controls/QtText.h"
#include "controls/WaitCursor.h"
#include "exchange/ExchangeDialogs.h"
#include "exchange/import/ImportKind.h"
#include "ledger/secrets/PassphrasePrompt.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/RowCount.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"
#include "store/datafile/Passphrase.h"
#include "store/datafile/opening/KeyRecovery.h"
#include "store/sql/Connection.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <limits>

namespace corvanta::inline app {
namespace {
constexpr std::string_view kReindex = "Reindex";
constexpr std::chrono::milliseconds kWhenBusy{500};

bool Opens(const std::string& path, const std::string& password, Platform& platform) {
  try {
    return OpensWith(path, password, platform);
  } catch (const StoreError&) {
    return false;
  }
}

// The file that is dropped, where it is one that could be imported; empty otherwise.
QString DroppedFile(const QDropEvent& event) {
  const QList<QUrl> urls = event.mimeData()->urls();
  if (urls.size() != 1 || !urls.constFirst().isLocalFile()) return {};
  const QString path = urls.constFirst().toLocalFile();
  return HasImportEnding(FromQt(path)) ? path : QString();
}

}  // namespace

void FrmMain::ConnectFiles() {
  setAcceptDrops(true);
  On(actions_->mnuFileOpen, [this] { OpenDataFile(); });
  On(actions_->mnuFileValidate, [this] { ValidateDataFile(); });
  On(actions_->mnuFilePassword, [this] { ChangePassword(); });
  On(actions_->mnuFilePassphrase, [this] { ChangePassphrase(); });
  On(actions_->mnuFileKey, [this] { ShowRecoveryKey(); });
  On(actions_->mnuFileImport, [this] { ImportFile({}); });
  connect(actions_->mnuFileExit, &QAction::triggered, this, &QWidget::close);
}

void FrmMain::AdoptLedger() {
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
  AdoptLedger();
  RememberFile();
  history_.Clear();
  shown_.rows = {};
  account_ = 0;
  ReadAccounts();
  reminderCommands_->Read();
  if (!accounts_.empty()) account_ = accounts_.front().accountId;
  const MainView& first = account_ == 0 ? *views_.front() : RegisterOfAccount();
  ShowView(first.Name());
  return opened;
}

void FrmMain::ValidateDataFile() {
  const bool wanted =
      platform_.prompts.Ask("Validate Data Files",
                            "This option will validate and fix any problems with the data file.\n"
                            " Do you wish to continue?");
  if (!wanted) return;
  platform_.registry.Write(Hive::CurrentUser, kSettingsKey, kReindex, "1");
  const ViewCommand before = shown_;
  // Of what could not be opened, whatever is found then: nothing went.
  RowCount rows{0, std::numeric_limits<std::int64_t>::max()};
  if (session_.IsOpen()) rows = CountRows(session_.Ledger().Store());
  // What could not be validated is open again as it was, where it can be.
  if (!Reopen(false) && !Reopen(true)) return;
  Show(before);
  // What stood in the way of the renewal has been told.
  if (!session_.IsRenewed()) return NoticePosted();
  NoticeValidated(rows.rows, CountLeft(session_.Ledger().Store(), rows));
}

void FrmMain::NoticeValidated(qint64 before, qint64 left) {
  QString text =
      left == 1
          ? tr("The data file is sound: 1 row of transactions")
          : tr("The data file is sound: %1 rows of transactions").arg(locale().toString(left));
  if (left < before) {
    text += tr(", %1 that belonged to nothing removed").arg(locale().toString(before - left));
  }
  const std::size_t missing = session_.Ledger().Notes().Files().CountMissing();
  if (missing == 1) text += tr(", 1 attached file is missing");
  if (missing > 1) text += tr(", %1 attached files are missing").arg(missing);
  const QString posted = PostedText();
  Notice(posted.isEmpty() ? text : text + QStringLiteral("; ") + posted);
}

void FrmMain::ChangePassword() {
  if (session_.IsOpen()) session_.Passwords().Change(session_.Ledger().Store());
}

// Whoever finds the window standing must not be able to lock its owner out.
bool FrmMain::ConfirmPassphrase() {
  if (!IsFromPassphrase(session_.Password())) return true;
  const auto typed =
      platform_.prompts.AskText("Passphrase", "The present passphrase of the data file:", true);
  if (!typed) return false;
  if (PasswordFromPassphrase(*typed, session_.Path()) == session_.Password()) return true;
  platform_.prompts.Tell(kPassphraseWarning, "This is not the passphrase of the data file.");
  return false;
}

void FrmMain::ChangePassphrase() {
  constexpr const char* kTitle = "Passphrase";
  if (!session_.IsOpen() || !session_.Passwords().Confirm(session_.Ledger().Store())) return;
  if (!ConfirmPassphrase()) return;
  FrmPassphrase dialog(IsFromPassphrase(session_.Password()), platform_, this);
  if (dialog.exec() != QDialog::Accepted) return;
  const ViewCommand before = shown_;
  const std::string& passphrase = dialog.Passphrase();
  session_.Close();
  bool isDone = false;
  Guard([&] {
    const WaitCursor waiting;
    session_.Opener().Protect(passphrase.empty() ? std::string()
                                                 : NewPasswordFromPassphrase(passphrase));
    isDone = true;
  });
  if (!Reopen(true)) return;
  Show(before);
  if (!isDone) return;
  platform_.prompts.Tell(
      kTitle,
      passphrase.empty()
          ? "The data file opens on this computer without a passphrase. Save its recovery "
            "key: it has a new one."
          : "The data file opens with your passphrase from now on, on every computer. Write "
            "it down and keep it in a safe place.");
}

void FrmMain::ShowRecoveryKey() {
  constexpr const char* kTitle = "Recovery Key";
  if (!session_.IsOpen()) {
    platform_.prompts.Tell(kTitle, "Open a data file first: the key belongs to the file.");
    return;
  }
  if (IsFromPassphrase(session_.Password())) {
    platform_.prompts.Tell(kTitle, kNoOtherKey);
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

void FrmMain::ImportFile(const std::string& path) {
  const ImportResult result =
      OpenImport(EntryAccount(), path, {platform_, session_.Ledger(), this});
  if (!result.isChanged) return;
  Reload();
  const bool isShown =
      shown_.accountId == result.accountId && !shown_.rows.IsSet(FilterKind::Account);
  if (result.accountId == 0 || isShown) return;
  ShowAccount(result.accountId);
  FocusView();
}

void FrmMain::dragEnterEvent(QDragEnterEvent* event) {
  const bool isFree = session_.IsOpen() && QApplication::activeModalWidget() == nullptr;
  if (isFree && !DroppedFile(*event).isEmpty()) event->acceptProposedAction();
}

void FrmMain::dropEvent(QDropEvent* event) {
  const QString path = DroppedFile(*event);
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  // The program that the file comes from waits until the drop is over.
  BeginImport(FromQt(path));
}

void FrmMain::BeginImport(const std::string& path) {
  QMetaObject::invokeMethod(
      this,
      [this, path] {
        // An operation that lets window messages through must not find other rows afterwards, and
        // a dialog that is open is finished first.
        const bool isFree = session_.IsOpen() && !progress_.IsBusy() &&
                            QApplication::activeModalWidget() == nullptr;
        if (isFree) return Guard([this, path] { ImportFile(path); });
        QTimer::singleShot(kWhenBusy, this, [this, path] { BeginImport(path); });
      },
      Qt::QueuedConnection);
}

}  // namespace corvanta::inline app
