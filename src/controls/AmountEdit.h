#pragma once

#include <QLineEdit>

#include <optional>

namespace corvanta {

class Locale;

// A field for an amount of money, as the locale writes it. Only what numbers are made of can be
// typed; on leaving, the number is shown in the locale's form. An amount that is not touched stays
// what it was, to the last digit.
class AmountEdit : public QLineEdit {
  Q_OBJECT

 public:
  // The locale must outlive the field.
  AmountEdit(const Locale& locale, QWidget* parent);

  void SetAmount(double amount);
  // 0 for an empty field; nullopt when the text is no number.
  [[nodiscard]] std::optional<double> Amount() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] QString Shown(double amount) const;
  [[nodiscard]] bool MayBeTyped(QChar character) const;

  const Locale& locale_;
  double amount_ = 0;  // what the text was made from
};

}  // namespace corvanta
