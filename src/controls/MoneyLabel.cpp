#include "controls/MoneyLabel.h"

#include "controls/Style.h"

#include <QEvent>
#include <QGuiApplication>

namespace corvanta::inline controls {

void MoneyLabel::SetNegative(bool isNegative) {
  isNegative_ = isNegative;
  Colour();
}

void MoneyLabel::changeEvent(QEvent* event) {
  const bool isOther =
      event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange;
  if (isOther && !isColouring_) Colour();
  QLabel::changeEvent(event);
}

void MoneyLabel::Colour() {
  isColouring_ = true;
  QPalette own;
  if (isNegative_) {
    const QPalette& around =
        parentWidget() != nullptr ? parentWidget()->palette() : QGuiApplication::palette();
    own.setColor(QPalette::WindowText, MoneyOutColour(around));
  }
  setPalette(own);
  isColouring_ = false;
}

}  // namespace corvanta::inline controls
