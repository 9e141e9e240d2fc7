#include "controls/AmountEdit.h"

#include "controls/QtText.h"
#include "controls/TypedKey.h"
#include "platform/ArithmeticText.h"
#include "platform/Decimal.h"
#include "platform/Locale.h"

#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvanta::inline controls {
namespace {

constexpr int kMaxDecimals = 6;
// No sum of so few digits overflows a number.
constexpr int kMaxCharacters = 100;

}  // namespace

AmountEdit::AmountEdit(const Locale& locale, QWidget* parent, AmountText left)
    : QLineEdit(parent), locale_(locale), left_(left) {
  setAlignment(Qt::AlignRight);
  // Sums need more keys than a keyboard for numbers has.
  setInputMethodHints(Qt::ImhPreferNumbers | Qt::ImhNoPredictiveText);
  setMaxLength(kMaxCharacters);
  SetAmount(0);
}

int AmountEdit::Decimals() const {
  if (left_ == AmountText::Whole) return 0;
  return decimals_ < 0 ? locale_.DefaultDecimals() : decimals_;
}

int AmountEdit::DecimalsOf(double amount) const {
  if (left_ == AmountText::Whole) return 0;
  const int usual = std::max(locale_.DefaultDecimals(), Decimals());
  return left_ == AmountText::Rounded ? usual : NeededDecimals(amount, usual, kMaxDecimals);
}

QString AmountEdit::Shown(double amount) const {
  const QString number = ToQt(locale_.FormatNumber(amount, DecimalsOf(amount)));
  return isPlus_ ? u'+' + number : number;
}

void AmountEdit::SetAmount(double amount) {
  amount_ = amount;
  isPlus_ = false;
  refused_.clear();
  setText(Shown(amount));
}

void AmountEdit::SetDecimals(int decimals) {
  const bool isUntouched = text() == Shown(amount_);
  decimals_ = decimals;
  if (isUntouched) setText(Shown(amount_));
}

void AmountEdit::SetSignedAmount(double amount) {
  SetAmount(amount);
  isPlus_ = amount > 0 && sign_ < 0;
  setText(Shown(amount));
}

bool AmountEdit::HasPlus() const {
  return text().trimmed().startsWith(u'+') || text().trimmed().endsWith(u'+');
}

std::optional<double> AmountEdit::Typed() const {
  const auto typed = WorkOut(FromQt(text()), locale_, Decimals());
  if (!typed || (isUnsigned_ && *typed < 0)) return std::nullopt;
  const double amount = sign_ < 0 && *typed > 0 && !HasPlus() ? -*typed : *typed;
  return left_ == AmountText::AsTyped ? amount : Rounded(amount, Decimals());
}

std::optional<double> AmountEdit::Amount() const {
  if (text() == Shown(amount_)) {
    return refused_.isEmpty() ? std::optional(amount_) : std::nullopt;
  }
  if (text().trimmed().isEmpty()) return 0;
  return Typed();
}

void AmountEdit::Settle() {
  if (text() == Shown(amount_) || (mayBeEmpty_ && text().trimmed().isEmpty())) return;
  const auto amount = Amount();
  // Rounded to what a number can hold, it would be another one than the one that was typed.
  if (!amount || std::abs(*amount) > kLargestAmount) return;
  if (sign_ < 0) return SetSignedAmount(*amount);
  SetAmount(*amount);
}

bool AmountEdit::MayBeTyped(QChar character) const {
  if (character == u'-' && (left_ == AmountText::Whole || isUnsigned_)) return false;
  if (isUnsigned_ && ToQt(locale_.DecimalSeparator()).contains(character) &&
      HasDecimalSeparator()) {
    return false;
  }
  return character.isDigit() || character.isSpace() ||
         QStringLiteral("+-*/()").contains(character) ||
         ToQt(locale_.DecimalSeparator()).contains(character) ||
         ToQt(locale_.GroupSeparator()).contains(character);
}

// In what stays of the text when something is typed over what is chosen of it.
bool AmountEdit::HasDecimalSeparator() const {
  QString rest = text();
  if (hasSelectedText()) rest.remove(selectionStart(), selectedText().size());
  return rest.contains(ToQt(locale_.DecimalSeparator()));
}

void AmountEdit::keyPressEvent(QKeyEvent* event) {
  if (IsCommandLetter(*event)) return event->ignore();
  const QString typed = event->text();
  const bool isText = !typed.isEmpty() && typed.front().isPrint() &&
                      (event->modifiers() & Qt::ControlModifier) == 0;
  const bool isPad = (event->modifiers() & Qt::KeypadModifier) != 0;
  if (isPad && (typed == QStringLiteral(".") || typed == QStringLiteral(","))) {
    // The number pad has one separator key, whatever the layout writes on it.
    if (!isUnsigned_ || !HasDecimalSeparator()) insert(ToQt(locale_.DecimalSeparator()));
    return;
  }
  if (isText && !MayBeTyped(typed.front())) return;
  QLineEdit::keyPressEvent(event);
}

void AmountEdit::focusInEvent(QFocusEvent* event) {
  if (!refused_.isEmpty() && text() == Shown(amount_)) setText(std::exchange(refused_, {}));
  QLineEdit::focusInEvent(event);
}

void AmountEdit::focusOutEvent(QFocusEvent* event) {
  Settle();
  if (left_ != AmountText::AsTyped && !Amount() && refused_.isEmpty()) {
    const QString typed = text();
    SetAmount(0);
    // A count has always been none where it is no number.
    if (left_ == AmountText::Rounded) refused_ = typed;
  }
  QLineEdit::focusOutEvent(event);
}

}  // namespace corvanta::inline controls
