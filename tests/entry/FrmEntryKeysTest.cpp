#include "entry/FrmAccountTrans.h"
#include "entry/FrmEntryTest.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"

#include <QAbstractButton>

namespace corvanta {
namespace {

// A person's day at the keyboard: nothing is clicked, nothing is set from outside.
class EntryKeys : public FrmEntryTest {
 protected:
  EntryKeys() {
    form_.Open(0);
    Show(form_);
  }
  static void Press(QDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(dialog.focusWidget(), key, modifiers);
  }
  void To(const char* field) {
    for (int tabs = 0; FocusOf(form_) != QLatin1String(field) && tabs < 40; ++tabs) {
      Press(form_, Qt::Key_Tab);
    }
    ASSERT_EQ(FocusOf(form_), field);
  }

  FrmAccountTrans form_{Place(), bank_};
};

TEST_F(EntryKeys, TabFollowsTheFormAndReachesEverything) {
  QStringList order;
  do {
    order.append(FocusOf(form_));
    Press(form_, Qt::Key_Tab);
  } while (FocusOf(form_) != order.first() && order.size() < 40);
  const QStringList expected{"txtDate",        "cmbPayee",    "cmbCategory",       "cmbSubCategory",
                             "cmbPayment",     "txtAmount",   "cmdCurrencyLookup", "txtReference",
                             "txtDescription", "opPayment0",  "cmdAllocate",       "cmdAutoFill",
                             "cmdAddSchedule", "cmdKeywords", "cmdAttachments",    "cmdHelp",
                             "cmdNew",         "cmdAccept",   "cmdCancel",         "cmbAccount",
                             "cmbType"};
  EXPECT_EQ(order, expected) << order.join(u' ').toStdString();
  for (const QString& name : order) {
    const auto& field = Find<QWidget>(form_, name.toUtf8().constData());
    const auto* button = qobject_cast<const QAbstractButton*>(&field);
    EXPECT_TRUE(button != nullptr || !field.accessibleName().isEmpty()) << name.toStdString();
  }
}

TEST_F(EntryKeys, AnExpenseAnIncomeATransferAndASplitInThreeAreEntered) {
  Keys(form_, "-");  // yesterday
  Keys(form_, "Grocer");
  Keys(form_, "shopping");
  Keys(form_, "food");
  Keys(form_, "Card");
  Keys(form_, "12.50+3*4", Qt::Key_Return);
  const TransactionDetails expense = Row(form_.SavedKey());
  EXPECT_EQ(expense.amount, -24.5);
  EXPECT_EQ(expense.date.ToIso(), "2026-11-20");
  EXPECT_EQ(expense.subCategory, "Food");

  EXPECT_EQ(FocusOf(form_), "txtDate") << "on with the next";
  Press(form_, Qt::Key_Backtab, Qt::ShiftModifier);
  Press(form_, Qt::Key_Down);
  Press(form_, Qt::Key_Tab);
  Press(form_, Qt::Key_Tab);
  Keys(form_, "Employer");
  Keys(form_, "Wages and Salary");
  To("cmbPayment");
  Keys(form_, "Bank Transfer");
  Keys(form_, "1,000", Qt::Key_Return);
  const TransactionDetails income = Row(form_.SavedKey());
  EXPECT_EQ(income.amount, 1000);
  EXPECT_EQ(income.payee, "Employer");

  To("cmbType");
  Press(form_, Qt::Key_End);
  Press(form_, Qt::Key_Tab);
  Press(form_, Qt::Key_Tab);
  EXPECT_EQ(FocusOf(form_), "cmbAccountTo");
  Keys(form_, "cash");
  To("cmbPayment");
  Keys(form_, "Bank Transfer");
  Keys(form_, "50", Qt::Key_Return);
  const TransactionDetails transfer = Row(form_.SavedKey());
  EXPECT_EQ(transfer.amount, -50);
  EXPECT_EQ(transfer.twinAccountId, cash_);
  EXPECT_EQ(transfer.category, "Credit");

  Press(form_, Qt::Key_Tab);
  Keys(form_, "Department Store");
  Keys(form_, "Shopping");
  To("cmbPayment");
  Keys(form_, "Card");
  Keys(form_, "90");
  InNextDialog([](QDialog& split) {
    for (const char* category : {"Gifts", "Clothing", "Laundry"}) {
      Keys(split, category);
      Press(split, Qt::Key_Tab);
      Keys(split, "-30", Qt::Key_Return);
    }
    Press(split, Qt::Key_Escape);
    EXPECT_FALSE(split.isVisible());
  });
  To("cmdAllocate");
  Press(form_, Qt::Key_Space);
  To("cmdAccept");
  Press(form_, Qt::Key_Return);
  EXPECT_FALSE(form_.isVisible());
  const std::int64_t parent = form_.SavedKey();
  EXPECT_EQ(Row(parent).amount, -90);
  EXPECT_EQ(ledger_.Transactions().SplitLines(parent).size(), 3U);
  EXPECT_EQ(Count("tblTransactions Where AllocatedItem = 0"), 5);
}

TEST_F(EntryKeys, CtrlEnterSavesAnEditAndGoesOnWithANewRow) {
  const std::int64_t key = AddRow(bank_, -10);
  form_.Open(key);
  To("txtAmount");
  Keys(form_, "11", Qt::Key_Tab);
  Press(form_, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Row(key).amount, -11);
  EXPECT_EQ(form_.windowTitle(), "Add Transaction");
  EXPECT_EQ(FocusOf(form_), "txtDate");
}

}  // namespace
}  // namespace corvanta
