#include "controls/ucCalendar.h"

#include <QFontMetrics>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace corvanta {
namespace {

// The title, as wide as it is drawn, ends before both arrows.
void ExpectRoom(ucCalendar& calendar) {
  QFont font = calendar.font();
  font.setWeight(QFont::DemiBold);
  const int title = QFontMetrics(font).horizontalAdvance(calendar.Title());
  const QRect first = calendar.ArrowRect(false);
  const QRect next = calendar.ArrowRect(true);
  EXPECT_LE(title, next.left() - first.right() - 1)
      << calendar.Title().toStdString() << " at " << calendar.width();
  EXPECT_GT(title, 0);
}

TEST(CalendarTitle, NeverCoversTheArrows) {
  for (const char* locale : {"en_GB", "de_DE", "pt_PT", "el_GR", "fi_FI", "ja_JP"}) {
    for (const int points : {9, 13, 20, 32}) {
      ucCalendar calendar;
      calendar.setLocale(QLocale(QLatin1String(locale)));
      QFont font = calendar.font();
      font.setPointSize(points);
      calendar.setFont(font);
      for (const int width : {calendar.minimumSizeHint().width(), calendar.sizeHint().width()}) {
        calendar.resize(width, calendar.sizeHint().height());
        for (int month = 1; month <= 12; ++month) {
          calendar.SetSelected(QDate(2026, month, 22));
          ExpectRoom(calendar);
        }
      }
    }
  }
}

TEST(CalendarTitle, IsWrittenOutWhereThereIsRoom) {
  ucCalendar calendar;
  calendar.setLocale(QLocale(QLocale::English));
  calendar.SetSelected(QDate(2026, 9, 1));
  calendar.resize(600, calendar.sizeHint().height());
  EXPECT_EQ(calendar.Title(), "September 2026");
  calendar.resize(calendar.minimumSizeHint());
  EXPECT_NE(calendar.Title(), "September 2026");
  EXPECT_TRUE(calendar.Title().endsWith(QStringLiteral("2026")));
}

TEST(CalendarMarks, AreToldInWords) {
  ucCalendar calendar;
  calendar.setLocale(QLocale(QLocale::English));
  calendar.SetToday(QDate(2026, 11, 21));
  calendar.SetMarkedDays({QDate(2026, 11, 21)});
  calendar.SetDueDays(
      {{QDate(2026, 11, 21), {QStringLiteral("Landlord -500.00"), QStringLiteral("Gym -20.00")}}});
  const QString words = calendar.accessibleDescription();
  EXPECT_TRUE(words.contains(QStringLiteral("Due: Landlord -500.00"))) << words.toStdString();
  EXPECT_TRUE(words.contains(QStringLiteral("Due: Gym -20.00")));
  EXPECT_TRUE(words.contains(QStringLiteral("Has transactions")));
  EXPECT_EQ(calendar.Describe(QDate(2026, 11, 22)),
            calendar.locale().toString(QDate(2026, 11, 22), QLocale::LongFormat));
}

// A mark of one kind looks different from one of the other, and from none, also without colours.
TEST(CalendarMarks, DifferInShape) {
  const QDate day(2026, 11, 12);
  const auto picture = [day](bool isMarked, bool isDue) {
    ucCalendar calendar;
    calendar.SetToday(QDate(2026, 11, 21));
    if (isMarked) calendar.SetMarkedDays({day});
    if (isDue) calendar.SetDueDays({{day, {QStringLiteral("Rent")}}});
    calendar.resize(280, calendar.sizeHint().height());
    return calendar.grab(calendar.DayRect(day))
        .toImage()
        .convertToFormat(QImage::Format_Grayscale8);
  };
  EXPECT_NE(picture(true, false), picture(false, false));
  EXPECT_NE(picture(false, true), picture(false, false));
  EXPECT_NE(picture(false, true), picture(true, false));
}

TEST(Calendar, TellsWhenItShowsOtherDays) {
  ucCalendar calendar;
  calendar.SetToday(QDate(2026, 11, 21));
  QSignalSpy turned(&calendar, &ucCalendar::PageTurned);
  calendar.SetSelected(QDate(2026, 11, 1));
  EXPECT_EQ(turned.count(), 0);
  QTest::keyClick(&calendar, Qt::Key_PageDown);
  EXPECT_EQ(turned.count(), 1);
  EXPECT_GE(calendar.LastShownDay(), QDate(2026, 12, 31));
}

}  // namespace
}  // namespace corvanta
