#pragma once

#include "controls/FormDialog.h"
#include "invest/InvestDialogs.h"
#include "invest/holdings/CorporateAction.h"

class QCheckBox;
class QLabel;
class QStandardItemModel;

namespace corvanta::inline controls {
class AmountEdit;
class ChoiceRow;
class DateField;
class ListTable;
class PickBox;
}  // namespace corvanta::inline controls

namespace corvanta::inline invest {

// A split, merger or spin-off: what a person says of it, and below it the rows that it comes to,
// before they are written.
class FrmCorporateAction : public FormDialog {
  Q_OBJECT

 public:
  // `payeeId` is the investment that it begins with; 0 for none. Throws StoreError.
  FrmCorporateAction(std::int64_t payeeId, const InvestPlace& place);

 private:
  void MakeFields();
  void MakeRows();
  void FillInvestments(std::int64_t payeeId);
  [[nodiscard]] CorporateForm Form() const;
  // Enables what the kind asks for and shows what would be written, as far as all is said.
  void ShowPlan();
  void ShowRows(const CorporatePlan& plan);
  void Accept();

  InvestPlace place_;
  CorporateAction action_;
  ChoiceRow* opKind_;
  PickBox* cmbInvestment_;
  DateField* dtInvest_;
  AmountEdit* txtGiven_;
  AmountEdit* txtHeld_;
  PickBox* cmbOther_;
  AmountEdit* txtCostPart_;
  QCheckBox* chkPrice_;
  ListTable* lvRows_;
  QStandardItemModel* model_;
};

}  // namespace corvanta::inline invest
