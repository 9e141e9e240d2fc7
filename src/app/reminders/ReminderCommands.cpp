#include "app/reminders/ReminderCommands.h"

#include "app/EntryCommands.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/reminders/DueDays.h"
#include "app/reminders/RemindersPanel.h"
#include "controls/QtText.h"
#include "controls/ucCalendar.h"
#include "ledger/schedules/OccurrenceFault.h"
#include "ledger/schedules/Reminders.h"
#include "ledger/schedules/SchedulePosting.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Settings.h"

#include <QAction>

#include <algorithm>
#include <utility>
#include <vector>

namespace corvanta::inline app {
namespace {

constexpr const char* kReminders = "Reminders";
constexpr int kMaxYearsAhead = 10;

// What is there to be told: one that is posted already is as it was to be, and a missing rate was
// told when it was asked for.
bool IsFault(OccurrenceResult result) {
  return result != OccurrenceResult::Done && result != OccurrenceResult::AlreadyPosted &&
         result != OccurrenceResult::NoRate;
}

}  // namespace

ReminderCommands::ReminderCommands(const ViewPlace& place, RemindersPanel& panel,
                                   ucCalendar& calendar)
    : QObject(&panel), place_(place), panel_(panel), calendar_(calendar) {
  place_.On(place_.actions.mnuReminderOpen, this, [this] { Open(); });
  place_.On(place_.actions.mnuReminderPost, this, [this] { Post(); });
  place_.On(place_.actions.mnuReminderSkip, this, [this] { Skip(); });
  connect(&panel_, &RemindersPanel::ChoiceChanged, this,
          [this] { place_.host.Guard([this] { Mark(); }); });
  connect(&calendar_, &ucCalendar::PageTurned, this,
          [this] { place_.host.Guard([this] { ApplyPage(); }); });
}

void ReminderCommands::Read() {
  const Settings settings(place_.platform.registry);
  const Date today = place_.host.Today();
  ReminderList list;
  const Date until = settings.RemindersUntil(today).value_or(today);
  dueUntil_ = std::max(until, LastDueDay());
  if (place_.session.IsOpen()) {
    list = Reminders(place_.session.Ledger(), today, dueUntil_, settings.IsOn(Setting::Overdue));
  }
  calendar_.SetDueDays(DueDays(list, place_.platform.locale));
  std::erase_if(list.future, [until](const Reminder& item) { return item.due > until; });
  const QString title = tr("Rem&inders");
  place_.actions.mnuViewReminders->setText(
      list.dueCount == 0 ? title : title + QStringLiteral(" (%1)").arg(list.dueCount));
  panel_.SetReminders(std::move(list));
}

// A year beyond what the calendar shows, so that it can be turned without reading again.
Date ReminderCommands::LastDueDay() const {
  const QDate most = ToQt(place_.host.Today()).addYears(kMaxYearsAhead);
  return FromQt(std::min(calendar_.LastShownDay().addYears(1), most));
}

void ReminderCommands::ApplyPage() {
  if (FromQt(calendar_.LastShownDay()) > dueUntil_ && LastDueDay() > dueUntil_) Read();
}

void ReminderCommands::Mark() {
  const Reminder* chosen = place_.session.IsOpen() ? panel_.Chosen() : nullptr;
  const bool isWaiting = chosen != nullptr && !chosen->IsPosted();
  place_.actions.mnuReminderOpen->setEnabled(chosen != nullptr);
  place_.actions.mnuReminderPost->setEnabled(isWaiting);
  place_.actions.mnuReminderSkip->setEnabled(isWaiting);
}

void ReminderCommands::Open() {
  const Reminder* chosen = panel_.Chosen();
  if (chosen == nullptr) return;
  if (!chosen->IsPosted()) return EditSchedule(place_, chosen->scheduleId);
  const std::int64_t key = chosen->transactionId;
  const auto row = place_.session.Ledger().Transactions().ReadTransaction(key);
  if (row) place_.host.ShowTransaction(row->accountId, key);
}

void ReminderCommands::Post() {
  Settle(tr("Posted: %1"), [this](const Reminder& chosen) {
    return place_.session.Posting().PostOccurrence(chosen.scheduleId, chosen.due);
  });
}

void ReminderCommands::Skip() {
  Settle(tr("Skipped: %1"), [this](const Reminder& chosen) {
    return place_.session.Posting().SkipOccurrence(chosen.scheduleId, chosen.due);
  });
}

void ReminderCommands::Settle(const QString& done,
                              const std::function<OccurrenceResult(const Reminder&)>& settle) {
  const Reminder* chosen = panel_.Chosen();
  if (chosen == nullptr || chosen->IsPosted()) return;
  const QString payment = PaymentText(*chosen, place_.platform.locale);
  const std::string day = place_.platform.locale.FormatShortDate(chosen->due);
  const OccurrenceResult result = settle(*chosen);
  const bool isFault = IsFault(result);
  if (isFault) place_.platform.prompts.Tell(kReminders, OccurrenceFault(result, day));
  place_.host.Reload();
  if (!isFault) place_.host.Notice(done.arg(payment));
}

}  // namespace corvanta::inline app
