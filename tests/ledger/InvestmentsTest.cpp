#include "ledger/InvestmentBook.h"
#include "ledger/InvestmentRecord.h"
#include "ledger/RecordsTest.h"
#include "ledger/ReferenceBook.h"
#include "ledger/TransactionBook.h"
#include "ledger/TransactionRecord.h"
#include "ledger/TransactionStatus.h"

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
