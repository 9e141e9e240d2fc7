#include "ledger/RecordsTest.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/investments/PriceBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {

class Investments : public RecordsTest {
 protected:
  InvestmentTransaction Row(InvestAction action) {
    InvestmentTransaction row;
    row.accountId = bank_;
    row.payeeId = ledger_.Investments().FindOrCreateInvestment("Acme", "ACM", kPounds);
    row.action = action;
    row.shares = 10;
    row.price = 2.5;
    row.commission = 1;
    row.total = 26;
    row.date = *Date::FromIso("2026-11-01");
    return row;
  }
};

TEST_F(Investments, AreFoundByNameAndSymbol) {
  const std::int64_t acme = ledger_.Investments().FindOrCreateInvestment(" Acme ", "ACM", kEuros);
  EXPECT_EQ(ledger_.Investments().FindOrCreateInvestment("ACME", "acm", kPounds), acme);
  EXPECT_NE(ledger_.Investments().FindOrCreateInvestment("Acme", "ACM.L", kPounds), acme);
  EXPECT_NE(ledger_.References().FindOrCreatePayee("Acme"), acme);
  EXPECT_EQ(ledger_.Investments().FindOrCreateInvestment(" ", "X", kPounds), 0);
  EXPECT_EQ(
      Count("tblPayees Where PayeeID = " + std::to_string(acme) +
            " AND Payee = 'Acme' AND CurrencyID = 43 AND InvestCurrencyID = 43 AND DataID = 2 "
            "AND [Conversion] = 1 AND Investment = 1"),
      1);
  Run("INSERT INTO tblPayees (Payee, Investment) VALUES('Old',1)");
  EXPECT_EQ(ledger_.Investments().FindOrCreateInvestment("old", "", kPounds),
            Number("SELECT MAX(PayeeID) FROM tblPayees"));
}

TEST_F(Investments, TheActionGivesSignAndCategory) {
  for (const auto& [action, amount, category] : {std::tuple(InvestAction::Buy, -26.0, "Debit"),
                                                 {InvestAction::Sell, 26.0, "Credit"},
                                                 {InvestAction::Dividend, 26.0, "Credit"},
                                                 {InvestAction::ReinvestDividend, 26.0, "Credit"},
                                                 {InvestAction::AddShares, 26.0, "Credit"},
                                                 {InvestAction::RemoveShares, -26.0, "Debit"}}) {
    InvestmentTransaction row = Row(action);
    row.status = TransactionStatus::Cleared;
    const std::int64_t key = ledger_.Investments().SaveInvestmentTransaction(row);
    const auto read = ledger_.Transactions().ReadTransaction(key);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->amount, amount);
    EXPECT_EQ(read->category, category);
    EXPECT_EQ(read->payment, "Import");
    EXPECT_EQ(read->action, static_cast<std::int64_t>(action));
    EXPECT_EQ(read->shares, 10);
    EXPECT_EQ(read->commission, 1);
    EXPECT_EQ(read->status, (StatusFlags{1, 0}));
  }
}

TEST_F(Investments, ARowThatWasSomethingElseLeavesNoLinks) {
  const auto [from, to] = AddTransfer(bank_, savings_, 5);
  const std::int64_t split = Add(bank_, -3);
  AddLine(split, -3);
  for (const std::int64_t key : {from, split}) {
    InvestmentTransaction row = Row(InvestAction::Buy);
    row.transactionId = key;
    EXPECT_EQ(ledger_.Investments().SaveInvestmentTransaction(row), key);
    EXPECT_EQ(Amount(key), -26);
  }
  EXPECT_EQ(Column("TransferID", to), 0);
  EXPECT_EQ(Count("tblTransactions Where AllocatedItem = " + std::to_string(split)), 0);
  InvestmentTransaction missing = Row(InvestAction::Buy);
  missing.transactionId = 9999;
  EXPECT_EQ(ledger_.Investments().SaveInvestmentTransaction(missing), 0);
}

TEST_F(Investments, AreListedByCurrencyAndName) {
  const auto add = [this](const char* name, int currency, int quoted) {
    InvestmentRecord record;
    record.investment = name;
    record.symbol = "S";
    record.currencyId = currency;
    record.investCurrencyId = quoted;
    record.dataId = 2;
    record.conversion = 0.01;
    record.description = "d";
    return ledger_.Investments().SaveInvestment(record);
  };
  add("Bolt", kPounds, kEuros);
  const std::int64_t acme = add("Acme", kPounds, 0);
  add("Crest", kEuros, kEuros);
  std::string listed;
  for (const InvestmentDetails& row : ledger_.Investments().ListInvestments()) {
    listed += row.investment + ' ' + row.currency + '/' + row.investCurrency + "; ";
  }
  EXPECT_EQ(listed, "Crest EUR/EUR; Acme GBP/; Bolt GBP/EUR; ");
  const auto one = ledger_.Investments().ListInvestments(acme);
  ASSERT_EQ(one.size(), 1U);
  EXPECT_EQ(one.front().symbol + one.front().description, "Sd");
  EXPECT_EQ(one.front().conversion, 0.01);
  EXPECT_EQ(one.front().dataId, 2);
  Run("UPDATE tblPayees SET [Conversion] = NULL WHERE PayeeID = " + std::to_string(acme));
  EXPECT_EQ(ledger_.Investments().ReadInvestment(acme)->conversion, 1);
  EXPECT_FALSE(ledger_.Investments().ReadInvestment(payee_)) << "a payee is none";
}

TEST_F(Investments, TheNameIsAskedForAmongOthers) {
  InvestmentBook& investments = ledger_.Investments();
  const std::int64_t key = investments.FindOrCreateInvestment("O'Brien", "OBR", kPounds);
  EXPECT_EQ(investments.InvestmentNameExists("O'Brien", 0), key);
  EXPECT_EQ(investments.InvestmentNameExists(" o'brien ", 0), key);
  EXPECT_EQ(investments.InvestmentNameExists("O'Brien", key), key);
  EXPECT_EQ(investments.InvestmentNameExists("Shop", 0), 0) << "a payee's";
  const std::int64_t twin = investments.FindOrCreateInvestment("O'Brien", "OBR.L", kPounds);
  EXPECT_EQ(investments.InvestmentNameExists("O'Brien", key), twin);
}

TEST_F(Investments, AreDeletedWithTheirPricesUnlessUsed) {
  ledger_.Undo().Start();
  InvestmentTransaction row = Row(InvestAction::Buy);
  InvestmentBook& investments = ledger_.Investments();
  const std::int64_t key = row.payeeId;
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + std::to_string(key) +
      ",#11/01/2026#,3)");
  investments.SaveInvestmentTransaction(row);
  EXPECT_FALSE(investments.DeleteInvestment(key));
  EXPECT_EQ(ledger_.Prices().PricesOf(key).size(), 1U);
  ledger_.Transactions().DeleteTransaction(row.transactionId);
  EXPECT_FALSE(investments.DeleteInvestment(payee_)) << "not a payee by mistake";
  EXPECT_TRUE(investments.DeleteInvestment(key));
  EXPECT_EQ(ledger_.Prices().PricesOf(key).size(), 0U);
  ledger_.Undo().Undo();
  EXPECT_EQ(ledger_.Prices().PricesOf(key).size(), 1U);
  EXPECT_TRUE(investments.ReadInvestment(key));
}

TEST_F(Investments, TheirTransactionsAreListedTheNewestFirst) {
  InvestmentTransaction older = Row(InvestAction::Buy);
  ledger_.Investments().SaveInvestmentTransaction(older);
  InvestmentTransaction newer = Row(InvestAction::Sell);
  newer.accountId = euros_;
  newer.date = *Date::FromIso("2026-11-02");
  newer.status = TransactionStatus::Cleared;
  ledger_.Investments().SaveInvestmentTransaction(newer);
  Add(bank_, -5);
  const auto list = ledger_.Investments().ListTransactions();
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].transactionId, newer.transactionId);
  EXPECT_EQ(list[0].account + ' ' + list[0].currency + ' ' + list[0].symbol, "Euros EUR ACM");
  EXPECT_EQ(list[0].status, TransactionStatus::Cleared);
  EXPECT_EQ(list[1].amount, -26);
  EXPECT_EQ(list[1].total, 26) << "without its sign";
  StatusFilter cleared;
  cleared.uncleared = false;
  EXPECT_EQ(ledger_.Investments().ListTransactions(cleared).size(), 1U);
}

TEST_F(Investments, HoldingsAreUnitsTimesTheLatestPrice) {
  const auto save = [this](InvestAction action, double shares, const char* day) {
    InvestmentTransaction row = Row(action);
    row.shares = shares;
    row.date = *Date::FromIso(day);
    ledger_.Investments().SaveInvestmentTransaction(row);
    return row.payeeId;
  };
  BalanceBook& balances = ledger_.Balances();
  save(InvestAction::Buy, 10, "2026-10-01");
  save(InvestAction::Sell, 4, "2026-10-02");
  save(InvestAction::AddShares, 3, "2026-10-03");
  save(InvestAction::RemoveShares, 1, "2026-10-04");
  const std::int64_t acme = save(InvestAction::ReinvestDividend, 2, "2026-10-05");
  EXPECT_EQ(balances.HoldingsValue(bank_), 0) << "without a price";
  const auto price = [&](const char* day, const char* value) {
    Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + std::to_string(acme) + ",#" +
        day + "#," + value + ")");
  };
  price("10/06/2026", "2.5");
  price("10/05/2026", "7");
  EXPECT_EQ(balances.HoldingsValue(bank_), 25);
  EXPECT_EQ(balances.HoldingsValue(bank_, " AND T.[Date] <= #10/02/2026#"), 15);
  price("10/06/2026", "3");
  EXPECT_EQ(balances.HoldingsValue(bank_), 30) << "of one day the one that was stored last";
  price("10/07/2026", "NULL");
  EXPECT_EQ(balances.HoldingsValue(bank_), 0);
  EXPECT_EQ(balances.HoldingsValue(savings_), 0);
}

TEST_F(Investments, AddTransactionWritesAWholeSplit) {
  TransactionRecord parent = RecordsTest::Row(bank_, 99);
  std::vector<TransactionRecord> lines{RecordsTest::Row(savings_, -0.1),
                                       RecordsTest::Row(savings_, -0.2)};
  const std::int64_t key = ledger_.Transactions().AddTransaction(parent, lines);
  EXPECT_EQ(Amount(key), -0.3);
  for (const TransactionRecord& line : lines) {
    EXPECT_EQ(Column("AllocatedItem", line.transactionId), key);
    EXPECT_EQ(Column("AccountID", line.transactionId), bank_);
  }
}

}  // namespace
}  // namespace corvanta
