#include "app/register/RegisterCommands.h"

#include "app/EntryCommands.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "app/register/TransactionClip.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "reference/Deletion.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include <algorithm>

namespace corvanta::inline app {

RegisterCommands::RegisterCommands(const ViewPlace& place, RegisterView& view)
    : place_(place), view_(view), menu_(new QMenu(&place.window)) {
  const MainActions& actions = place_.actions;
  menu_->setObjectName(QStringLiteral("mnuTransaction"));
  menu_->addActions({actions.mnuTransAdd, actions.mnuTransEdit});
  menu_->addSeparator();
  actions.FillTransactionMenu(*menu_);
  ConnectMenu();
  ConnectStatus();
  connect(&view_, &RegisterView::Opened, this,
          [this](std::int64_t key) { place_.host.Guard([this, key] { Open(key); }); });
  connect(&view_, &RegisterView::MenuRequested, this,
          [this](QPoint at) { place_.host.Guard([this, at] { ShowMenu(at); }); });
}

void RegisterCommands::ConnectMenu() {
  const MainActions& actions = place_.actions;
  place_.On(actions.mnuTransAdd, this, [this] { AddTransaction(place_); });
  place_.On(actions.mnuTransAutofill, this, [this] { AutofillTransaction(place_); });
  place_.On(actions.mnuTransEdit, this, [this] { Edit(); });
  place_.On(actions.mnuTransReconcile, this, [this] { BalanceAccount(place_); });
  place_.On(actions.mnuViewReconcile, this, [this] { BalanceAccount(place_); });
  place_.On(actions.mnuTransTransfer, this, [this] { ShowTwin(); });
  place_.On(actions.mnuTransSchedule, this, [this] { EditScheduleOfRow(); });
}

void RegisterCommands::ConnectStatus() {
  const auto connectTick = [this](QAction* action, StatusCommand command) {
    // Choosing the item has turned its tick already.
    place_.On(action, this,
              [this, action, command] { ApplyStatus(command, !action->isChecked()); });
  };
  connectTick(place_.actions.mnuTransUChk, StatusCommand::Uncleared);
  connectTick(place_.actions.mnuTransChk, StatusCommand::Cleared);
  connectTick(place_.actions.mnuTranRec, StatusCommand::Reconciled);
}

std::int64_t RegisterCommands::RowInUse() const {
  const bool isShown = place_.session.IsOpen() && place_.host.Shown().name == kTransactionShow;
  return isShown ? view_.FocusedKey() : 0;
}

void RegisterCommands::Mark(bool isShown) {
  const std::int64_t key = isShown && place_.session.IsOpen() ? view_.FocusedKey() : 0;
  place_.actions.mnuTransEdit->setEnabled(key != 0);
  MarkRow(key);
}

void RegisterCommands::MarkRow(std::int64_t key) {
  const MainActions& actions = place_.actions;
  const RowMarks marks = key == 0 ? RowMarks() : place_.session.Ledger().Statuses().MarksOf(key);
  for (QAction* tick : {actions.mnuTransUChk, actions.mnuTransChk, actions.mnuTranRec}) {
    tick->setEnabled(key != 0);
  }
  actions.mnuTransUChk->setChecked(key != 0 && marks.isUncleared);
  actions.mnuTransChk->setChecked(marks.isCleared);
  actions.mnuTranRec->setChecked(marks.isReconciled);
  actions.mnuTransSchedule->setVisible(marks.scheduleId != 0);
  actions.mnuTransTransfer->setVisible(marks.transferId != 0);
  const bool isSplit = view_.IsSplit(key);
  actions.mnuTransLines->setVisible(isSplit);
  actions.mnuTransLines->setChecked(isSplit && !view_.Model().Lines(key).empty());
  actions.mnuTransBreak1->setVisible(marks.scheduleId != 0 || marks.transferId != 0 || isSplit);
}

bool RegisterCommands::Can(EditTask task) const {
  switch (task) {
    case EditTask::Insert:
      return true;
    case EditTask::Paste:
      return CanPaste();
    case EditTask::SelectAll:
      return !view_.IsEmpty() && !view_.IsCovered();
    default:
      return view_.FocusedKey() != 0;
  }
}

bool RegisterCommands::CanPaste() const {
  return !Copied().empty();
}

void RegisterCommands::Do(EditTask task, std::int64_t accountId) {
  switch (task) {
    case EditTask::Insert:
      return AddTransaction(place_);
    case EditTask::Details:
      return Edit();
    case EditTask::Copy:
      return Copy();
    case EditTask::Paste:
      return Paste(accountId);
    case EditTask::Delete:
      return Delete();
    case EditTask::SelectAll:
      return view_.Table().selectAll();
  }
}

bool RegisterCommands::IsAccountClosed(const char* title, Keys transactionIds) {
  clsCorvanta& ledger = place_.session.Ledger();
  const auto account = ledger.Accounts().ReadAccount(place_.host.ChosenAccount());
  // Where a filter shows the rows of several accounts none of them is the chosen one.
  const auto isInClosed = [&](std::int64_t key) {
    const auto row = ledger.Transactions().ReadTransaction(key);
    return row && row->accountClosed;
  };
  const bool isClosed = account ? account->closed : std::ranges::any_of(transactionIds, isInClosed);
  if (!isClosed) return false;
  place_.platform.prompts.Tell(title, kAccountClosed);
  return true;
}

void RegisterCommands::ShowMenu(QPoint place) {
  if (IsAccountClosed(kAddItem)) return;
  const std::int64_t key = RowInUse();
  if (key == 0) return AddQuickly(place_);
  MarkRow(key);
  menu_->popup(place);
}

void RegisterCommands::ChangeRows(const std::function<void()>& change) {
  {
    const StatusWords words(place_.platform.progress, "Please wait updating records...");
    try {
      change();
    } catch (...) {
      // The command's tick has turned already, the rows have not.
      place_.host.Reload();
      throw;
    }
  }
  place_.host.Reload();
}

void RegisterCommands::ApplyStatus(StatusCommand command, bool isTicked) {
  const std::vector<std::int64_t> keys = view_.ChosenKeys();
  if (keys.empty() || IsAccountClosed(kAmendItem, keys)) return MarkRow(RowInUse());
  ChangeRows([&] { place_.session.Ledger().Statuses().ApplyStatus(command, keys, isTicked); });
}

void RegisterCommands::Edit() {
  const std::vector<std::int64_t> keys = view_.ChosenKeys();
  if (RowInUse() == 0 || keys.empty() || IsAccountClosed(kAmendItem, keys)) return;
  EditTransactions(place_, keys);
}

void RegisterCommands::Open(std::int64_t key) {
  const std::vector<std::int64_t> keys = view_.ChosenKeys();
  if (keys.size() > 1 && std::ranges::count(keys, key) > 0) return Edit();
  if (!IsAccountClosed(kAmendItem, {&key, 1})) EditTransactions(place_, {&key, 1});
}

void RegisterCommands::Delete() {
  const std::vector<std::int64_t> keys = view_.ChosenKeys();
  if (keys.empty() || IsAccountClosed(kAmendItem, keys)) return;
  TransactionBook& transactions = place_.session.Ledger().Transactions();
  if (transactions.ReachesClosedAccount(keys)) {
    place_.platform.prompts.Tell(kAmendItem, kAccountClosed);
    return;
  }
  if (!AskDeleteItems(place_.platform.prompts, keys.size())) return;
  ChangeRows([&] { transactions.DeleteTransactions(keys); });
}

std::vector<std::int64_t> RegisterCommands::Copied() const {
  return FromClip(ClipKind::Transactions, ToQt(place_.session.Path()));
}

void RegisterCommands::Copy() {
  const std::vector<std::int64_t> keys = view_.ChosenKeys();
  if (keys.empty()) return;
  QGuiApplication::clipboard()->setMimeData(
      ToClip(ClipKind::Transactions, ToQt(place_.session.Path()), keys, view_.ChosenText()));
}

void RegisterCommands::Paste(std::int64_t accountId) {
  const std::vector<std::int64_t> keys = Copied();
  if (keys.empty() || accountId == 0 || IsAccountClosed(kAmendItem)) return;
  std::int64_t last = 0;
  ChangeRows([&] { last = place_.session.Ledger().Copies().PasteTransactions(keys, accountId); });
  if (last != 0) view_.ChooseKey(last);
}

void RegisterCommands::ShowTwin() {
  const auto row = place_.session.Ledger().Transactions().ReadTransaction(RowInUse());
  if (!row || row->twinAccountId == 0) return;
  place_.host.ShowTransaction(row->twinAccountId, row->transferId);
}

void RegisterCommands::EditScheduleOfRow() {
  clsCorvanta& ledger = place_.session.Ledger();
  const RowMarks marks = ledger.Statuses().MarksOf(RowInUse());
  if (marks.scheduleId == 0) return;
  if (ledger.Schedules().ReadSchedule(marks.scheduleId)) {
    return EditSchedule(place_, marks.scheduleId);
  }
  place_.platform.prompts.Tell("Schedule Item",
                               "The schedule that this item was made from is no longer there.");
}

}  // namespace corvanta::inline app
