#pragma once

#include "controls/PickBox.h"
#include "ledger/reference/ReferenceRecords.h"

#include <string>
#include <vector>

namespace corvanta::inline invest {

// A list of currencies by their names with the codes in brackets behind; a code may be typed, too.
class ucCurrencyBox : public PickBox {
  Q_OBJECT

 public:
  ucCurrencyBox(std::vector<CurrencyRecord> currencies, QWidget* parent);

  // Of the currency whose name or code is in the field; empty when there is none.
  [[nodiscard]] std::string Code() const;
  // Its name with the code behind it; empty when there is none.
  [[nodiscard]] QString Entry() const;
  // Shows the currency of that code, or nothing.
  void SetCode(const std::string& code);
  // Shows the name of a currency whose code was typed; what is none stays to be mended.
  void Settle();

 private:
  std::vector<CurrencyRecord> currencies_;
};

}  // namespace corvanta::inline invest
