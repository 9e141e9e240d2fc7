// Whatever asks: a closed account keeps its rows as they are.
#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/BulkChange.h"
#include "ledger/transactions/BulkEditor.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Progress.h"
#include "store/sql/FailureText.h"
#include "store/sql/StoreError.h"

#include <functional>

namespace corvanta {
namespace {

class ClosedAccount : public RecordsTest {
 protected:
  struct Case {
    const char* name;
    std::function<void()> change;
  };

  // The change is refused in the words that the window uses, and nothing is different.
  void ExpectRefused(const Case& row) {
    const std::string before = Contents();
    try {
      row.change();
      ADD_FAILURE() << row.name << " was not refused";
    } catch (const StoreError& error) {
      EXPECT_EQ(FailureText(error), std::string(kAccountClosed) + ". Nothing was changed.")
          << row.name;
    }
    EXPECT_EQ(Contents(), before) << row.name;
  }
  std::string Contents() {
    std::string text;
    for (const char* sql :
         {"SELECT TransactionID & ',' & AccountID & ',' & [Amount] & ',' & BankChk & ',' & BankRec "
          "& ',' & TransferID & ',' & CategoryID FROM tblTransactions ORDER BY TransactionID",
          "SELECT KeywordID & ',' & TransactionID FROM tblKeywordLink ORDER BY LinkID",
          "SELECT TransactionID & ',' & AttachmentFile FROM tblAttachments ORDER BY "
          "AttachmentID"}) {
      Recordset rows = Db().OpenRecordset(sql);
      for (; !rows.Eof(); rows.MoveNext()) text.append(rows.Text(0)).append("\n");
    }
    return text;
  }
};

TEST_F(ClosedAccount, EveryTopicLeavesItAsItIs) {
  const std::int64_t row = Add(savings_, -5);
  const auto [open, twin] = AddTransfer(bank_, savings_, 10);
  const std::int64_t elsewhere = Add(bank_, -3);
  const std::int64_t keyword = ledger_.Notes().FindOrCreateKeyword("Holiday");
  const std::int64_t kept = ledger_.Notes().Files().AddRow({0, row, "kept.pdf", "/kept.pdf", ""});
  CloseAccount(savings_);
  const std::vector<std::int64_t> keys = {elsewhere, row};
  const auto save = [&](std::int64_t key, std::int64_t account) {
    TransactionRecord record = Row(account, -7);
    record.transactionId = key;
    ledger_.Transactions().SaveTransaction(record);
  };
  BulkChange dearer;
  dearer.type = TypeChange::Reverse;
  BulkChange moved;
  moved.accountId = savings_;
  SilentProgress silent;
  for (const Case& refused : std::vector<Case>{
           {"a new row", [&] { save(0, savings_); }},
           {"an edit", [&] { save(row, savings_); }},
           {"moving it out", [&] { save(row, bank_); }},
           {"making it half of a transfer",
            [&] {
              TransactionRecord other = Row(bank_, 5);
              other.transferId = row;
              ledger_.Transactions().SaveTransaction(other);
            }},
           {"taking its other half away",
            [&] {
              TransactionRecord other = Row(bank_, 10);
              other.transactionId = elsewhere;
              other.transferId = open;
              ledger_.Transactions().SaveTransaction(other);
            }},
           {"moving one in", [&] { save(elsewhere, savings_); }},
           {"the other half", [&] { save(open, bank_); }},
           {"deleting", [&] { ledger_.Transactions().DeleteTransactions(keys); }},
           {"deleting the other half", [&] { ledger_.Transactions().DeleteTransaction(open); }},
           {"a bulk edit", [&] { (void)ledger_.BulkEdits().BulkEdit(keys, dearer); }},
           {"a bulk move", [&] { (void)ledger_.BulkEdits().BulkEdit(elsewhere, moved); }},
           {"its sign", [&] { ledger_.BulkEdits().ReverseSign(row); }},
           {"its status",
            [&] { ledger_.Statuses().ApplyStatus(StatusCommand::Cleared, keys, false); }},
           {"a statement",
            [&] {
              const std::vector<Settlement> settled = {{twin, true}};
              ledger_.Statuses().Settle(settled, silent);
            }},
           {"pasting", [&] { ledger_.Copies().PasteTransactions(keys, savings_); }},
           {"a keyword", [&] { ledger_.Notes().LinkKeyword(keyword, row); }},
           {"a file",
            [&] {
              AttachmentRecord file{0, row, "a.pdf", "/a.pdf", ""};
              ledger_.Notes().Files().AddRow(file);
            }},
           {"taking a file away", [&] { ledger_.Notes().DeleteAttachment(kept); }},
           {"a purchase", [&] {
              InvestmentTransaction bought;
              bought.accountId = savings_;
              ledger_.Investments().SaveInvestmentTransaction(bought);
            }}}) {
    ExpectRefused(refused);
  }
}

TEST_F(ClosedAccount, OpenedAgainItTakesRows) {
  const std::int64_t row = Add(savings_, -5);
  CloseAccount(savings_);
  EXPECT_THROW(ledger_.Transactions().DeleteTransaction(row), StoreError);
  Transaction both = Db().Begin();
  AccountRecord account = *ledger_.Accounts().ReadAccount(savings_);
  account.closed = false;
  ledger_.Accounts().SaveAccount(account);
  ledger_.Transactions().DeleteTransaction(row);
  both.Commit();
  EXPECT_FALSE(Exists(row));
}

TEST_F(ClosedAccount, WhatWasTakenBackDoesNotCount) {
  {
    const Transaction undone = Db().Begin();
    CloseAccount(savings_);
    EXPECT_THROW(Add(savings_, -5), StoreError);
  }
  EXPECT_TRUE(Exists(Add(savings_, -5)));
}

// Status and names of one half are its own account's matter.
TEST_F(ClosedAccount, TheOpenHalfOfATransferCanStillBeChanged) {
  const auto [open, twin] = AddTransfer(bank_, savings_, 10);
  CloseAccount(savings_);
  const std::vector<std::int64_t> keys = {open};
  EXPECT_TRUE(ledger_.Statuses().ApplyStatus(StatusCommand::Reconciled, keys, false));
  EXPECT_EQ(Column("BankRec", open), 1);
  EXPECT_EQ(Column("BankRec", twin), 0);
  BulkChange renamed;
  renamed.payeeId = ledger_.References().FindOrCreatePayee("Baker");
  EXPECT_TRUE(ledger_.BulkEdits().BulkEdit(open, renamed));
  EXPECT_EQ(Column("PayeeID", open), renamed.payeeId);
}

}  // namespace
}  // namespace corvanta
