#include "controls/ucRibbon.h"

#include "controls/RibbonButton.h"
#include "controls/Style.h"

#include <QAction>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

namespace corvanta::inline controls {
namespace {

// The line between two groups, shorter than the bar.
class RibbonSeparator : public QWidget {
 public:
  explicit RibbonSeparator(QWidget* parent) : QWidget(parent) { setFixedWidth(2 * kRhythm + 1); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setPen(Hairline(palette()));
    painter.drawLine(width() / 2, kRhythm, width() / 2, height() - kRhythm);
  }
};

}  // namespace

ucRibbon::ucRibbon(QWidget* parent) : QWidget(parent), buttons_(new QHBoxLayout(this)) {
  buttons_->setContentsMargins(kRhythm, kRhythm / 2, kRhythm, kRhythm / 2);
  buttons_->setSpacing(kRhythm / 4);
  buttons_->addStretch();
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setAccessibleName(tr("Commands"));
}

void ucRibbon::AddButton(QAction* action) {
  auto* button = new RibbonButton(action, this);
  button->setObjectName(QStringLiteral("rb") + action->objectName());
  buttons_->insertWidget(buttons_->count() - 1, button);
}

void ucRibbon::AddSeparator() {
  buttons_->insertWidget(buttons_->count() - 1, new RibbonSeparator(this));
}

int ucRibbon::FullWidth() const {
  int width = 2 * kRhythm;
  for (int place = 0; place < buttons_->count(); ++place) {
    const QWidget* widget = buttons_->itemAt(place)->widget();
    if (widget == nullptr || widget->isHidden()) continue;
    const auto* button = qobject_cast<const RibbonButton*>(widget);
    width += (button != nullptr ? button->FullSize().width() : widget->minimumWidth()) +
             buttons_->spacing();
  }
  return width;
}

void ucRibbon::Arrange() {
  const bool isCompact = FullWidth() > width();
  for (RibbonButton* button : findChildren<RibbonButton*>()) button->SetCompact(isCompact);
}

QSize ucRibbon::minimumSizeHint() const {
  // As narrow as the window may be; the icons find their place.
  return {0, QWidget::minimumSizeHint().height()};
}

bool ucRibbon::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) Arrange();
  return QWidget::event(event);
}

void ucRibbon::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange();
}

void ucRibbon::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(Hairline(palette()));
  painter.drawLine(0, height() - 1, width(), height() - 1);
}

void ucRibbon::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Right) {
    focusNextPrevChild(true);
  } else if (event->key() == Qt::Key_Left) {
    focusNextPrevChild(false);
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace corvanta::inline controls
