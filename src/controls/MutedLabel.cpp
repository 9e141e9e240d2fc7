#include "controls/MutedLabel.h"

#include "controls/Style.h"

#include <QEvent>
#include <QGuiApplication>

namespace corvanta::inline controls {

MutedLabel::MutedLabel(QWidget* parent) : QLabel(parent) {
  Colour();
}

void MutedLabel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange ||
      (event->type() == QEvent::PaletteChange && !colouring_)) {
    Colour();
  }
  QLabel::changeEvent(event);
}

void MutedLabel::Colour() {
  colouring_ = true;
  QPalette own = palette();
  const QPalette application = QGuiApplication::palette();
  own.setColor(QPalette::Active, QPalette::WindowText, MutedText(application));
  own.setColor(QPalette::Inactive, QPalette::WindowText, MutedText(application));
  setPalette(own);
  colouring_ = false;
}

}  // namespace corvanta::inline controls
