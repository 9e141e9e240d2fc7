#include "invest/InvestEditorTest.h"

#include "store/sql/SqlText.h"

namespace corvanta {
namespace {

class InvestRules : public InvestEditorTest {
 protected:
  std::string Refused(const InvestmentRecord& form) {
    const auto warning = editor_.Check(form);
    return warning ? warning->title + ": " + warning->text + " @" + warning->field : "";
  }

  InvestEditor editor_{ledger_, Services()};
};

TEST_F(InvestRules, AreAskedInTheirOrder) {
  InvestmentRecord form;
  EXPECT_EQ(Refused(form), "Save Warning: You need to enter a Symbol @txtSymbol");
  form.symbol = " ";
  EXPECT_EQ(Refused(form), "Save Warning: You need to enter a Symbol @txtSymbol");
  form.symbol = "NEW";
  EXPECT_EQ(Refused(form), "Save Warning: You need to enter an Investment Name @txtInvestment");
  form.investment = " acme's works ";
  EXPECT_EQ(Refused(form),
            "Save Warning: You need to select an Investment Currency @cmbCurrencyInvest");
  form.investCurrencyId = kPounds;
  EXPECT_EQ(Refused(form), "Save Warning: You need to select an Account Currency @cmbCurrency");
  form.currencyId = kPounds;
  EXPECT_EQ(Refused(form), "Save Warning: You need to select a Data Source @cmbDataSource");
  form.dataId = kByHand;
  EXPECT_EQ(Refused(form), "Duplicate Record: Investment already exists @txtInvestment")
      << "a name with an apostrophe, in other case";
  form.investmentId = acme_;
  EXPECT_EQ(Refused(form), "") << "its own name is not another's";
  form.investmentId = 999;
  form.investment = "Other";
  EXPECT_EQ(Refused(form), "Save Warning: This Investment does not exist any more @");
  form.investmentId = 0;
  form.investment = std::string(101, 'x');
  EXPECT_EQ(Refused(form),
            "Save Warning: Investment Name must be less than 100 characters long @txtInvestment");
  form.investment = std::string(100, 'x');
  form.symbol = std::string(51, 'x');
  EXPECT_NE(Refused(form).find("Symbol holds at most 50"), std::string::npos);
}

TEST_F(InvestRules, APayeeOfTheNameIsNoInvestment) {
  Store().Execute("INSERT INTO tblPayees (Payee, Investment) VALUES ('Shop', 0)");
  EXPECT_EQ(Refused(Record("Shop", "SHP")), "");
}

TEST_F(InvestRules, SavingTrimsAndMendsTheConversion) {
  for (const auto& [typed, kept] : {std::pair(-2.0, 1.0), {0.0, 1.0}, {0.01, 0.01}}) {
    InvestmentRecord form = Record(" Bolt ", " BLT ");
    form.description = " shares ";
    form.conversion = typed;
    const std::int64_t key = editor_.Save(form);
    const auto row = editor_.Load(key);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->investment, "Bolt");
    EXPECT_EQ(row->symbol, "BLT");
    EXPECT_EQ(row->description, "shares");
    EXPECT_EQ(row->conversion, kept);
    EXPECT_EQ(ledger_.Undo().UndoName(), "Add Investment");
    ledger_.Undo().Undo();
    EXPECT_FALSE(editor_.Load(key));
  }
}

TEST_F(InvestRules, ANewOneIsInTheCurrencyOfTheLatestAccount) {
  EXPECT_EQ(editor_.New().currencyId, kEuros);
  EXPECT_EQ(editor_.New().investCurrencyId, kEuros);
  EXPECT_EQ(editor_.New().conversion, 1);
  Store().Execute("DELETE FROM tblAccounts");
  EXPECT_EQ(editor_.New().currencyId, kPounds) << "the user's own";
}

TEST_F(InvestRules, DeletingAsksAndTakesThePricesAlong) {
  AddPrice(acme_, "11/02/2026", 4);
  Prompt().ExpectAsk("Delete Item?",
                     "Do you wish to delete this item? Its stored price is deleted too.", false);
  EXPECT_FALSE(editor_.Delete(acme_).isChanged);
  AddPrice(acme_, "11/03/2026", 5);
  Prompt().ExpectAsk("Delete Item?",
                     "Do you wish to delete this item? Its 2 stored prices are deleted too.", true);
  EXPECT_TRUE(editor_.Delete(acme_).isGone);
  EXPECT_EQ(Count("tblHistory"), 0);
  ledger_.Undo().Undo();
  EXPECT_EQ(Count("tblHistory"), 2);
  EXPECT_TRUE(editor_.Load(acme_));
}

TEST_F(InvestRules, OneWithTransactionsIsKept) {
  Buy(broker_);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  const Deletion deletion = editor_.Delete(acme_);
  EXPECT_FALSE(deletion.isGone);
  EXPECT_EQ(deletion.Notice(), "“Acme's Works” is still needed and was kept.");
}

TEST_F(InvestRules, LookingUpOpensTheSourcesPage) {
  EXPECT_EQ(editor_.LookUp(0)->text, "You need to select a Data Source");
  EXPECT_EQ(editor_.LookUp(kByHand)->text, "This Data Source has no page to look symbols up");
  const std::string page = "https://quotes.test/lookup";
  Store().Execute("UPDATE tblStockData SET LookUpURL = " + SqlText(page) + " WHERE DataID = 2");
  EXPECT_FALSE(editor_.LookUp(2));
  EXPECT_EQ(Machine().opener.Opened(), std::vector<std::string>{page});
}

class InvestTransRules : public InvestEditorTest {
 protected:
  [[nodiscard]] InvestTransForm Form(InvestAction action) {
    InvestTransForm form = editor_.New(broker_, acme_);
    form.action = action;
    return form;
  }
  std::string Refused(const InvestTransForm& form) {
    const auto warning = editor_.Check(form);
    return warning ? warning->title + ": " + warning->text + " @" + warning->field : "";
  }

  InvestTransEditor editor_{ledger_, Services()};
};

TEST_F(InvestTransRules, TheTotalFollowsFromTheFigures) {
  struct Case {
    InvestAction action;
    double dividend, shares, price, commission, total;
  };
  for (const auto& each : {Case{InvestAction::Buy, 0, 10, 5, 2, 52},
                           {InvestAction::Sell, 0, 10, 5, 2, 48},
                           {InvestAction::Dividend, 30, 0, 0, 1, 29},
                           {InvestAction::Dividend, 0, 0, 0, 1, -1},
                           {InvestAction::ReinvestDividend, 100, 9, 10, 5, 5},
                           {InvestAction::ReinvestDividend, 0, 9, 10, 5, 95},
                           {InvestAction::AddShares, 0, 7, 0, 0, 0},
                           {InvestAction::RemoveShares, 0, 7, 0, 0, 0},
                           {InvestAction::Buy, 0, 3, 1.11115, 0, 3.3335}}) {
    InvestTransForm form = Form(each.action);
    form.dividend = each.dividend;
    form.shares = each.shares;
    form.price = each.price;
    form.commission = each.commission;
    editor_.Recalculate(form);
    EXPECT_EQ(form.total, each.total)
        << ActionName(static_cast<std::int64_t>(each.action)) << ' ' << each.commission;
  }
  InvestTransForm none = Form(InvestAction::Buy);
  none.action.reset();
  none.shares = 2;
  none.price = 3;
  none.commission = 1;
  EXPECT_EQ(TotalOf(none), 6) << "no side yet for the commission";
}

TEST_F(InvestTransRules, AnActionDropsTheFiguresThatItHasNot) {
  InvestTransForm form = Form(InvestAction::Buy);
  form.shares = 10;
  form.price = 5;
  form.commission = 2;
  form.total = 52;
  editor_.ChooseAction(form, InvestAction::Sell);
  EXPECT_EQ(form.total, 48) << "it was what the figures came to";
  form.total = 40;
  editor_.ChooseAction(form, InvestAction::Buy);
  EXPECT_EQ(form.total, 40) << "it was typed";
  form.dividend = 9;
  editor_.ChooseAction(form, InvestAction::Dividend);
  EXPECT_EQ(form.shares, 0);
  EXPECT_EQ(form.price, 0);
  EXPECT_EQ(form.dividend, 9);
  EXPECT_EQ(form.commission, 2);
  form.shares = 4;
  editor_.ChooseAction(form, InvestAction::AddShares);
  EXPECT_EQ(form.shares, 4);
  EXPECT_EQ(form.dividend + form.price + form.commission + form.total, 0);
}

TEST_F(InvestTransRules, AreAskedInTheirOrder) {
  CloseAccount(euro_);
  InvestTransForm form;
  form.total = -1;
  EXPECT_EQ(Refused(form), "Save Warning: You need to select an Account @cmbAccount");
  form.accountId = euro_;
  EXPECT_EQ(Refused(form),
            "Save Warning: This Account is closed, investments cannot be added @cmbAccount");
  form.accountId = broker_;
  EXPECT_EQ(Refused(form), "Save Warning: You need to select an Investment @cmbInvestment");
  form.investmentId = acme_;
  EXPECT_EQ(Refused(form), "Save Warning: You need to select an Investment Action @cmbAction");
  form.action = InvestAction::Dividend;
  EXPECT_EQ(Refused(form), "Save Warning: Total can not be negative. @txtTotal");
  form.total = 1e12 + 0.01;
  EXPECT_EQ(Refused(form), "Save Warning: Total is too large @txtTotal");
  form.total = 1e12;
  EXPECT_EQ(Refused(form), "");
  form.shares = -1;
  EXPECT_NE(Refused(form).find("@txtShares"), std::string::npos);
  form.shares = 1e300;
  EXPECT_EQ(Refused(form), "Save Warning: This figure is too large @txtShares");
  form.shares = 0;
  form.description = std::string(256, 'x');
  EXPECT_NE(Refused(form).find("@txtDescription"), std::string::npos);
  form.description.clear();
  form.transactionId = 999;
  EXPECT_EQ(Refused(form), "Amend Item: This Item does not exist any more @");
}

TEST_F(InvestTransRules, RowsAreSavedAndLoadedAgain) {
  InvestTransForm form = Form(InvestAction::Sell);
  form.dividend = 3;  // a sale has none
  form.shares = 10;
  form.price = 5;
  form.commission = 2;
  form.total = 48;
  form.status = TransactionStatus::Reconciled;
  form.description = " half of it ";
  const std::int64_t key = editor_.Save(form);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Add Investment Transaction");
  EXPECT_EQ(Read(key).amount, 48);
  const auto row = editor_.Load(key);
  ASSERT_TRUE(row);
  EXPECT_EQ(row->action, InvestAction::Sell);
  EXPECT_EQ(row->dividend, 0);
  EXPECT_EQ(row->total, 48);
  EXPECT_EQ(row->status, TransactionStatus::Reconciled);
  EXPECT_EQ(row->description, "half of it");
  form = *row;
  form.action = InvestAction::Buy;
  EXPECT_EQ(editor_.Save(form), key);
  EXPECT_EQ(Read(key).amount, -48);
  EXPECT_EQ(editor_.Load(key)->total, 48) << "without its sign";
  ledger_.Undo().Undo();
  EXPECT_EQ(Read(key).amount, 48);
}

TEST_F(InvestTransRules, AddedSharesKeepTheCostThatASplitGaveThem) {
  InvestmentTransaction row;
  row.accountId = broker_;
  row.payeeId = acme_;
  row.action = InvestAction::AddShares;
  row.shares = 20;
  row.price = 2.5;
  row.date = Machine().clock.Today();
  const std::int64_t key = Investments().SaveInvestmentTransaction(row);
  InvestTransForm form = *editor_.Load(key);
  editor_.ChooseAction(form, InvestAction::AddShares);
  form.description = "after the split";
  EXPECT_EQ(editor_.Save(form), key);
  EXPECT_EQ(Read(key).price, 2.5);
  EXPECT_EQ(Read(key).description, "after the split");
  // One of another kind takes it along nowhere.
  editor_.ChooseAction(form, InvestAction::RemoveShares);
  editor_.Save(form);
  EXPECT_EQ(Read(key).price, 0);
}

TEST_F(InvestTransRules, TheStatusIsReadFromBothMarks) {
  const std::int64_t key = Buy(broker_);
  struct Case {
    int chk, rec;
    TransactionStatus status;
  };
  for (const auto& [chk, rec, status] : {Case{0, 0, TransactionStatus::Uncleared},
                                         {1, 0, TransactionStatus::Cleared},
                                         {1, 1, TransactionStatus::Reconciled},
                                         {0, 1, TransactionStatus::Uncleared}}) {
    Store().Execute("UPDATE tblTransactions SET BankChk = " + std::to_string(chk) +
                    ", BankRec = " + std::to_string(rec));
    EXPECT_EQ(editor_.Load(key)->status, status) << chk << rec;
  }
}

TEST_F(InvestTransRules, ClosedAccountsKeepTheirRows) {
  const std::int64_t key = Buy(euro_);
  CloseAccount(euro_);
  EXPECT_EQ(editor_.CheckOpen(key)->text, kAccountClosed);
  EXPECT_FALSE(editor_.CheckOpen(0));
  InvestTransForm form = *editor_.Load(key);
  form.accountId = broker_;
  EXPECT_EQ(editor_.Check(form)->text, kAccountClosed) << "it may not leave it either";
  EXPECT_ANY_THROW(editor_.Save(form));
  Prompt().ExpectTell("Amend Item", kAccountClosed);
  EXPECT_FALSE(editor_.Delete(key));
  EXPECT_EQ(Read(key).accountId, euro_);
}

TEST_F(InvestTransRules, DeletingAsksFirst) {
  const std::int64_t key = Buy(broker_);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  EXPECT_FALSE(editor_.Delete(key));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_TRUE(editor_.Delete(key));
  EXPECT_FALSE(editor_.Load(key));
  ledger_.Undo().Undo();
  EXPECT_TRUE(editor_.Load(key));
}

TEST_F(InvestTransRules, WithoutAnAccountNothingOpens) {
  Store().Execute("DELETE FROM tblAccounts");
  const auto warning = editor_.CheckOpen(0);
  ASSERT_TRUE(warning);
  EXPECT_EQ(warning->title, "Please Add Account");
  EXPECT_EQ(warning->text, "There are no Accounts set up. Please add an Account to start");
}

TEST_F(InvestTransRules, AnOrdinaryRowIsNoneOfTheirs) {
  TransactionRecord record;
  record.accountId = broker_;
  record.categoryId = 1;
  record.paymentId = 1;
  record.payeeId = acme_;
  record.date = Machine().clock.Today();
  EXPECT_FALSE(editor_.Load(ledger_.Transactions().SaveTransaction(record)));
}

}  // namespace
}  // namespace corvanta
