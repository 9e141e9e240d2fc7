#pragma once

#include <QLineEdit>

#include <optional>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline controls {

// How an amount field leaves its text.
enum class AmountText {
  AsTyped,  // what is no number stays to be mended, and every decimal that was typed
  Rounded,  // the locale's number format; what is no number shows as 0 until one comes back to it
  Whole     // the same without decimals, and without a minus: a count
};

// A field for an amount of money, as the locale writes it, or for a sum that comes to one
// ("12.50+3*4"). Only what those are made of can be typed; on leaving, the number is shown in the
// locale's form, unless it is beyond the largest amount: that stays as it was typed. An amount that
// is not touched stays what it was, to the last digit. A text that was no number is never taken for
// 0, and stands in the field again when the person comes back to it.
class AmountEdit : public QLineEdit {
  Q_OBJECT

 public:
  // The locale must outlive the field.
  AmountEdit(const Locale& locale, QWidget* parent, AmountText left = AmountText::AsTyped);

  void SetAmount(double amount);
  // The same with a plus before an amount above 0, as it is typed where signs count.
  void SetSignedAmount(double amount);
  // What a typed amount is rounded to: the decimals of its currency. At first the locale's.
  void SetDecimals(int decimals);
  // From now on an amount that is typed without a sign has this one, 1 or -1.
  void SetSign(int sign) { sign_ = sign; }
  // From now on no minus can be typed, nor a second decimal separator; what is pasted and comes to
  // less than 0 is no amount.
  void SetUnsigned() { isUnsigned_ = true; }
  // An empty field stays empty: nothing was said.
  void SetMayBeEmpty() { mayBeEmpty_ = true; }
  // 0 for an empty field; nullopt when what was typed is no number.
  [[nodiscard]] std::optional<double> Amount() const;
  // Works out what was typed and shows it. What is no number stays to be mended.
  void Settle();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QString Shown(double amount) const;
  [[nodiscard]] int DecimalsOf(double amount) const;
  [[nodiscard]] int Decimals() const;
  [[nodiscard]] std::optional<double> Typed() const;
  [[nodiscard]] bool HasPlus() const;
  [[nodiscard]] bool MayBeTyped(QChar character) const;
  [[nodiscard]] bool HasDecimalSeparator() const;

  const Locale& locale_;
  AmountText left_;
  int decimals_ = -1;    // of the currency; -1 for the locale's
  int sign_ = 1;         // of what is typed without one
  double amount_ = 0;    // what the text was made from
  bool isPlus_ = false;  // and whether it begins with a plus
  bool mayBeEmpty_ = false;
  bool isUnsigned_ = false;
  QString refused_;  // what was typed and is no number, while 0 is shown for it
};

}  // namespace corvanta::inline controls
