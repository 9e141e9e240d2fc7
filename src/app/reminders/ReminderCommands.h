#pragma once

#include "app/ViewHost.h"

#include <QObject>

#include <functional>

namespace corvanta::inline controls {
class ucCalendar;
}

namespace corvanta::inline ledger {
enum class OccurrenceResult;
struct Reminder;
}  // namespace corvanta::inline ledger

namespace corvanta::inline app {

class RemindersPanel;

// What is due: read for the panel and the calendar, opened, posted and skipped.
class ReminderCommands : public QObject {
  Q_OBJECT

 public:
  // All outlive it.
  ReminderCommands(const ViewPlace& place, RemindersPanel& panel, ucCalendar& calendar);

  // Throws StoreError.
  void Read();
  // Enables the commands for the chosen payment.
  void Mark();

 private:
  // Up to when the calendar wants to know what is due.
  [[nodiscard]] Date LastDueDay() const;
  // The calendar shows other days.
  void ApplyPage();
  void Open();
  void Post();
  void Skip();
  // Does it to the chosen payment where that is neither posted nor skipped; `done` has a place for
  // the payment.
  void Settle(const QString& done, const std::function<OccurrenceResult(const Reminder&)>& settle);

  ViewPlace place_;
  RemindersPanel& panel_;
  ucCalendar& calendar_;
  Date dueUntil_;  // up to when the calendar knows what is due
};

}  // namespace corvanta::inline app
