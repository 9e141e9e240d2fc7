#pragma once

#include "invest/QtEntryListDialog.h"
#include "invest/prices/HistoryEditor.h"

class QStackedWidget;

namespace corvanta::inline controls {
class AmountEdit;
class DateField;
class EmptyState;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

class ucEntryList;

// The stored prices of one investment: listed, entered, downloaded and deleted.
class FrmHistory : public QtEntryListDialog {
  Q_OBJECT

 public:
  FrmHistory(const InvestPlace& place, std::int64_t investmentId);

 protected:
  void done(int result) override;

 private:
  void MakeList();
  void MakeFields();
  // Reads the list anew; the price of that day is chosen, or none.
  void Fill(std::optional<Date> chosen = std::nullopt);
  void ShowChosen();
  void New() override;
  void Accept() override;
  void Delete() override;
  void Download() override;
  void Import();
  [[nodiscard]] std::vector<std::int64_t> ChosenKeys() const;

  HistoryEditor editor_;
  int decimals_;
  std::vector<PriceRecord> rows_;  // as they are listed
  QStackedWidget* pages_;
  ucEntryList* lvHistory_;
  EmptyState* empty_;
  DateField* dtStock_;
  AmountEdit* txtPrice_;
};

}  // namespace corvanta::inline invest
