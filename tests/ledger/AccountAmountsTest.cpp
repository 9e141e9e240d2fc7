// Whatever way an amount gets into an account, it has the decimals of its currency.
#include "ledger/PostingTest.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"

namespace corvanta {
namespace {

class AmountsOfAccounts : public PostingTest {
 protected:
  std::int64_t yen_ = AddAccount("Yen", 0, CurrencyKey("JPY"));

  // As an older file may hold it.
  void SetAmount(std::int64_t key, const char* amount) {
    Run("UPDATE tblTransactions SET [Amount] = " + std::string(amount) +
        " WHERE TransactionID = " + std::to_string(key));
  }
  std::vector<double> AmountsOf(const std::string& condition) {
    std::vector<double> amounts;
    Recordset rows = Db().OpenRecordset("SELECT [Amount] FROM tblTransactions WHERE " + condition +
                                        " ORDER BY TransactionID");
    for (; !rows.Eof(); rows.MoveNext()) amounts.push_back(rows.Double(0));
    return amounts;
  }
  double Opening(std::int64_t account) {
    return ledger_.Accounts().ReadAccount(account)->openingBalance;
  }
};

TEST_F(AmountsOfAccounts, AnOpeningBalanceIsRounded) {
  EXPECT_EQ(Opening(AddAccount("Dollars", 12.505, CurrencyKey("USD"))), 12.51);
  EXPECT_EQ(Opening(AddAccount("More Yen", 100.44, CurrencyKey("JPY"))), 100);
  Run("UPDATE tblAccounts SET OpeningBalance = 12.345 WHERE AccountID = " + std::to_string(bank_));
  AccountRecord account = *ledger_.Accounts().ReadAccount(bank_);
  account.account = "Other";
  ledger_.Accounts().SaveAccount(account);
  EXPECT_EQ(Opening(bank_), 12.345) << "nobody has touched it";
  account.currencyId = CurrencyKey("JPY");
  ledger_.Accounts().SaveAccount(account);
  EXPECT_EQ(Opening(bank_), 12);
}

TEST_F(AmountsOfAccounts, RowsThatAreSavedAreRounded) {
  EXPECT_EQ(Amount(Add(bank_, -12.505)), -12.51);
  EXPECT_EQ(Amount(Add(yen_, -9.98)), -10);
  const auto [from, to] = AddTransfer(yen_, bank_, 7.776);
  EXPECT_EQ(Amount(from), -8);
  EXPECT_EQ(Amount(to), 7.78);
  TransactionRecord split = Row(yen_, -3);
  std::vector<TransactionRecord> lines{Row(yen_, -1.4), Row(yen_, -1.6)};
  ledger_.Transactions().AddTransaction(split, lines);
  EXPECT_EQ(Amount(split.transactionId), -3);
  EXPECT_EQ(AmountsOf("AllocatedItem <> 0"), (std::vector<double>{-1, -2}));
  InvestmentTransaction trade;
  trade.accountId = bank_;
  trade.payeeId = ledger_.Investments().FindOrCreateInvestment("Fund", "F", kPounds);
  trade.action = InvestAction::Buy;
  trade.shares = 3;
  trade.price = 1.3333;
  trade.total = 3.9999;
  EXPECT_EQ(Amount(ledger_.Investments().SaveInvestmentTransaction(trade)), -4);
}

TEST_F(AmountsOfAccounts, AnAmountThatNobodyChangesStays) {
  const std::int64_t key = Add(bank_, -1);
  SetAmount(key, "-12.3456");
  TransactionRecord row = *ledger_.Transactions().ReadTransaction(key);
  row.description = "words";
  ledger_.Transactions().SaveTransaction(row);
  EXPECT_EQ(Amount(key), -12.3456);
  row.accountId = savings_;
  ledger_.Transactions().SaveTransaction(row);
  EXPECT_EQ(Amount(key), -12.35) << "it comes into another account";
}

TEST_F(AmountsOfAccounts, WhatMovesOrIsPastedIsRounded) {
  const std::int64_t plain = Add(bank_, -12.5);
  const std::int64_t split = Add(bank_, -9);
  AddLine(split, -4.45);
  AddLine(split, -4.55);
  const std::int64_t pasted = ledger_.Copies().PasteTransaction(split, yen_);
  EXPECT_EQ(Amount(pasted), -9);
  EXPECT_EQ(AmountsOf("AllocatedItem = " + std::to_string(pasted)), (std::vector<double>{-4, -5}));
  EXPECT_EQ(Amount(ledger_.Copies().PasteTransaction(plain, yen_)), -13);
  BulkChange change;
  change.accountId = yen_;
  ledger_.BulkEdits().BulkEdit({{plain, split}}, change);
  EXPECT_EQ(Amount(plain), -13);
  EXPECT_EQ(AmountsOf("AllocatedItem = " + std::to_string(split)), (std::vector<double>{-4, -5}));
  TransactionRecord moved = *ledger_.Transactions().ReadTransaction(split);
  moved.accountId = bank_;
  ledger_.Transactions().SaveTransaction(moved);
  const std::int64_t line = AddLine(split, -0.335);
  EXPECT_EQ(Amount(line), -0.34);
  moved = *ledger_.Transactions().ReadTransaction(split);
  moved.accountId = yen_;
  ledger_.Transactions().SaveTransaction(moved);
  EXPECT_EQ(Amount(split), -9);
  EXPECT_EQ(Amount(line), 0);
}

TEST_F(AmountsOfAccounts, SchedulesPostRoundedAmounts) {
  ScheduleRecord plan = Plan("m", "2026-11-05", 1);
  plan.amount = -12.505;
  const std::int64_t saved = Save(plan);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(saved)->amount, -12.51);
  plan.accountId = yen_;
  const std::int64_t split = Save(plan);
  SaveLine(split, -4.4);
  SaveLine(split, -4.6);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(split)->amount, -9);
  plan.accountId = bank_;
  plan.transferAccountId = savings_;
  const std::int64_t older = Save(plan);
  Run("UPDATE tblSchedule SET [Amount] = -0.335 WHERE ScheduleID = " + std::to_string(older));
  Pass();
  EXPECT_EQ(AmountsOf("BankSch = " + std::to_string(saved)), std::vector<double>{-12.51});
  EXPECT_EQ(AmountsOf("BankSch = " + std::to_string(split)), std::vector<double>{-9});
  EXPECT_EQ(AmountsOf("BankSch = " + std::to_string(older)), (std::vector<double>{-0.34, 0.34}));
}

}  // namespace
}  // namespace corvanta
