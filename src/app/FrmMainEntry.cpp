// Entering and editing transactions, balancing the account, converting and printing.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/RegisterView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "entry/EntryDialogs.h"
#include "invest/InvestDialogs.h"
#include "ledger/AccountBook.h"
#include "ledger/ClosedAccounts.h"
#include "ledger/ReferenceRecords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "reconcile/ReconcileDialogs.h"
#include "reports/ReportDialogs.h"

#include <QAction>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta {
namespace {
constexpr const char* kAddItem = "Add Item";
constexpr const char* kAmendItem = "Amend Item";
}  // namespace

void FrmMain::ConnectEntry() {
  On(actions_->mnuTransAdd, [this] { AddTransaction(); });
  On(actions_->mnuTransEdit, [this] { EditTransactions(); });
  On(actions_->mnuTransAutofill, [this] { AutofillTransaction(); });
  On(actions_->mnuTransReconcile, [this] { Reconcile(); });
  On(actions_->mnuViewReconcile, [this] { Reconcile(); });
  On(actions_->mnuToolsCurrency, [this] { ConvertCurrency(); });
  On(actions_->mnuFilePrint, [this] { PrintShown(false); });
  On(actions_->mnuFilePreview, [this] { PrintShown(true); });
}

EntryPlace FrmMain::EntryPlaceHere() {
  return {platform_, session_.Ledger(), session_.Rates(), this, [this] { Reload(); }};
}

std::int64_t FrmMain::EntryAccount() const {
  const std::int64_t chosen = ChosenAccount();
  return chosen != 0 ? chosen : account_;
}

bool FrmMain::CanAddTo(std::int64_t accountId) {
  if (accountId == 0) {
    platform_.prompts.Tell("Please Add Account",
                           "There are no Accounts set up. Please add an Account to start");
    return false;
  }
  const std::optional<AccountRecord> account = session_.Ledger().Accounts().ReadAccount(accountId);
  if (!account || !account->closed) return true;
  platform_.prompts.Tell(kAddItem, kAccountClosed);
  return false;
}

void FrmMain::TakeEntry(const EntryResult& result) {
  if (!result.isChanged) return;
  if (result.isScheduleChanged) session_.PostSchedules();
  Reload();
  if (shown_.name != kTransactionShow) return;
  registerView_->ChooseKey(result.savedKey);
  registerView_->setFocus();
}

void FrmMain::AddTransaction(std::optional<Date> day) {
  const std::int64_t account = EntryAccount();
  if (!CanAddTo(account)) return;
  TransactionRequest request;
  request.accountId = account;
  request.day = day;
  TakeEntry(OpenTransaction(request, EntryPlaceHere()));
}

void FrmMain::AutofillTransaction() {
  const std::int64_t account = EntryAccount();
  if (CanAddTo(account)) TakeEntry(OpenAutofill(account, 0, EntryPlaceHere()));
}

void FrmMain::AddQuickly() {
  if (settings_.IsOn(Setting::AutoFill)) return AutofillTransaction();
  AddTransaction();
}

void FrmMain::EditTransactions() {
  if (shown_.name != kTransactionShow) return;
  const std::vector<std::int64_t> keys = registerView_->ChosenKeys();
  if (keys.empty() || IsAccountClosed(kAmendItem)) return;
  if (keys.size() > 1) return TakeEntry(OpenMultiEdit(keys, EntryPlaceHere()));
  EditTransaction(keys.front());
}

void FrmMain::OpenTransactions(std::int64_t key) {
  const std::vector<std::int64_t> keys = registerView_->ChosenKeys();
  const bool isOneOf = std::find(keys.begin(), keys.end(), key) != keys.end();
  if (keys.size() > 1 && isOneOf) return EditTransactions();
  EditTransaction(key);
}

void FrmMain::EditTransaction(std::int64_t key) {
  if (IsAccountClosed(kAmendItem)) return;
  TransactionRequest request;
  request.key = key;
  TakeEntry(OpenTransaction(request, EntryPlaceHere()));
}

void FrmMain::Reconcile() {
  const ReconcileResult result =
      OpenReconcile(EntryAccount(), {platform_, session_.Ledger(), session_.Rates(), this});
  if (result.isScheduleChanged) {
    TakeSchedules();
  } else if (result.isChanged) {
    Reload();
  }
  if (result.outcome) NoticeBalanced(*result.outcome);
}

void FrmMain::NoticeBalanced(const ReconcileOutcome& outcome) {
  const auto rows = [this](std::size_t count) {
    return count == 1
               ? tr("1 transaction")
               : tr("%1 transactions").arg(locale().toString(static_cast<qulonglong>(count)));
  };
  QStringList parts;
  if (outcome.settled > 0 || outcome.taken == 0) {
    parts.append(tr("%1 reconciled").arg(rows(outcome.settled)));
  }
  if (outcome.taken > 0) parts.append(tr("%1 no longer reconciled").arg(rows(outcome.taken)));
  Notice(parts.join(QStringLiteral(", ")));
}

void FrmMain::ConvertCurrency() {
  const std::int64_t account = EntryAccount();
  const auto row = std::find_if(accounts_.begin(), accounts_.end(), [account](const auto& other) {
    return other.accountId == account;
  });
  const std::string own = platform_.locale.CurrencyCode();
  ShowCurrency({platform_, session_.Ledger(), session_.Rates(), this},
               row == accounts_.end() || row->currency.empty() ? own : row->currency);
}

void FrmMain::PrintShown(bool preview) {
  const SortedTable* list = ShownTable();
  if (list == nullptr) return;
  const bool isRegister = shown_.name == kTransactionShow;
  const QString title = isRegister ? registerView_->Title() : list->accessibleName();
  const PrintTable table = PrintTableOf(*list, FromQt(title));
  const PrintPlace place{platform_, this};
  if (preview) return OpenPrintPreview(table, place);
  PrintList(table, place);
}

}  // namespace corvanta
