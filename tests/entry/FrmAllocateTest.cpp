#include "entry/FrmAccountTrans.h"
#include "entry/FrmAllocate.h"
#include "entry/FrmEntryTest.h"
#include "ledger/transactions/TransactionBook.h"

#include <QTableView>

namespace corvanta {
namespace {

constexpr const char* kClosing =
    "Allocated items do not match total amount. Do you want to update the total amount?";

class Allocate : public FrmEntryTest {
 protected:
  AllocationParent Parent(std::int64_t key, double amount) {
    return {key, AllocationSource::Transaction, amount, -1, "GBP"};
  }
  static void EnterLine(QDialog& form, const QString& category, const QString& amount) {
    Type(form, "cmbCategory", category);
    if (!amount.isEmpty()) Type(form, "txtAmount", amount);
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
  }
  static QString Cell(const QWidget& form, int row, int column) {
    return Find<QTableView>(form, "lvAllocated").model()->index(row, column).data().toString();
  }
  static int Rows(const QWidget& form) {
    return Find<QTableView>(form, "lvAllocated").model()->rowCount();
  }
};

TEST_F(Allocate, LinesAreSavedAtOnceAndTheRestRemains) {
  const std::int64_t key = AddRow(bank_, -100);
  FrmAllocate form(Parent(key, 100), Place());
  Show(form);
  EXPECT_EQ(form.windowTitle(), "Allocate Items");
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-100.00");
  EXPECT_EQ(FocusOf(form), "cmbCategory");
  const auto* model = Find<QTableView>(form, "lvAllocated").model();
  EXPECT_EQ(model->headerData(0, Qt::Horizontal).toString(), "Category");
  EXPECT_EQ(model->headerData(3, Qt::Horizontal).toString(), "Amount (GBP)");
  Put(form, "cmbSubCategory", "Food");
  Put(form, "txtDescription", "for 'us'");
  Put(form, "txtReference", "R1");
  EnterLine(form, "shopping", "-60");
  ASSERT_EQ(Rows(form), 1);
  EXPECT_EQ(Cell(form, 0, 0), "Shopping:Food");
  EXPECT_EQ(Cell(form, 0, 1), "for 'us'");
  EXPECT_EQ(Cell(form, 0, 2), "R1");
  EXPECT_EQ(Cell(form, 0, 3), "-60.00");
  EXPECT_EQ(ledger_.Transactions().SplitLines(key).size(), 1U);
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-40.00");
  EXPECT_EQ(TextOfField(form, "txtDescription"), "");
  EXPECT_EQ(FocusOf(form), "cmbCategory");
  EnterLine(form, "Gifts", {});
  EXPECT_EQ(TextOfField(form, "txtAmount"), "0.00");
  Click(form, "cmdCancel");
  EXPECT_FALSE(form.isVisible()) << "nothing remains, nothing is asked";
  EXPECT_TRUE(form.IsChanged());
  EXPECT_EQ(Row(key).amount, -100);
}

TEST_F(Allocate, TheClosingQuestionDecides) {
  const std::int64_t key = AddRow(bank_, -100);
  FrmAllocate form(Parent(key, 100), Place());
  Show(form);
  EnterLine(form, "Gifts", "-60");
  Prompt().ExpectAsk("Exit Allocate Items?", kClosing, false);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-40.00");
  Prompt().ExpectAsk("Exit Allocate Items?", kClosing, true);
  form.close();
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(Row(key).amount, -60);
}

TEST_F(Allocate, EachRuleIsToldInItsOrder) {
  const std::int64_t key = AddRow(bank_, -100);
  FrmAllocate form(Parent(key, 100), Place());
  Show(form);
  const std::string before = Everything();
  const auto refused = [&](const char* text, const char* field) {
    ExpectRefused(form, text, field);
  };
  Put(form, "txtAmount", "0");
  refused("You need to enter a Category", "cmbCategory");
  Put(form, "cmbCategory", QString(101, u'x'));
  refused("Category must be less than 100 characters long", "cmbCategory");
  Put(form, "cmbCategory", "Gifts");
  Put(form, "cmbSubCategory", QString(101, u'x'));
  refused("Sub Category must be less than 100 characters long", "cmbSubCategory");
  Put(form, "cmbSubCategory", {});
  refused("Please enter a valid value for Amount", "txtAmount");
  Put(form, "txtAmount", "1/0");
  refused("Please enter a valid value for Amount", "txtAmount");
  Put(form, "txtAmount", "-10000000000000");
  refused("Please enter a valid value for Amount", "txtAmount");
  EXPECT_EQ(Everything(), before);
  Put(form, "txtAmount", "-100");
  Put(form, "cmbCategory", QString(100, u'x'));
  Prompt().ExpectAsk("Add Category?", ScriptedPrompts::kAnyText, false);
  Click(form, "cmdAccept");
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(FocusOf(form), "cmbCategory");
}

TEST_F(Allocate, ALineWithoutASignGoesWhereTheWholeGoes) {
  const std::int64_t key = AddRow(bank_, -80);
  FrmAllocate form(Parent(key, 80), Place());
  Show(form);
  Type(form, "txtAmount", "30+20");
  Find<QWidget>(form, "txtReference").setFocus();
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-50.00") << "seen before it is saved";
  Type(form, "txtAmount", "+5");
  Find<QWidget>(form, "txtReference").setFocus();
  EXPECT_EQ(TextOfField(form, "txtAmount"), "+5.00") << "the opposite one is said";
  EnterLine(form, "Gifts", "80");
  EXPECT_EQ(Cell(form, 0, 3), "-80.00");
  EXPECT_EQ(Row(key).amount, -80) << "no income of 80";
  Find<QTableView>(form, "lvAllocated").selectRow(0);
  EnterLine(form, "Gifts", "+80");
  Find<QTableView>(form, "lvAllocated").selectRow(0);
  EXPECT_EQ(TextOfField(form, "txtAmount"), "+80.00") << "and stays when it is chosen again";
  Prompt().ExpectAsk("Exit Allocate Items?", kClosing, false);
  Click(form, "cmdCancel");
  EXPECT_EQ(Prompt().Shown().back().icon, Icon::Warning) << "Enter does not turn the type round";
}

TEST_F(Allocate, EscapeAsksBeforeALineThatIsNotSavedGoes) {
  FrmAllocate form(Parent(AddRow(bank_, -80), 80), Place());
  Show(form);
  Type(form, "txtDescription", "for us");
  const char* question = "What you have typed is not saved. Do you wish to drop it?";
  Prompt().ExpectAsk("Allocate Items", question, false);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(TextOfField(form, "txtDescription"), "for us");
  Prompt().ExpectAsk("Allocate Items", question, true);
  QTest::keyClick(&form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible()) << "without lines there is no sum to ask about";
}

TEST_F(Allocate, APathFillsBothCategoryBoxes) {
  const std::int64_t key = AddRow(bank_, -80);
  FrmAllocate form(Parent(key, 80), Place());
  Show(form);
  Type(form, "cmbCategory", "shopping:food");
  Find<QWidget>(form, "txtReference").setFocus();
  EXPECT_EQ(TextOfField(form, "cmbCategory"), "Shopping");
  EXPECT_EQ(TextOfField(form, "cmbSubCategory"), "Food");
  EnterLine(form, "Gifts:Cards", "30");
  EXPECT_EQ(Cell(form, 0, 0), "Gifts:Cards");
  EXPECT_EQ(Count("tblCategory WHERE Category LIKE '%:%'"), 0);
}

TEST_F(Allocate, ALineOfTheOtherSignIsSavedAndNamed) {
  const std::int64_t key = AddRow(bank_, -100);
  FrmAllocate form(Parent(key, 100), Place());
  Show(form);
  const auto& note = Find<QLabel>(form, "lblNote");
  EnterLine(form, "Gifts", "+40");
  EXPECT_EQ(note.text(),
            "40.00 counts against the total of -100.00: lines are entered with the total's sign.");
  EXPECT_TRUE(note.isVisible());
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-140.00");
  EnterLine(form, "Shopping", "-140");
  EXPECT_FALSE(note.isVisible());
}

TEST_F(Allocate, ALineIsChosenChangedAndDeleted) {
  const std::int64_t key = AddRow(bank_, -100);
  AddRow(bank_, -60, key);
  AddRow(bank_, -40, key);
  FrmAllocate form(Parent(key, 100), Place());
  Show(form);
  auto& list = Find<QTableView>(form, "lvAllocated");
  EXPECT_FALSE(Find<QPushButton>(form, "cmdDelete").isEnabled());
  list.selectRow(1);
  EXPECT_EQ(TextOfField(form, "cmbCategory"), "Shopping");
  EXPECT_EQ(TextOfField(form, "cmbSubCategory"), "Food");
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-40.00");
  Type(form, "txtAmount", "-30");
  Prompt().ExpectAsk("Add New?", ScriptedPrompts::kAnyText, false);
  Click(form, "cmdNew");
  Click(form, "cmdAccept");
  EXPECT_EQ(Rows(form), 2);
  EXPECT_EQ(Cell(form, 1, 3), "-30.00");
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-10.00");
  list.selectRow(0);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(Rows(form), 1);
  EXPECT_EQ(TextOfField(form, "txtAmount"), "-70.00") << "raised at once, without a question";
  list.selectRow(0);
  Click(form, "cmdDelete");
  EXPECT_EQ(Rows(form), 0);
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(Allocate, NoiseOfAddingIsNoRemainder) {
  const std::int64_t key = AddRow(bank_, -0.3);
  AddRow(bank_, -0.1, key);
  AddRow(bank_, -0.2, key);
  FrmAllocate form(Parent(key, 0.3), Place());
  Show(form);
  EXPECT_EQ(TextOfField(form, "txtAmount"), "0.00");
  Click(form, "cmdCancel");
  EXPECT_FALSE(form.isVisible());
}

TEST_F(Allocate, ANewTransactionIsSavedFirstAndTakesTheSumBack) {
  FrmAccountTrans form(Place(), bank_);
  form.Open(0);
  Show(form);
  const auto refused = [&](const char* text, const char* field) {
    ExpectRefused(form, text, field, "Allocate Item Warning", "cmdAllocate");
  };
  Find<QComboBox>(form, "cmbType").setCurrentIndex(-1);
  refused("Please select a Type (Not Transfer) to allocate an Item", "cmbType");
  Pick(form, "cmbType", "Expense");
  refused("Please select a valid value for Amount", "txtAmount");
  Put(form, "txtAmount", "100");
  Prompt().ExpectTell("Save Warning", "You need to enter a Payment Type");
  Click(form, "cmdAllocate");
  EXPECT_EQ(Count("tblTransactions"), 0);
  Put(form, "cmbPayment", "Card");
  Put(form, "cmbPayee", "Grocer");
  Put(form, "cmbCategory", "Shopping");
  Prompt().ExpectAsk("Exit Allocate Items?", kClosing, true);
  InNextDialog([](QDialog& split) {
    EXPECT_EQ(split.objectName(), "FrmAllocate");
    EXPECT_EQ(TextOfField(split, "txtAmount"), "-100.00");
    EnterLine(split, "Gifts", "-60");
    QTest::keyClick(&split, Qt::Key_Escape);
  });
  Click(form, "cmdAllocate");
  EXPECT_TRUE(form.isVisible());
  EXPECT_EQ(form.windowTitle(), "Edit Transaction") << "of the row that was saved";
  EXPECT_EQ(TextOfField(form, "txtAmount"), "60.00");
  EXPECT_EQ(TextOfField(form, "cmbPayee"), "Grocer");
  Click(form, "cmdAccept");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(Row(form.SavedKey()).amount, -60);
}

TEST_F(Allocate, WhatWasTypedForAnExistingRowSurvivesALookAtItsSplit) {
  const std::int64_t key = AddRow(bank_, -100);
  FrmAccountTrans form(Place(), bank_);
  form.Open(key);
  Show(form);
  Put(form, "txtAmount", "120");
  Put(form, "txtDescription", "typed");
  InNextDialog([](QDialog& split) { EXPECT_EQ(TextOfField(split, "txtAmount"), "-120.00"); });
  Click(form, "cmdAllocate");
  EXPECT_EQ(TextOfField(form, "txtAmount"), "120.00");
  EXPECT_EQ(TextOfField(form, "txtDescription"), "typed");
}

}  // namespace
}  // namespace corvanta
