#include "entry/QtOutlookText.h"

#include "controls/QtText.h"
#include "entry/FrmSchedule.h"
#include "entry/ScheduleOutlook.h"
#include "platform/Locale.h"

namespace corvanta::inline entry {
namespace {

QString PaymentsText(const ScheduleOutlook& outlook, const Locale& locale) {
  const auto number = [](std::size_t count) { return QString::number(count); };
  if (outlook.payments == 0) {
    return outlook.posted == 0
               ? FrmSchedule::tr("Without end")
               : FrmSchedule::tr("Without end, %1 posted").arg(number(outlook.posted));
  }
  if (outlook.payments == 1) return FrmSchedule::tr("One payment");
  const QString text =
      outlook.posted == 0
          ? FrmSchedule::tr("%1 payments").arg(number(outlook.payments))
          : FrmSchedule::tr("%1 of %2 payments left")
                .arg(number(outlook.payments - outlook.posted), number(outlook.payments));
  if (!outlook.last) return text;
  return FrmSchedule::tr("%1, the last on %2")
      .arg(text, ToQt(locale.FormatShortDate(*outlook.last)));
}

QString OverdueText(const std::vector<Date>& days, const Locale& locale) {
  const QString first = ToQt(locale.FormatShortDate(days.front()));
  if (days.size() == 1) return FrmSchedule::tr("Overdue: %1").arg(first);
  return FrmSchedule::tr("Overdue: %1 and %2 more").arg(first, QString::number(days.size() - 1));
}

}  // namespace

QString OutlookText(const ScheduleOutlook& outlook, const Locale& locale) {
  QStringList days;
  for (const Date day : outlook.next) days.append(ToQt(locale.FormatShortDate(day)));
  QString text = days.join(QStringLiteral(", "));
  if (outlook.goesOn) text += QStringLiteral(" …");
  if (!outlook.overdue.empty()) {
    const QString overdue = OverdueText(outlook.overdue, locale);
    text = days.isEmpty() ? overdue : overdue + u'\n' + text;
  }
  if (text.isEmpty()) text = FrmSchedule::tr("No payment is left to post");
  return text + u'\n' + PaymentsText(outlook, locale);
}

}  // namespace corvanta::inline entry
