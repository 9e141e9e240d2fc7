#include "ledger/RecordsTest.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/UndoLog.h"

namespace corvanta {
namespace {

class Pasting : public RecordsTest {};

TEST_F(Pasting, ARowIsCopiedWithWhatIsLinkedToIt) {
  TransactionRecord record = Row(bank_, -7.5);
  record.reference = "12'3";
  record.description = "Lunch";
  record.scheduleId = AddSchedule(bank_, -7.5);
  const std::int64_t source = ledger_.Transactions().SaveTransaction(record);
  LinkAndAttach(source);
  const std::int64_t copy = ledger_.Copies().PasteTransaction(source, savings_);
  const auto read = ledger_.Transactions().ReadTransaction(copy);
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->accountId, savings_);
  EXPECT_EQ(read->amount, -7.5);
  EXPECT_EQ(read->reference, "12'3");
  EXPECT_EQ(read->scheduleId, 0) << "the copy is nobody's occurrence";
  EXPECT_EQ(ledger_.Notes().KeywordsOf(copy).size(), 1U);
  EXPECT_EQ(ledger_.Notes().AttachmentsOf(copy).at(0).file, "bill.pdf");
  EXPECT_EQ(ledger_.Copies().PasteTransaction(4711, bank_), 0);
  EXPECT_EQ(ledger_.Copies().PasteTransaction(source, 4711), 0);
}

TEST_F(Pasting, ASplitIsCopiedWithItsLines) {
  const std::int64_t source = Add(bank_, -10);
  AddLine(source, -4);
  const std::int64_t line = AddLine(source, -6);
  LinkAndAttach(line);
  const std::int64_t copy = ledger_.Copies().PasteTransaction(source, savings_);
  const auto lines = ledger_.Transactions().SplitLines(copy);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1].accountId, savings_);
  EXPECT_EQ(lines[1].amount, -6);
  EXPECT_EQ(ledger_.Notes().KeywordsOf(lines[1].transactionId).size(), 1U);
  EXPECT_EQ(ledger_.Transactions().SplitLines(source).size(), 2U);
  const std::int64_t alone = ledger_.Copies().PasteTransaction(line, bank_);
  EXPECT_EQ(Column("AllocatedItem", alone), 0) << "a line becomes an ordinary row";
  EXPECT_EQ(Amount(source), -10);
}

TEST_F(Pasting, ATransferIsCopiedAsAPair) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  const std::int64_t copy = ledger_.Copies().PasteTransaction(from, bank_);
  const std::int64_t twin = Column("TransferID", copy);
  EXPECT_NE(twin, to);
  EXPECT_EQ(Column("AccountID", twin), savings_);
  EXPECT_EQ(Column("TransferID", twin), copy);
  EXPECT_EQ(Column("TransferID", to), from);
}

TEST_F(Pasting, WhereNoPairCanBeTheCopyIsAnOrdinaryRow) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  EXPECT_EQ(Column("TransferID", ledger_.Copies().PasteTransaction(from, savings_)), 0);
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE [Account] = 'Savings'");
  EXPECT_EQ(Column("TransferID", ledger_.Copies().PasteTransaction(from, bank_)), 0);
  EXPECT_EQ(Count("tblTransactions"), 4);
}

TEST_F(Pasting, AScheduleIsCopiedWithItsLines) {
  const std::int64_t source = AddSchedule(bank_, -10);
  AddSchedule(bank_, -4, 0, source);
  const std::int64_t line = AddSchedule(bank_, -6, 0, source);
  const std::int64_t copy = ledger_.Schedules().PasteSchedule(source);
  EXPECT_EQ(Count("tblSchedule WHERE AllocatedItem = " + std::to_string(copy)), 2);
  EXPECT_EQ(Count("tblSchedule WHERE AllocatedItem = " + std::to_string(source)), 2);
  const std::int64_t alone = ledger_.Schedules().PasteSchedule(line);
  EXPECT_EQ(
      Number("SELECT AllocatedItem FROM tblSchedule WHERE ScheduleID = " + std::to_string(alone)),
      0);
  EXPECT_EQ(ledger_.Schedules().PasteSchedule(4711), 0);
}

TEST_F(Pasting, SchedulesThatAreCopiedTogetherAreOneStep) {
  ledger_.Undo().Start();
  const std::vector<std::int64_t> copied{AddSchedule(bank_, -10), 4711, AddSchedule(bank_, -20)};
  const std::int64_t last = ledger_.Schedules().PasteSchedules(copied);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(last)->amount, -20);
  EXPECT_EQ(Count("tblSchedule"), 4);
  EXPECT_EQ(ledger_.Schedules().PasteSchedules(std::vector<std::int64_t>{4711}), 0);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Paste Schedule");
  ledger_.Undo().Undo();
  EXPECT_EQ(Count("tblSchedule"), 2);
}

}  // namespace
}  // namespace corvanta
