#include "controls/ListTable.h"
#include "controls/Plot.h"
#include "platform/SettingsTable.h"
#include "support/DialogTest.h"
#include "support/TestPlatform.h"
#include "tools/FrmLoan.h"

#include <QLineEdit>

namespace corvanta {
namespace {

class LoanWindow : public DialogTest<testing::Test> {
 protected:
  std::unique_ptr<FrmLoan> Open(LoanMode mode) {
    auto form = std::make_unique<FrmLoan>(mode, machine_.Get(), nullptr);
    Show(*form);
    return form;
  }
  static std::string Text(const QWidget& form, const char* field) {
    return Find<QLineEdit>(form, field).text().toStdString();
  }
  static QStringList Row(const QWidget& form, int row) {
    const QAbstractItemModel& model = *Find<ListTable>(form, "lvLoan").model();
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column) {
      cells.append(model.index(row, column).data().toString());
    }
    return cells;
  }
  static QStringList Heads(const QWidget& form) {
    const QAbstractItemModel& model = *Find<ListTable>(form, "lvLoan").model();
    QStringList heads;
    for (int column = 0; column < model.columnCount(); ++column) {
      heads.append(model.headerData(column, Qt::Horizontal).toString());
    }
    return heads;
  }
  static int Rows(const QWidget& form) {
    return Find<ListTable>(form, "lvLoan").model()->rowCount();
  }
  static void Fill(const QWidget& form, const QString& loan, const QString& rate,
                   const QString& period) {
    Type(form, "txtLoan", loan);
    Type(form, "txtRate", rate);
    Type(form, "txtPeriod", period);
  }
  void ExpectRefused(const QWidget& form, const char* text, const char* field) {
    machine_.prompts.ExpectTell("Calculation Warning", text);
    Click(form, "cmdApply");
    EXPECT_EQ(FocusOf(form), field) << text;
  }

  TestPlatform machine_;
};

TEST_F(LoanWindow, ALoanIsWorkedOut) {
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "NoDecimal", "2");
  const auto form = Open(LoanMode::Loan);
  EXPECT_EQ(form->windowTitle(), "Loan Calculator");
  EXPECT_EQ(FocusOf(*form), "txtLoan");
  EXPECT_EQ(Text(*form, "txtLoan"), "0");
  EXPECT_FALSE(Find<QPushButton>(*form, "cmdPrint").isEnabled()) << "nothing to print";
  EXPECT_EQ(form->findChild<QWidget*>("txtFixedExpense"), nullptr);
  EXPECT_EQ(Heads(*form).join(u'|'), "Period|Payment|Principle|Interest|Loan");
  Fill(*form, "10000", "6", "12");
  EXPECT_EQ(Text(*form, "txtLoan"), "10,000.00") << "as it was left";
  EXPECT_EQ(Text(*form, "txtRate"), "6.00");
  QTest::keyClick(form->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Text(*form, "txtPayment"), "860.66");
  EXPECT_EQ(Text(*form, "txtTInterest"), "327.92");
  EXPECT_EQ(Text(*form, "txtTotalRepaid"), "10,327.92");
  EXPECT_EQ(Row(*form, 0).join(u'|'), "1|860.66|810.66|50.00|9,189.34");
  EXPECT_EQ(Row(*form, 12).last().left(1), "-") << "less than one payment below nothing";
  EXPECT_FALSE(Find<Plot>(*form, "chart").IsEmpty());
}

TEST_F(LoanWindow, AMortgageHasYearsAndAFixedExpense) {
  const auto form = Open(LoanMode::Mortgage);
  EXPECT_EQ(form->windowTitle(), "Mortgage Calculator");
  EXPECT_EQ(Heads(*form).join(u'|'), "Period|Payment|Expense|Principle|Interest|Loan");
  Fill(*form, "100000", "5", "25");
  Type(*form, "txtFixedExpense", "1200");
  EXPECT_EQ(Text(*form, "txtPeriod"), "25");
  Click(*form, "cmdApply");
  EXPECT_EQ(Text(*form, "txtPayment"), "684.59");
  EXPECT_EQ(Text(*form, "txtPeriodMonth"), "300");
  EXPECT_EQ(Text(*form, "txtTotalFixedExpense"), "30,000.00");
  EXPECT_EQ(Text(*form, "txtTInterest"), "75,377.0081") << "of the single-precision payment";
  EXPECT_EQ(Text(*form, "txtTotalRepaid"), "205,377.01");
  EXPECT_EQ(Row(*form, 0).join(u'|'), "1|684.59|100.00|167.92|416.67|99,832.08");
}

TEST_F(LoanWindow, EachRuleIsToldAndLeavesTheFiguresAsTheyWere) {
  const auto form = Open(LoanMode::Mortgage);
  Fill(*form, "1000", "5", "1");
  Click(*form, "cmdApply");
  const std::string payment = Text(*form, "txtPayment");
  const int rows = Rows(*form);
  Fill(*form, "", "", "");
  Type(*form, "txtFixedExpense", "-5");
  ExpectRefused(*form, "Please enter a valid Loan Amount", "txtLoan");
  EXPECT_EQ(Text(*form, "txtLoan"), "0") << "an empty field is 0 once it was left";
  Type(*form, "txtLoan", "2000");
  ExpectRefused(*form, "Please enter a valid Percentage Rate", "txtRate");
  Type(*form, "txtRate", "5*");
  ExpectRefused(*form, "Please enter a valid Percentage Rate", "txtRate");
  EXPECT_EQ(Text(*form, "txtRate"), "0") << "what is no number too";
  Type(*form, "txtRate", "4.875");
  ExpectRefused(*form, "Please enter a valid Loan Period", "txtPeriod");
  EXPECT_EQ(Text(*form, "txtRate"), "4.875") << "to its last digit";
  Type(*form, "txtPeriod", "2.5");
  ExpectRefused(*form, "Please enter a valid Fixed Expense", "txtFixedExpense");
  EXPECT_EQ(Text(*form, "txtPayment"), payment);
  EXPECT_EQ(Rows(*form), rows);
  Type(*form, "txtFixedExpense", "");
  Type(*form, "txtExtraOnce", "10");
  Type(*form, "txtExtraPeriod", "31");
  ExpectRefused(*form, "Please enter the number of the payment that the Extra Payment comes with",
                "txtExtraPeriod");
}

TEST_F(LoanWindow, ExtraPaymentsShowWhatTheySave) {
  const auto form = Open(LoanMode::Loan);
  Fill(*form, "10000", "6", "12");
  Click(*form, "cmdApply");
  EXPECT_EQ(Text(*form, "txtMonthsSaved"), "");
  Type(*form, "txtExtra", "100");
  Click(*form, "cmdApply");
  EXPECT_EQ(Text(*form, "txtMonthsSaved"), "1");
  EXPECT_EQ(Text(*form, "txtInterestSaved"), "32.15");
  EXPECT_EQ(Text(*form, "txtPayment"), "860.66") << "the payment is that of the loan";
  EXPECT_EQ(Find<Plot>(*form, "chart").chart()->series().size(), 4);
}

TEST_F(LoanWindow, TheTableIsPrintedAndKeepsItsWidths) {
  for (const auto& [mode, setting] :
       {std::pair(LoanMode::Loan, "chL0"), std::pair(LoanMode::Mortgage, "chL1")}) {
    const auto form = Open(mode);
    Fill(*form, "10000", "6", "12");
    Click(*form, "cmdApply");
    InNextDialog([](QDialog& preview) { EXPECT_EQ(preview.objectName(), "FrmPreview"); });
    Click(*form, "cmdPrint");
    auto& list = Find<ListTable>(*form, "lvLoan");
    list.SetWidths(mode == LoanMode::Loan ? "90|0|0|0|150" : "80|0|0|0|0|140");
    const QString widths = list.Widths();
    Click(*form, "cmdCancel");
    EXPECT_EQ(machine_.registry.Read(Hive::CurrentUser, kSettingsKey, setting),
              widths.toStdString());
    EXPECT_EQ(Find<ListTable>(*Open(mode), "lvLoan").Widths(), widths);
  }
}

}  // namespace
}  // namespace corvanta
