// Schedules, what they post, and what they remind of.
#include "app/DueDays.h"
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/QtProgress.h"
#include "app/RegisterView.h"
#include "app/RemindersPanel.h"
#include "app/ScheduleView.h"
#include "app/TransactionClip.h"
#include "controls/QtText.h"
#include "controls/ucCalendar.h"
#include "entry/EntryDialogs.h"
#include "entry/ScheduleEditor.h"
#include "ledger/AccountBook.h"
#include "ledger/ClosedAccounts.h"
#include "ledger/Reminders.h"
#include "ledger/ScheduleBook.h"
#include "ledger/SchedulePosting.h"
#include "ledger/StatusBook.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionStatus.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QScreen>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <vector>

namespace corvanta {
namespace {

constexpr const char* kReminders = "Reminders";
constexpr std::chrono::minutes kDayCheck(1);
constexpr int kMostYearsAhead = 10;

// Why the occurrence was neither posted nor skipped; empty when it was.
std::string FaultOf(OccurrenceResult result) {
  switch (result) {
    case OccurrenceResult::Done:
    case OccurrenceResult::AlreadyPosted:
    case OccurrenceResult::NoRate:  // told already
      return {};
    case OccurrenceResult::NotDue:
      return "The schedule has been changed, and this payment is no longer due.";
    case OccurrenceResult::ClosedAccount:
      return kAccountClosed;
    case OccurrenceResult::EarlierPending:
      return "An earlier payment of this schedule is still due. Please post or skip that one "
             "first.";
  }
  return {};
}

}  // namespace

void FrmMain::ConnectSchedules() {
  On(actions_->mnuScheduleAdd, [this] { EditSchedule(0); });
  On(actions_->mnuScheduleEdit, [this] { EditSchedule(scheduleView_->ChosenKey()); });
  On(actions_->mnuScheduleDelete, [this] { DeleteSchedule(); });
  On(actions_->mnuScheduleCopy, [this] { CopySchedule(); });
  On(actions_->mnuSchedulePaste, [this] { PasteSchedule(); });
  On(actions_->mnuReminderOpen, [this] { OpenReminder(); });
  On(actions_->mnuReminderPost, [this] { PostReminder(); });
  On(actions_->mnuReminderSkip, [this] { SkipReminder(); });
  On(actions_->mnuViewReminders,
     [this] { FoldReminders(!actions_->mnuViewReminders->isChecked()); });
  connect(reminders_, &RemindersPanel::ChoiceChanged, this,
          [this] { Guard([this] { MarkReminder(); }); });
  connect(calendar_, &ucCalendar::PageTurned, this, [this] { Guard([this] { TakePage(); }); });
  auto* dayCheck = new QTimer(this);
  dayCheck->setObjectName(QStringLiteral("tmrDay"));
  connect(dayCheck, &QTimer::timeout, this, [this] { Guard([this] { TakeDay(); }); });
  dayCheck->start(kDayCheck);
}

void FrmMain::FoldReminders(bool fold) {
  const bool isFree = !isMaximized() && !isFullScreen();
  // The view keeps its width where the screen has room for the panel beside it.
  const int room = screen()->availableGeometry().right() - geometry().right();
  const int wanted = fold ? -remindersRoom_ : std::clamp(room, 0, reminders_->sizeHint().width());
  if (isFree) resize(width() + wanted, height());
  remindersRoom_ = fold || !isFree ? 0 : wanted;
  reminders_->setVisible(!fold);
  if (!fold) reminders_->Enter();
}

void FrmMain::EditSchedule(std::int64_t key) {
  ScheduleRequest request;
  request.key = key;
  // A closed account takes no schedule, but any other one can be chosen.
  const auto account = session_.Ledger().Accounts().ReadAccount(EntryAccount());
  if (account && !account->closed) request.accountId = account->accountId;
  // What the schedule posts is undone with it: half of it would be a state that never was.
  const UndoLog::Step step =
      session_.Ledger().Undo().Begin(key == 0 ? "Add Schedule" : "Edit Schedule");
  const EntryResult result = OpenSchedule(request, EntryPlaceHere());
  if (!result.isChanged) return;
  TakeSchedules();
  if (shown_.name == kScheduleShow) scheduleView_->ChooseKey(result.savedKey);
}

void FrmMain::EditScheduleOfRow() {
  const RowMarks marks = session_.Ledger().Statuses().MarksOf(registerView_->FocusedKey());
  if (marks.scheduleId == 0) return;
  if (session_.Ledger().Schedules().ReadSchedule(marks.scheduleId))
    return EditSchedule(marks.scheduleId);
  platform_.prompts.Tell("Schedule Item",
                         "The schedule that this item was made from is no longer there.");
}

void FrmMain::DeleteSchedule() {
  const std::int64_t key = scheduleView_->ChosenKey();
  if (shown_.name != kScheduleShow || key == 0) return;
  if (ScheduleEditor(session_.Ledger(), platform_).Delete(key)) Reload();
}

void FrmMain::CopySchedule() {
  const std::int64_t key = scheduleView_->ChosenKey();
  if (key == 0) return;
  QGuiApplication::clipboard()->setMimeData(
      ToClip(ClipKind::Schedules, ToQt(session_.Path()), {key}, scheduleView_->ChosenText()));
}

void FrmMain::PasteSchedule() {
  const UndoLog::Step step = session_.Ledger().Undo().Begin("Paste Schedule");
  Transaction all = session_.Ledger().Store().Begin();
  std::int64_t last = 0;
  for (const std::int64_t key : FromClip(ClipKind::Schedules, ToQt(session_.Path()))) {
    last = session_.Ledger().Schedules().PasteSchedule(key);
  }
  if (last == 0) return;
  all.Commit();
  TakeSchedules();
  if (shown_.name == kScheduleShow) scheduleView_->ChooseKey(last);
}

void FrmMain::TakeSchedules() {
  session_.PostSchedules();
  Reload();
}

void FrmMain::ReadReminders() {
  ReminderList list;
  const Date until = settings_.RemindersUntil(day_).value_or(day_);
  dueUntil_ = std::max(until, LastDueDay());
  if (session_.IsOpen()) {
    list = Reminders(session_.Ledger(), day_, dueUntil_, settings_.IsOn(Setting::Overdue));
  }
  calendar_->SetDueDays(DueDays(list, platform_.locale));
  std::erase_if(list.future, [until](const Reminder& item) { return item.due > until; });
  const QString title = tr("Rem&inders");
  actions_->mnuViewReminders->setText(
      list.dueCount == 0 ? title : title + QStringLiteral(" (%1)").arg(list.dueCount));
  reminders_->SetReminders(std::move(list));
}

// A year beyond what the calendar shows, so that it can be turned without reading again.
Date FrmMain::LastDueDay() const {
  const QDate most = ToQt(day_).addYears(kMostYearsAhead);
  return FromQt(std::min(calendar_->LastShownDay().addYears(1), most));
}

void FrmMain::TakePage() {
  if (FromQt(calendar_->LastShownDay()) > dueUntil_ && LastDueDay() > dueUntil_) ReadReminders();
}

void FrmMain::MarkReminder() {
  const Reminder* chosen = session_.IsOpen() ? reminders_->Chosen() : nullptr;
  const bool isWaiting = chosen != nullptr && !chosen->IsPosted();
  actions_->mnuReminderOpen->setEnabled(chosen != nullptr);
  actions_->mnuReminderPost->setEnabled(isWaiting);
  actions_->mnuReminderSkip->setEnabled(isWaiting);
}

void FrmMain::OpenReminder() {
  const Reminder* chosen = reminders_->Chosen();
  if (chosen == nullptr) return;
  if (!chosen->IsPosted()) return EditSchedule(chosen->scheduleId);
  const std::int64_t key = chosen->transactionId;
  const auto row = session_.Ledger().Transactions().ReadTransaction(key);
  if (row) ShowTransaction(row->accountId, key);
}

void FrmMain::PostReminder() {
  const Reminder* chosen = reminders_->Chosen();
  if (chosen == nullptr || chosen->IsPosted()) return;
  const QString payment = PaymentText(*chosen, platform_.locale);
  const std::string fault =
      FaultOf(session_.Posting().PostOccurrence(chosen->scheduleId, chosen->due));
  if (!fault.empty()) platform_.prompts.Tell(kReminders, fault);
  Reload();
  if (fault.empty()) Notice(tr("Posted: %1").arg(payment));
}

void FrmMain::SkipReminder() {
  const Reminder* chosen = reminders_->Chosen();
  if (chosen == nullptr || chosen->IsPosted()) return;
  const QString payment = PaymentText(*chosen, platform_.locale);
  const std::string fault =
      FaultOf(session_.Posting().SkipOccurrence(chosen->scheduleId, chosen->due));
  if (!fault.empty()) platform_.prompts.Tell(kReminders, fault);
  Reload();
  if (fault.empty()) Notice(tr("Skipped: %1").arg(payment));
}

void FrmMain::TakeDay() {
  const Date today = platform_.clock.Today();
  // A window in front, a menu or a running operation works on rows that must not change below it.
  const bool isBusy = progress_.IsBusy() || QApplication::activeModalWidget() != nullptr ||
                      QApplication::activePopupWidget() != nullptr;
  if (today == day_ || isBusy) return;
  day_ = today;
  calendar_->SetToday(ToQt(day_));
  registerView_->SetToday(day_);
  if (!session_.IsOpen()) return;
  TakeSchedules();
}

}  // namespace corvanta
