#pragma once

#include <QMouseEvent>
#include <QTest>

namespace corvanta {

// The mouse is moved with its left button held down. QTest's own moves forget the button.
inline void MoveHeld(QWidget& widget, const QPoint& place) {
  QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(QPointF(place)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&widget, &move);
}

inline void DragMouse(QWidget& widget, const QPoint& from, const QPoint& to) {
  QTest::mousePress(&widget, Qt::LeftButton, {}, from);
  MoveHeld(widget, (from + to) / 2);
  MoveHeld(widget, to);
  QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
}

}  // namespace corvanta
