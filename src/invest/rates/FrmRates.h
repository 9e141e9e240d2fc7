#pragma once

#include "invest/QtEntryListDialog.h"
#include "invest/rates/RateEditor.h"

namespace corvanta::inline controls {
class AmountEdit;
class DateField;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

class ucCurrencyBox;
class ucEntryList;

// The exchange rates that were fetched or entered, with their days: listed, entered and deleted.
class FrmRates : public QtEntryListDialog {
  Q_OBJECT

 public:
  explicit FrmRates(const InvestPlace& place);

 private:
  void MakeFields();
  // Reads the list anew; the rate of that key is chosen, or none.
  void Fill(std::int64_t chosen = 0);
  void ShowChosen();
  void New() override;
  void Accept() override;
  void Delete() override;
  void Download() override;
  // With the names of currencies whose codes were typed.
  [[nodiscard]] RateForm Form();

  RateEditor editor_;
  std::vector<RateRecord> rows_;  // as they are listed
  ucEntryList* lvRates_;
  ucCurrencyBox* cmbFrom_;
  ucCurrencyBox* cmbTo_;
  DateField* dtRate_;
  AmountEdit* txtRate_;
};

}  // namespace corvanta::inline invest
