#include "entry/EntryTest.h"
#include "entry/TransactionEditor.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"

namespace corvanta {
namespace {

constexpr const char* kAddCategory = "Add Category?";

class TransactionEditing : public EntryTest {
 protected:
  [[nodiscard]] TransactionForm Form(EntryType type, double amount) {
    TransactionForm form = editor_.New(bank_);
    TransactionEditor::ChooseType(form, type);
    form.amount = amount;
    form.payment = "Card";
    if (type == EntryType::Transfer) {
      form.accountToId = cash_;
    } else {
      form.payee = "Grocer";
      form.category = "Shopping";
      form.subCategory = "Food";
    }
    return form;
  }
  // Saves what must be accepted.
  std::int64_t Save(const TransactionForm& form) {
    const auto warning = editor_.Check(form);
    EXPECT_FALSE(warning) << warning->text;
    const std::int64_t key = editor_.Save(form);
    EXPECT_NE(key, 0);
    return key;
  }

  TransactionEditor editor_{ledger_, Services(), rates_};
};

TEST_F(TransactionEditing, RulesHoldInTheirOrder) {
  const std::int64_t split = AddRow(bank_, -30);
  AddRow(bank_, -30, split);
  const std::string before = Everything();
  const auto check = [&](auto change) {
    TransactionForm form = Form(EntryType::Expense, 5);
    change(form);
    return editor_.Check(form);
  };
  const auto nothing = [&](TransactionForm& form) {
    form = {};
    form.amount = std::nullopt;
  };
  const auto transfer = [&](TransactionForm& form) { form = Form(EntryType::Transfer, 5); };
  ExpectWarnings({
      {check([&](auto& form) {
         nothing(form);
         form.transactionId = split;
       }),
       "You need to enter a valid Amount, as there are Allocated items", "txtAmount"},
      {check([&](auto& form) {
         nothing(form);
         form.type = EntryType::Transfer;
       }),
       "You need to enter a valid Amount, as this is a Transfer", "txtAmount"},
      {check(nothing), "You need to select a Type", "cmbType"},
      {check([&](auto& form) {
         nothing(form);
         form.type = EntryType::Income;
       }),
       "You need to enter a Payment Type", "cmbPayment"},
      {check([](auto& form) { form.payment = Umlauts(101), form.accountId = 0; }),
       "Payment Type must be less than 100 characters long", "cmbPayment"},
      {check([](auto& form) { form.accountId = 0, form.payee = ""; }),
       "You need to select an Account / Transfer From", "cmbAccount"},
      {check([](auto& form) { form.payee = " ", form.category = ""; }),
       "You need to select a Payee", "cmbPayee"},
      {check([](auto& form) { form.payee = Umlauts(101), form.category = ""; }),
       "Payee must be less than 100 characters long", "cmbPayee"},
      {check([](auto& form) { form.category = "", form.subCategory = Umlauts(101); }),
       "You need to enter a Category", "cmbCategory"},
      {check([](auto& form) { form.category = Umlauts(101), form.subCategory = Umlauts(101); }),
       "Category must be less than 100 characters long", "cmbCategory"},
      {check([&](auto& form) {
         transfer(form);
         form.subCategory = Umlauts(101), form.accountToId = 0;
       }),
       "Sub Category must be less than 100 characters long", "cmbSubCategory"},
      {check([&](auto& form) {
         transfer(form);
         form.accountToId = 0, form.description = Umlauts(256);
       }),
       "You need to select an Account / Transfer To", "cmbAccountTo"},
      {check([&](auto& form) {
         transfer(form);
         form.accountToId = bank_, form.amount = -5;
       }),
       "You can not transfer to the same Account", "cmbAccountTo"},
      {check([](auto& form) { form.amount = -5, form.reference = Umlauts(51); }),
       "Please enter the Amount without a sign, the Type says where it goes", "txtAmount"},
      {check([](auto& form) { form.amount = 1e13, form.reference = Umlauts(51); }),
       "You need to enter a valid Amount", "txtAmount"},
      {check([](auto& form) { form.reference = Umlauts(51), form.description = Umlauts(256); }),
       "The text is too long: Reference holds at most 50 characters.", "txtReference"},
      {check([](auto& form) { form.description = Umlauts(256); }),
       "The text is too long: Description holds at most 255 characters.", "txtDescription"},
  });
  EXPECT_EQ(Everything(), before);
}

TEST_F(TransactionEditing, ClosedAccountsAreLeftAlone) {
  const std::int64_t transfer = Save(Form(EntryType::Transfer, 5));
  const std::int64_t plain = Save(Form(EntryType::Expense, 5));
  CloseAccount(cash_);
  TransactionForm added = Form(EntryType::Expense, 5);
  added.accountId = cash_;
  TransactionForm moved = *editor_.Load(plain);
  moved.accountId = cash_;
  TransactionForm away = *editor_.Load(transfer);
  away.accountToId = euro_;
  const char* closed = "This Account is closed, Items cannot be amended";
  const std::string before = Everything();
  ExpectWarnings({{editor_.Check(added), closed, "cmbAccount", "Add Item"},
                  {editor_.Check(Form(EntryType::Transfer, 5)), closed, "cmbAccountTo", "Add Item"},
                  {editor_.Check(moved), closed, "cmbAccount", "Amend Item"},
                  {editor_.Check(away), closed, "", "Amend Item"},
                  {editor_.CheckOpen(transfer), closed, "", "Amend Item"}});
  Prompt().ExpectTell("Amend Item", closed);
  EXPECT_FALSE(editor_.Delete(transfer));
  EXPECT_EQ(Everything(), before);
}

TEST_F(TransactionEditing, TheTypeGivesTheSign) {
  EXPECT_EQ(Row(Save(Form(EntryType::Expense, 25))).amount, -25);
  EXPECT_EQ(Row(Save(Form(EntryType::Income, 25))).amount, 25);
  const auto from = Row(Save(Form(EntryType::Transfer, 25)));
  const auto to = Row(from.transferId);
  EXPECT_EQ(from.amount, -25);
  EXPECT_EQ(to.amount, 25);
  EXPECT_EQ(to.accountId, cash_);
  EXPECT_EQ(to.transferId, from.transactionId);
  EXPECT_EQ(from.payee + to.payee, "TransferTransfer");
  EXPECT_EQ(from.category + to.category, "CreditCredit");
  // Nothing is typed as an amount of nothing.
  const auto empty = Row(Save(Form(EntryType::Expense, 0)));
  EXPECT_EQ(std::to_string(empty.amount), "0.000000");
}

TEST_F(TransactionEditing, NewNamesAreMadeOnceWhateverTheirCase) {
  const std::vector<std::string> names = {"O'Brien & \"Sons\"", "'; DROP TABLE tblPayees; --",
                                          "🦊 ÉTÉ", Umlauts(100)};
  for (const std::string& name : names) {
    TransactionForm form = Form(EntryType::Income, 5);
    form.payee = "  " + name + " ";
    form.payment = form.payee;
    const auto first = Row(Save(form));
    EXPECT_EQ(first.payee, name);
    EXPECT_EQ(first.payment, name);
  }
  const std::int64_t payees = Count("tblPayees");
  const std::int64_t payments = Count("tblPayments");
  TransactionForm again = Form(EntryType::Expense, 5);
  again.payee = "🦊 été";
  again.payment = "o'brien & \"SONS\"";
  const auto row = Row(Save(again));
  EXPECT_EQ(row.payee, "🦊 ÉTÉ");
  EXPECT_EQ(row.payment, "O'Brien & \"Sons\"");
  EXPECT_EQ(Count("tblPayees"), payees);
  EXPECT_EQ(Count("tblPayments"), payments);
}

TEST_F(TransactionEditing, ANewCategoryIsMadeWhenThePersonAgrees) {
  TransactionForm form = Form(EntryType::Income, 5);
  form.payee = "Somebody new";
  form.payment = "Something new";
  form.category = "Lottery";
  form.subCategory = "Won";
  const std::string before = Everything();
  Prompt().ExpectAsk(
      kAddCategory,
      "The category 'Lottery:Won' does not exist. Do you wish to add it as an income category?",
      false);
  EXPECT_EQ(editor_.Save(form), 0);
  EXPECT_EQ(editor_.DeclinedField(), "cmbCategory");
  EXPECT_EQ(Everything(), before) << "no name may be left behind";

  Prompt().ExpectAsk(kAddCategory, ScriptedPrompts::kAnyText, true);
  EXPECT_EQ(Row(Save(form)).subCategory, "Won");
  EXPECT_EQ(Count("tblCategory Where Category = 'Lottery' AND [Type] = 1"), 2);

  // A sub-category is of the kind of its category, and found again in any case.
  form.category = "shopping";
  form.subCategory = "Lottery tickets";
  Prompt().ExpectAsk(kAddCategory,
                     "The category 'shopping:Lottery tickets' does not exist. Do you wish to add "
                     "it as an expense category?",
                     true);
  Save(form);
  form.subCategory = "LOTTERY TICKETS";
  EXPECT_EQ(Row(Save(form)).subCategory, "Lottery tickets");
}

TEST_F(TransactionEditing, ASaveIsOneStep) {
  TransactionForm form = Form(EntryType::Expense, 5);
  form.payee = "New payee";
  form.category = "New category";
  const std::string before = Everything();
  Prompt().ExpectAsk(kAddCategory, ScriptedPrompts::kAnyText, true);
  const std::int64_t key = Save(form);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Add Transaction");
  ledger_.Undo().Undo();
  EXPECT_EQ(Everything(), before);
  ledger_.Undo().Redo();
  form = *editor_.Load(key);
  TransactionEditor::ChooseType(form, EntryType::Transfer);
  form.accountToId = cash_;
  Save(form);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Edit Transaction");
  ledger_.Undo().Undo();
  EXPECT_EQ(Row(key).transferId, 0);
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(TransactionEditing, LoadingShowsWhatWasSaved) {
  TransactionForm form = Form(EntryType::Income, 12.34);
  form.date = form.date.AddDays(-3);
  form.reference = "007";
  form.description = "It's \"quoted\"";
  form.status = TransactionStatus::Cleared;
  const auto loaded = editor_.Load(Save(form));
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->type, EntryType::Income);
  EXPECT_EQ(loaded->accountId, bank_);
  EXPECT_EQ(loaded->payee + loaded->payment, "GrocerCard");
  EXPECT_EQ(loaded->category + loaded->subCategory, "ShoppingFood");
  EXPECT_EQ(loaded->amount, 12.34);
  EXPECT_EQ(loaded->date, form.date);
  EXPECT_EQ(loaded->reference + loaded->description, form.reference + form.description);
  EXPECT_EQ(loaded->status, TransactionStatus::Cleared);

  TransactionRecord bought = Row(loaded->transactionId);
  bought.transactionId = 0;
  bought.action = 1;
  const std::int64_t investment = ledger_.Transactions().SaveTransaction(bought);
  EXPECT_FALSE(editor_.Load(investment));
  EXPECT_TRUE(editor_.CheckOpen(investment));
  EXPECT_FALSE(editor_.Load(99999));
  EXPECT_FALSE(editor_.CheckOpen(99999));
  TransactionForm gone = form;
  gone.transactionId = 99999;
  EXPECT_EQ(editor_.Check(gone)->text, "This Item does not exist any more");
}

TEST_F(TransactionEditing, EitherHalfOfATransferIsEdited) {
  TransactionForm form = Form(EntryType::Transfer, 25);
  form.description = "rent";
  form.status = TransactionStatus::Cleared;
  const std::int64_t from = Save(form);
  const std::int64_t to = Row(from).transferId;
  EXPECT_EQ(Row(to).status, FlagsOf(TransactionStatus::Cleared));

  form = *editor_.Load(to);
  EXPECT_TRUE(form.isToHalf);
  EXPECT_EQ(form.accountId, bank_);
  EXPECT_EQ(form.accountToId, cash_);
  EXPECT_EQ(form.payee, "");
  form.amount = 30;
  form.description = "rent for May";
  form.reference = "7";
  form.status = TransactionStatus::Reconciled;
  EXPECT_EQ(Save(form), to);
  EXPECT_EQ(Row(to).amount, 30);
  EXPECT_EQ(Row(from).amount, -30);
  EXPECT_EQ(Row(from).description + Row(from).reference, "rent for May7");
  EXPECT_EQ(Row(from).status, FlagsOf(TransactionStatus::Cleared)) << "another bank's statement";
  EXPECT_EQ(Row(to).status, FlagsOf(TransactionStatus::Reconciled));

  // What a half has of its own stays its own.
  auto own = Row(from);
  own.description = "own words";
  ledger_.Transactions().SaveTransaction(own);
  form = *editor_.Load(to);
  form.description = "other words";
  form.accountToId = euro_;
  rates_.Answer(1);
  Save(form);
  EXPECT_EQ(Row(from).description, "own words");
  EXPECT_EQ(Row(to).accountId, euro_);
  EXPECT_EQ(Count("tblTransactions"), 2);
}

TEST_F(TransactionEditing, ADownloadThatThePersonStopsIsNoFailure) {
  rates_.Stop();
  TransactionForm form = Form(EntryType::Transfer, 25);
  form.accountToId = euro_;
  Prompt().ExpectTell("Download Currency", "Stopped. The amount arrives unconverted.");
  const std::int64_t from = Save(form);
  EXPECT_EQ(Row(Row(from).transferId).amount, 25);
}

TEST_F(TransactionEditing, CurrenciesAreConvertedOnceAndBeforeTheWrite) {
  rates_.Answer(1.17345);
  TransactionForm form = Form(EntryType::Transfer, 25);
  form.accountToId = euro_;
  const std::int64_t from = Save(form);
  const std::int64_t to = Row(from).transferId;
  EXPECT_EQ(Row(from).amount, -25);
  EXPECT_EQ(Row(to).amount, 29.34) << "29.33625 in cents";
  EXPECT_EQ(rates_.Asked(), std::vector<std::string>{"GBPEUR"});

  form = *editor_.Load(from);
  form.description = "untouched amounts are not converted again";
  Save(form);
  EXPECT_EQ(Row(to).amount, 29.34);
  EXPECT_EQ(rates_.Asked().size(), 1U);

  rates_.Answer(std::nullopt);
  form.amount = 40;
  EXPECT_EQ(editor_.KnownArrival(form), 46.94) << "40 * 29.34 / 25";
  Prompt().ExpectTell("Download Currency", "Could not connect to website");
  Save(form);
  EXPECT_EQ(Row(to).amount, 46.94) << "a settled amount is not overwritten by another currency's";
  rates_.Answer(1.2);
  Save(form);
  EXPECT_EQ(Row(to).amount, 48) << "until a rate comes";

  form = *editor_.Load(from);
  form.amount = 50;
  form.amountTo = 47.504;
  Save(form);
  EXPECT_EQ(Row(from).amount, -50);
  EXPECT_EQ(Row(to).amount, 47.5) << "what is said to arrive arrives, in cents";
  EXPECT_EQ(rates_.Asked().size(), 3U);

  form = Form(EntryType::Transfer, 5);
  Save(form);
  EXPECT_EQ(rates_.Asked().size(), 3U) << "one currency needs no rate";
}

TEST_F(TransactionEditing, ATransferBecomesAnExpenseAndBack) {
  const std::int64_t from = Save(Form(EntryType::Transfer, 25));
  const std::int64_t twin = Row(from).transferId;
  TransactionForm form = *editor_.Load(from);
  TransactionEditor::ChooseType(form, EntryType::Expense);
  EXPECT_EQ(form.category, "") << "the transfers' own category says nothing of an expense";
  form.payee = "Grocer";
  form.category = "Shopping";
  Save(form);
  EXPECT_EQ(Row(from).transferId, 0);
  EXPECT_EQ(Row(twin).transferId, 0);
  EXPECT_EQ(Row(twin).amount, 25);

  auto settled = Row(from);
  settled.status = FlagsOf(TransactionStatus::Reconciled);
  ledger_.Transactions().SaveTransaction(settled);
  form = *editor_.Load(from);
  TransactionEditor::ChooseType(form, EntryType::Transfer);
  EXPECT_EQ(form.category, "Shopping");
  form.accountToId = cash_;
  Save(form);
  const std::int64_t other = Row(from).transferId;
  EXPECT_NE(other, twin) << "the former other half is an ordinary row by now";
  EXPECT_EQ(Row(from).status, FlagsOf(TransactionStatus::Reconciled));
  EXPECT_EQ(Row(other).status, FlagsOf(TransactionStatus::Uncleared)) << "not seen by its bank yet";
  EXPECT_EQ(Count("tblTransactions"), 3);
}

TEST_F(TransactionEditing, AnEndedTransferGoesOnInTheAccountOfItsRow) {
  rates_.Answer(2);
  TransactionForm form = Form(EntryType::Transfer, 25);
  form.accountToId = euro_;
  const std::int64_t to = Row(Save(form)).transferId;
  form = *editor_.Load(to);
  TransactionEditor::ChooseType(form, EntryType::Income);
  EXPECT_EQ(form.accountId, euro_);
  EXPECT_EQ(form.amount, 50);
  const TransactionForm income = form;
  TransactionEditor::ChooseType(form, EntryType::Transfer);
  EXPECT_EQ(form.accountId, bank_) << "and back, as long as nothing is saved";
  EXPECT_EQ(form.amount, 25);
  EXPECT_EQ(form.category, "Credit");
  form = income;
  form.payee = "Grocer";
  form.category = "Shopping";
  Save(form);
  EXPECT_EQ(Row(to).amount, 50);
  EXPECT_EQ(Row(to).accountId, euro_);
}

TEST_F(TransactionEditing, WhatArrivesIsKeptWhileAmountAndCurrenciesStay) {
  const std::int64_t yen = AddAccount("Yen", "JPY");
  TransactionForm form = Form(EntryType::Transfer, 101);
  form.accountToId = yen;
  form.amountTo = 18743;
  const std::int64_t from = Save(form);
  const std::int64_t to = Row(from).transferId;
  EXPECT_EQ(Row(to).amount, 18743);

  // From the other half, with another description, out of another account in pounds.
  form = *editor_.Load(to);
  EXPECT_EQ(form.amount, 101);
  form.description = "offline";
  form.accountId = cash_;
  Save(form);
  EXPECT_EQ(Row(to).amount, 18743);
  EXPECT_EQ(Row(from).accountId, cash_);
  EXPECT_TRUE(rates_.Asked().empty());

  // A former rate says nothing about another currency.
  form = *editor_.Load(from);
  form.accountToId = euro_;
  EXPECT_EQ(editor_.KnownArrival(form), std::nullopt);
  rates_.Answer(1.2);
  Save(form);
  EXPECT_EQ(Row(to).amount, 121.2);

  form = *editor_.Load(to);
  TransactionEditor::ChooseType(form, EntryType::Income);
  EXPECT_EQ(form.amount, 121.2);
  TransactionEditor::ChooseType(form, EntryType::Transfer);
  EXPECT_EQ(form.amount, 101);
  EXPECT_EQ(editor_.KnownArrival(form), 121.2);
}

TEST_F(TransactionEditing, ATransferOfWhichNothingArrivesStaysOneAndIsNoRate) {
  const std::int64_t yen = AddAccount("Yen", "JPY");
  TransactionForm form = Form(EntryType::Transfer, 1);
  form.accountId = yen;
  form.accountToId = euro_;
  rates_.Answer(0.004);
  const std::int64_t from = Save(form);
  const std::int64_t to = Row(from).transferId;
  EXPECT_EQ(Row(to).amount, 0);
  EXPECT_EQ(Row(to).transferId, from);
  form = *editor_.Load(to);
  EXPECT_EQ(form.type, EntryType::Transfer);
  EXPECT_EQ(form.amount, 1);
  form.amount = 10000;
  EXPECT_EQ(editor_.KnownArrival(form), std::nullopt);
  Save(form);
  EXPECT_EQ(Row(from).amount, -10000);
  EXPECT_EQ(Row(to).amount, 40);
}

TEST_F(TransactionEditing, WhatArrivesFollowsRulesOfItsOwn) {
  const auto check = [&](std::int64_t to, double arrives) {
    TransactionForm form = Form(EntryType::Transfer, 25);
    form.accountToId = to;
    form.amountTo = arrives;
    return editor_.Check(form);
  };
  ExpectWarnings({
      {check(euro_, 0), "You need to enter a valid Amount", "txtAmountTo"},
      {check(euro_, 1e14), "You need to enter a valid Amount", "txtAmountTo"},
      {check(euro_, -5), "Please enter the Amount without a sign, the Type says where it goes",
       "txtAmountTo"},
      {check(cash_, 26), "Both accounts are in one currency: what arrives is the Amount itself",
       "txtAmountTo"},
  });
  EXPECT_FALSE(check(cash_, 25));
  EXPECT_FALSE(check(euro_, 26));
}

TEST_F(TransactionEditing, ACategoryMayBeTypedAsListsShowIt) {
  TransactionForm form = Form(EntryType::Expense, 25);
  form.category = "Shopping:food";
  form.subCategory = "Stale";
  EXPECT_EQ(Row(Save(form)).subCategory, "Food");
  form.category = ":Food";
  ExpectWarnings({{editor_.Check(form), "You need to enter a Category", "cmbCategory"}});
  // A name of an import that has a colon of its own is found by it.
  ledger_.Categories().FindOrCreateCategory("Account:Savings", {}, -1);
  form.category = "account:savings";
  form.subCategory.clear();
  EXPECT_EQ(Row(Save(form)).category, "Account:Savings");
}

TEST_F(TransactionEditing, WhatIsNoAmountIsNotSavedAsNothing) {
  TransactionForm form = Form(EntryType::Expense, 25);
  form.amount = std::nullopt;
  ExpectWarnings({{editor_.Check(form), "You need to enter a valid Amount", "txtAmount"}});
}

TEST_F(TransactionEditing, AmountsHaveTheDecimalsOfTheirAccount) {
  const std::int64_t yen = AddAccount("Yen", "JPY");
  TransactionForm form = Form(EntryType::Expense, 12.505);
  const std::int64_t key = Save(form);
  EXPECT_EQ(Row(key).amount, -12.51);
  form = *editor_.Load(key);
  form.accountId = yen;
  Save(form);
  EXPECT_EQ(Row(key).amount, -13);
  // Of an older file, and left alone.
  ledger_.Store().Execute("UPDATE tblTransactions SET [Amount] = -12.3456 WHERE TransactionID = " +
                          std::to_string(key));
  form = *editor_.Load(key);
  form.description = "words";
  Save(form);
  EXPECT_EQ(Row(key).amount, -12.3456);
}

TEST_F(TransactionEditing, APostedRowStaysItsSchedulesOccurrence) {
  // Posted anew it would be in the account twice.
  const std::int64_t schedule = AddSchedule(-25);
  const std::int64_t key = Save(Form(EntryType::Transfer, 25));
  const std::int64_t twin = Row(key).transferId;
  for (const std::int64_t half : {key, twin}) {
    auto row = Row(half);
    row.scheduleId = schedule;
    if (half == key) row.scheduleDate = Today();
    ledger_.Transactions().SaveTransaction(row);
  }
  TransactionForm form = *editor_.Load(key);
  EXPECT_EQ(form.scheduleId, schedule);
  form.amount = 30;
  form.date = form.date.AddDays(2);
  form.accountId = euro_;
  rates_.Answer(1);
  Save(form);
  EXPECT_EQ(Row(key).scheduleId, schedule);
  EXPECT_EQ(Row(key).scheduleDate, Today());
  EXPECT_EQ(Row(twin).scheduleId, schedule);

  form = *editor_.Load(twin);
  TransactionEditor::ChooseType(form, EntryType::Income);
  form.payee = "Grocer";
  form.category = "Shopping";
  Save(form);
  EXPECT_EQ(Row(key).scheduleId, schedule);
  EXPECT_EQ(Row(twin).scheduleId, 0) << "a row of its own, which no occurrence needs";
}

TEST_F(TransactionEditing, ASplitParentKeepsTheSumOfItsLines) {
  const std::int64_t key = Save(Form(EntryType::Expense, 30));
  const std::int64_t first = AddRow(bank_, -20, key);
  const std::int64_t second = AddRow(bank_, -10.5, key);
  TransactionForm form = *editor_.Load(second);
  EXPECT_EQ(form.transactionId, key) << "a line shows what it is a line of";
  EXPECT_TRUE(form.hasLines);
  EXPECT_EQ(form.amount, 30.5);
  form.date = form.date.AddDays(-1);
  form.status = TransactionStatus::Cleared;
  form.amount = 31;
  Prompt().ExpectTell("Save Warning",
                      "The Allocated items add up to 30.50, which stays the Amount of this item");
  Save(form);
  EXPECT_EQ(Row(key).amount, -30.5);
  EXPECT_EQ(Row(first).date, form.date);
  EXPECT_EQ(Row(first).status, FlagsOf(TransactionStatus::Cleared));

  form.amount = 30.5;
  TransactionEditor::ChooseType(form, EntryType::Income);
  Save(form);
  EXPECT_EQ(Row(key).amount, 30.5);
  EXPECT_EQ(Row(first).amount, 20);

  TransactionEditor::ChooseType(form, EntryType::Transfer);
  form.accountToId = cash_;
  const std::string before = Everything();
  const char* question = "A transfer keeps no Allocated items. Do you wish to remove them?";
  Prompt().ExpectAsk("Transfer Item?", question, false);
  EXPECT_EQ(editor_.Save(form), 0);
  EXPECT_EQ(editor_.DeclinedField(), "cmbType");
  EXPECT_EQ(Everything(), before);
  Prompt().ExpectAsk("Transfer Item?", question, true);
  Save(form);
  EXPECT_EQ(Row(key).amount, -30.5);
  EXPECT_EQ(Count("tblTransactions Where AllocatedItem <> 0"), 0);
}

TEST_F(TransactionEditing, DeletingAsksAndTakesTheOtherHalf) {
  const std::int64_t key = Save(Form(EntryType::Transfer, 25));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  EXPECT_FALSE(editor_.Delete(key));
  EXPECT_EQ(Count("tblTransactions"), 2);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_TRUE(editor_.Delete(key));
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(TransactionEditing, APayeeProposesItsLastTransaction) {
  Save(Form(EntryType::Expense, 25));
  TransactionForm later = Form(EntryType::Income, 12.5);
  later.payment = "Cheque";
  later.subCategory = "";
  Save(later);
  const auto proposal = editor_.Propose(bank_, " GROCER ");
  ASSERT_TRUE(proposal);
  EXPECT_EQ(proposal->type, EntryType::Income);
  EXPECT_EQ(proposal->amount, 12.5);
  EXPECT_EQ(proposal->payment, "Cheque");
  EXPECT_EQ(proposal->category + proposal->subCategory, "Shopping");
  EXPECT_FALSE(editor_.Propose(cash_, "Grocer"));
  EXPECT_FALSE(editor_.Propose(bank_, ""));
  Save(Form(EntryType::Transfer, 5));
  EXPECT_FALSE(editor_.Propose(bank_, "Transfer")) << "no transfer is proposed as an expense";
  EXPECT_EQ(editor_.CurrencyOf(euro_) + editor_.CurrencyOf(0), "EUR");
}

TEST_F(TransactionEditing, OnlyAnAmountOfMoneyInOrOutIsAllocated) {
  const char* title = "Allocate Item Warning";
  TransactionForm none = Form(EntryType::Expense, 5);
  none.type = EntryType::None;
  none.amount = 0;
  TransactionForm text = Form(EntryType::Expense, 5);
  text.amount = std::nullopt;
  const char* type = "Please select a Type (Not Transfer) to allocate an Item";
  const char* amount = "Please select a valid value for Amount";
  ExpectWarnings({{editor_.CheckAllocate(none), type, "cmbType", title},
                  {editor_.CheckAllocate(Form(EntryType::Transfer, 0)), type, "cmbType", title},
                  {editor_.CheckAllocate(Form(EntryType::Income, 0)), amount, "txtAmount", title},
                  {editor_.CheckAllocate(text), amount, "txtAmount", title}});
  EXPECT_FALSE(editor_.CheckAllocate(Form(EntryType::Expense, 5)));
}

}  // namespace
}  // namespace corvanta
