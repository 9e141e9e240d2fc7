#pragma once

#include <QLabel>

namespace corvanta::inline controls {

// A label with an amount, in the colour of money out while it is below zero; the colour follows the
// palette from light to dark.
class MoneyLabel : public QLabel {
 public:
  using QLabel::QLabel;

  void SetNegative(bool isNegative);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void Colour();

  bool isNegative_ = false;
  bool isColouring_ = false;
};

}  // namespace corvanta::inline controls
