#include "entry/FrmAccountTransMulti.h"
#include "entry/FrmEntryTest.h"
#include "ledger/Keys.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionStatus.h"

#include <QRadioButton>

namespace corvanta {
namespace {

using Multi = FrmEntryTest;

TEST_F(Multi, EachRuleIsToldInItsOrder) {
  const std::vector<std::int64_t> keys{AddRow(bank_, -10), AddRow(bank_, -20)};
  FrmAccountTransMulti form(keys, Place());
  Show(form);
  EXPECT_EQ(form.windowTitle(), "Multiple Account Transactions");
  const std::string before = Everything();
  const auto refused = [&](const char* text, const char* field) {
    ExpectRefused(form, text, field);
  };
  QTest::keyClick(&Find<QWidget>(form, "opPayment2"), Qt::Key_Space);
  refused("You need to select at least one from Type, Payment Type, Account, Payee or Category",
          "cmbType");
  const QString tooLong(101, u'x');
  const struct {
    const char* field;
    const char* text;
  } rules[] = {{"cmbPayment", "Payment Type must be less than 100 characters long"},
               {"cmbPayee", "Payee must be less than 100 characters long"},
               {"cmbCategory", "Category must be less than 100 characters long"},
               {"cmbSubCategory", "Sub Category must be less than 100 characters long"}};
  for (const auto& rule : rules) Put(form, rule.field, tooLong);
  for (const auto& rule : rules) {
    refused(rule.text, rule.field);
    Put(form, rule.field, "Card");
  }
  Put(form, "cmbCategory", {});
  refused("You need to enter a Category", "cmbCategory");
  Put(form, "cmbSubCategory", {});
  Put(form, "cmbAccount", "no account of that name");
  refused("You need to select an Account", "cmbAccount");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Multi, WhatIsFilledInIsChangedAndTheRestStays) {
  const std::vector<std::int64_t> keys{AddRow(bank_, -10), AddRow(bank_, 20)};
  FrmAccountTransMulti form(keys, Place());
  Show(form);
  Type(form, "cmbPayee", "O'Brien");
  Pick(form, "cmbType", "Reverse");
  QTest::keyClick(&Find<QWidget>(form, "opPayment1"), Qt::Key_Space);
  QTest::keyClick(&Find<QWidget>(form, "cmbPayee"), Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(form.IsChanged());
  EXPECT_EQ(Row(keys[0]).amount, 10);
  EXPECT_EQ(Row(keys[1]).amount, -20);
  for (const std::int64_t key : keys) {
    EXPECT_EQ(Row(key).payee, "O'Brien");
    EXPECT_EQ(Row(key).payment, "Card");
    EXPECT_EQ(Row(key).subCategory, "Food");
    EXPECT_EQ(Row(key).accountId, bank_);
    EXPECT_EQ(Row(key).status, FlagsOf(TransactionStatus::Cleared));
  }
}

TEST_F(Multi, AllOfThemGetAKeyword) {
  const std::vector<std::int64_t> keys{AddRow(bank_, -10), AddRow(bank_, 20)};
  FrmAccountTransMulti form(keys, Place());
  Show(form);
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Keywords of 2 Transactions");
    Type(dialog, "txtKeyword", "Tax");
    Click(dialog, "cmdAdd");
    Click(dialog, "cmdAccept");
  });
  Click(form, "cmdKeywords");
  EXPECT_TRUE(form.IsChanged());
  EXPECT_EQ(Count("tblKeywordLink"), 2);
}

TEST_F(Multi, TheStatusStaysUnlessOneIsChosen) {
  const std::vector<std::int64_t> keys{AddRow(bank_, -10)};
  ledger_.Statuses().SetStatus(keys[0], 1, 1, 1);
  FrmAccountTransMulti form(keys, Place());
  Show(form);
  EXPECT_TRUE(Find<QRadioButton>(form, "opPayment3").isChecked());
  Put(form, "cmbAccount", "cash");
  Click(form, "cmdAccept");
  EXPECT_EQ(Row(keys[0]).accountId, cash_);
  EXPECT_EQ(Row(keys[0]).status, FlagsOf(TransactionStatus::Reconciled));
}

TEST_F(Multi, DeletingAsksForOneForManyAndForNone) {
  const std::vector<std::int64_t> keys{AddRow(bank_, -10), AddRow(bank_, -20), AddRow(bank_, -30)};
  {
    FrmAccountTransMulti none({}, Place());
    Show(none);
    Prompt().ExpectTell("Delete Item", "No items available");
    Click(none, "cmdDelete");
    EXPECT_TRUE(none.isVisible());
  }
  FrmAccountTransMulti two(corvanta::Keys(keys).first(2), Place());
  Show(two);
  Prompt().ExpectAsk("Delete Items?", "Do you wish to delete these 2 items?", false);
  Click(two, "cmdDelete");
  EXPECT_EQ(Count("tblTransactions"), 3);
  Prompt().ExpectAsk("Delete Items?", "Do you wish to delete these 2 items?", true);
  Click(two, "cmdDelete");
  EXPECT_FALSE(two.isVisible());
  EXPECT_EQ(Count("tblTransactions"), 1);
  FrmAccountTransMulti one(corvanta::Keys(keys).last(1), Place());
  Show(one);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(one, "cmdDelete");
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(Multi, TheTypeIsChosenWithTheArrowKeys) {
  const std::vector<std::int64_t> keys = {AddRow(bank_, -10), AddRow(bank_, 20)};
  FrmAccountTransMulti form(keys, Place());
  Show(form);
  auto& type = Find<QComboBox>(form, "cmbType");
  EXPECT_EQ(type.currentText(), "Unchanged");
  type.setFocus();
  for (const char* text : {"Income", "Expense", "Reverse"}) {
    QTest::keyClick(&type, Qt::Key_Down);
    EXPECT_EQ(type.currentText(), text);
  }
  QTest::keyClick(&type, Qt::Key_Home);
  EXPECT_EQ(type.currentText(), "Unchanged") << "a choice is taken back";
  QTest::keyClick(&type, Qt::Key_End);
  QTest::keyClick(&type, Qt::Key_Return);
  EXPECT_EQ(Row(keys[0]).amount, 10);
}

}  // namespace
}  // namespace corvanta
