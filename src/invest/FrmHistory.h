#pragma once

#include "controls/FormDialog.h"
#include "invest/HistoryEditor.h"
#include "invest/InvestDialogs.h"

class QStackedWidget;

namespace corvanta::inline controls {
class AmountEdit;
class DateField;
class EmptyState;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

class ucEntryList;

// The stored prices of one investment: listed, entered, downloaded and deleted.
class FrmHistory : public FormDialog {
  Q_OBJECT

 public:
  FrmHistory(const InvestPlace& place, std::int64_t investmentId);

 protected:
  void done(int result) override;

 private:
  void MakeList();
  void MakeFields();
  void MakeCommands();
  // Reads the list anew; the price of that day is chosen, or none.
  void Fill(std::optional<Date> chosen = std::nullopt);
  void TakeChosen();
  void New();
  void Accept();
  void Delete();
  void Download();
  void Import();
  void OpenDataSources();
  [[nodiscard]] std::vector<std::int64_t> ChosenKeys() const;

  InvestPlace place_;
  HistoryEditor editor_;
  int decimals_;
  std::vector<PriceRecord> rows_;  // as they are listed
  QStackedWidget* pages_;
  ucEntryList* lvHistory_;
  EmptyState* empty_;
  DateField* dtStock_;
  AmountEdit* txtPrice_;
  QPushButton* cmdDelete_ = nullptr;
  QPushButton* cmdSources_ = nullptr;
};

}  // namespace corvanta::inline invest
