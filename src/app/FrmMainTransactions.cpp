// The commands on the rows of the register.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ReferenceView.h"
#include "app/RegisterView.h"
#include "app/TransactionClip.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "ledger/ClosedAccounts.h"
#include "ledger/RegisterRows.h"
#include "ledger/StatusBook.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionPaste.h"
#include "ledger/TransactionRecord.h"
#include "ledger/TransactionStatus.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "reference/Deletion.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

namespace corvanta {
namespace {

constexpr const char* kAmendItem = "Amend Item";

}  // namespace

void FrmMain::ConnectTransactions() {
  const auto status = [this](QAction* action, StatusCommand command) {
    // Choosing the item has turned its tick already.
    On(action, [this, action, command] { ApplyStatus(command, !action->isChecked()); });
  };
  status(actions_->mnuTransUChk, StatusCommand::Uncleared);
  status(actions_->mnuTransChk, StatusCommand::Cleared);
  status(actions_->mnuTranRec, StatusCommand::Reconciled);
  On(actions_->mnuTransTransfer, [this] { ShowTwin(); });
  On(actions_->mnuTransSchedule, [this] { EditScheduleOfRow(); });
}

void FrmMain::MarkTransaction() {
  const bool isRegister = session_.IsOpen() && shown_.name == kTransactionShow;
  const std::int64_t key = isRegister ? registerView_->FocusedKey() : 0;
  const RowMarks marks = key == 0 ? RowMarks() : session_.Ledger().Statuses().MarksOf(key);
  for (QAction* tick : {actions_->mnuTransUChk, actions_->mnuTransChk, actions_->mnuTranRec}) {
    tick->setEnabled(key != 0);
    tick->setChecked(false);
  }
  actions_->mnuTransUChk->setChecked(key != 0 && marks.isUncleared);
  actions_->mnuTransChk->setChecked(marks.isCleared);
  actions_->mnuTranRec->setChecked(marks.isReconciled);
  actions_->mnuTransSchedule->setVisible(marks.scheduleId != 0);
  actions_->mnuTransTransfer->setVisible(marks.transferId != 0);
  actions_->mnuTransBreak1->setVisible(marks.scheduleId != 0 || marks.transferId != 0);
}

bool FrmMain::IsAccountClosed(const char* title) {
  if (!isAccountClosed_) return false;
  platform_.prompts.Tell(title, kAccountClosed);
  return true;
}

void FrmMain::ShowTransactionMenu(QPoint place) {
  if (shown_.name != kTransactionShow || IsAccountClosed("Add Item")) return;
  if (registerView_->FocusedKey() == 0) return AddQuickly();
  MarkTransaction();
  transactionMenu_->popup(place);
}

void FrmMain::ChangeRows(const std::function<void()>& change) {
  {
    const StatusWords words(platform_.progress, "Please wait updating records...");
    try {
      change();
    } catch (...) {
      // The command's tick has turned already, the rows have not.
      Reload();
      throw;
    }
  }
  Reload();
}

void FrmMain::ApplyStatus(StatusCommand command, bool isTicked) {
  if (IsAccountClosed(kAmendItem)) return MarkTransaction();
  const std::vector<std::int64_t> keys = registerView_->ChosenKeys();
  if (keys.empty()) return MarkTransaction();
  ChangeRows([&] { session_.Ledger().Statuses().ApplyStatus(command, keys, isTicked); });
}

void FrmMain::DeleteTransactions() {
  const std::vector<std::int64_t> keys = registerView_->ChosenKeys();
  if (keys.empty() || IsAccountClosed(kAmendItem)) return;
  if (session_.Ledger().Transactions().ReachesClosedAccount(keys)) {
    platform_.prompts.Tell(kAmendItem, kAccountClosed);
    return;
  }
  if (!AskDeleteItems(platform_.prompts, keys.size())) return;
  ChangeRows([&] { session_.Ledger().Transactions().DeleteTransactions(keys); });
}

void FrmMain::CopyTransactions() {
  const std::vector<std::int64_t> keys = registerView_->ChosenKeys();
  if (keys.empty()) return;
  QGuiApplication::clipboard()->setMimeData(
      ToClip(ClipKind::Transactions, ToQt(session_.Path()), keys, registerView_->ChosenText()));
}

void FrmMain::PasteTransactions() {
  const std::vector<std::int64_t> keys = FromClip(ClipKind::Transactions, ToQt(session_.Path()));
  if (keys.empty() || shown_.accountId == 0 || IsAccountClosed(kAmendItem)) return;
  std::int64_t last = 0;
  ChangeRows([&] { last = session_.Ledger().Copies().PasteTransactions(keys, shown_.accountId); });
  if (last != 0) registerView_->ChooseKey(last);
}

void FrmMain::ShowTwin() {
  const std::optional<TransactionDetails> row =
      session_.Ledger().Transactions().ReadTransaction(registerView_->FocusedKey());
  if (!row || row->twinAccountId == 0) return;
  ShowTransaction(row->twinAccountId, row->transferId);
}

void FrmMain::ShowTransaction(std::int64_t accountId, std::int64_t key) {
  ShowView(kTransactionShow, accountId);
  if (registerView_->ChooseKey(key)) return;
  // The ticks or the days hide it: shown without them, it is there.
  Show({kTransactionShow, accountId});
  registerView_->ChooseKey(key);
}

void FrmMain::Undo(bool again) {
  if (!session_.IsOpen()) return;
  constexpr std::string_view kRows = "tblTransactions";
  UndoLog& log = session_.Ledger().Undo();
  const auto touched = again ? log.RedoKeys(kRows) : log.UndoKeys(kRows);
  const std::set<std::int64_t> before = ShownOf(touched);
  const qint64 rowsBefore = RowsShown();
  const QString name = ToQt(again ? log.RedoName() : log.UndoName());
  if (again) {
    log.Redo();
  } else {
    log.Undo();
  }
  Reload();
  NoticeUndone(again ? tr("Done again: %1").arg(name) : tr("Undone: %1").arg(name),
               RowsShown() - rowsBefore);
  // What came back is what the next key is meant for.
  for (const std::int64_t key : ShownOf(touched)) {
    if (!before.contains(key)) return ChooseShown(key);
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

qint64 FrmMain::RowsShown() const {
  if (shown_.name == kTransactionShow) return registerView_->Table().model()->rowCount();
  const ReferenceView* list = ShownList();
  return list == nullptr ? 0 : static_cast<qint64>(list->ShownKeys().size());
}

std::set<std::int64_t> FrmMain::ShownOf(const std::vector<std::int64_t>& touched) const {
  if (shown_.name == kTransactionShow) {
    const auto keys = KeysInScope(session_.Ledger().Store(), ShownScope(), touched);
    return {keys.begin(), keys.end()};
  }
  const ReferenceView* list = ShownList();
  if (list == nullptr) return {};
  const std::vector<std::int64_t> keys = list->ShownKeys();
  return {keys.begin(), keys.end()};
}

void FrmMain::ChooseShown(std::int64_t key) {
  if (shown_.name == kTransactionShow) {
    registerView_->ChooseKey(key);
  } else if (ReferenceView* list = ShownList()) {
    list->ChooseKey(key);
  }
}

}  // namespace corvanta
