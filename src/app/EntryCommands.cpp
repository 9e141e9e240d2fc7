#include "app/EntryCommands.h"

#include "app/LedgerSession.h"
#include "app/ViewCommand.h"
#include "app/ViewHost.h"
#include "entry/EntryDialogs.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"
#include "reconcile/ReconcileDialogs.h"
#include "store/sql/UndoLog.h"

#include <QCoreApplication>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QWidget>

namespace corvanta::inline app {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("EntryCommands", text);
}

EntryPlace PlaceOf(const ViewPlace& place) {
  return {place.platform, place.session.Ledger(), place.session.Rates(), &place.window,
          [host = &place.host] { host->Reload(); }};
}

// False when the account cannot be added to, which has been told.
bool CanAddTo(const ViewPlace& place, std::int64_t accountId) {
  if (accountId == 0) {
    place.platform.prompts.Tell("Please Add Account",
                                "There are no Accounts set up. Please add an Account to start");
    return false;
  }
  const auto account = place.session.Ledger().Accounts().ReadAccount(accountId);
  if (!account || !account->closed) return true;
  place.platform.prompts.Tell(kAddItem, kAccountClosed);
  return false;
}

void Apply(const ViewPlace& place, const EntryResult& result) {
  if (!result.isChanged) return;
  if (result.isScheduleChanged) {
    place.host.ApplySchedules();
  } else {
    place.host.Reload();
  }
  if (place.host.Shown().name != kTransactionShow) return;
  const bool isThere = place.host.ChooseRow(kTransactionShow, result.savedKey);
  if (!isThere && result.savedKey != 0 && place.host.Shown().IsFiltered()) {
    place.host.Notice(Tr("Saved. What is filtered hides it; Show Everything shows it."));
  }
  place.host.FocusView();
}

QString NoticeOf(const ReconcileOutcome& outcome, const QLocale& locale) {
  const auto rows = [&locale](std::size_t count) {
    const QString number = locale.toString(static_cast<qulonglong>(count));
    return count == 1 ? Tr("1 transaction") : Tr("%1 transactions").arg(number);
  };
  QStringList parts;
  if (outcome.settled > 0 || outcome.taken == 0) {
    parts.append(Tr("%1 reconciled").arg(rows(outcome.settled)));
  }
  if (outcome.taken > 0) parts.append(Tr("%1 no longer reconciled").arg(rows(outcome.taken)));
  return parts.join(QStringLiteral(", "));
}

}  // namespace

void AddTransaction(const ViewPlace& place, std::optional<Date> day) {
  TransactionRequest request;
  request.accountId = place.host.EntryAccount();
  request.day = day;
  if (CanAddTo(place, request.accountId)) Apply(place, OpenTransaction(request, PlaceOf(place)));
}

void AutofillTransaction(const ViewPlace& place) {
  const std::int64_t account = place.host.EntryAccount();
  if (CanAddTo(place, account)) Apply(place, OpenAutofill(account, 0, PlaceOf(place)));
}

void AddQuickly(const ViewPlace& place) {
  if (Settings(place.platform.registry).IsOn(Setting::AutoFill)) return AutofillTransaction(place);
  AddTransaction(place);
}

void EditTransactions(const ViewPlace& place, Keys keys) {
  if (keys.size() > 1) return Apply(place, OpenMultiEdit(keys, PlaceOf(place)));
  TransactionRequest request;
  request.key = keys.front();
  Apply(place, OpenTransaction(request, PlaceOf(place)));
}

void EditSchedule(const ViewPlace& place, std::int64_t key) {
  ScheduleRequest request;
  request.key = key;
  clsCorvanta& ledger = place.session.Ledger();
  // A closed account takes no schedule, but any other one can be chosen.
  const auto account = ledger.Accounts().ReadAccount(place.host.EntryAccount());
  if (account && !account->closed) request.accountId = account->accountId;
  // What the schedule posts is undone with it: half of it would be a state that never was.
  const UndoLog::Step step = ledger.Undo().Begin(key == 0 ? "Add Schedule" : "Edit Schedule");
  const EntryResult result = OpenSchedule(request, PlaceOf(place));
  if (!result.isChanged) return;
  place.host.ApplySchedules();
  place.host.ChooseRow(kScheduleShow, result.savedKey);
}

void BalanceAccount(const ViewPlace& place) {
  const ReconcileResult result =
      OpenReconcile(place.host.EntryAccount(),
                    {place.platform, place.session.Ledger(), place.session.Rates(), &place.window});
  if (result.isScheduleChanged) {
    place.host.ApplySchedules();
  } else if (result.isChanged) {
    place.host.Reload();
  }
  if (result.outcome) place.host.Notice(NoticeOf(*result.outcome, place.window.locale()));
}

}  // namespace corvanta::inline app
