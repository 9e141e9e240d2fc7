#include "ledger/RecordsTest.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"

namespace corvanta {
namespace {

class BulkEditing : public RecordsTest {
 protected:
  std::int64_t AddInvestment() {
    TransactionRecord record = Row(bank_, -52);
    record.action = 1;
    return ledger_.Transactions().SaveTransaction(record);
  }
  double Changed(std::int64_t key, TypeChange type) {
    BulkChange change;
    change.type = type;
    ledger_.BulkEdits().BulkEdit(key, change);
    return Amount(key);
  }
};

TEST_F(BulkEditing, ChangesWhatIsGivenInEveryRow) {
  const std::vector<std::int64_t> keys = {Add(bank_, -1), Add(bank_, 2)};
  BulkChange change;
  change.accountId = savings_;
  change.paymentId = ledger_.References().FindOrCreatePayment("Cheque");
  change.payeeId = ledger_.References().FindOrCreatePayee("Other");
  change.categoryId = ledger_.Categories().FindCategory("Debit", "");
  change.status = TransactionStatus::Reconciled;
  EXPECT_EQ(ledger_.BulkEdits().BulkEdit(keys, change), 2U);
  for (const std::int64_t key : keys) {
    EXPECT_EQ(Column("AccountID", key), savings_);
    EXPECT_EQ(Column("PaymentID", key), change.paymentId);
    EXPECT_EQ(Column("PayeeID", key), change.payeeId);
    EXPECT_EQ(Column("CategoryID", key), change.categoryId);
    EXPECT_EQ(ledger_.Statuses().MarksOf(key).flags, (StatusFlags{1, 1}));
  }
  ledger_.BulkEdits().BulkEdit(keys, BulkChange{});
  EXPECT_EQ(Amount(keys[1]), 2);
}

TEST_F(BulkEditing, InvestmentsKeepPayeePaymentAndCategory) {
  const std::int64_t investment = AddInvestment();
  BulkChange change;
  change.payeeId = ledger_.References().FindOrCreatePayee("Other");
  change.status = TransactionStatus::Cleared;
  ledger_.BulkEdits().BulkEdit(investment, change);
  EXPECT_EQ(Column("PayeeID", investment), payee_);
  change.payeeId = 0;
  change.accountId = savings_;
  ledger_.BulkEdits().BulkEdit(investment, change);
  EXPECT_EQ(Column("AccountID", investment), savings_);
  EXPECT_EQ(Column("BankChk", investment), 1);
}

TEST_F(BulkEditing, LinesFollowTheirParent) {
  const std::int64_t key = Add(bank_, -3);
  const std::int64_t line = AddLine(key, -3);
  BulkChange change;
  change.accountId = savings_;
  change.status = TransactionStatus::Cleared;
  change.type = TypeChange::Reverse;
  ledger_.BulkEdits().BulkEdit(key, change);
  EXPECT_EQ(Column("AccountID", line), savings_);
  EXPECT_EQ(Column("BankChk", line), 1);
  EXPECT_EQ(Amount(line), 3);
  EXPECT_EQ(Amount(key), 3);
  // A line by itself does not leave its parent.
  change.accountId = bank_;
  change.status = TransactionStatus::Uncleared;
  ledger_.BulkEdits().BulkEdit(line, change);
  EXPECT_EQ(Column("AccountID", line), savings_);
  EXPECT_EQ(Column("BankChk", line), 1);
  EXPECT_EQ(Amount(key), -3);
}

TEST_F(BulkEditing, SeveralRowsAreChangedTogetherOrNotAtAll) {
  ledger_.Undo().Start();
  const std::vector<std::int64_t> keys = {Add(bank_, -1), Add(bank_, -2), Add(bank_, -3)};
  const auto sum = [&] { return Db().QueryValue("SELECT SUM([Amount]) FROM tblTransactions"); };
  const std::int64_t settled = Count("tblTransactions WHERE BankChk = 1");
  const std::string last = ledger_.Undo().UndoName();
  BulkChange reverse;
  reverse.type = TypeChange::Reverse;
  const auto each = [&](const auto& stopped, const auto& failed) {
    auto& progress = store_.platform.progress;
    progress.StopAfter(progress.Yields() + 1);
    stopped();
    progress.StopAfter(static_cast<std::size_t>(-1));
    progress.FailAfter(progress.Yields() + 1);
    EXPECT_THROW(failed(), StoreError);
    progress.FailAfter(static_cast<std::size_t>(-1));
    EXPECT_EQ(sum().Double(), -6) << "asked for again it must not turn some of them back";
    EXPECT_EQ(Count("tblTransactions WHERE BankChk = 1"), settled);
    EXPECT_EQ(ledger_.Undo().UndoName(), last) << "nothing to take back";
    EXPECT_EQ(progress.Steps().back(), (std::pair<std::size_t, std::size_t>{0, 0}));
  };
  each([&] { EXPECT_EQ(ledger_.BulkEdits().BulkEdit(keys, reverse), std::nullopt); },
       [&] { (void)ledger_.BulkEdits().BulkEdit(keys, reverse); });
  each([&] { EXPECT_FALSE(ledger_.Statuses().ApplyStatus(StatusCommand::Cleared, keys, false)); },
       [&] { (void)ledger_.Statuses().ApplyStatus(StatusCommand::Cleared, keys, false); });
  each([&] { EXPECT_FALSE(ledger_.Transactions().DeleteTransactions(keys)); },
       [&] { (void)ledger_.Transactions().DeleteTransactions(keys); });
  each([&] { EXPECT_EQ(ledger_.Copies().PasteTransactions(keys, savings_), 0); },
       [&] { (void)ledger_.Copies().PasteTransactions(keys, savings_); });
  EXPECT_EQ(ledger_.BulkEdits().BulkEdit(keys, reverse), 3U);
  EXPECT_EQ(sum().Double(), 6);
}

TEST_F(BulkEditing, WhatDidNotChangeIsNotCounted) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  const std::vector<std::int64_t> keys = {Add(bank_, -1), Add(bank_, 2), from, to, 4711};
  BulkChange change;
  change.type = TypeChange::Income;
  EXPECT_EQ(ledger_.BulkEdits().BulkEdit(keys, change), 1U);
  EXPECT_EQ(ledger_.BulkEdits().BulkEdit(keys, change), 0U);
  change.status = TransactionStatus::Cleared;
  EXPECT_EQ(ledger_.BulkEdits().BulkEdit(keys, change), 4U);
}

TEST_F(BulkEditing, TypesFlipTheSignWhereItDiffers) {
  const std::int64_t key = Add(bank_, -1.5);
  EXPECT_EQ(Changed(key, TypeChange::Expense), -1.5);
  EXPECT_EQ(Changed(key, TypeChange::Income), 1.5);
  EXPECT_EQ(Changed(key, TypeChange::Income), 1.5);
  EXPECT_EQ(Changed(key, TypeChange::Reverse), -1.5);
  EXPECT_EQ(Changed(key, TypeChange::None), -1.5);
}

TEST_F(BulkEditing, TransfersAndInvestmentsKeepTheirSign) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  const std::int64_t investment = AddInvestment();
  for (const std::int64_t key : {from, to, investment}) {
    const double amount = Amount(key);
    EXPECT_EQ(Changed(key, TypeChange::Reverse), amount);
    ledger_.BulkEdits().ReverseSign(key);
    EXPECT_EQ(Amount(key), amount);
  }
}

TEST_F(BulkEditing, ARowOfAnOldFileFlipsWithItsLines) {
  const std::int64_t key = Add(bank_, -2);
  const std::int64_t line = AddLine(key, -2);
  Run("UPDATE tblTransactions SET TransferID = NULL");
  ledger_.BulkEdits().ReverseSign(key);
  EXPECT_EQ(Amount(key), 2);
  EXPECT_EQ(Amount(line), 2);
  Run("UPDATE tblTransactions SET TransferID = 0");
}

TEST_F(BulkEditing, ATransferHalfStaysOutOfItsTwinsAccount) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  BulkChange change;
  change.accountId = savings_;
  ledger_.BulkEdits().BulkEdit(std::vector{from, to}, change);
  EXPECT_EQ(Column("AccountID", from), bank_);
  change.accountId = euros_;
  ledger_.BulkEdits().BulkEdit(std::vector{from, to}, change);
  EXPECT_EQ(Column("AccountID", from), euros_);
  EXPECT_EQ(Column("AccountID", to), savings_);
}

}  // namespace
}  // namespace corvanta
