// How the calendar looks.
#include "controls/Style.h"
#include "controls/ucCalendar.h"

#include <QLocale>
#include <QPainter>
#include <QPainterPath>

namespace corvanta::inline controls {
namespace {

// Made smaller where the text would touch its neighbours.
QFont Fitting(QFont font, const QString& text, int room) {
  const int width = QFontMetrics(font).horizontalAdvance(text);
  if (width > room && font.pointSizeF() > 0 && room > 0) {
    font.setPointSizeF(font.pointSizeF() * room / width);
  }
  return font;
}

// Two letters: one alone says too little, and some locales have none.
QString ShortName(const QLocale& locale, QDate day) {
  return locale.dayName(day.dayOfWeek(), QLocale::ShortFormat).left(2);
}

}  // namespace

void ucCalendar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  DrawHeader(painter);
  const QDate first = FirstShownDay();
  painter.setFont(Fitting(ScaledFont(-1), QStringLiteral("Mo"), CellRoom()));
  painter.setPen(MutedText(palette()));
  for (int column = 0; column < kDays; ++column) {
    painter.drawText(CellRect(0, column), Qt::AlignCenter,
                     ShortName(locale(), first.addDays(column)));
  }
  for (int index = 0; index < kWeeks * kDays; ++index) {
    DrawDay(painter, first.addDays(index), CellRect(1 + index / kDays, index % kDays));
  }
}

void ucCalendar::DrawHeader(QPainter& painter) const {
  painter.setFont(TitleFont());
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(0, 0, width(), HeaderHeight()), Qt::AlignCenter, Title());
  DrawArrows(painter);
}

void ucCalendar::DrawArrows(QPainter& painter) const {
  painter.setPen(QPen(MutedText(palette()), 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  for (const bool next : {false, true}) {
    const double side = next ? 2.5 : -2.5;
    const auto draw = [&](QPointF middle) {
      QPainterPath chevron(middle + QPointF(-side, -5));
      chevron.lineTo(middle + QPointF(side, 0));
      chevron.lineTo(middle + QPointF(-side, 5));
      painter.drawPath(chevron);
    };
    draw(QRectF(ArrowRect(next)).center());
    draw(QRectF(YearRect(next)).center() + QPointF(-2.5, 0));
    draw(QRectF(YearRect(next)).center() + QPointF(2.5, 0));
  }
}

void ucCalendar::DrawDay(QPainter& painter, QDate day, const QRect& cell) const {
  const QColor accent = AccentColour(palette());
  const QColor page = palette().color(QPalette::Window);
  const bool chosen = day == selected_;
  const QRectF pill = QRectF(cell).adjusted(2, 1, -2, -1);
  QColor text = palette().color(QPalette::WindowText);
  if (day.month() != month_.month()) text = Mixed(text, page, 0.45);
  if (chosen) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(hasFocus() ? accent : Mixed(accent, page, 0.2));
    painter.drawRoundedRect(pill, 4, 4);
    if (hasFocus()) text = IsDark(palette()) ? Qt::black : Qt::white;
  }
  if (day == today_) {
    painter.setPen(QPen(accent, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(pill, 4, 4);
  }
  QFont font = Fitting(this->font(), QStringLiteral("00"), CellRoom());
  if (day == today_) font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(text);
  painter.drawText(cell.adjusted(0, -1, 0, -1), Qt::AlignCenter, QString::number(day.day()));
  painter.setPen(Qt::NoPen);
  painter.setBrush(chosen && hasFocus() ? text : accent);
  DrawMarks(painter, day, pill);
}

// A dot and a corner differ in their shape, so that no colour has to be told apart.
void ucCalendar::DrawMarks(QPainter& painter, QDate day, const QRectF& pill) const {
  const double unit = fontMetrics().height() / 9.0;
  if (marked_.contains(day)) {
    painter.drawEllipse(QPointF(pill.center().x(), pill.bottom() - 1.6 * unit), unit, unit);
  }
  if (!due_.contains(day)) return;
  const QPointF corner = pill.topRight() + QPointF(-unit / 2, unit / 2);
  painter.drawPolygon(
      QPolygonF({corner, corner - QPointF(3.5 * unit, 0), corner + QPointF(0, 3.5 * unit)}));
}

}  // namespace corvanta::inline controls
