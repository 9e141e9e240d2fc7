#pragma once

#include "controls/EditorDialog.h"
#include "invest/InvestDialogs.h"
#include "invest/InvestEditor.h"

class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

// The editor of investments.
class FrmInvest : public EditorDialog {
  Q_OBJECT

 public:
  // With `goesOnToHistory` the price history of what was saved follows.
  explicit FrmInvest(const InvestPlace& place, bool goesOnToHistory = false);

 protected:
  void Clear() override { Show(editor_.New()); }
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override;
  bool Delete() override;
  [[nodiscard]] QString ItemName() const override;
  void Finish() override;

 private:
  void MakeFields();
  void MakeTools();
  void FillLists();
  void Show(const InvestmentRecord& row);
  [[nodiscard]] InvestmentRecord Form() const;
  void LeaveConversion();
  // Prices are of an investment that is saved: saves what was typed, and shows it. False when it
  // was refused, which the person knows.
  bool SaveFirst();
  void Download();
  void LookUp();
  void ShowHistory();
  void ShowSources();
  [[nodiscard]] InvestPlace Place();

  InvestPlace place_;
  InvestEditor editor_;
  bool goesOnToHistory_;
  QPushButton* cmdSources_ = nullptr;
  QLineEdit* txtSymbol_;
  QLineEdit* txtInvestment_;
  PickBox* cmbCurrencyInvest_;
  PickBox* cmbCurrency_;
  PickBox* cmbDataSource_;
  AmountEdit* txtConvert_;
  QLineEdit* txtLastPrice_;
  QLineEdit* txtLastDate_;
  QLineEdit* txtDescription_;
};

}  // namespace corvanta::inline invest
