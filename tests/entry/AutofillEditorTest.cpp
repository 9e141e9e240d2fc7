#include "entry/AutofillEditor.h"
#include "entry/EntryTest.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"

namespace corvanta {
namespace {

constexpr const char* kNotEnough = "Not enough information for Autofill Transactions";

class Autofilling : public EntryTest {
 protected:
  // Of the payee and category that AddRow() uses.
  [[nodiscard]] AutofillForm Form(double amount, EntryType type = EntryType::Expense) {
    AutofillForm form = editor_.New(bank_);
    form.amount = amount;
    form.type = type;
    form.payeeId = ledger_.References().FindOrCreatePayee("Grocer");
    form.categoryId = ledger_.Categories().FindCategory("Shopping", "Food");
    return form;
  }
  std::int64_t AddTemplate(int daysAgo, const std::string& description) {
    TransactionRecord row = Row(AddRow(bank_, -5));
    row.date = Today().AddDays(-daysAgo);
    row.description = description;
    row.reference = "ref of " + description;
    row.paymentId = ledger_.References().FindOrCreatePayment("paid as " + description);
    return ledger_.Transactions().SaveTransaction(row);
  }

  AutofillEditor editor_{ledger_, Services()};
};

TEST_F(Autofilling, RulesHoldInTheirOrder) {
  const auto check = [&](auto change) {
    AutofillForm form = Form(5);
    change(form);
    return editor_.Check(form);
  };
  ExpectWarnings({
      {check([](auto& form) { form = {}, form.amount = std::nullopt; }),
       "You need to enter a valid Amount", "txtAmount"},
      {check([](auto& form) { form = {}; }), "You need to enter a valid Amount", "txtAmount"},
      {check([](auto& form) { form = {}, form.amount = 5; }),
       "You need to select either Expense or Income.", "opType"},
      {check([](auto& form) { form.payeeId = 0, form.categoryId = 0; }),
       "You need to select a Payee", "cmbPayee"},
      {check([](auto& form) { form.categoryId = 0, form.amount = -5; }),
       "You need to select a Category/SubCategory", "cmbCategory"},
      {check([](auto& form) { form.amount = 1e13; }), "You need to enter a valid Amount",
       "txtAmount"},
  });
  CloseAccount(bank_);
  EXPECT_EQ(editor_.Check(Form(5))->text, "This Account is closed, Items cannot be amended");
}

TEST_F(Autofilling, TheLatestRowOfTheAccountFillsTheRest) {
  AddTemplate(1, "lower key");
  AddTemplate(1, "higher key");
  AddTemplate(2, "older");
  AutofillForm form = Form(12.5, EntryType::Income);
  form.date = Today().AddDays(-9);
  const auto row = Row(editor_.Save(form));
  EXPECT_EQ(row.description, "higher key");
  EXPECT_EQ(row.reference, "ref of higher key");
  EXPECT_EQ(row.payment, "paid as higher key");
  EXPECT_EQ(row.amount, 12.5);
  EXPECT_EQ(row.date, form.date);
  EXPECT_EQ(row.accountId, bank_);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Add Transaction");
}

TEST_F(Autofilling, WithoutAnEarlierRowThereIsNotEnoughToGoOn) {
  AddRow(cash_, -5);
  TransactionRecord from = Row(AddRow(bank_, -5));
  TransactionRecord to = Row(AddRow(euro_, 5));
  ledger_.Transactions().SaveTransfer(from, to);
  const std::string before = Everything();
  AutofillForm other = Form(5);
  other.categoryId = 1;
  for (const AutofillForm& form : {Form(5), other}) {
    Prompt().ExpectTell("Save Warning", kNotEnough);
    EXPECT_EQ(editor_.Save(form), 0) << "neither a transfer nor another account's row will do";
  }
  EXPECT_EQ(Everything(), before);
  EXPECT_FALSE(editor_.Load(from.transactionId));
}

TEST_F(Autofilling, AnEditedRowKeepsTheRest) {
  const std::int64_t key = AddTemplate(5, "own words");
  TransactionRecord settled = Row(key);
  settled.status = FlagsOf(TransactionStatus::Reconciled);
  settled.scheduleId = AddSchedule(-5);
  settled.scheduleDate = settled.date;
  ledger_.Transactions().SaveTransaction(settled);
  AddTemplate(1, "later words");
  AutofillForm form = *editor_.Load(key);
  EXPECT_EQ(form.amount, 5);
  EXPECT_EQ(form.type, EntryType::Expense);
  form.amount = 8;
  form.type = EntryType::Income;
  form.categoryId = ledger_.Categories().FindCategory("Gifts", "");
  EXPECT_EQ(editor_.Save(form), key);
  const auto row = Row(key);
  EXPECT_EQ(row.amount, 8);
  EXPECT_EQ(row.category, "Gifts");
  EXPECT_EQ(row.description, "own words");
  EXPECT_EQ(row.status, FlagsOf(TransactionStatus::Reconciled));
  EXPECT_EQ(row.scheduleId, settled.scheduleId);
}

TEST_F(Autofilling, ASplitRowKeepsItsSumAndChangesSides) {
  const std::int64_t key = AddRow(bank_, -30);
  const std::int64_t line = AddRow(bank_, -20, key);
  AutofillForm form = *editor_.Load(key);
  form.type = EntryType::Income;
  form.amount = 25;
  Prompt().ExpectTell("Save Warning",
                      "The Allocated items add up to 20.00, which stays the Amount of this item");
  editor_.Save(form);
  EXPECT_EQ(Row(key).amount, 20);
  EXPECT_EQ(Row(line).amount, 20);
}

TEST_F(Autofilling, MoreDetailsGoOnWithWhatIsEntered) {
  AutofillForm form = Form(5, EntryType::Income);
  form.date = Today().AddDays(-1);
  const TransactionForm details = editor_.Details(form);
  EXPECT_EQ(details.transactionId, 0);
  EXPECT_EQ(details.accountId, bank_);
  EXPECT_EQ(details.type, EntryType::Income);
  EXPECT_EQ(details.amount, 5);
  EXPECT_EQ(details.date, form.date);
  EXPECT_EQ(details.payee + details.category + details.subCategory, "GrocerShoppingFood");

  form = *editor_.Load(AddTemplate(1, "words"));
  form.amount = 9;
  const TransactionForm edited = editor_.Details(form);
  EXPECT_EQ(edited.transactionId, form.transactionId) << "not entered a second time";
  EXPECT_EQ(edited.description, "words");
  EXPECT_EQ(edited.amount, 9);
}

}  // namespace
}  // namespace corvanta
