#pragma once

#include "controls/FormDialog.h"
#include "invest/InvestDialogs.h"
#include "invest/prices/StockLookup.h"
#include "reports/print/ReportDialogs.h"

class QComboBox;
class QLineEdit;
class QStandardItem;
class QStandardItemModel;

namespace corvanta::inline controls {
class ListTable;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

class ucCurrencyBox;

// The watch list of quotes or of exchange rates: what is ticked is downloaded, shown, and stored
// nowhere.
class FrmStock : public FormDialog {
  Q_OBJECT

 public:
  // `choose` asks for the printer; the system's own dialog where it is empty.
  FrmStock(WatchMode mode, const InvestPlace& place, PrinterChoice choose = {});

  void done(int result) override;

 private:
  void MakeList();
  void MakeFields();
  void MakeButtons();
  void FillSources();
  void FillList();
  void AddEntry(const WatchEntry& entry);
  [[nodiscard]] std::string Typed() const;
  // The rows that are ticked, from the top.
  [[nodiscard]] std::vector<QStandardItem*> Ticked() const;
  void ShowDefault();
  void EnableButtons();
  void New();
  void Delete();
  void Download();
  void Print();
  void OpenDataSources();

  InvestPlace place_;
  StockLookup lookup_;
  PrinterChoice choose_;
  ListTable* lvLookUp_;
  QStandardItemModel* model_;
  QComboBox* cmbDataSource_;
  ucCurrencyBox* cmbCurrency_;
  QLineEdit* txtSymbol_ = nullptr;      // of the list of stocks
  ucCurrencyBox* cmbSymbol_ = nullptr;  // of the list of currencies
  QPushButton* cmdNew_ = nullptr;
  QPushButton* cmdDelete_ = nullptr;
  QPushButton* cmdDowload_ = nullptr;
  QPushButton* cmdLookup_ = nullptr;
  QPushButton* cmdPrint_ = nullptr;
  QPushButton* cmdSources_ = nullptr;
};

}  // namespace corvanta::inline invest
