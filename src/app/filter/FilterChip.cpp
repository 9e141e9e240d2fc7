#include "app/filter/FilterChip.h"

#include "controls/Style.h"
#include "controls/SvgIcon.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

namespace corvanta::inline app {
namespace {
constexpr int kSide = 3 * kRhythm;
constexpr double kTint = 0.14;
}  // namespace

FilterChip::FilterChip(QWidget* parent) : QAbstractButton(parent), remove_(new QToolButton(this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  remove_->setAutoRaise(true);
  remove_->setIcon(SvgIcon(QStringLiteral("close")));
  remove_->setIconSize(QSize(2 * kRhythm, 2 * kRhythm));
  remove_->setFocusPolicy(Qt::StrongFocus);
  connect(remove_, &QAbstractButton::clicked, this, &FilterChip::Removed);
}

void FilterChip::SetCaption(const QString& name, const QString& caption) {
  caption_ = caption;
  setObjectName(QStringLiteral("pce") + name);
  remove_->setObjectName(QStringLiteral("cmdRemove") + name);
  remove_->setAccessibleName(tr("Take this filter off: %1").arg(caption));
  remove_->setToolTip(tr("Take this filter off (Delete)"));
}

void FilterChip::Show(const QString& text, const QString& tip) {
  setText(text.isEmpty() ? QString() : caption_ + QStringLiteral(": ") + text);
  setAccessibleName(tr("Filter, %1").arg(this->text()));
  setToolTip(caption_ + QStringLiteral(": ") + tip);
  setVisible(!text.isEmpty());
  updateGeometry();
  update();
}

QSize FilterChip::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + kRhythm + kRhythm / 2 + kSide,
          std::max(fontMetrics().height() + kRhythm / 2, kSide)};
}

QSize FilterChip::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance(QStringLiteral("Abc...")) + kRhythm + kSide,
          sizeHint().height()};
}

void FilterChip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor base = palette().color(QPalette::Window);
  const QColor accent = AccentColour(palette());
  const QColor fill = Mixed(accent, base, underMouse() ? 2 * kTint : kTint);
  painter.setPen(hasFocus() ? QPen(accent, 2) : QPen(Mixed(accent, base, 0.5), 1));
  painter.setBrush(fill);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRhythm / 2, kRhythm / 2);
  painter.setPen(ReadableOn(palette().color(QPalette::WindowText), fill));
  const QRect room = rect().adjusted(kRhythm, 0, -kSide, 0);
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
}

void FilterChip::resizeEvent(QResizeEvent* event) {
  QAbstractButton::resizeEvent(event);
  remove_->setGeometry(width() - kSide, (height() - kSide) / 2 + 1, kSide - 2, kSide - 2);
}

void FilterChip::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      Q_EMIT Removed();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      click();
      return;
    default:
      QAbstractButton::keyPressEvent(event);
  }
}

}  // namespace corvanta::inline app
