#include "tools/FrmLoan.h"

#include "controls/AmountEdit.h"
#include "controls/CommandEdge.h"
#include "controls/HairSplitter.h"
#include "controls/ListTable.h"
#include "controls/Plot.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/TabularText.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"
#include "reports/print/ReportDialogs.h"
#include "tools/QtLoanModel.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace corvanta::inline tools {
namespace {

constexpr int kSmallestField = 15 * kRhythm;
constexpr int kSmallestTable = 20 * kRhythm;
constexpr QSize kComfortable(118 * kRhythm, 80 * kRhythm);

// A number that shows as 0 whatever else was typed. A count has no decimals unless some were typed.
class NumberEdit : public AmountEdit {
 public:
  NumberEdit(const Locale& locale, bool isCount, QWidget* parent)
      : AmountEdit(locale, parent), locale_(locale), isCount_(isCount) {
    ShowAsNumber();
  }

 protected:
  void focusOutEvent(QFocusEvent* event) override {
    AmountEdit::focusOutEvent(event);
    ShowAsNumber();
  }

 private:
  void ShowAsNumber() {
    const double number = Amount().value_or(0);
    if (number == 0) return setText(QStringLiteral("0"));
    if (isCount_ && number == std::floor(number)) setText(ToQt(locale_.FormatNumber(number, 0)));
  }

  const Locale& locale_;
  bool isCount_;
};

Setting WidthsOf(LoanMode mode) {
  return mode == LoanMode::Mortgage ? Setting::chL1 : Setting::chL0;
}

}  // namespace

FrmLoan::FrmLoan(LoanMode mode, Platform& platform, QWidget* parent)
    : FormDialog(QStringLiteral("FrmLoan"), platform.prompts, parent),
      mode_(mode),
      platform_(platform),
      calculator_(mode, platform.locale),
      model_(new QtLoanModel(mode, platform.locale, this)),
      txtLoan_(MakeNumber(false)),
      txtRate_(MakeNumber(false)),
      txtPeriod_(MakeNumber(true)),
      txtExtra_(MakeNumber(false)),
      txtExtraOnce_(MakeNumber(false)),
      txtExtraPeriod_(MakeNumber(true)),
      lvLoan_(new ListTable(this)),
      chart_(new Plot(platform.locale, this)) {
  setWindowTitle(IsMortgage() ? tr("Mortgage Calculator") : tr("Loan Calculator"));
  SetSmallestField(kSmallestField);
  MakeInputs();
  StartColumn();
  MakeOutputs();
  MakeTable();
  MakeButtons();
  resize(kComfortable.boundedTo(screen()->availableSize() - QSize(4 * kRhythm, 8 * kRhythm)));
  FocusFirstField();
}

AmountEdit* FrmLoan::MakeNumber(bool isCount) {
  return new NumberEdit(platform_.locale, isCount, this);
}

void FrmLoan::MakeInputs() {
  AddField(tr("&Loan Amount:"), txtLoan_, "txtLoan");
  AddField(tr("Rate, % a &Year:"), txtRate_, "txtRate");
  AddField(IsMortgage() ? tr("P&eriod in Years:") : tr("P&eriod in Months:"), txtPeriod_,
           "txtPeriod");
  if (IsMortgage()) {
    txtFixedExpense_ = MakeNumber(false);
    txtFixedExpense_->setToolTip(tr("What is paid every year beside the loan, such as insurance"));
    AddField(tr("&Fixed Expense a Year:"), txtFixedExpense_, "txtFixedExpense");
  }
  txtExtra_->setToolTip(tr("What you pay more with every payment, to owe less"));
  AddField(tr("E&xtra a Month:"), txtExtra_, "txtExtra");
  txtExtraOnce_->setToolTip(tr("What you pay more once"));
  txtExtraPeriod_->setObjectName(QStringLiteral("txtExtraPeriod"));
  txtExtraPeriod_->setAccessibleName(tr("Number of the payment that the extra one comes with"));
  txtExtraPeriod_->setToolTip(txtExtraPeriod_->accessibleName());
  txtExtraPeriod_->setText(QStringLiteral("1"));
  auto* with = new QLabel(tr("&with No."), this);
  with->setBuddy(txtExtraPeriod_);
  txtExtraPeriod_->setMaximumWidth(7 * kRhythm);
  AddField(tr("Extra &Once:"), txtExtraOnce_, "txtExtraOnce", {with, txtExtraPeriod_});
}

QLineEdit* FrmLoan::AddOutput(const QString& label, const char* name) {
  auto* field = new QLineEdit(this);
  field->setReadOnly(true);
  field->setAlignment(Qt::AlignRight);
  AddField(label, field, name);
  return field;
}

void FrmLoan::MakeOutputs() {
  txtPayment_ = AddOutput(tr("Payment a Month:"), "txtPayment");
  txtTInterest_ = AddOutput(tr("Total Interest:"), "txtTInterest");
  txtTotalRepaid_ = AddOutput(tr("Total Repaid:"), "txtTotalRepaid");
  if (IsMortgage()) {
    txtPeriodMonth_ = AddOutput(tr("Months:"), "txtPeriodMonth");
    txtTotalFixedExpense_ = AddOutput(tr("Total Fixed Expense:"), "txtTotalFixedExpense");
  }
  txtMonthsSaved_ = AddOutput(tr("Months Saved:"), "txtMonthsSaved");
  txtInterestSaved_ = AddOutput(tr("Interest Saved:"), "txtInterestSaved");
}

void FrmLoan::MakeTable() {
  lvLoan_->setObjectName(QStringLiteral("lvLoan"));
  lvLoan_->setAccessibleName(tr("Repayment table"));
  lvLoan_->setAlternatingRowColors(true);
  lvLoan_->setModel(model_);
  lvLoan_->setMinimumHeight(kSmallestTable);
  const int money =
      TabularWidth(fontMetrics(), ToQt(platform_.locale.FormatNumber(-99999.99))) + 2 * kRhythm;
  const int count = fontMetrics().horizontalAdvance(tr("Period")) + 4 * kRhythm;
  std::vector<ListTable::Column> columns(static_cast<std::size_t>(model_->columnCount()),
                                         {money, 1, money * 3 / 4});
  columns.front() = {count, 0, count};
  lvLoan_->SetColumns(std::move(columns));
  lvLoan_->SetWidths(ToQt(Settings(platform_.registry).Text(WidthsOf(mode_))));
  chart_->setObjectName(QStringLiteral("chart"));
  chart_->setAccessibleName(tr("Chart of what is owed, repaid and paid as interest"));

  auto* area = new HairSplitter(Qt::Horizontal, this);
  area->setObjectName(QStringLiteral("spTable"));
  area->addWidget(lvLoan_);
  area->addWidget(chart_);
  area->setChildrenCollapsible(false);
  area->setSizes({kComfortable.width() * 11 / 20, kComfortable.width() * 9 / 20});
  static_cast<QBoxLayout*>(layout())->addWidget(area, 1);
}

void FrmLoan::MakeButtons() {
  cmdPrint_ = MakeButton(tr("&Print..."), "cmdPrint");
  cmdPrint_->setToolTip(tr("Print the repayment table"));
  cmdPrint_->setEnabled(false);
  auto* apply = MakeButton(tr("C&alculate"), "cmdApply");
  apply->setDefault(true);
  auto* cancel = MakeButton(tr("&Close"), "cmdCancel");
  AddButtonRow({cmdPrint_}, {apply, cancel});
  setTabOrder(txtInterestSaved_, lvLoan_);
  setTabOrder(lvLoan_, cmdPrint_);
  chart_->setFocusPolicy(Qt::NoFocus);
  connect(cmdPrint_, &QPushButton::clicked, this, &FrmLoan::Print);
  connect(apply, &QPushButton::clicked, this, &FrmLoan::Apply);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

LoanForm FrmLoan::Form() const {
  LoanForm form;
  form.loan = txtLoan_->Amount();
  form.rate = txtRate_->Amount();
  form.period = txtPeriod_->Amount();
  if (txtFixedExpense_ != nullptr) form.fixedExpense = txtFixedExpense_->Amount();
  form.extra = txtExtra_->Amount();
  form.extraOnce = txtExtraOnce_->Amount();
  form.extraPeriod = txtExtraPeriod_->Amount();
  return form;
}

void FrmLoan::Apply() {
  Run([this] {
    LoanAnswer answer = calculator_.Calculate(Form());
    if (answer.warning) return Warn(*answer.warning);
    Show(answer.plan);
    model_->SetRows(std::move(answer.plan.rows));
    lvLoan_->scrollToTop();
    cmdPrint_->setEnabled(true);
  });
}

void FrmLoan::Show(const LoanPlan& plan) {
  const Locale& locale = platform_.locale;
  const auto money = [&](double amount) { return ToQt(locale.FormatNumber(amount)); };
  txtPayment_->setText(money(plan.payment));
  const int decimals = Settings(platform_.registry).InvestmentDecimals();
  txtTInterest_->setText(ToQt(locale.FormatNumber(plan.totalInterest, decimals)));
  txtTotalRepaid_->setText(money(plan.totalRepaid));
  if (IsMortgage()) {
    txtPeriodMonth_->setText(ToQt(locale.FormatNumber(plan.months, 0)));
    txtTotalFixedExpense_->setText(money(plan.totalFixedExpense));
  }
  const auto& saving = plan.saving;
  txtMonthsSaved_->setText(saving ? ToQt(locale.FormatNumber(saving->months, 0)) : QString());
  txtInterestSaved_->setText(saving ? money(saving->interest) : QString());
  ShowChart(plan);
}

void FrmLoan::ShowChart(const LoanPlan& plan) {
  PlotSeries loan{tr("Loan")};
  PlotSeries principal{tr("Principle")};
  PlotSeries interest{tr("Interest")};
  PlotSeries extra{tr("With extra")};
  const double all = plan.rows.front().principal + plan.rows.front().balance;
  loan.points.append({0, all});
  principal.points.append({0, 0});
  interest.points.append({0, 0});
  double paid = 0;
  for (const LoanRow& row : plan.rows) {
    const double owed = std::max(0.0, row.balance);
    paid += row.interest;
    loan.points.append(QPointF(row.period, owed));
    principal.points.append(QPointF(row.period, all - owed));
    interest.points.append(QPointF(row.period, paid));
  }
  if (plan.saving) {
    extra.points.append({0, all});
    for (const double owed : plan.saving->balances) {
      extra.points.append(QPointF(static_cast<double>(extra.points.size()), owed));
    }
  }
  chart_->Show({loan, principal, interest, extra}, PlotAcross::Number, true);
}

void FrmLoan::Print() {
  Run([this] {
    OpenPrintPreview(PrintTableOf(*lvLoan_, FromQt(windowTitle())), {platform_, this});
  });
}

void FrmLoan::done(int result) {
  RunCommand(platform_.prompts, [this] {
    Settings(platform_.registry).SetText(WidthsOf(mode_), FromQt(lvLoan_->Widths()));
  });
  FormDialog::done(result);
}

}  // namespace corvanta::inline tools
