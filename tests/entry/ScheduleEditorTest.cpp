#include "entry/EntryTest.h"
#include "entry/ScheduleEditor.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/register/Period.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Platform.h"

namespace corvanta {
namespace {

class ScheduleEditorTest : public EntryTest {
 protected:
  ScheduleForm Expense() {
    ScheduleForm form = editor_.New(bank_);
    form.payee = "Landlord";
    form.payment = "Card";
    form.category = "Shopping";
    form.subCategory = "Food";
    form.amount = 25;
    return form;
  }
  ScheduleForm Transfer() {
    ScheduleForm form = Expense();
    ScheduleEditor::ChooseType(form, EntryType::Transfer);
    form.accountToId = cash_;
    return form;
  }
  ScheduleDetails Stored(std::int64_t key) {
    auto row = ledger_.Schedules().ReadSchedule(key);
    EXPECT_TRUE(row) << key;
    return row.value_or(ScheduleDetails());
  }
  std::int64_t Period(const std::string& name) {
    for (const PeriodRecord& row : ledger_.References().Periods()) {
      if (row.description == name) return row.periodId;
    }
    return 0;
  }
  std::int64_t AddLine(std::int64_t schedule, double amount) {
    ScheduleRecord line;
    line.allocatedItem = schedule;
    line.categoryId = ledger_.Categories().FindCategory("Shopping", "Food");
    line.amount = amount;
    return ledger_.Schedules().SaveSchedule(line);
  }

  ScheduleEditor editor_{ledger_, Services()};
};

TEST_F(ScheduleEditorTest, RulesHoldInTheirOrder) {
  const std::string before = Everything();
  const auto broken = [&](auto change) {
    ScheduleForm form = Expense();
    change(form);
    return editor_.Check(form);
  };
  ExpectWarnings(
      {{broken([](auto& f) { f.periodId = 0, f.amount = 0; }), "You need to select a Frequency",
        "cmbPeriod"},
       {broken([](auto& f) { f.amount = 0, f.type = EntryType::None; }),
        "You need to enter a valid Amount", "txtAmount"},
       {broken([](auto& f) { f.amount.reset(), f.type = EntryType::Transfer; }),
        "You need to enter a valid Amount", "txtAmount"},
       {broken([](auto& f) { f.type = EntryType::None, f.payment = ""; }),
        "You need to select a Type", "cmbType"},
       {broken([](auto& f) { f.payment = " ", f.accountId = 0; }),
        "You need to enter a Payment Type", "cmbPayment"},
       {broken([](auto& f) { f.payment = Umlauts(101), f.accountId = 0; }),
        "Payment Type must be less than 100 characters long", "cmbPayment"},
       {broken([](auto& f) { f.accountId = 0, f.payee = ""; }),
        "You need to select an Account / Transfer From", "cmbAccount"},
       {broken([](auto& f) { f.payee = "", f.category = ""; }), "You need to select a Payee",
        "cmbPayee"},
       {broken([](auto& f) { f.payee = Umlauts(101), f.category = ""; }),
        "Payee must be less than 100 characters long", "cmbPayee"},
       {broken([](auto& f) { f.category = "", f.subCategory = Umlauts(101); }),
        "You need to enter a Category", "cmbCategory"},
       {broken([](auto& f) { f.category = Umlauts(101), f.subCategory = Umlauts(101); }),
        "Category must be less than 100 characters long", "cmbCategory"},
       {broken([](auto& f) { f.type = EntryType::Transfer, f.subCategory = Umlauts(101); }),
        "Sub Category must be less than 100 characters long", "cmbSubCategory"},
       {broken([](auto& f) { f.type = EntryType::Transfer, f.payee = "", f.amount = -1; }),
        "You need to select an Account / Transfer To", "cmbAccountTo"},
       {broken([&](auto& f) { f.type = EntryType::Transfer, f.accountToId = bank_; }),
        "You can not transfer to the the same Account", "cmbAccountTo"},
       {broken([](auto& f) { f.amount = -25, f.reference = Umlauts(51); }),
        "Please enter the Amount without a sign, the Type says where it goes", "txtAmount"},
       {broken([](auto& f) { f.reference = Umlauts(51), f.scheduleId = 99; }),
        "The text is too long: Reference holds at most 50 characters.", "txtReference"},
       {broken([](auto& f) { f.scheduleId = 99; }), "This Item does not exist any more", "",
        "Amend Item"}});
  CloseAccount(cash_);
  ExpectWarnings({{editor_.Check(Transfer()), "This Account is closed, Items cannot be amended",
                   "cmbAccountTo", "Add Item"}});
  EXPECT_FALSE(broken([](auto& f) { f.payee = f.payment = f.category = Umlauts(100); }));
  EXPECT_EQ(Everything(), before);
}

TEST_F(ScheduleEditorTest, SavesWhatItShows) {
  ScheduleForm form = Expense();
  form.payee = " New \"payee\" ";
  form.number = 3;
  form.addToAccount = AddToAccount::Ahead;
  form.reference = "R";
  form.description = "It's due";
  const std::int64_t key = editor_.Save(form);
  const ScheduleDetails stored = Stored(key);
  EXPECT_EQ(stored.amount, -25);
  EXPECT_EQ(stored.payee, "New \"payee\"");
  EXPECT_EQ(stored.periodName, "Monthly");
  EXPECT_EQ(stored.dateFrom, Today());
  EXPECT_EQ(stored.noTimes, 3);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Add Schedule");
  auto loaded = editor_.Load(key);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->type, EntryType::Expense);
  EXPECT_EQ(loaded->amount, 25);
  EXPECT_EQ(loaded->category, "Shopping");
  EXPECT_EQ(loaded->subCategory, "Food");
  EXPECT_EQ(loaded->addToAccount, AddToAccount::Ahead);
  EXPECT_EQ(loaded->description, "It's due");
  loaded->type = EntryType::Income;
  loaded->accountId = euro_;
  EXPECT_EQ(editor_.Save(*loaded), key);
  EXPECT_EQ(Stored(key).amount, 25);
  EXPECT_EQ(editor_.CurrencyOf(euro_), "EUR");
  EXPECT_EQ(Count("tblSchedule"), 1);
  EXPECT_FALSE(editor_.Load(key + 1));
}

TEST_F(ScheduleEditorTest, TransfersNameTheReceivingAccount) {
  ScheduleForm form = editor_.New(bank_);
  ScheduleEditor::ChooseType(form, EntryType::Transfer);
  EXPECT_EQ(form.category, "Credit");
  form.payment = "Card";
  form.accountToId = euro_;
  form.amount = 10;
  const std::int64_t key = editor_.Save(form);
  EXPECT_EQ(Stored(key).amount, -10);
  EXPECT_EQ(Stored(key).transferAccountId, euro_);
  EXPECT_EQ(Stored(key).payee, "Transfer");
  form = *editor_.Load(key);
  EXPECT_EQ(form.type, EntryType::Transfer);
  EXPECT_EQ(form.payee, "");
  EXPECT_EQ(form.amount, 10);
  ScheduleEditor::ChooseType(form, EntryType::Income);
  EXPECT_EQ(form.category, "");
  form.category = "Salary";
  form.payee = "Work";
  Prompt().ExpectAsk("Add Category?", ScriptedPrompts::kAnyText, true);
  if (ledger_.Categories().FindCategory("Salary", "") != 0) form.category = "Salary two";
  editor_.Save(form);
  EXPECT_EQ(Stored(key).transferAccountId, 0);
  EXPECT_EQ(Stored(key).amount, 10);
}

TEST_F(ScheduleEditorTest, ANewCategoryIsAskedFor) {
  ScheduleForm form = Expense();
  form.category = "Boats";
  form.subCategory = "";
  const std::string before = Everything();
  Prompt().ExpectAsk("Add Category?", ScriptedPrompts::kAnyText, false);
  EXPECT_EQ(editor_.Save(form), 0);
  EXPECT_EQ(editor_.DeclinedField(), "cmbCategory");
  EXPECT_EQ(Everything(), before);
}

TEST_F(ScheduleEditorTest, ACategoryMayBeTypedAsListsShowIt) {
  ScheduleForm form = Expense();
  form.category = "shopping : food";
  form.subCategory = "";
  const ScheduleDetails stored = Stored(editor_.Save(form));
  EXPECT_EQ(stored.category, "Shopping");
  EXPECT_EQ(stored.subCategory, "Food");
}

TEST_F(ScheduleEditorTest, FrequencyAndNumber) {
  ScheduleForm form = Expense();
  form.number = 12;
  editor_.ChoosePeriod(form, Period("Quarterly"));
  EXPECT_EQ(form.number, 12);
  editor_.ChoosePeriod(form, Period("Once"));
  EXPECT_EQ(form.number, 1);
  EXPECT_EQ(form.periodId, Period("Once"));
  EXPECT_EQ(editor_.NextDates(form, 5).size(), 1U);
  editor_.ChoosePeriod(form, Period("Four Weekly"));
  form.number = 0;
  const auto dates = editor_.NextDates(form, 3);
  ASSERT_EQ(dates.size(), 3U);
  EXPECT_EQ(dates[2], Today().AddDays(56));
  form.periodId = 0;
  EXPECT_TRUE(editor_.NextDates(form, 3).empty());

  const Locale& locale = Services().locale;
  const auto number = [&](const char* text) {
    return ScheduleEditor::NumberOfPayments(text, locale);
  };
  EXPECT_EQ(number("7"), 7);
  EXPECT_EQ(number("2.7"), 3);
  EXPECT_EQ(number("-4"), 4);
  EXPECT_EQ(number("1e300"), number("a"));
  EXPECT_EQ(number(""), 0);
  EXPECT_EQ(number("99999999999999"), 1000000);
}

TEST_F(ScheduleEditorTest, IsFilledFromATransaction) {
  TransactionForm transaction;
  transaction.type = EntryType::Transfer;
  transaction.accountId = bank_;
  transaction.accountToId = cash_;
  transaction.payment = "Card";
  transaction.category = "Credit";
  transaction.amount = 12;
  transaction.reference = "R";
  transaction.description = "D";
  transaction.date = Today();
  transaction.transactionId = 7;
  EXPECT_EQ(editor_.From(transaction).dateFrom, Today().AddMonths(1)) << "today's is booked";
  transaction.transactionId = 0;
  const ScheduleForm form = editor_.From(transaction);
  EXPECT_EQ(form.scheduleId, 0);
  EXPECT_EQ(form.dateFrom, Today());
  EXPECT_EQ(form.periodId, Period("Monthly"));
  EXPECT_EQ(form.addToAccount, AddToAccount::No);
  const ScheduleDetails stored = Stored(editor_.Save(form));
  EXPECT_EQ(stored.amount, -12);
  EXPECT_EQ(stored.transferAccountId, cash_);
  EXPECT_EQ(stored.reference, "R");
  EXPECT_EQ(stored.description, "D");
}

TEST_F(ScheduleEditorTest, SplitSchedulesKeepTheirSum) {
  const std::int64_t key = editor_.Save(Expense());
  const std::int64_t line = AddLine(key, -10);
  AddLine(key, -5.5);
  EXPECT_EQ(editor_.Load(line)->scheduleId, key);
  ScheduleForm form = *editor_.Load(key);
  EXPECT_TRUE(form.hasLines);
  EXPECT_EQ(form.amount, 15.5);
  form.type = EntryType::Income;
  EXPECT_EQ(editor_.Save(form), key);
  EXPECT_EQ(Stored(key).amount, 15.5);
  EXPECT_EQ(ledger_.Schedules().ScheduleLines(key)[0].amount, 10);
  form.amount = 99;
  Prompt().ExpectTell("Save Warning",
                      "The Allocated items add up to 15.50, which stays the Amount of this item");
  editor_.Save(form);
  EXPECT_EQ(Stored(key).amount, 15.5);

  ScheduleForm transfer = form;
  ScheduleEditor::ChooseType(transfer, EntryType::Transfer);
  transfer.accountToId = cash_;
  const char* question = "A transfer keeps no Allocated items. Do you wish to remove them?";
  Prompt().ExpectAsk("Transfer Item?", question, false);
  EXPECT_EQ(editor_.Save(transfer), 0);
  EXPECT_EQ(editor_.DeclinedField(), "cmbType");
  Prompt().ExpectAsk("Transfer Item?", question, true);
  EXPECT_EQ(editor_.Save(transfer), key);
  EXPECT_TRUE(ledger_.Schedules().ScheduleLines(key).empty());
  EXPECT_EQ(Stored(key).amount, -99);
}

TEST_F(ScheduleEditorTest, AFinishedScheduleStaysSoUntilItsPlanIsChanged) {
  ScheduleRecord record = Stored(editor_.Save(Expense()));
  record.noTimes = -1;
  ledger_.Schedules().SaveSchedule(record);
  ScheduleForm form = *editor_.Load(record.scheduleId);
  EXPECT_TRUE(form.isFinished);
  EXPECT_EQ(form.number, 1);
  form.description = "changed";
  editor_.Save(form);
  EXPECT_TRUE(Stored(record.scheduleId).isFinished);
  form.number = 2;
  editor_.Save(form);
  EXPECT_FALSE(Stored(record.scheduleId).isFinished);
}

TEST_F(ScheduleEditorTest, DeletingAsksForWhatIsPosted) {
  const auto posted = [&](std::int64_t schedule) {
    TransactionRecord row = Row(AddRow(bank_, -25));
    row.scheduleId = schedule;
    row.scheduleDate = Today().AddDays(static_cast<int>(row.transactionId));
    return ledger_.Transactions().SaveTransaction(row);
  };
  const std::int64_t first = editor_.Save(Expense());
  const std::int64_t second = editor_.Save(Expense());
  posted(first);
  const std::int64_t kept = posted(second);
  posted(second);
  const char* question = "Do you wish to delete this item?";
  Prompt().ExpectAsk("Delete Item?", question, false);
  EXPECT_FALSE(editor_.Delete(first));
  EXPECT_EQ(Count("tblSchedule"), 2);
  Prompt().ExpectAsk("Delete Item?", question, true);
  Prompt().ExpectAsk("Delete Item?", "Do you also wish to delete the transaction posted from it?",
                     true);
  EXPECT_TRUE(editor_.Delete(first));
  EXPECT_EQ(Count("tblTransactions"), 2);
  Prompt().ExpectAsk("Delete Item?", question, true);
  Prompt().ExpectAsk("Delete Item?",
                     "Do you also wish to delete the 2 transactions posted from it?", false);
  EXPECT_TRUE(editor_.Delete(second));
  EXPECT_EQ(Row(kept).scheduleId, 0);
  Prompt().ExpectAsk("Delete Item?", question, true);
  EXPECT_TRUE(editor_.Delete(editor_.Save(Expense())));
  EXPECT_EQ(Count("tblSchedule"), 0);
}

TEST_F(ScheduleEditorTest, AllocatingNeedsAnAmountAndNoTransfer) {
  const auto transfer = editor_.CheckAllocate(Transfer());
  ASSERT_TRUE(transfer);
  EXPECT_EQ(transfer->title, "Allocate Item Warning");
  EXPECT_EQ(transfer->text, "Please select a Type (Not Transfer) to allocate an Item");
  ScheduleForm form = Expense();
  EXPECT_FALSE(editor_.CheckAllocate(form));
  form.amount.reset();
  EXPECT_EQ(editor_.CheckAllocate(form)->text, "Please select a valid value for Amount");
}

TEST_F(ScheduleEditorTest, NeedsAnAccount) {
  EXPECT_FALSE(editor_.CheckOpen());
  store_.Db().Execute("DELETE FROM tblAccounts");
  const auto warning = editor_.CheckOpen();
  ASSERT_TRUE(warning);
  EXPECT_EQ(warning->title, "Please Add Account");
  EXPECT_EQ(warning->text, "There are no Accounts set up. Please add an Account to start");
}

}  // namespace
}  // namespace corvanta
