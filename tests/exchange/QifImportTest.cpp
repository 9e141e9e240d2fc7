#include "exchange/ExchangeTest.h"
#include "ledger/investments/InvestmentBook.h"

namespace corvanta {
namespace {

class QifImport : public ExchangeTest {};

TEST_F(QifImport, RecordsOfAnyLineEndWithAllTheirFields) {
  for (const char* end : {"\n", "\r\n", "\r"}) {
    SCOPED_TRACE(static_cast<int>(end[0]));
    std::string text =
        "!Account~N Current ~TBank~^~!Type:Bank ~D13/02/2020~T-12.50~PShop~MThings~N101~"
        "LFood:Dining:Out~Xunknown~A1 High Street~^~~^~D14/02/2020~T1,000.00~LWages and Salary~^~";
    for (std::size_t at = 0; (at = text.find('~', at)) != std::string::npos;) {
      text.replace(at, 1, end);
    }
    const ImportSummary summary = Import(text);
    EXPECT_EQ(summary.outcome, ImportOutcome::Complete);
    EXPECT_EQ(summary.imported + summary.duplicates, 2U);
    EXPECT_EQ(summary.problemCount, 0U);
  }
  EXPECT_EQ(Rows("Current"), (Texts{"2020-02-13|Shop|Food:Dining Out|-12.5|101|Things",
                                    "2020-02-14|Transfer|Wages and Salary|1000||"}));
  EXPECT_EQ(Count("tblTransactions T INNER JOIN tblPayments P ON T.PaymentID = P.PaymentID Where "
                  "P.Payment = 'Import'"),
            2);
}

TEST_F(QifImport, AccountsOfAFile) {
  struct Case {
    const char* text;
    const char* account;  // of the record
    Texts accounts;
  };
  const std::string record = "!Type:Bank\nD13/2/2020\nT1\nN7\n^\n";
  const std::vector<Case> cases = {
      {"", "Chosen", {"Chosen"}},
      {"!Account\nNA\n^\n", "A", {"Chosen", "A"}},
      {"!Account\nNA\nDnote\n^\nNB\n^\n", "B", {"Chosen", "A", "B"}},
      // A list chooses nothing: one that was switched off, one that never was, and one without a
      // block of its own. One account alone before its transactions is no list.
      {"!Option:AutoSwitch\n!Account\nNA\n^\nNB\n^\n!Clear:AutoSwitch\n!Account\nNA\n^\n",
       "A",
       {"Chosen", "A", "B"}},
      {"!Option:AutoSwitch\n!Account\nNA\n^\n!Clear:AutoSwitch\n", "Chosen", {"Chosen", "A"}},
      {"!Option:AutoSwitch\n!Account\nNA\n^\nNB\n^\n", "Chosen", {"Chosen", "A", "B"}},
      {"!Option:AutoSwitch\nNA\n^\nNB\n", "Chosen", {"Chosen", "A", "B"}},
      {"!Option:AutoSwitch\n!Account\nNA\n^\nNB\n^\n!Account\nNB\n^\n", "B", {"Chosen", "A", "B"}},
      {"!Option:AutoSwitch\n!Option:AutoSwitch\n!Account\nNchosen\n^\n", "Chosen", {"Chosen"}},
      // Lists of other things name none, also while the list of accounts was not switched off.
      {"!Option:AutoSwitch\n!Account\nNA\n^\n!Type:Cat\nNFood\nE\n^\n!Type:Class\nNc\n^\n"
       "!Type:Security\nNShare\nSSHR\n^\n!Type:Prices\n\"SHR\",1,\"1/1/20\"\n^\n"
       "!Type:Memorized\nKP\nT5\nD1/1/2020\nNx\n^\n",
       "Chosen",
       {"Chosen", "A"}},
  };
  const std::int64_t chosen = AddAccount("Chosen");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const Transaction undone = Db().Begin();
    const ImportSummary summary = Import(c.text + record, "file.qif", chosen);
    EXPECT_EQ(AccountNames(), c.accounts);
    EXPECT_EQ(Rows(c.account), (Texts{"2020-02-13|Transfer|Credit|1|7|"}));
    EXPECT_EQ(summary.imported, 1U);
    EXPECT_EQ(summary.problemCount, 0U);
  }
}

TEST_F(QifImport, NewAccountsAreOfTheGroupThatTheirTypeSays) {
  Import(
      "!Option:AutoSwitch\n!Account\nNCard\nTCCard\n^\nNLoan\nTOth L\n^\nNFund\nTInvst\n^\nNWhat\n"
      "TSomething\n^\n");
  EXPECT_EQ(
      Count("tblAccounts A INNER JOIN tblAccountType T ON A.AccountTypeID = T.AccountTypeID "
            "Where (A.Account = 'Card' AND T.AccountType = 'Credit Accounts') OR (A.Account = "
            "'Loan' AND T.AccountType = 'Loan Accounts') OR (A.Account = 'Fund' AND "
            "T.AccountType = 'Investment Accounts') OR (A.Account = 'What' AND T.AccountType "
            "= 'Bank Accounts')"),
      4);
  EXPECT_EQ(Count("tblAccounts Where CurrencyId = 17"), 4);
}

TEST_F(QifImport, AccountsThatAreMissingOrClosed) {
  EXPECT_EQ(Import("!Type:Bank\nD1/2/2020\nT1\n^\n").stop,
            "File import can not continue, there are no accounts in this file. Create an Account "
            "before importing.");
  EXPECT_EQ(Import("!Type:Invst\nD1/2/2020\nNBuy\nYShare\nT1\n^\n").stop,
            "File import can not continue, there are no accounts in this file. Create an Account "
            "before importing");
  AddAccount("Old", {}, kPounds, true);
  const ImportSummary summary = Import("!Account\nNOld\n^\n!Type:Bank\nD1/2/2020\nT1\n^\n");
  EXPECT_EQ(Problems(summary), (Texts{"5: The account \"Old\" is closed."}));
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(QifImport, HeadersThatAreNotKnown) {
  const ImportSummary summary = Import(
      "D1/1/2020\nT5\n^\n!Account\nNMine\n^\n!Type:Bank\nD13/2/2020\nT1\n"  // no end mark
      "!Option:AllXfr\n!Type:Toys\nD1/2/2020\nT2\n^\nD1/2/2020\nT3\n^\n!Type:Cash\nD15/2/2020\n"
      "T4\n^\n");
  EXPECT_EQ(Amounts("Mine"), (Texts{"1", "4"}));
  EXPECT_EQ(Problems(summary),
            (Texts{"1: There is no type header; 1 entries were left out.",
                   "11: \"!Type:Toys\" is not known; 2 entries were left out."}));
  // The number of a transaction without a type header makes no account.
  const ImportSummary headless =
      Import("!Account\nNMine\n^\nD13/2/2020\nN101\nT-5.00\nPShop\n^\nD14/2/2020\nT-6\nN102\n^\n");
  EXPECT_EQ(Problems(headless), (Texts{"6: There is no type header; 2 entries were left out."}));
  EXPECT_EQ(Count("tblAccounts"), 1);
  EXPECT_NE(Import("Just a letter\n").Text().find("Nothing was imported from this file."),
            std::string::npos);
}

TEST_F(QifImport, AFileThatIsCutBooksNothingOfTheCutEntry) {
  const std::string whole =
      "!Account\nNMine\n^\n!Type:Bank\nD13/2/2020\nT-1\n^\nD14/2/2020\nT-1250\n";
  const std::size_t begin = whole.find("D14");
  for (std::size_t size = begin + 2; size <= whole.size(); ++size) {
    SCOPED_TRACE(whole.substr(0, size));
    const Transaction undone = Db().Begin();
    const ImportSummary summary = Import(whole.substr(0, size));
    EXPECT_EQ(Amounts("Mine"), Texts{"-1"});
    EXPECT_EQ(Problems(summary),
              Texts{"8: The file ends inside this entry, before its end mark; nothing of it was "
                    "imported. Fetch the whole file once more."});
  }
  const ImportSummary account = Import("!Option:AutoSwitch\n!Account\nNOne\n^\nNTw");
  EXPECT_EQ(AccountNames().back(), "One");
  EXPECT_EQ(account.problemCount, 1U);
}

TEST_F(QifImport, ValuesThatAreNoDateOrNumberAreNamedLines) {
  const ImportSummary summary = ImportBank(
      "D31/2/2020\nT1\n^\nD\nT2\n^\nT3\n^\nD13/2/2020\nTabc\n^\nD13/2/2020\nT\n^\n"
      "D13/2/2020\nT5\nSFood\n$2\nSFood\n$x\n^\nD13/2/2020\nT1e400\n^\n^\nPonly\n^\n");
  EXPECT_EQ(Amounts("Mine"), (Texts{"0"}));
  EXPECT_EQ(Problems(summary),
            (Texts{"5: \"31/2/2020\" is no date.", "8: There is no date.", "11: There is no date.",
                   "14: \"abc\" is no number.", "24: \"x\" is no number.",
                   "27: \"1e400\" is no number.", "30: There is no date."}));
}

TEST_F(QifImport, Splits) {
  const ImportSummary summary = ImportBank(
      "D13/2/2020\nT-30.00\nPShop\nLFood\nSFood:Meat\nEgood\n$-10.10\nS[Savings]\n$-19.90\n^\n"
      "D14/2/2020\nT-99\nPOdd\nLFood\nSFood\n$-0.10\nEno category\n$-0.20\nSFood\n^\n");
  EXPECT_EQ(Rows("Mine"), (Texts{"2020-02-13|Shop|Food|-30||", "  Food:Meat|-10.1|good",
                                 "  Account:Savings|-19.9|", "2020-02-14|Odd|Food|-0.3||",
                                 "  Food|-0.1|", "  Debit|-0.2|no category"}));
  EXPECT_EQ(summary.splitTransfers, 1U);
  EXPECT_EQ(summary.unequalSplits, 1U);
  EXPECT_EQ(Problems(summary), (Texts{"15: A split line without an amount was left out."}));
  const ImportSummary again = ImportBank("D14/2/2020\nT-99\nSFood\n$-0.10\n$-0.20\n^\n");
  EXPECT_EQ(again.duplicates, 1U);
  EXPECT_EQ(again.imported, 0U);
}

TEST_F(QifImport, BracketsMeanTransfers) {
  AddAccount("Savings: Rainy");
  AddAccount("Euros", {}, kEuros);
  AddAccount("Other");
  const ImportSummary summary = Import(
      "!Account\nNMine\n^\n!Type:Bank\n"
      "D13/2/2020\nT-10\nPMove\nL[savings: rainy]/Holiday\n^\n"
      "D14/2/2020\nT-20\nPMove\nLGifts:[Euros]\n^\n"
      "D15/2/2020\nT-30\nPMove\nL[Nowhere]\n^\n"
      "D1/1/2020\nT500\nPOpening Balance\nL[Mine]\n^\n"
      "D16/2/2020\nT-40\nPMove\nL[Other]\n^\n"
      "D17/2/2020\nT-50\nPMove\nL[Other]\nSFood\n$-50\n^\n"
      "!Account\nNSavings: Rainy\n^\n!Type:Bank\nD13/2/2020\nT10\nPMove\nL[Mine]\n^\n"
      "!Account\nNEuros\n^\n!Type:Bank\nD14/2/2020\nT23.50\nPMove\nL[Mine]\n^\n"
      // Not the other half: of the same sign, of another day, and a split.
      "!Account\nNOther\n^\n!Type:Bank\nD16/2/2020\nT-40\nPMove\n^\nD18/2/2020\nT40\nPMove\n^\n"
      "D16/2/2020\nT40\nPMove\nSFood\n$40\n^\n");
  EXPECT_EQ(summary.transfers, 2U);
  EXPECT_EQ(Rows("Mine"),
            (Texts{"2020-02-13|Transfer|Debit|-10||", "2020-02-14|Transfer|Debit|-20||",
                   "2020-02-15|Move|Account:Nowhere|-30||",
                   "2020-01-01|Opening Balance|Credit|500||", "2020-02-16|Move|Account:Other|-40||",
                   "2020-02-17|Move|Account:Other|-50||", "  Food|-50|"}));
  EXPECT_EQ(Rows("Euros"), (Texts{"2020-02-14|Transfer|Credit|23.5||"}));
  EXPECT_EQ(Rows("Savings: Rainy"), (Texts{"2020-02-13|Transfer|Credit|10||"}));
  EXPECT_EQ(AccountNames(), (Texts{"Savings: Rainy", "Euros", "Other", "Mine"}));
}

// The two halves come in two files; the second one finds its partner.
TEST_F(QifImport, TransfersArePairedAcrossFiles) {
  Import("!Account\nNMine\n^\n!Type:Bank\nD13/2/2020\nT-10\nPMove\nL[Savings]\n^\n", "a.qif");
  const ImportSummary summary =
      Import("!Account\nNSavings\n^\n!Type:Bank\nD13/2/2020\nT10\nPMove\nL[Mine]\n^\n", "b.qif");
  EXPECT_EQ(summary.transfers, 1U);
  EXPECT_EQ(Count("tblTransactions Where TransferID <> 0"), 2);
}

class QifInvestments : public ExchangeTest {
 protected:
  ImportSummary ImportInvestments(const std::string& records) {
    return Import("!Account\nNFund\nTInvst\n^\n!Type:Invst\n" + records);
  }
  // Action, amount, dividend, shares, price, commission, category.
  Texts Holdings() {
    Texts texts;
    Recordset rows = Db().OpenRecordset(
        "Select T.*, C.Category, P.Payee, P.Investment from (tblTransactions T INNER JOIN "
        "tblCategory C ON T.CategoryID = C.CategoryID) INNER JOIN tblPayees P ON T.PayeeID = "
        "P.PayeeID Order by T.TransactionID");
    for (; !rows.Eof(); rows.MoveNext()) {
      std::string text = std::to_string(rows.Int("Action")) + " " + rows.Text("Payee");
      for (const char* column : {"Amount", "Dividend", "Shares", "Price", "Commission"}) {
        text += " " + SqlNumber(rows.Double(column));
      }
      texts.push_back(text + " " + rows.Text("Category") +
                      (rows.Int("Investment") != 0 ? "" : " (cash)"));
    }
    return texts;
  }
};

TEST_F(QifInvestments, SignsAndCategoriesFollowTheAction) {
  const ImportSummary summary = ImportInvestments(
      "D13/2/2020\nNBuy\nYAcme\nI10.50\nQ100\nT1,055.00\nO5.00\nMfirst\n^\n"
      "D14/2/2020\nNSellX\nYAcme\nI11\nQ50\nT545\nO5\n^\n"
      "D15/2/2020\nNDiv\nYAcme\nQ3\nT12.34\n^\n"
      "D16/2/2020\nNReinvDiv\nYAcme\nI10\nQ2\nT20\n^\n"
      "D17/2/2020\nNShrsIn\nYAcme\nI9\nQ7\nT63\n^\n"
      "D18/2/2020\nNXOut\nYAcme\nQ8\n^\n"
      "D19/2/2020\nNFoo\nYAcme\nQ1\n^\n"
      "D20/2/2020\nNBuy\nYAcme\nI10\nQ-1\nT-10\n^\n"
      "D21/2/2020\nNCGLong\nYAcme\nU3.50\n^\n");
  EXPECT_EQ(summary.investments, 9U);
  EXPECT_EQ(summary.problemCount, 0U);
  EXPECT_EQ(Holdings(),
            (Texts{"1 Acme -1055 0 100 10.5 5 Debit", "2 Acme 545 0 50 11 5 Credit",
                   "3 Acme 12.34 12.34 0 0 0 Credit", "4 Acme 20 0 2 10 0 Credit",
                   "5 Acme 0 0 7 9 0 Credit", "6 Acme 0 0 8 0 0 Debit", "5 Acme 0 0 1 0 0 Credit",
                   "1 Acme -10 0 1 10 0 Debit", "3 Acme 3.5 3.5 0 0 0 Credit"}));
}

TEST_F(QifInvestments, IdenticalRowsAreSkippedButNotThoseOfTheSameFile) {
  const std::string two =
      "D13/2/2020\nNBuy\nYAcme\nI10\nQ1\nT10\n^\nD13/2/2020\nNBuy\nYAcme\nI10\nQ1\nT10\n^\n";
  EXPECT_EQ(ImportInvestments(two).investments, 2U);
  const ImportSummary again = ImportInvestments(two + "D13/2/2020\nNBuy\nYAcme\nI10\nQ2\nT10\n^\n");
  EXPECT_EQ(again.investments, 1U);
  EXPECT_EQ(again.duplicates, 2U);
}

TEST_F(QifInvestments, RecordsWithoutASecurityAreCash) {
  AddAccount("Bank");
  ImportInvestments(
      "D13/2/2020\nNXIn\nT500\nPDeposit\nL[Bank]\n^\nD14/2/2020\nNXOut\nT20\n^\n"
      "D15/2/2020\nNCash\nT-7.50\nPFee\nLBank Charges\n^\nD16/2/2020\nNIntInc\nT3\n^\n");
  EXPECT_EQ(
      Holdings(),
      (Texts{"0 Deposit 500 0 0 0 0 Account:Bank (cash)", "0 Transfer -20 0 0 0 0 Debit (cash)",
             "0 Fee -7.5 0 0 0 0 Bank Charges (cash)", "0 Transfer 3 0 0 0 0 Credit (cash)"}));
}

TEST_F(QifInvestments, AnInvestmentIsFoundByItsNameAndMadeWithTheSymbolOfTheFile) {
  const std::int64_t known = ledger_.Investments().FindOrCreateInvestment("Acme", "ACM.L", kEuros);
  Import(
      "!Type:Security\nNNew Share\nSNEW\n^\n!Account\nNFund\n^\n!Type:Invst\nD13/2/2020\nNBuy\n"
      "Yacme\nT1\n^\nD13/2/2020\nNBuy\nYNew Share\nT1\n^\n");
  EXPECT_EQ(Count("tblTransactions Where PayeeID = " + std::to_string(known)), 1);
  EXPECT_EQ(Count("tblPayees Where Investment = 1 AND Payee = 'New Share' AND [Symbol] = 'NEW' AND "
                  "CurrencyID = 17 AND DataID = 2"),
            1);
}

}  // namespace
}  // namespace corvanta
