#include "controls/Elider.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>

#include <algorithm>

namespace corvanta::inline controls {
namespace {
constexpr int kBesideText = 4;  // of a flat button
}

Elider::Elider(QWidget& shown) : QObject(&shown), shown_(shown) {
  shown_.installEventFilter(this);
}

void Elider::SetText(const QString& text) {
  text_ = text;
  // A voice has room for all of it.
  shown_.setAccessibleName(text);
  Fit();
}

void Elider::Fit() {
  auto* button = qobject_cast<QAbstractButton*>(&shown_);
  const int room = shown_.contentsRect().width() - (button != nullptr ? kBesideText : 0);
  QString text = shown_.fontMetrics().elidedText(text_, Qt::ElideRight, std::max(room, 1));
  if (auto* label = qobject_cast<QLabel*>(&shown_)) label->setText(text);
  // Nothing of a name is a mnemonic.
  if (button != nullptr) button->setText(text.replace(u'&', QStringLiteral("&&")));
}

bool Elider::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::Resize || type == QEvent::FontChange) Fit();
  return QObject::eventFilter(watched, event);
}

}  // namespace corvanta::inline controls
