#include "entry/FrmAccountTrans.h"
#include "entry/FrmEntryTest.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/Settings.h"

#include <QRadioButton>

namespace corvanta {
namespace {

class AccountTrans : public FrmEntryTest {
 protected:
  // A form on the row of that key, or on a new one in the bank account.
  std::unique_ptr<FrmAccountTrans> Open(std::int64_t key = 0) {
    auto form = std::make_unique<FrmAccountTrans>(Place(), bank_);
    EXPECT_TRUE(form->Open(key));
    Show(*form);
    return form;
  }
  std::int64_t AddTransfer(double amount, std::int64_t to) {
    TransactionRecord from = Row(AddRow(bank_, -amount));
    TransactionRecord half = from;
    half.transactionId = 0;
    half.accountId = to;
    half.amount = amount;
    ledger_.Transactions().SaveTransfer(from, half);
    return from.transactionId;
  }
  static QString LabelOf(const QWidget& form, const char* field) {
    for (const auto* label : form.findChildren<QLabel*>()) {
      if (label->buddy() != nullptr && label->buddy()->objectName() == QLatin1String(field)) {
        return label->text().remove(u'&').remove(u':');
      }
    }
    return {};
  }
};

TEST_F(AccountTrans, EachRuleIsToldInItsOrderAndFocusesItsField) {
  AddRow(bank_, -30, AddRow(bank_, -30));
  const std::int64_t split = LastKey() - 1;
  const auto form = Open();
  const std::string before = Everything();
  const auto clear = [&] {
    for (const char* field : {"cmbAccount", "cmbAccountTo", "cmbPayee", "cmbPayment", "cmbCategory",
                              "cmbSubCategory", "txtAmount"}) {
      Put(*form, field, {});
    }
    Find<QComboBox>(*form, "cmbType").setCurrentIndex(-1);
  };
  const auto refused = [&](const char* text, const char* field) {
    ExpectRefused(*form, text, field);
  };
  form->Open(split);
  clear();
  refused("You need to enter a valid Amount, as there are Allocated items", "txtAmount");
  form->Open(0);
  clear();
  Pick(*form, "cmbType", "Transfer");
  refused("You need to enter a valid Amount, as this is a Transfer", "txtAmount");
  clear();
  refused("You need to select a Type", "cmbType");
  Pick(*form, "cmbType", "Expense");
  ExpectNamesNeeded(*form, [&] {
    Put(*form, "cmbAccount", "no account of that name");
    refused("You need to select an Account / Transfer From", "cmbAccount");
    Put(*form, "cmbAccount", "bank");
  });
  Put(*form, "txtAmount", "5");
  Pick(*form, "cmbType", "Transfer");
  refused("You need to select an Account / Transfer To", "cmbAccountTo");
  Put(*form, "cmbAccountTo", "Bank");
  refused("You can not transfer to the same Account", "cmbAccountTo");
  EXPECT_EQ(Everything(), before);
}

TEST_F(AccountTrans, ANewRowHasItsDefaultsAndTheSettingsStatus) {
  const auto form = Open();
  EXPECT_EQ(form->windowTitle(), "Add Transaction");
  EXPECT_EQ(FocusOf(*form), "txtDate");
  EXPECT_EQ(TextOfField(*form, "cmbAccount"), "Bank");
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Expense");
  EXPECT_EQ(TextOfField(*form, "txtDate"), "21/11/2026");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "0.00");
  EXPECT_EQ(Find<QLabel>(*form, "lblCurrency").text(), "GBP");
  EXPECT_TRUE(Find<QRadioButton>(*form, "opPayment0").isChecked());
  EXPECT_FALSE(Find<QWidget>(*form, "cmdDelete").isVisible());
  Settings(Services().registry).SetChoice(Setting::Payment, 1);
  form->Open(0);
  EXPECT_TRUE(Find<QRadioButton>(*form, "opPayment1").isChecked());
  Put(*form, "cmbAccount", "Euro");
  EXPECT_EQ(Find<QLabel>(*form, "lblCurrency").text(), "EUR");
}

TEST_F(AccountTrans, TheTypeGivesTheFormItsLayout) {
  const auto form = Open();
  const auto& allocate = Find<QPushButton>(*form, "cmdAllocate");
  EXPECT_EQ(allocate.text(), "&Allocate...");
  EXPECT_EQ(allocate.toolTip(), "Allocate Item");
  Pick(*form, "cmbType", "Transfer");
  EXPECT_EQ(LabelOf(*form, "cmbAccount"), "From");
  EXPECT_EQ(LabelOf(*form, "cmbAccountTo"), "To");
  EXPECT_FALSE(Find<QWidget>(*form, "cmbPayee").isVisible());
  EXPECT_TRUE(Find<QWidget>(*form, "cmbAccountTo").isVisible());
  EXPECT_FALSE(Find<QWidget>(*form, "cmdAutoFill").isEnabled());
  EXPECT_EQ(allocate.text(), "&Transfer...");
  EXPECT_EQ(allocate.toolTip(), "Edit Transfer Item");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Credit");
  Pick(*form, "cmbType", "Income");
  EXPECT_EQ(LabelOf(*form, "cmbAccount"), "Accounts");
  EXPECT_EQ(LabelOf(*form, "cmbPayee"), "Payee");
  EXPECT_TRUE(Find<QWidget>(*form, "cmbPayee").isVisible());
  EXPECT_FALSE(Find<QWidget>(*form, "cmbAccountTo").isVisible());
  EXPECT_TRUE(Find<QWidget>(*form, "cmdAutoFill").isEnabled());
  EXPECT_EQ(allocate.text(), "&Allocate...");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "");
}

TEST_F(AccountTrans, EveryColumnIsSavedAndShownAgain) {
  auto form = Open();
  FillExpense(*form);
  Put(*form, "txtAmount", "12.50+3*4");
  Put(*form, "txtDate", "5/3/26");
  Put(*form, "txtReference", "R'1");
  Put(*form, "txtDescription", "\"quoted\" 🦊");
  QTest::keyClick(&Find<QWidget>(*form, "opPayment2"), Qt::Key_Space);
  QTest::keyClick(&Find<QWidget>(*form, "txtReference"), Qt::Key_Return);
  EXPECT_EQ(NoteOf(*form), "“Grocer, 24.50” was saved.");
  EXPECT_EQ(TextOfField(*form, "cmbPayee"), "") << "ready for the next";
  EXPECT_EQ(TextOfField(*form, "txtDate"), "05/03/2026") << "the day of the last entry stays";
  const TransactionDetails row = Row(form->SavedKey());
  EXPECT_EQ(row.amount, -24.5);
  EXPECT_EQ(row.date.ToIso(), "2026-03-05");
  EXPECT_EQ(row.status, FlagsOf(TransactionStatus::Reconciled));
  EXPECT_EQ(row.subCategory, "Food");
  form = Open(row.transactionId);
  EXPECT_EQ(form->windowTitle(), "Edit Transaction");
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Expense");
  EXPECT_EQ(TextOfField(*form, "cmbPayee"), "Grocer");
  EXPECT_EQ(TextOfField(*form, "cmbPayment"), "Card");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Shopping");
  EXPECT_EQ(TextOfField(*form, "cmbSubCategory"), "Food");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "24.50");
  EXPECT_EQ(TextOfField(*form, "txtDate"), "05/03/2026");
  EXPECT_EQ(TextOfField(*form, "txtReference"), "R'1");
  EXPECT_EQ(TextOfField(*form, "txtDescription"), "\"quoted\" 🦊");
  EXPECT_TRUE(Find<QRadioButton>(*form, "opPayment2").isChecked());
  const std::string before = Everything();
  Click(*form, "cmdAccept");
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(Everything(), before) << "what is only looked at stays";
}

TEST_F(AccountTrans, NamesAreMadeOnceWhateverTheyHold) {
  const auto form = Open();
  const QString longest(100, u'x');
  for (const QString& name : {QStringLiteral("O'Brien & \"Sons\""), QStringLiteral("🦊 Fuchs"),
                              longest, longest.toUpper()}) {
    FillExpense(*form);
    Put(*form, "cmbPayee", name);
    Put(*form, "cmbPayment", name);
    Click(*form, "cmdAccept");
    EXPECT_TRUE(Row(form->SavedKey()).payee == name.toStdString() || name == longest.toUpper());
  }
  EXPECT_EQ(Count("tblPayees Where Payee = '" + longest.toStdString() + "'"), 1);
  EXPECT_EQ(Count("tblPayments Where Payment = '" + longest.toStdString() + "'"), 1);
  EXPECT_GE(Find<QComboBox>(*form, "cmbPayee").findText(longest), 0) << "offered from now on";
}

TEST_F(AccountTrans, ANewCategoryIsAskedForAndKeptWhenDeclined) {
  const auto form = Open();
  FillExpense(*form);
  Put(*form, "cmbSubCategory", "Truffles");
  Prompt().ExpectAsk("Add Category?", ScriptedPrompts::kAnyText, false);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Count("tblTransactions"), 0);
  EXPECT_EQ(Count("tblPayees"), 0);
  EXPECT_EQ(FocusOf(*form), "cmbCategory");
  EXPECT_EQ(TextOfField(*form, "cmbSubCategory"), "Truffles");
  Prompt().ExpectAsk("Add Category?", ScriptedPrompts::kAnyText, true);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Row(form->SavedKey()).subCategory, "Truffles");
}

TEST_F(AccountTrans, TheSubCategoriesAreThoseOfTheCategory) {
  const auto form = Open();
  Type(*form, "cmbCategory", "shopping");
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  const auto& sub = Find<QComboBox>(*form, "cmbSubCategory");
  EXPECT_GE(sub.findText("Food"), 0);
  Type(*form, "cmbSubCategory", "Food");
  Type(*form, "cmbCategory", "Car");
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  EXPECT_LT(sub.findText("Food"), 0);
  EXPECT_GE(sub.findText("Petrol"), 0);
  EXPECT_EQ(sub.currentText(), "") << "of another category";
  Type(*form, "cmbSubCategory", "Tyres");
  Type(*form, "cmbCategory", "Gifts");
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(sub.currentText(), "Tyres") << "what was typed stays";
}

TEST_F(AccountTrans, APayeesLastTransactionIsProposedAndTypingWins) {
  const std::int64_t last = AddRow(bank_, 30);
  auto form = Open();
  Type(*form, "cmbPayee", "grocer");
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Income");
  EXPECT_EQ(TextOfField(*form, "cmbPayment"), "Card");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Shopping");
  EXPECT_EQ(TextOfField(*form, "cmbSubCategory"), "Food");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "30.00");
  form->Open(0);
  Type(*form, "txtAmount", "7");
  Type(*form, "cmbPayment", "Cash");
  Type(*form, "cmbCategory", "Gifts");
  QTest::keyClick(&Find<QWidget>(*form, "cmbType"), Qt::Key_Down);
  QTest::keyClick(&Find<QWidget>(*form, "cmbType"), Qt::Key_Up);
  Type(*form, "cmbPayee", "Grocer");
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Expense");
  EXPECT_EQ(TextOfField(*form, "cmbPayment"), "Cash");
  EXPECT_EQ(TextOfField(*form, "cmbCategory"), "Gifts");
  EXPECT_EQ(TextOfField(*form, "cmbSubCategory"), "");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "7.00");
  ledger_.References().FindOrCreatePayee("Baker");
  form = Open(last);
  Put(*form, "cmbPayee", "Baker");
  Type(*form, "cmbPayee", "Grocer");
  QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "30.00") << "an existing row is let alone";
}

TEST_F(AccountTrans, ATransferBecomesAnExpenseAndATransferAgain) {
  const std::int64_t key = AddTransfer(25, cash_);
  const std::int64_t twin = Row(key).transferId;
  auto form = Open(key);
  EXPECT_EQ(TextOfField(*form, "cmbType"), "Transfer");
  EXPECT_EQ(TextOfField(*form, "cmbAccountTo"), "Cash");
  Pick(*form, "cmbType", "Expense");
  Put(*form, "cmbPayee", "Grocer");
  Click(*form, "cmdAccept");
  EXPECT_FALSE(form->isVisible());
  EXPECT_EQ(Row(key).transferId, 0);
  EXPECT_EQ(Row(key).amount, -25);
  EXPECT_EQ(Row(twin).transferId, 0) << "an ordinary row of the other account";
  form = Open(key);
  Pick(*form, "cmbType", "Transfer");
  Put(*form, "cmbAccountTo", "Cash");
  Put(*form, "txtAmount", "40");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Row(key).amount, -40);
  EXPECT_EQ(Row(Row(key).transferId).amount, 40);
  EXPECT_EQ(Row(Row(key).transferId).accountId, cash_);
}

TEST_F(AccountTrans, TheOtherHalfOfATransferIsOpened) {
  const std::int64_t key = AddTransfer(25, cash_);
  auto form = Open();
  Pick(*form, "cmbType", "Transfer");
  Prompt().ExpectTell("Edit Transfer Item",
                      "Save the transfer first, its other half can be edited then");
  Click(*form, "cmdAllocate");
  form = Open(key);
  Put(*form, "txtDescription", "typed");
  Prompt().ExpectAsk("Edit Transfer Item", ScriptedPrompts::kAnyText, false);
  Click(*form, "cmdAllocate");
  EXPECT_EQ(TextOfField(*form, "txtDescription"), "typed");
  Prompt().ExpectAsk("Edit Transfer Item", ScriptedPrompts::kAnyText, true);
  Click(*form, "cmdAllocate");
  EXPECT_EQ(NoteOf(*form), "This is the half in “Cash”.");
  QTest::keyClick(&Find<QWidget>(*form, "opPayment1"), Qt::Key_Space);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Row(key).status.bankChk, 0);
  EXPECT_EQ(Row(Row(key).transferId).status.bankChk, 1) << "each half has its own status";
}

TEST_F(AccountTrans, ATransferBetweenCurrenciesTakesItsRateOrSaysThatThereIsNone) {
  const auto form = Open();
  const auto transfer = [&] {
    Pick(*form, "cmbType", "Transfer");
    Put(*form, "cmbAccountTo", "Euro");
    Put(*form, "cmbPayment", "Card");
    Put(*form, "txtAmount", "20");
    Click(*form, "cmdAccept");
    return Row(Row(form->SavedKey()).transferId).amount;
  };
  rates_.Answer(1.25);
  EXPECT_EQ(transfer(), 25);
  rates_.Answer(std::nullopt);
  Prompt().ExpectTell("Download Currency", "Could not connect to website");
  EXPECT_EQ(transfer(), 20);
  rates_.Answer(RateAnswer{1.5, Date::FromIso("2026-09-30"), "The rate of 30/09/2026 was used."});
  Prompt().ExpectTell("Download Currency", "The rate of 30/09/2026 was used.");
  EXPECT_EQ(transfer(), 30);
}

TEST_F(AccountTrans, TheDayOfTheLastEntryStaysAndTheWindowKeepsItsSize) {
  const auto form = Open();
  QApplication::processEvents();
  const QSize size = form->size();
  Type(*form, "txtDate", "5/3/2026");
  FillExpense(*form);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Row(form->SavedKey()).date.ToIso(), "2026-03-05");
  EXPECT_EQ(TextOfField(*form, "txtDate"), "05/03/2026");
  Pick(*form, "cmbType", "Transfer");
  Put(*form, "cmbAccountTo", "Cash");
  Put(*form, "cmbPayment", "Card");
  Put(*form, "txtAmount", "20");
  Click(*form, "cmdAccept");
  QApplication::processEvents();
  EXPECT_EQ(Row(form->SavedKey()).date.ToIso(), "2026-03-05");
  EXPECT_NE(NoteOf(*form), "");
  EXPECT_EQ(form->size(), size);
  EXPECT_EQ(TextOfField(*Open(), "txtDate"), "21/11/2026") << "opened anew it begins with today";
}

TEST_F(AccountTrans, ASplitRowSaysIntoHowManyParts) {
  const std::int64_t key = AddRow(bank_, -100);
  EXPECT_FALSE(Find<QLabel>(*Open(key), "lblSplit").isVisible());
  for (const double part : {-50, -30, -20}) AddRow(bank_, part, key);
  const auto form = Open(key);
  EXPECT_TRUE(Find<QLabel>(*form, "lblSplit").isVisible());
  EXPECT_EQ(Find<QLabel>(*form, "lblSplit").text(), "split into 3");
}

TEST_F(AccountTrans, EscapeAsksBeforeAnEntryGoesAndCloseDoesNot) {
  const char* question = "What you have typed is not saved. Do you wish to drop it?";
  const auto form = Open();
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_FALSE(form->isVisible()) << "nothing was typed";
  Show(*form);
  Type(*form, "txtDescription", "typed");
  Prompt().ExpectAsk("Add Transaction", question, false);
  QTest::keyClick(form.get(), Qt::Key_Escape);
  EXPECT_TRUE(form->isVisible());
  Click(*form, "cmdCancel");
  EXPECT_FALSE(form->isVisible());
}

TEST_F(AccountTrans, APathIsTakenFromTheFieldItself) {
  const auto form = Open();
  FillExpense(*form);
  Put(*form, "cmbSubCategory", {});
  Type(*form, "cmbCategory", "Gifts:Cards");
  QTest::keyClick(&Find<QWidget>(*form, "cmbCategory"), Qt::Key_Return);
  EXPECT_EQ(Row(form->SavedKey()).category + "/" + Row(form->SavedKey()).subCategory,
            "Gifts/Cards");
}

TEST_F(AccountTrans, WhatArrivesIsAFieldOfItsOwn) {
  const auto form = Open();
  auto& arrives = Find<QLineEdit>(*form, "txtAmountTo");
  Pick(*form, "cmbType", "Transfer");
  Put(*form, "cmbAccountTo", "Cash");
  EXPECT_FALSE(arrives.isVisible()) << "one currency";
  Put(*form, "cmbAccountTo", "Euro");
  EXPECT_TRUE(arrives.isVisible());
  EXPECT_EQ(Find<QLabel>(*form, "lblCurrencyTo").text(), "EUR");
  EXPECT_EQ(arrives.text(), "") << "worked out at the save";
  Put(*form, "cmbPayment", "Card");
  Type(*form, "txtAmount", "20");
  Type(*form, "txtAmountTo", "5/0");
  ExpectRefused(*form, "You need to enter a valid Amount", "txtAmountTo");
  Type(*form, "txtAmountTo", "23.50");
  QTest::keyClick(&arrives, Qt::Key_Return);
  const std::int64_t key = form->SavedKey();
  EXPECT_EQ(Row(key).amount, -20);
  EXPECT_EQ(Row(Row(key).transferId).amount, 23.5);
  EXPECT_TRUE(rates_.Asked().empty());

  const auto edited = Open(key);
  EXPECT_EQ(TextOfField(*edited, "txtAmountTo"), "23.50");
  Type(*edited, "txtAmount", "40");
  EXPECT_EQ(TextOfField(*edited, "txtAmountTo"), "47.00") << "at the rate that it had";
  Type(*edited, "txtAmount", "20");
  EXPECT_EQ(TextOfField(*edited, "txtAmountTo"), "23.50");
  Type(*edited, "txtAmount", "40");
  rates_.Answer(std::nullopt);
  Prompt().ExpectTell("Download Currency", "Could not connect to website");
  Click(*edited, "cmdAccept");
  EXPECT_EQ(Row(Row(key).transferId).amount, 47);
}

TEST_F(AccountTrans, WhatIsNoAmountIsRefusedFromTheFieldAndAfterIt) {
  const auto form = Open();
  FillExpense(*form);
  Type(*form, "txtAmount", "1/0");
  Prompt().ExpectTell("Save Warning", "You need to enter a valid Amount");
  QTest::keyClick(&Find<QWidget>(*form, "txtAmount"), Qt::Key_Return);
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "1/0") << "to be mended";
  Find<QWidget>(*form, "txtReference").setFocus();
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "0.00");
  Prompt().ExpectTell("Save Warning", "You need to enter a valid Amount");
  Click(*form, "cmdAccept");
  EXPECT_EQ(FocusOf(*form), "txtAmount");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "1/0");
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(AccountTrans, TheCurrencyLookUpFillsTheAmountAndSparesTheDownload) {
  const auto form = Open();
  Pick(*form, "cmbType", "Transfer");
  Put(*form, "cmbAccountTo", "Euro");
  Put(*form, "cmbPayment", "Card");
  rates_.Answer(1.25);
  InNextDialog([](QDialog& converter) {
    EXPECT_EQ(converter.objectName(), "FrmCurrency");
    auto& box = Find<QComboBox>(converter, "cmbCurrency");
    box.setCurrentIndex(box.findText("(EUR)", Qt::MatchEndsWith));
    Type(converter, "txtAmountCurrency", "25");
    Click(converter, "cmdCurrency");
    Click(converter, "cmdAccept");
  });
  Click(*form, "cmdCurrencyLookup");
  EXPECT_EQ(TextOfField(*form, "txtAmount"), "20.00");
  const std::size_t asked = rates_.Asked().size();
  Click(*form, "cmdAccept");
  EXPECT_EQ(rates_.Asked().size(), asked);
  EXPECT_EQ(Row(form->SavedKey()).amount, -20);
  EXPECT_EQ(Row(Row(form->SavedKey()).transferId).amount, 25);
}

TEST_F(AccountTrans, DeletingAsksFirst) {
  const std::int64_t key = AddTransfer(25, cash_);
  const auto form = Open(key);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  Click(*form, "cmdDelete");
  EXPECT_EQ(Prompt().Shown().back().icon, Icon::Information);
  EXPECT_TRUE(form->isVisible());
  EXPECT_EQ(Count("tblTransactions"), 2);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(*form, "cmdDelete");
  EXPECT_FALSE(form->isVisible());
  EXPECT_TRUE(form->IsChanged());
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(AccountTrans, AddNewAsksForWhatWasTypedAndTellsOfChanges) {
  const std::int64_t key = AddRow(bank_, -10);
  EntryPlace place = Place();
  int told = 0;
  place.changed = [&] { ++told; };
  FrmAccountTrans form(place, bank_);
  form.Open(key);
  Show(form);
  Click(form, "cmdNew");
  EXPECT_EQ(form.windowTitle(), "Add Transaction") << "nothing was typed";
  EXPECT_EQ(told, 0);
  FillExpense(form);
  Prompt().ExpectAsk("Add New?", ScriptedPrompts::kAnyText, false);
  Click(form, "cmdNew");
  EXPECT_EQ(TextOfField(form, "cmbPayee"), "Grocer");
  Click(form, "cmdAccept");
  EXPECT_EQ(told, 1);
  form.Open(key);
  Put(form, "txtDescription", "changed");
  QTest::keyClick(&form, Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Row(key).description, "changed");
  EXPECT_EQ(form.windowTitle(), "Add Transaction") << "saved, and on with the next";
  EXPECT_TRUE(form.isVisible());
  Put(form, "cmbPayee", "typed");
  Click(form, "cmdCancel");
  EXPECT_FALSE(form.isVisible()) << "closing writes nothing and asks nothing";
}

TEST_F(AccountTrans, AnotherDayIsNotSavedForOneThatIsNone) {
  const auto form = Open();
  FillExpense(*form);
  Type(*form, "txtDate", "31/02/2026");
  Prompt().ExpectTell("Save Warning", "You need to enter a valid Date");
  QTest::keyClick(form.get(), Qt::Key_Return, Qt::ControlModifier);
  Prompt().ExpectTell("Save Warning", "You need to enter a valid Date");
  Click(*form, "cmdAccept");
  EXPECT_EQ(FocusOf(*form), "txtDate");
  EXPECT_EQ(TextOfField(*form, "txtDate"), "31/02/2026");
  EXPECT_EQ(Count("tblTransactions"), 0);
  Type(*form, "txtDate", "28/02/2026");
  Click(*form, "cmdAccept");
  EXPECT_EQ(Row(LastKey()).date.ToIso(), "2026-02-28");
}

TEST_F(AccountTrans, ASplitParentKeepsTheSumOfItsLines) {
  const std::int64_t key = AddRow(bank_, -30);
  AddRow(bank_, -10, key);
  AddRow(bank_, -20, key);
  const auto form = Open(key);
  Put(*form, "txtDate", "1/3/2026");
  Put(*form, "txtAmount", "99");
  Prompt().ExpectTell("Save Warning", ScriptedPrompts::kAnyText);
  Click(*form, "cmdAccept");
  EXPECT_EQ(Row(key).amount, -30);
  for (const auto& line : ledger_.Transactions().SplitLines(key))
    EXPECT_EQ(line.date.ToIso(), "2026-03-01");
}

TEST_F(AccountTrans, TheScheduleIsOpenedThatTheRowIsOfOrANewOne) {
  EntryPlace place = Place();
  std::vector<std::int64_t> opened;
  place.openSchedule = [&](const TransactionForm& row, std::int64_t schedule, QWidget*) {
    EXPECT_EQ(row.payee, "Grocer");
    opened.push_back(schedule);
    return false;
  };
  FrmAccountTrans form(place, bank_);
  form.Open(0);
  Show(form);
  FillExpense(form);
  const auto& button = Find<QPushButton>(form, "cmdAddSchedule");
  EXPECT_EQ(button.text(), "Add to Sc&hedule");
  EXPECT_EQ(button.toolTip(), "Add to Schedule");
  Click(form, "cmdAddSchedule");
  const std::int64_t key = AddRow(bank_, -10);
  store_.Db().Execute("UPDATE tblTransactions SET BankSch = 7");
  form.Open(key);
  EXPECT_EQ(button.text(), "View S&chedule");
  EXPECT_EQ(button.toolTip(), "View Schedule");
  Click(form, "cmdAddSchedule");
  EXPECT_EQ(opened, (std::vector<std::int64_t>{0, 7}));
  store_.Db().Execute("UPDATE tblTransactions SET BankSch = 0");
}

TEST_F(AccountTrans, OpensWhatItCanEditAndSaysWhyNot) {
  const std::int64_t key = AddRow(bank_, -30);
  const std::int64_t line = AddRow(bank_, -30, key);
  QTimer::singleShot(0, qApp, [] {
    auto* form = QApplication::activeModalWidget();
    EXPECT_EQ(TextOfField(*form, "txtAmount"), "30.00") << "of a line: its parent";
    EXPECT_TRUE(Find<QWidget>(*form, "cmdDelete").isVisible());
    qobject_cast<QDialog*>(form)->reject();
  });
  EXPECT_FALSE(OpenTransaction({line, bank_, {}}, Place()).isChanged);
  CloseAccount(bank_);
  Prompt().ExpectTell("Amend Item", "This Account is closed, Items cannot be amended");
  EXPECT_FALSE(OpenTransaction({key, bank_, {}}, Place()).isChanged);
  EXPECT_TRUE(OpenTransaction({999, bank_, {}}, Place()).isChanged) << "gone";
}

TEST_F(AccountTrans, KeywordsAndFilesBelongToTheRowWhichIsSavedForThem) {
  const auto form = Open();
  const auto text = [&](const char* button) { return Find<QPushButton>(*form, button).text(); };
  Prompt().ExpectTell("Save Warning", ScriptedPrompts::kAnyText);
  Click(*form, "cmdKeywords");
  EXPECT_EQ(Count("tblTransactions"), 0) << "no row yet to belong to";
  Put(*form, "cmbPayee", "Baker");
  Put(*form, "cmbPayment", "Card");
  Put(*form, "cmbCategory", "Shopping");
  Put(*form, "cmbSubCategory", "Food");
  Put(*form, "txtAmount", "5");
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmKeywordChoice");
    Type(dialog, "txtKeyword", "Tax");
    Click(dialog, "cmdAdd");
    Click(dialog, "cmdAccept");
  });
  Click(*form, "cmdKeywords");
  EXPECT_EQ(Count("tblTransactions"), 1);
  EXPECT_FALSE(form->IsNew());
  EXPECT_EQ(text("cmdKeywords"), "&Keywords (1)...");
  EXPECT_EQ(Find<QPushButton>(*form, "cmdKeywords").toolTip(), "Tax");
  const std::string path = store_.platform.folder.Write("bill.pdf", "bill");
  InNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmAttachments");
    Prompt().ExpectOpenFile("Select File to Attach", path);
    Click(dialog, "cmdAdd");
  });
  Click(*form, "cmdAttachments");
  EXPECT_EQ(text("cmdAttachments"), "Fi&les (1)...");
  EXPECT_TRUE(form->IsChanged());
  EXPECT_TRUE(form->Open(LastKey()));
  EXPECT_EQ(text("cmdKeywords"), "&Keywords (1)...");
  form->Open(0);
  EXPECT_EQ(text("cmdKeywords"), "&Keywords...");
}

}  // namespace
}  // namespace corvanta
