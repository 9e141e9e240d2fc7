#pragma once

#include <QLineEdit>

#include <optional>

namespace corvanta {

class Locale;

// How an amount field leaves its text.
enum class AmountText {
  AsTyped,  // what is no number stays to be mended, and every decimal that was typed
  Rounded,  // the locale's number format; what is no number becomes 0
  Whole     // the same without decimals, and without a minus: a count
};

// A field for an amount of money, as the locale writes it, or for a sum that comes to one
// ("12.50+3*4"). Only what those are made of can be typed; on leaving, the number is shown in the
// locale's form, unless it is beyond the largest amount: that stays as it was typed. An amount that
// is not touched stays what it was, to the last digit.
class AmountEdit : public QLineEdit {
  Q_OBJECT

 public:
  // The locale must outlive the field.
  AmountEdit(const Locale& locale, QWidget* parent, AmountText left = AmountText::AsTyped);

  void SetAmount(double amount);
  // 0 for an empty field; nullopt when the text is no number and stays.
  [[nodiscard]] std::optional<double> Amount() const;
  // Works out what was typed and shows it, as leaving the field does.
  void Settle();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QString Shown(double amount) const;
  [[nodiscard]] int DecimalsOf(double amount) const;
  [[nodiscard]] bool MayBeTyped(QChar character) const;

  const Locale& locale_;
  AmountText left_;
  double amount_ = 0;  // what the text was made from
};

}  // namespace corvanta
