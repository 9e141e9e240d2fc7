#include "controls/AmountEdit.h"

#include "controls/QtText.h"
#include "platform/Locale.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace corvanta {
namespace {

constexpr int kMostDecimals = 6;

// How many decimals the amount needs, at least those of the locale.
int DecimalsOf(double amount, int least) {
  for (int decimals = least; decimals < kMostDecimals; ++decimals) {
    const double scaled = amount * std::pow(10.0, decimals);
    if (std::abs(scaled - std::round(scaled)) < 1e-6 * std::max(1.0, std::abs(scaled))) {
      return decimals;
    }
  }
  return std::max(least, kMostDecimals);
}

}  // namespace

AmountEdit::AmountEdit(const Locale& locale, QWidget* parent) : QLineEdit(parent), locale_(locale) {
  setAlignment(Qt::AlignRight);
  setInputMethodHints(Qt::ImhFormattedNumbersOnly);
  SetAmount(0);
}

QString AmountEdit::Shown(double amount) const {
  return ToQt(locale_.FormatNumber(amount, DecimalsOf(amount, locale_.DefaultDecimals())));
}

void AmountEdit::SetAmount(double amount) {
  amount_ = amount;
  setText(Shown(amount));
}

std::optional<double> AmountEdit::Amount() const {
  if (text() == Shown(amount_)) return amount_;
  if (text().trimmed().isEmpty()) return 0;
  return locale_.ParseNumber(FromQt(text()));
}

bool AmountEdit::MayBeTyped(QChar character) const {
  return character.isDigit() || character.isSpace() || QStringLiteral("+-()").contains(character) ||
         ToQt(locale_.DecimalSeparator()).contains(character) ||
         ToQt(locale_.GroupSeparator()).contains(character);
}

void AmountEdit::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  const bool isText = !typed.isEmpty() && typed.front().isPrint() &&
                      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
  if (isText && !MayBeTyped(typed.front())) return;
  QLineEdit::keyPressEvent(event);
}

void AmountEdit::focusOutEvent(QFocusEvent* event) {
  if (const auto amount = Amount()) SetAmount(*amount);
  QLineEdit::focusOutEvent(event);
}

}  // namespace corvanta
