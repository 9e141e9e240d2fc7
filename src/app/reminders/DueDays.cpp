#include "app/reminders/DueDays.h"

#include "controls/QtText.h"
#include "platform/Locale.h"

#include <QCoreApplication>

namespace corvanta::inline app {

QString PaymentText(const Reminder& reminder, const Locale& locale) {
  QString text = ToQt(reminder.payee.empty() ? reminder.description : reminder.payee) + u' ' +
                 ToQt(locale.FormatNumber(reminder.amount));
  if (!reminder.currency.empty()) text += u' ' + ToQt(reminder.currency);
  return text;
}

QMap<QDate, QStringList> DueDays(const ReminderList& reminders, const Locale& locale) {
  QMap<QDate, QStringList> days;
  for (const auto* group : {&reminders.overdue, &reminders.future}) {
    for (const Reminder& reminder : *group) {
      const bool isPast = reminder.IsPosted() && group == &reminders.overdue;
      if (isPast || reminder.isReceiving) continue;
      const QString text = PaymentText(reminder, locale);
      days[ToQt(reminder.due)].append(
          reminder.IsPosted() ? QCoreApplication::translate("DueDays", "%1 (posted)").arg(text)
                              : text);
    }
  }
  return days;
}

}  // namespace corvanta::inline app
