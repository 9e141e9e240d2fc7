#include "app/lists/ScheduleView.h"

#include "app/EntryCommands.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "app/lists/ListWidths.h"
#include "app/register/TransactionClip.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "entry/ScheduleEditor.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/schedules/ScheduleBook.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "store/sql/UndoLog.h"

#include <QAction>
#include <QClipboard>

#include <algorithm>

namespace corvanta::inline app {
namespace {

std::vector<ListColumn> Columns(const Locale& locale) {
  const ListWidths widths(locale);
  const auto text = [&](const QString& sample) { return widths.Text(sample); };
  const int money = widths.Figure(-99999.99);
  return {
      {ScheduleView::tr("Next Due"), widths.Day(), 0},
      {ScheduleView::tr("Account"), text(QStringLiteral("A bank account's")), 3, false, 5},
      {ScheduleView::tr("Payee"), text(QStringLiteral("A payee's name")), 3},
      {ScheduleView::tr("Category"), text(QStringLiteral("Category:Sub-category")), 3, false, 6},
      {ScheduleView::tr("Frequency"), text(QStringLiteral("Every 4 Weeks")), 1, false, 4},
      {ScheduleView::tr("Payments"), text(QStringLiteral("Payments")), 0, true, 3},
      {ScheduleView::tr("Automatic"), text(QStringLiteral("Automatic")), 0, false, 2},
      {ScheduleView::tr("Amount"), money, 0, true},
      {ScheduleView::tr("Description"), text(QStringLiteral("Description")), 2, false, 1}};
}

QString Automatic(AddToAccount add) {
  switch (add) {
    case AddToAccount::Ahead:
      return ScheduleView::tr("Ahead");
    case AddToAccount::WhenDue:
      return ScheduleView::tr("When due");
    case AddToAccount::No:
      break;
  }
  return ScheduleView::tr("No");
}

QString CategoryOf(const ScheduleDetails& schedule) {
  if (schedule.hasLines) return ScheduleView::tr("Split");
  return ToQt(CategoryPath(schedule.category, schedule.subCategory));
}

ListTraits Traits(const ViewPlace& place) {
  const MainActions& actions = place.actions;
  return {kScheduleShow,
          actions.mnuViewSchedules,
          "lvschedule",
          "chS",
          ScheduleView::tr("Schedules"),
          Columns(place.platform.locale),
          {0, false},
          actions.mnuScheduleAdd,
          actions.mnuScheduleEdit,
          actions.mnuScheduleDelete};
}

}  // namespace

ScheduleView::ScheduleView(const ViewPlace& place, QWidget* parent)
    : ListView(place, Traits(place), parent), locale_(place.platform.locale) {
  MainActions& actions = place.actions;
  Table()->addActions({actions.mnuScheduleCopy, actions.mnuSchedulePaste});
  place.On(actions.mnuScheduleCopy, this, [this] { Copy(); });
  place.On(actions.mnuSchedulePaste, this, [this] { Paste(); });
}

ListRow ScheduleView::RowFor(const ScheduleDetails& schedule) const {
  const bool isOver = schedule.isFinished || !schedule.nextDue;
  ListCell next{tr("Finished"), 1e9, false, true};
  if (!isOver) {
    const Date day = schedule.days.BookedOn(*schedule.nextDue);
    next = {ToQt(locale_.FormatShortDate(day)), static_cast<double>(day.Serial())};
  }
  ListCell payments{tr("No end"), 1e9, false, true};
  if (schedule.noTimes != 0) {
    const int left = std::max(0, schedule.noTimes - schedule.posted);
    payments = {tr("%1 left").arg(left), static_cast<double>(left), false, isOver};
  }
  QString account = ToQt(schedule.account);
  if (schedule.accountClosed) account += tr(" [Closed] ");
  QString payee = schedule.IsTransfer() ? tr("To %1").arg(ToQt(schedule.transferAccount))
                                        : ToQt(schedule.payee);
  if (schedule.transferAccountClosed) payee += tr(" [Closed] ");
  const bool waits = !isOver && schedule.WaitsForRate(*schedule.nextDue);
  return {schedule.scheduleId,
          {next,
           {account, std::nullopt, false, schedule.accountClosed},
           {payee, std::nullopt, false, schedule.transferAccountClosed},
           {CategoryOf(schedule)},
           {ToQt(schedule.periodName)},
           payments,
           {waits ? tr("Waits for a rate") : Automatic(schedule.addToAccount)},
           {ToQt(locale_.FormatNumber(schedule.amount)), schedule.amount},
           {ToQt(schedule.description)}},
          ToQt(schedule.currency)};
}

void ScheduleView::Show(const ViewCommand& /*command*/) {
  std::vector<ListRow> rows;
  for (const ScheduleDetails& schedule : Place().session.Ledger().Schedules().Schedules()) {
    rows.push_back(RowFor(schedule));
  }
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("What is paid again and again, the next due first"),
       count == 1 ? tr("1 schedule") : tr("%1 schedules").arg(locale().toString(count)), {},
       {QStringLiteral("schedule"), tr("No schedules yet"),
        tr("Rent, salary, a monthly saving: say once when it comes, and it stands in the account "
           "in time.")});
}

bool ScheduleView::Can(EditTask task) const {
  if (task == EditTask::Copy) return ChosenKey() != 0;
  if (task == EditTask::Paste) return !Copied().empty();
  return ListView::Can(task);
}

void ScheduleView::Do(EditTask task) {
  if (task == EditTask::Copy) return Copy();
  if (task == EditTask::Paste) return Paste();
  ListView::Do(task);
}

void ScheduleView::MarkCommands(bool isShown) {
  ListView::MarkCommands(isShown);
  Place().actions.mnuScheduleCopy->setEnabled(CommandKey() != 0);
  Place().actions.mnuSchedulePaste->setEnabled(Place().session.IsOpen() && !Copied().empty());
}

void ScheduleView::Add() {
  EditSchedule(Place(), 0);
}

void ScheduleView::Edit(std::int64_t key) {
  EditSchedule(Place(), key);
}

void ScheduleView::Delete(std::int64_t key) {
  ScheduleEditor editor(Place().session.Ledger(), Place().platform);
  if (editor.Delete(key)) Place().host.Reload();
}

std::vector<std::int64_t> ScheduleView::Copied() const {
  return FromClip(ClipKind::Schedules, ToQt(Place().session.Path()));
}

void ScheduleView::Copy() {
  const std::int64_t key = ChosenKey();
  if (key == 0) return;
  QGuiApplication::clipboard()->setMimeData(
      ToClip(ClipKind::Schedules, ToQt(Place().session.Path()), {key}, ChosenText()));
}

// Wherever they are pasted from the menu.
void ScheduleView::Paste() {
  // What the copies post is undone with them.
  const UndoLog::Step step = Place().session.Ledger().Undo().Begin("Paste Schedule");
  const std::int64_t last = Place().session.Ledger().Schedules().PasteSchedules(Copied());
  if (last == 0) return;
  Place().host.ApplySchedules();
  Place().host.ChooseRow(Name(), last);
}

}  // namespace corvanta::inline app
