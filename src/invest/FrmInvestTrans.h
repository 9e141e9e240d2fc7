#pragma once

#include "controls/EditorDialog.h"
#include "invest/InvestDialogs.h"
#include "invest/InvestTransEditor.h"

class QComboBox;
class QLineEdit;

namespace corvanta::inline controls {
class AmountEdit;
class ChoiceRow;
class DateField;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

// The editor of investment transactions. The action says which of its figures there are; the total
// follows them until it is typed.
class FrmInvestTrans : public EditorDialog {
  Q_OBJECT

 public:
  // New rows are in that account, of that investment and of that day; 0 and nullopt for none.
  FrmInvestTrans(const InvestTransRequest& request, const InvestPlace& place);

  // The rules behind it.
  [[nodiscard]] InvestTransEditor& Editor() { return editor_; }

 protected:
  void Clear() override;
  bool Load(std::int64_t key) override;
  [[nodiscard]] std::optional<Warning> Check() override { return editor_.Check(Form()); }
  std::int64_t Save() override;
  bool Delete() override { return editor_.Delete(Key()); }
  [[nodiscard]] QString ItemName() const override;

 private:
  void MakeFigures();
  void MakeFields();
  void MakeNotes();
  void ConnectFields();
  // Those of the keys are among them, whatever is wrong with them.
  void FillLists(std::int64_t accountId, std::int64_t investmentId);
  void Show(const InvestTransForm& form);
  [[nodiscard]] InvestTransForm Form();
  // What the figures hold now, with the total as it stands.
  void ShowFigures(const InvestTransForm& form);
  [[nodiscard]] std::optional<InvestAction> Action() const;
  void ApplyAction();
  // A figure was left: where one is another now, the total follows.
  void LeaveFigure();
  void ShowCurrency();
  void AddInvestment();

  InvestPlace place_;
  InvestTransRequest request_;
  InvestTransEditor editor_;
  InvestTransForm form_;  // what the total goes with
  bool isShowing_ = false;
  PickBox* cmbAccount_;
  PickBox* cmbInvestment_;
  QComboBox* cmbAction_;
  DateField* dtInvest_;
  AmountEdit* txtDividend_ = nullptr;
  AmountEdit* txtShares_ = nullptr;
  AmountEdit* txtPrice_ = nullptr;
  AmountEdit* txtCommission_ = nullptr;
  AmountEdit* txtTotal_ = nullptr;
  QLabel* lblCurrency_;
  ChoiceRow* opPayment_;
  QLineEdit* txtDescription_;
  QPushButton* cmdKeywords_ = nullptr;
  QPushButton* cmdAttachments_ = nullptr;
};

}  // namespace corvanta::inline invest
