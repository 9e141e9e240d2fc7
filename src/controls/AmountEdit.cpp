#include "controls/AmountEdit.h"

#include "controls/QtText.h"
#include "controls/TypedKey.h"
#include "platform/ArithmeticText.h"
#include "platform/Locale.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace corvanta {
namespace {

constexpr int kMostDecimals = 6;
// No sum of so few digits overflows a number.
constexpr int kMostCharacters = 100;

// How many decimals the amount needs, at least those of the locale.
int NeededDecimals(double amount, int least) {
  for (int decimals = least; decimals < kMostDecimals; ++decimals) {
    const double scaled = amount * std::pow(10.0, decimals);
    if (std::abs(scaled - std::round(scaled)) < 1e-6 * std::max(1.0, std::abs(scaled))) {
      return decimals;
    }
  }
  return std::max(least, kMostDecimals);
}

}  // namespace

AmountEdit::AmountEdit(const Locale& locale, QWidget* parent, AmountText left)
    : QLineEdit(parent), locale_(locale), left_(left) {
  setAlignment(Qt::AlignRight);
  // Sums need more keys than a keyboard for numbers has.
  setInputMethodHints(Qt::ImhPreferNumbers | Qt::ImhNoPredictiveText);
  setMaxLength(kMostCharacters);
  SetAmount(0);
}

int AmountEdit::DecimalsOf(double amount) const {
  if (left_ == AmountText::Whole) return 0;
  const int usual = locale_.DefaultDecimals();
  return left_ == AmountText::Rounded ? usual : NeededDecimals(amount, usual);
}

QString AmountEdit::Shown(double amount) const {
  return ToQt(locale_.FormatNumber(amount, DecimalsOf(amount)));
}

void AmountEdit::SetAmount(double amount) {
  amount_ = amount;
  setText(Shown(amount));
}

std::optional<double> AmountEdit::Amount() const {
  if (text() == Shown(amount_)) return amount_;
  if (text().trimmed().isEmpty()) return 0;
  const auto typed = WorkOut(FromQt(text()), locale_);
  if (left_ == AmountText::AsTyped) return typed;
  return typed ? locale_.ParseNumber(locale_.FormatNumber(*typed, DecimalsOf(*typed))) : 0;
}

void AmountEdit::Settle() {
  const auto amount = Amount();
  // Rounded to what a number can hold, it would be another one than the one that was typed.
  if (amount && std::abs(*amount) <= kLargestAmount) SetAmount(*amount);
}

bool AmountEdit::MayBeTyped(QChar character) const {
  if (character == u'-' && left_ == AmountText::Whole) return false;
  return character.isDigit() || character.isSpace() ||
         QStringLiteral("+-*/()").contains(character) ||
         ToQt(locale_.DecimalSeparator()).contains(character) ||
         ToQt(locale_.GroupSeparator()).contains(character);
}

void AmountEdit::keyPressEvent(QKeyEvent* event) {
  if (IsCommandLetter(*event)) return event->ignore();
  const QString typed = event->text();
  const bool isText = !typed.isEmpty() && typed.front().isPrint() &&
                      (event->modifiers() & Qt::ControlModifier) == 0;
  const bool isPad = (event->modifiers() & Qt::KeypadModifier) != 0;
  if (isPad && (typed == QStringLiteral(".") || typed == QStringLiteral(","))) {
    // The number pad has one separator key, whatever the layout writes on it.
    return insert(ToQt(locale_.DecimalSeparator()));
  }
  if (isText && !MayBeTyped(typed.front())) return;
  QLineEdit::keyPressEvent(event);
}

void AmountEdit::focusOutEvent(QFocusEvent* event) {
  Settle();
  QLineEdit::focusOutEvent(event);
}

}  // namespace corvanta
