#include "controls/ChoiceRow.h"
#include "entry/FrmAccountAuto.h"
#include "entry/FrmAccountTrans.h"
#include "entry/FrmEntryTest.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"

#include <QRadioButton>

namespace corvanta {
namespace {

class Auto : public FrmEntryTest {
 protected:
  std::unique_ptr<FrmAccountAuto> Open(std::int64_t key = 0) {
    auto form = std::make_unique<FrmAccountAuto>(Place(), bank_);
    EXPECT_TRUE(form->Open(key));
    Show(*form);
    return form;
  }
};

TEST_F(Auto, EachRuleIsToldInItsOrder) {
  AddRow(bank_, -10);
  const auto form = Open();
  EXPECT_EQ(form->windowTitle(), "Autofill Transactions");
  EXPECT_EQ(Find<QLabel>(*form, "lblCurrency").text(), "GBP");
  const std::string before = Everything();
  const auto refused = [&](const char* text, const char* field) {
    ExpectRefused(*form, text, field);
  };
  Find<ChoiceRow>(*form, "opType").SetChoice(std::nullopt);
  refused("You need to enter a valid Amount", "txtAmount");
  Put(*form, "txtAmount", "5");
  refused("You need to select either Expense or Income.", "opType0");
  QTest::keyClick(&Find<QWidget>(*form, "opType1"), Qt::Key_Space);
  refused("You need to select a Payee", "cmbPayee");
  Put(*form, "cmbPayee", "grocer");
  Find<QWidget>(*form, "cmdHelp").setFocus();
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Shopping:Food") << "proposed";
  Put(*form, "cmbCategory", {});
  refused("You need to select a Category/SubCategory", "cmbCategory");
  Put(*form, "cmbCategory", "Gifts");
  Prompt().ExpectTell("Save Warning", "Not enough information for Autofill Transactions");
  Click(*form, "cmdAccept");
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "5.00") << "nothing typed is lost";
  EXPECT_EQ(Everything(), before);
}

TEST_F(Auto, TheRestIsThatOfTheLatestTransaction) {
  const std::int64_t first = AddRow(bank_, -10);
  const std::int64_t second = AddRow(bank_, -11);
  store_.Db().Execute("UPDATE tblTransactions SET Description = 'first' Where TransactionID = " +
                      std::to_string(first));
  store_.Db().Execute("UPDATE tblTransactions SET Description = 'second' Where TransactionID = " +
                      std::to_string(second));
  const auto form = Open();
  Keys(*form, "+");
  Keys(*form, "7*2");
  Keys(*form, {});
  Keys(*form, "grocer");
  Keys(*form, "shopping:food", Qt::Key_Return);
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(TextOfField(*form, "cmbPayee"), "") << "ready for the next";
  const TransactionDetails row = Row(form->SavedKey());
  EXPECT_EQ(row.amount, -14);
  EXPECT_EQ(row.date.ToIso(), "2026-11-22");
  EXPECT_EQ(row.description, "second") << "of equal dates the later row";
  EXPECT_EQ(row.payment, "Card");
}

TEST_F(Auto, ThePayeesLastCategoryIsProposedAndTheDayStays) {
  AddRow(bank_, -10);
  const auto form = Open();
  Keys(*form, "-");  // yesterday
  Keys(*form, "7");
  Keys(*form, {});
  Keys(*form, "grocer");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Shopping:Food");
  QTest::keyClick(form->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(Row(form->SavedKey()).date.ToIso(), "2026-11-20");
  EXPECT_EQ(TextOfField(*form, "txtDate"), "20/11/2026") << "where the next one begins";
  Type(*form, "cmbCategory", "Gifts");
  Type(*form, "cmbPayee", "Grocer");
  Find<QWidget>(*form, "txtAmount").setFocus();
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Gifts") << "what was chosen stays";
}

TEST_F(Auto, AnExistingRowIsEditedAndTheDialogCloses) {
  const std::int64_t key = AddRow(bank_, 10);
  const auto form = Open(key);
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "10.00");
  EXPECT_TRUE(Find<QRadioButton>(*form, "opType1").isChecked());
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Shopping:Food");
  Put(*form, "txtAmount", "12");
  Click(*form, "cmdAccept");
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(Row(key).amount, 12);
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(Auto, MoreDetailsGoesOnInTheFullEditor) {
  AddRow(bank_, -10);
  const auto form = Open();
  Put(*form, "txtDate", "1/3/2026");
  Put(*form, "txtAmount", "5");
  QTest::keyClick(&Find<QWidget>(*form, "opType1"), Qt::Key_Space);
  Put(*form, "cmbPayee", "Grocer");
  Put(*form, "cmbCategory", "Gifts");
  InNextDialog([](QDialog& full) {
    EXPECT_EQ(full.objectName(), "FrmAccountTrans");
    EXPECT_EQ(full.windowTitle(), "Add Transaction");
    EXPECT_EQ(TextOfField(full, "txtDate"), "01/03/2026");
    EXPECT_EQ(TextOfField(full, "txtAmount"), "5.00");
    EXPECT_EQ(TextOfField(full, "cmbType"), "Income");
    EXPECT_EQ(TextOfField(full, "cmbCategory"), "Gifts");
    EXPECT_EQ(TextOfField(full, "cmbPayment"), "Card") << "the payee's last one";
    Click(full, "cmdAccept");
  });
  Click(*form, "cmdFull");
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->IsChanged());
  EXPECT_EQ(Row(form->SavedKey()).amount, 5);
  EXPECT_EQ(Row(form->SavedKey()).category, "Gifts");
}

TEST_F(Auto, AScheduleMadeFromTheFullEditorIsReported) {
  AddRow(bank_, -10);
  InNextDialog([](QDialog& quick) {
    Put(quick, "txtAmount", "5");
    Put(quick, "cmbPayee", "Grocer");
    Put(quick, "cmbCategory", "Shopping:Food");
    InNextDialog([](QDialog& full) {
      InNextDialog([](QDialog& schedule) { Click(schedule, "cmdAccept"); });
      Click(full, "cmdAddSchedule");
    });
    Click(quick, "cmdFull");
  });
  EXPECT_TRUE(OpenAutofill(bank_, 0, Place()).isScheduleChanged);
  EXPECT_EQ(Count("tblSchedule WHERE Amount = -5"), 1);
}

TEST_F(Auto, MoreDetailsOfAnExistingRowEditsThatRow) {
  const std::int64_t key = AddRow(bank_, -10);
  const auto form = Open(key);
  Put(*form, "txtAmount", "12");
  InNextDialog([](QDialog& full) {
    EXPECT_EQ(full.windowTitle(), "Edit Transaction");
    EXPECT_EQ(TextOfField(full, "txtAmount"), "12.00");
    EXPECT_EQ(TextOfField(full, "cmbPayment"), "Card");
    Click(full, "cmdAccept");
  });
  Click(*form, "cmdFull");
  EXPECT_EQ(Row(key).amount, -12);
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(Auto, MoreDetailsTakesNamesThatAreToBeMade) {
  for (const std::int64_t key : {std::int64_t{0}, AddRow(bank_, -10)}) {
    const auto form = Open(key);
    Put(*form, "cmbPayee", "Bakery");
    Put(*form, "cmbCategory", "Shopping:Bread");
    InNextDialog([](QDialog& full) {
      EXPECT_EQ(TextOfField(full, "cmbPayee"), "Bakery");
      EXPECT_EQ(TextOfField(full, "cmbCategory"), "Shopping");
      EXPECT_EQ(TextOfField(full, "cmbSubCategory"), "Bread");
    });
    Click(*form, "cmdFull");
  }
}

TEST_F(Auto, ATransferOpensInTheFullEditor) {
  TransactionRecord from = Row(AddRow(bank_, -25));
  TransactionRecord to = from;
  to.transactionId = 0;
  to.accountId = cash_;
  to.amount = 25;
  ledger_.Transactions().SaveTransfer(from, to);
  InNextDialog([](QDialog& full) { EXPECT_EQ(TextOfField(full, "cmbType"), "Transfer"); });
  EXPECT_FALSE(OpenAutofill(bank_, from.transactionId, Place()).isChanged);
}

TEST_F(Auto, IsOpenedFromTheFullEditor) {
  AddRow(bank_, -10);
  FrmAccountTrans full(Place(), bank_);
  full.Open(0);
  Show(full);
  InNextDialog([](QDialog& form) {
    EXPECT_EQ(form.objectName(), "FrmAccountAuto");
    Put(form, "txtAmount", "8");
    Put(form, "cmbPayee", "Grocer");
    Put(form, "cmbCategory", "Shopping:Food");
    Click(form, "cmdAccept");
  });
  Click(full, "cmdAutoFill");
  EXPECT_TRUE(full.isVisible());
  EXPECT_TRUE(full.IsChanged());
  EXPECT_EQ(Row(full.SavedKey()).amount, -8);
}

}  // namespace
}  // namespace corvanta
