#include "controls/OutlinedStyle.h"

#include "controls/Style.h"

#include <QPainter>
#include <QStyleOption>

namespace corvanta::inline controls {
namespace {

// The style's own outline shows where the keyboard is: of a field always, of a box only once a key
// has moved there.
bool NeedsOutline(const QStyleOption& option, bool isField) {
  if (!IsDark(option.palette)) return false;
  if ((option.state & QStyle::State_HasFocus) == 0) return true;
  return !isField && (option.state & QStyle::State_KeyboardFocusChange) == 0;
}

void DrawOutline(QPainter& painter, const QStyleOption& option, bool isRound) {
  const QPalette& palette = option.palette;
  const bool isEnabled = (option.state & QStyle::State_Enabled) != 0;
  const QRectF place = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window),
                       isEnabled ? 0.5 : 0.25));
  painter.setBrush(Qt::NoBrush);
  if (isRound) {
    painter.drawEllipse(place);
  } else {
    painter.drawRoundedRect(place, 2, 2);
  }
  painter.restore();
}

}  // namespace

void OutlinedStyle::polish(QPalette& palette) {
  constexpr int kHalf = 128;
  QProxyStyle::polish(palette);
  if (!IsDark(palette) || palette.color(QPalette::PlaceholderText).lightness() >= kHalf) return;
  palette.setColor(QPalette::PlaceholderText,
                   Mixed(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.6));
}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool isRound = element == PE_IndicatorRadioButton;
  const bool isField = element == PE_FrameLineEdit;
  if (!isRound && !isField && element != PE_IndicatorCheckBox) return;
  if (NeedsOutline(*option, isField)) DrawOutline(*painter, *option, isRound);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const bool isField = control == CC_ComboBox || control == CC_SpinBox;
  if (isField && NeedsOutline(*option, true)) DrawOutline(*painter, *option, false);
}

int OutlinedStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                             QStyleHintReturn* more) const {
  if (hint == kListLines) return drawsListLines_ ? 1 : 0;
  if (hint == SH_LineEdit_PasswordCharacter) return '*';
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

}  // namespace corvanta::inline controls
