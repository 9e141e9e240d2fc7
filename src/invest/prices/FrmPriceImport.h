#pragma once

#include "controls/FormDialog.h"
#include "exchange/csv/SavedMappings.h"
#include "invest/InvestDialogs.h"
#include "invest/prices/PriceFile.h"

#include <cstdint>

class QComboBox;
class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
}

namespace corvanta::inline exchange {
class ucSavedMappings;
}

namespace corvanta::inline invest {

class ucEntryList;

// Says which column of a CSV file holds the days and which the prices of an investment, shows what
// comes of it, and imports it.
class FrmPriceImport : public FormDialog {
  Q_OBJECT

 public:
  // `text` is the file's.
  FrmPriceImport(const InvestPlace& place, std::int64_t investmentId, std::string text);

 private:
  void MakeFields();
  void Propose();
  void Show(const CsvMapping& mapping);
  [[nodiscard]] std::optional<Warning> SaveMapping(const std::string& name);
  [[nodiscard]] CsvMapping Mapping() const;
  // Shows the rows as they are read by what is chosen.
  void Refresh();
  void Accept();

  InvestPlace place_;
  std::int64_t investmentId_;
  std::string text_;
  PriceFileRows read_;
  SavedMappings saved_;
  ucSavedMappings* mappings_;
  ucEntryList* lvRead_;
  QComboBox* cmbColDate_;
  QComboBox* cmbColPrice_;
  QLineEdit* txtSeparator_;
  AmountEdit* txtSkip_;
  QComboBox* cmbDateOrder_;
  QComboBox* cmbNumbers_;
  QPushButton* cmdAccept_ = nullptr;
};

}  // namespace corvanta::inline invest
