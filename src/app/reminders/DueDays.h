#pragma once

#include "ledger/schedules/Reminders.h"

#include <QDate>
#include <QMap>
#include <QStringList>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// A payment in a few words: whom and how much.
[[nodiscard]] QString PaymentText(const Reminder& reminder, const Locale& locale);

// What is due on each day, for the calendar: whom and how much, a line for each payment. A transfer
// is named once, a payment that is posted only while its day is still to come.
[[nodiscard]] QMap<QDate, QStringList> DueDays(const ReminderList& reminders, const Locale& locale);

}  // namespace corvanta::inline app
