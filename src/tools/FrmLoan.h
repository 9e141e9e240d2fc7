#pragma once

#include "controls/FormDialog.h"
#include "tools/LoanCalculator.h"

class QLineEdit;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline controls {
class AmountEdit;
class ListTable;
class Plot;
}  // namespace corvanta::inline controls

namespace corvanta::inline tools {

class QtLoanModel;

// What a loan or a mortgage costs: the payment, what it comes to, the repayment table with a chart
// beside it, and what extra payments save. It reads and writes no data file.
class FrmLoan : public FormDialog {
  Q_OBJECT

 public:
  FrmLoan(LoanMode mode, Platform& platform, QWidget* parent);

  void done(int result) override;

 private:
  void MakeInputs();
  void MakeOutputs();
  void MakeTable();
  void MakeButtons();
  [[nodiscard]] AmountEdit* MakeNumber(bool isCount);
  [[nodiscard]] QLineEdit* AddOutput(const QString& label, const char* name);
  [[nodiscard]] bool IsMortgage() const { return mode_ == LoanMode::Mortgage; }
  [[nodiscard]] LoanForm Form() const;
  void Apply();
  void Show(const LoanPlan& plan);
  void ShowChart(const LoanPlan& plan);
  void Print();

  LoanMode mode_;
  Platform& platform_;
  LoanCalculator calculator_;
  QtLoanModel* model_;

  AmountEdit* txtLoan_;
  AmountEdit* txtRate_;
  AmountEdit* txtPeriod_;
  AmountEdit* txtFixedExpense_ = nullptr;
  AmountEdit* txtExtra_;
  AmountEdit* txtExtraOnce_;
  AmountEdit* txtExtraPeriod_;
  QLineEdit* txtPayment_ = nullptr;
  QLineEdit* txtTInterest_ = nullptr;
  QLineEdit* txtTotalRepaid_ = nullptr;
  QLineEdit* txtPeriodMonth_ = nullptr;
  QLineEdit* txtTotalFixedExpense_ = nullptr;
  QLineEdit* txtMonthsSaved_ = nullptr;
  QLineEdit* txtInterestSaved_ = nullptr;
  ListTable* lvLoan_;
  Plot* chart_;
  QPushButton* cmdPrint_ = nullptr;
};

}  // namespace corvanta::inline tools
