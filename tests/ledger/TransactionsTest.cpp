#include "ledger/RecordsTest.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransactionStatus.h"
#include "store/sql/StoreError.h"

namespace corvanta {
namespace {

class Transactions : public RecordsTest {};

TEST_F(Transactions, ARowIsReadAsItWasSaved) {
  const std::int64_t schedule = AddSchedule(bank_, -12.5);
  TransactionRecord record = Row(bank_, -12.5, "2026-02-28");
  record.reference = "O'Brien \"7\" [x] 100%";
  record.description = "Überweisung שלום 🎉";
  record.status = FlagsOf(TransactionStatus::Reconciled);
  record.scheduleId = schedule;
  record.scheduleDate = Date::FromIso("2026-02-27");
  const std::int64_t key = ledger_.Transactions().SaveTransaction(record);
  const auto read = ledger_.Transactions().ReadTransaction(key);
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->amount, -12.5);
  EXPECT_EQ(read->date.ToIso(), "2026-02-28");
  EXPECT_EQ(read->reference, record.reference);
  EXPECT_EQ(read->description, record.description);
  EXPECT_EQ(read->status, record.status);
  EXPECT_EQ(read->scheduleId, schedule);
  EXPECT_EQ(read->scheduleDate, record.scheduleDate);
  EXPECT_EQ(read->account, "Bank");
  EXPECT_EQ(read->currency, "GBP");
  EXPECT_EQ(read->category + ":" + read->subCategory, "Bills:Gas");
  EXPECT_EQ(read->payee, "Shop");
  EXPECT_EQ(read->payment, "Card");
  EXPECT_FALSE(read->hasLines);
  EXPECT_FALSE(ledger_.Transactions().ReadTransaction(key + 1).has_value());
}

TEST_F(Transactions, SavingAgainKeepsTheKeyAndTheScheduleUnlessOneIsGiven) {
  TransactionRecord record = Row(bank_, -1);
  record.scheduleId = AddSchedule(bank_, -1);
  record.scheduleDate = record.date;
  const std::int64_t key = ledger_.Transactions().SaveTransaction(record);
  record.scheduleId = 0;
  record.scheduleDate.reset();
  record.amount = -2;
  EXPECT_EQ(ledger_.Transactions().SaveTransaction(record), key);
  EXPECT_EQ(Amount(key), -2);
  EXPECT_NE(Column("BankSch", key), 0);
  record.transactionId = 4711;
  EXPECT_EQ(ledger_.Transactions().SaveTransaction(record), 0);
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(Transactions, ATransferPointsBothWays) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  EXPECT_EQ(Column("TransferID", from), to);
  EXPECT_EQ(Column("TransferID", to), from);
  const auto read = ledger_.Transactions().ReadTransaction(from);
  EXPECT_EQ(read->twinAccount, "Savings");
  EXPECT_EQ(read->twinAccountId, savings_);
}

TEST_F(Transactions, AFormerTwinBecomesAnOrdinaryRow) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  TransactionRecord record = Row(bank_, -25);
  record.transactionId = from;
  ledger_.Transactions().SaveTransaction(record);
  EXPECT_EQ(Column("TransferID", from), 0);
  ASSERT_TRUE(Exists(to));
  EXPECT_EQ(Column("TransferID", to), 0);
}

TEST_F(Transactions, ATwinTakenFromAnotherTransferLeavesNoPointers) {
  const auto [a, b] = AddTransfer(bank_, savings_, 25);
  const auto [c, d] = AddTransfer(bank_, euros_, 25);
  TransactionRecord record = Row(bank_, -25);
  record.transactionId = a;
  record.transferId = d;
  ledger_.Transactions().SaveTransaction(record);
  EXPECT_EQ(Column("TransferID", a), d);
  EXPECT_EQ(Column("TransferID", d), a);
  EXPECT_EQ(Column("TransferID", b), 0);
  EXPECT_EQ(Column("TransferID", c), 0);
  record.transferId = 4711;
  ledger_.Transactions().SaveTransaction(record);
  EXPECT_EQ(Column("TransferID", a), 0) << "a twin that is not there";
}

TEST_F(Transactions, ATransferHalfLosesItsLines) {
  const std::int64_t from = Add(bank_, -25);
  const std::int64_t to = Add(savings_, 25);
  for (const std::int64_t half : {from, to}) LinkAndAttach(AddLine(half, Amount(half)));
  TransactionRecord record = Row(bank_, -25);
  record.transactionId = from;
  record.transferId = to;
  ledger_.Transactions().SaveTransaction(record);
  EXPECT_EQ(Count("tblTransactions"), 2);
  EXPECT_EQ(Count("tblKeywordLink"), 0);
  EXPECT_EQ(Count("tblAttachments"), 0);
}

TEST_F(Transactions, ATransferMadeOfASplitHasTheTransfersAmount) {
  TransactionRecord from = Row(bank_, -10);
  const std::int64_t key = ledger_.Transactions().SaveTransaction(from);
  AddLine(key, -10);
  from.amount = -25;
  TransactionRecord to = Row(savings_, 25);
  ledger_.Transactions().SaveTransfer(from, to);
  EXPECT_EQ(Amount(key), -25);
  EXPECT_EQ(Count("tblTransactions"), 2);
}

TEST_F(Transactions, AParentIsTheSumOfItsLines) {
  TransactionRecord parent = Row(bank_, -45.46);
  parent.status = FlagsOf(TransactionStatus::Cleared);
  const std::int64_t key = ledger_.Transactions().SaveTransaction(parent);
  const std::int64_t first = AddLine(key, -30.46);
  const std::int64_t second = AddLine(key, -15);
  EXPECT_EQ(Amount(key), -45.46);
  EXPECT_EQ(Column("PayeeID", first), payee_);
  EXPECT_EQ(Column("BankChk", second), 1);
  parent.amount = -99;
  parent.accountId = savings_;
  parent.date = *Date::FromIso("2026-03-01");
  parent.status = FlagsOf(TransactionStatus::Reconciled);
  ledger_.Transactions().SaveTransaction(parent);
  EXPECT_EQ(Amount(key), -45.46);
  for (const auto& line : ledger_.Transactions().SplitLines(key)) {
    EXPECT_EQ(line.accountId, savings_);
    EXPECT_EQ(line.date, parent.date);
    EXPECT_EQ(line.status, parent.status);
    EXPECT_EQ(line.subCategory, "Gas");
  }
  EXPECT_TRUE(ledger_.Transactions().ReadTransaction(key)->hasLines);
}

TEST_F(Transactions, AParentFollowsEveryChangeOfALine) {
  const std::int64_t key = Add(bank_, -0.3);
  const std::int64_t first = AddLine(key, -0.1);
  const std::int64_t second = AddLine(key, -0.2);
  EXPECT_EQ(Amount(key), -0.3);
  TransactionRecord line = *ledger_.Transactions().ReadTransaction(second);
  line.amount = -7;
  line.accountId = euros_;
  ledger_.Transactions().SaveTransaction(line);
  EXPECT_EQ(Amount(key), -7.1);
  EXPECT_EQ(Column("AccountID", second), bank_);
  ledger_.Transactions().DeleteTransaction(first);
  EXPECT_EQ(Amount(key), -7);
  ledger_.Transactions().DeleteTransaction(second);
  EXPECT_EQ(Amount(key), -7) << "what is left is an ordinary row";
}

TEST_F(Transactions, WhatCannotHaveLinesRefusesThem) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  EXPECT_EQ(AddLine(from, -25), 0);
  const std::int64_t key = Add(bank_, -1);
  EXPECT_EQ(AddLine(AddLine(key, -1), -1), 0);
  EXPECT_EQ(AddLine(4711, -1), 0);
  EXPECT_EQ(Count("tblTransactions"), 4);
}

TEST_F(Transactions, DeletingTakesEverythingAlong) {
  const std::int64_t split = Add(bank_, -10);
  LinkAndAttach(split);
  LinkAndAttach(AddLine(split, -10));
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  LinkAndAttach(from);
  LinkAndAttach(to);
  const std::int64_t other = Add(bank_, -1);
  LinkAndAttach(other);
  ledger_.Transactions().DeleteTransaction(split);
  ledger_.Transactions().DeleteTransaction(to);
  ledger_.Transactions().DeleteTransaction(to);
  ledger_.Transactions().DeleteTransaction(0);
  EXPECT_EQ(Count("tblTransactions"), 1);
  EXPECT_EQ(Count("tblKeywordLink"), 1);
  EXPECT_EQ(Count("tblAttachments"), 1);
  EXPECT_EQ(ledger_.Notes().KeywordsOf(other).size(), 1U);
}

TEST_F(Transactions, ADeletionOfSeveralMeetsBothHalves) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  const std::int64_t row = Add(bank_, -1);
  EXPECT_TRUE(ledger_.Transactions().DeleteTransactions(std::vector{from, to, row}));
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(Transactions, TheLatestRowIsTheTemplate) {
  Add(bank_, -1, "2026-05-01");
  const std::int64_t second = Add(bank_, -2, "2026-05-02");
  const std::int64_t third = Add(bank_, -3, "2026-05-02");
  Add(savings_, -4, "2026-05-03");
  EXPECT_EQ(ledger_.Transactions().LastTransaction(bank_, payee_)->transactionId, third);
  EXPECT_EQ(ledger_.Transactions().LastTransaction(bank_, payee_, category_)->transactionId, third);
  AddLine(second, -2);
  ledger_.Transactions().DeleteTransaction(third);
  EXPECT_EQ(ledger_.Transactions().LastTransaction(bank_, payee_)->transactionId, second);
  EXPECT_FALSE(ledger_.Transactions().LastTransaction(bank_, payee_, category_ + 1).has_value());
  EXPECT_FALSE(ledger_.Transactions().LastTransaction(euros_, payee_).has_value());
}

TEST_F(Transactions, ATextThatIsTooLongChangesNothing) {
  TransactionRecord record = Row(bank_, -1);
  record.description = std::string(256, 'x');
  EXPECT_THROW(ledger_.Transactions().SaveTransaction(record), StoreError);
  EXPECT_EQ(Count("tblTransactions"), 0);
  const std::int64_t key = Add(bank_, -5);
  AddLine(key, -5);
  TransactionRecord line = Row(0, -1);
  line.allocatedItem = key;
  line.reference = std::string(51, 'x');
  EXPECT_THROW(ledger_.Transactions().SaveTransaction(line), StoreError);
  EXPECT_EQ(Amount(key), -5);
  EXPECT_FALSE(Db().InTransaction());
}

TEST_F(Transactions, KeywordsAreLinkedOnceAndGoWithTheKeyword) {
  const std::int64_t key = Add(bank_, -5);
  const std::int64_t keyword = ledger_.Notes().FindOrCreateKeyword("  Höliday ");
  EXPECT_EQ(ledger_.Notes().FindKeyword("hÖLIDAY"), keyword);
  ledger_.Notes().LinkKeyword(keyword, key);
  ledger_.Notes().LinkKeyword(keyword, key);
  ASSERT_EQ(ledger_.Notes().KeywordsOf(key).size(), 1U);
  EXPECT_EQ(ledger_.Notes().KeywordsOf(key)[0].keyword, "Höliday");
  ledger_.Notes().UnlinkKeyword(keyword, key);
  EXPECT_TRUE(ledger_.Notes().KeywordsOf(key).empty());
  ledger_.Notes().LinkKeyword(keyword, key);
  ledger_.Notes().DeleteKeyword(keyword);
  EXPECT_EQ(Count("tblKeywordLink"), 0);
  EXPECT_EQ(ledger_.Notes().FindKeyword("höliday"), 0);
}

TEST_F(Transactions, AttachmentsAreListedAndRemoved) {
  const std::int64_t key = Add(bank_, -5);
  LinkAndAttach(key);
  LinkAndAttach(key);
  const auto files = ledger_.Notes().AttachmentsOf(key);
  ASSERT_EQ(files.size(), 2U);
  EXPECT_EQ(files[0].file, "bill.pdf");
  EXPECT_EQ(files[0].path, "/home/me/bill.pdf");
  ledger_.Notes().DeleteAttachment(files[0].attachmentId);
  EXPECT_EQ(ledger_.Notes().AttachmentsOf(key).size(), 1U);
  ledger_.Notes().DeleteAttachments(key);
  EXPECT_TRUE(ledger_.Notes().AttachmentsOf(key).empty());
}

TEST_F(Transactions, ClosedAccountsAreReachedThroughTransfersToo) {
  const auto [from, to] = AddTransfer(bank_, savings_, 10);
  const std::int64_t alone = Add(bank_, -1);
  EXPECT_FALSE(ledger_.Transactions().ReachesClosedAccount(std::vector<std::int64_t>{from, alone}));
  Db().Execute("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " +
               std::to_string(savings_));
  EXPECT_TRUE(ledger_.Transactions().ReachesClosedAccount(std::vector<std::int64_t>{alone, from}));
  EXPECT_TRUE(ledger_.Transactions().ReachesClosedAccount(std::vector<std::int64_t>{to}));
  EXPECT_FALSE(ledger_.Transactions().ReachesClosedAccount(std::vector<std::int64_t>{alone}));
}

}  // namespace
}  // namespace corvanta
