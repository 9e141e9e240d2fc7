#include "entry/EntryTest.h"
#include "entry/MultiEditor.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"

namespace corvanta {
namespace {

class MultiEditing : public EntryTest {
 protected:
  std::size_t Save(const MultiEditForm& form, const std::vector<std::int64_t>& keys) {
    const auto warning = editor_.Check(form, keys);
    EXPECT_FALSE(warning) << warning->text;
    return editor_.Save(form, keys).value_or(0);
  }
  [[nodiscard]] static MultiEditForm Reverse() {
    MultiEditForm form;
    form.type = TypeChange::Reverse;
    return form;
  }

  MultiEditor editor_{ledger_, Services()};
};

TEST_F(MultiEditing, RulesHoldInTheirOrder) {
  const std::int64_t key = AddRow(bank_, -5);
  const std::string longName = Umlauts(101);
  const std::string before = Everything();
  const auto check = [&](auto change) {
    MultiEditForm form;
    change(form);
    return editor_.Check(form, {{key}});
  };
  const char* nothing =
      "You need to select at least one from Type, Payment Type, Account, Payee or Category";
  ExpectWarnings({
      {check([](auto& form) { form.status = TransactionStatus::Reconciled; }), nothing, "cmbType"},
      {check([&](auto& form) { form.subCategory = longName, form.category = " "; }), nothing,
       "cmbType"},
      {check([&](auto& form) { form.payment = longName, form.payee = longName; }),
       "Payment Type must be less than 100 characters long", "cmbPayment"},
      {check([&](auto& form) { form.payee = longName, form.category = longName; }),
       "Payee must be less than 100 characters long", "cmbPayee"},
      {check([&](auto& form) { form.category = longName, form.subCategory = longName; }),
       "Category must be less than 100 characters long", "cmbCategory"},
      {check([&](auto& form) { form.payee = "P", form.subCategory = longName; }),
       "Sub Category must be less than 100 characters long", "cmbSubCategory"},
      {check([&](auto& form) { form.payee = "P", form.subCategory = "Cards"; }),
       "You need to enter a Category", "cmbCategory"},
  });
  CloseAccount(cash_);
  const char* closed = "This Account is closed, Items cannot be amended";
  ExpectWarnings(
      {{check([&](auto& form) { form.accountId = cash_; }), closed, "cmbAccount", "Amend Item"}});
  CloseAccount(bank_);
  ExpectWarnings({{editor_.Check(Reverse(), {{key}}), closed, "", "Amend Item"}});
  EXPECT_EQ(Everything(), before);
}

TEST_F(MultiEditing, EmptyFieldsLeaveTheirColumns) {
  const std::int64_t first = AddRow(bank_, -5);
  const std::int64_t second = AddRow(cash_, 7);
  MultiEditForm form;
  form.payee = " o'Neill ";
  EXPECT_EQ(Save(form, {first, second}), 2U);
  EXPECT_EQ(Row(first).payee + Row(second).payee, "o'Neillo'Neill");
  EXPECT_EQ(Row(second).payment, "Card");
  EXPECT_EQ(Row(second).amount, 7);

  form = {};
  form.accountId = euro_;
  form.payment = "Cheque";
  form.category = "gifts";
  form.subCategory = "CARDS";
  form.status = TransactionStatus::Reconciled;
  form.type = TypeChange::Expense;
  Save(form, {first, second});
  for (const std::int64_t key : {first, second}) {
    const auto row = Row(key);
    EXPECT_EQ(row.accountId, euro_);
    EXPECT_EQ(row.payment, "Cheque");
    EXPECT_EQ(row.category + row.subCategory, "GiftsCards");
    EXPECT_EQ(row.status, FlagsOf(TransactionStatus::Reconciled));
    EXPECT_EQ(row.amount, key == first ? -5 : -7);
  }
  EXPECT_EQ(ledger_.Undo().UndoName(), "Edit Transactions");
  ledger_.Undo().Undo();
  EXPECT_EQ(Row(second).accountId, cash_);
  EXPECT_EQ(Count("tblPayments Where [Payment] = 'Cheque'"), 0);
}

TEST_F(MultiEditing, ReversingKeepsTransfersAndTakesLinesAlong) {
  TransactionRecord from = Row(AddRow(bank_, -5));
  TransactionRecord to = Row(AddRow(cash_, 5));
  ledger_.Transactions().SaveTransfer(from, to);
  const std::int64_t split = AddRow(bank_, -30);
  const std::int64_t line = AddRow(bank_, -20, split);
  const std::int64_t other = AddRow(bank_, 5, split);
  Save(Reverse(), {from.transactionId, to.transactionId, split});
  EXPECT_EQ(Row(from.transactionId).amount, -5);
  EXPECT_EQ(Row(to.transactionId).amount, 5);
  EXPECT_EQ(Row(split).amount, 15);
  EXPECT_EQ(Row(line).amount, 20);
  EXPECT_EQ(Row(other).amount, -5);
  MultiEditForm status = Reverse();
  status.type = TypeChange::Income;
  status.status = TransactionStatus::Cleared;
  Save(status, {split});
  EXPECT_EQ(Row(split).amount, 15);
  EXPECT_EQ(Row(line).status, FlagsOf(TransactionStatus::Cleared));
}

TEST_F(MultiEditing, ACategoryMayBeTypedAsListsShowIt) {
  const std::int64_t key = AddRow(bank_, -5);
  MultiEditForm form;
  form.category = "gifts : cards";
  Save(form, {key});
  EXPECT_EQ(Row(key).category + "/" + Row(key).subCategory, "Gifts/Cards");
  form.category = ":Cards";
  EXPECT_EQ(editor_.Check(form, {{key}})->text,
            "You need to select at least one from Type, "
            "Payment Type, Account, Payee or Category");
}

TEST_F(MultiEditing, StoppedOnTheWayNothingIsWrittenNotEvenAName) {
  const std::vector<std::int64_t> keys = {AddRow(bank_, -5), AddRow(bank_, -6), AddRow(bank_, -7)};
  MultiEditForm form = Reverse();
  form.payee = "Somebody new";
  const std::string before = Everything();
  store_.platform.progress.StopAfter(1);
  EXPECT_EQ(editor_.Save(form, keys), std::nullopt);
  Prompt().ExpectAsk("Delete Items?", ScriptedPrompts::kAnyText, true);
  EXPECT_FALSE(editor_.Delete(keys));
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(store_.platform.progress.Texts().front(), "Please wait updating records...");
}

TEST_F(MultiEditing, InvestmentsKeepTheirNames) {
  TransactionRecord bought = Row(AddRow(bank_, -5));
  bought.action = 1;
  ledger_.Transactions().SaveTransaction(bought);
  const std::int64_t plain = AddRow(bank_, -5);
  MultiEditForm form;
  form.payee = "Other";
  form.status = TransactionStatus::Cleared;
  Save(form, {bought.transactionId, plain});
  EXPECT_EQ(Row(bought.transactionId).payee, "Grocer");
  EXPECT_EQ(Row(bought.transactionId).status, FlagsOf(TransactionStatus::Uncleared));
  EXPECT_EQ(Row(plain).payee, "Other");
  form = Reverse();
  form.status = TransactionStatus::Cleared;
  Save(form, {bought.transactionId});
  EXPECT_EQ(Row(bought.transactionId).amount, -5);
  EXPECT_EQ(Row(bought.transactionId).status, FlagsOf(TransactionStatus::Cleared));
}

TEST_F(MultiEditing, ANewCategoryIsMadeWhenThePersonAgrees) {
  const std::int64_t key = AddRow(bank_, 5);
  MultiEditForm form;
  form.payee = "Somebody new";
  form.category = "Prizes";
  form.type = TypeChange::Income;
  const std::string before = Everything();
  const char* question =
      "The category 'Prizes' does not exist. Do you wish to add it as an income category?";
  Prompt().ExpectAsk("Add Category?", question, false);
  EXPECT_FALSE(editor_.Save(form, {{key}}));
  EXPECT_EQ(Everything(), before);
  Prompt().ExpectAsk("Add Category?", question, true);
  Save(form, {key});
  EXPECT_EQ(Row(key).category, "Prizes");
}

TEST_F(MultiEditing, DeletingNamesTheNumber) {
  Prompt().ExpectTell("Delete Item", "No items available");
  EXPECT_FALSE(editor_.Delete({}));
  const std::vector<std::int64_t> keys = {AddRow(bank_, -5), AddRow(bank_, -6), AddRow(bank_, -7)};
  Prompt().ExpectAsk("Delete Items?", "Do you wish to delete these 3 items?", false);
  EXPECT_FALSE(editor_.Delete(keys));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_TRUE(editor_.Delete({{keys[0]}}));
  Prompt().ExpectAsk("Delete Items?", "Do you wish to delete these 2 items?", true);
  EXPECT_TRUE(editor_.Delete({{keys[1], keys[2]}}));
  EXPECT_EQ(Count("tblTransactions"), 0);
}

}  // namespace
}  // namespace corvanta
