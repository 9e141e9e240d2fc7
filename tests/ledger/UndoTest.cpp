#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/StatusBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionPaste.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"
#include "support/Contents.h"

#include <algorithm>

namespace corvanta {
namespace {

class Undoing : public RecordsTest {
 protected:
  Undoing() { ledger_.Undo().Start(); }

  UndoLog& Log() { return ledger_.Undo(); }
  // Every row of every table that can be undone, as text.
  std::string Contents() {
    return ContentsOf(Db(), {"tblAccounts", "tblAccountType", "tblBank", "tblCategory", "tblPayees",
                             "tblPayments", "tblKeywords", "tblKeywordLink", "tblAttachments",
                             "tblSchedule", "tblTransactions"});
  }
};

TEST_F(Undoing, AStepKnowsTheRowsItWouldTouch) {
  const auto keys = [](std::vector<std::int64_t> found) {
    std::ranges::sort(found);
    return found;
  };
  using Keys = std::vector<std::int64_t>;
  EXPECT_EQ(Log().UndoKeys("tblTransactions"), Keys());
  const std::int64_t key = Add(bank_, -10.1);
  const std::int64_t other = Add(bank_, -20);
  EXPECT_EQ(Log().UndoKeys("tblTransactions"), Keys{other});
  EXPECT_EQ(Log().UndoKeys("tblAccounts"), Keys());
  ledger_.Statuses().ApplyStatus(StatusCommand::Cleared, std::vector{key, other}, false);
  EXPECT_EQ(keys(Log().UndoKeys("tblTransactions")), (Keys{key, other})) << "each once";
  EXPECT_EQ(Log().RedoKeys("tblTransactions"), Keys());
  Log().Undo();
  EXPECT_EQ(keys(Log().RedoKeys("tblTransactions")), (Keys{key, other}));
  EXPECT_EQ(Log().UndoKeys("tblTransactions"), Keys{other});
}

TEST_F(Undoing, EachStepGoesBackAndForthUnderItsName) {
  EXPECT_FALSE(Log().CanUndo());
  EXPECT_EQ(Log().UndoName(), "");
  std::vector<std::string> states = {Contents()};
  const auto did = [&](const std::string& name) {
    EXPECT_EQ(Log().UndoName(), name);
    states.push_back(Contents());
  };
  const std::int64_t key = Add(bank_, -10.1);
  did("Save Transaction");
  AddLine(key, -10.1);
  did("Save Transaction");
  ledger_.Statuses().ApplyStatus(StatusCommand::Cleared, std::vector{key}, false);
  did("Change Status");
  AddTransfer(bank_, savings_, 0.1 + 0.2);
  did("Save Transfer");
  ledger_.References().MergePayees(payee_, ledger_.References().Payees().at(0).payeeId);
  ledger_.Copies().PasteTransaction(key, savings_);
  did("Paste Transaction");
  ledger_.Transactions().DeleteTransaction(key);
  did("Delete Transaction");
  ledger_.Accounts().DeleteAccount(bank_);
  did("Delete Account");

  for (std::size_t i = states.size() - 1; i > 0; --i) {
    EXPECT_EQ(Contents(), states[i]);
    EXPECT_EQ(LedgerProblems(Db()), std::vector<std::string>{});
    Log().Undo();
  }
  EXPECT_EQ(Contents(), states[0]);
  EXPECT_FALSE(Log().CanUndo());
  EXPECT_EQ(Log().RedoName(), "Save Transaction");
  Log().Undo();
  for (std::size_t i = 1; i < states.size(); ++i) {
    Log().Redo();
    EXPECT_EQ(Contents(), states[i]);
  }
  EXPECT_FALSE(Log().CanRedo());
  EXPECT_EQ(Log().UndoName(), "Delete Account");
}

TEST_F(Undoing, AWiderStepTakesTheOthersIn) {
  const std::string before = Contents();
  {
    const UndoLog::Step step = Log().Begin("Import");
    Add(bank_, -1);
    ledger_.References().FindOrCreatePayee("New one");
    AddTransfer(bank_, euros_, 3);
  }
  EXPECT_EQ(Log().UndoName(), "Import");
  Log().Undo();
  EXPECT_EQ(Contents(), before);
  EXPECT_FALSE(Log().CanUndo());
}

TEST_F(Undoing, AStepInsideATransactionWaitsForItsEnd) {
  const std::string before = Contents();
  {
    Transaction all = Db().Begin();
    Add(bank_, -1);
    EXPECT_FALSE(Log().CanUndo());
    Log().Undo();
    Add(bank_, -2);
    all.Commit();
  }
  EXPECT_EQ(Log().UndoName(), "Save Transaction");
  Log().Undo();
  EXPECT_EQ(Contents(), before);
  {
    const Transaction rolledBack = Db().Begin();
    Add(bank_, -1);
  }
  EXPECT_EQ(Contents(), before);
  EXPECT_FALSE(Log().CanUndo());
  EXPECT_TRUE(Log().CanRedo()) << "nothing has happened";
  Run("UPDATE tblBank SET Web = 'x' WHERE BankID = 1");
  EXPECT_EQ(Log().UndoName(), "Change");
}

TEST_F(Undoing, AFailureLeavesNoStep) {
  const std::string before = Contents();
  TransactionRecord record = Row(bank_, -1);
  record.description = std::string(256, 'x');
  EXPECT_THROW(ledger_.Transactions().SaveTransaction(record), StoreError);
  EXPECT_FALSE(Log().CanUndo());
  const std::int64_t key = Add(bank_, -1);
  Log().Undo();
  EXPECT_EQ(Contents(), before);
  EXPECT_NE(Add(bank_, -1), key) << "keys are not given twice";
}

TEST_F(Undoing, WhatChangesNothingIsNoStep) {
  TransactionRecord record = Row(bank_, -1);
  ledger_.Transactions().SaveTransaction(record);
  Log().Undo();
  EXPECT_TRUE(Log().CanRedo());
  Run("UPDATE tblAccounts SET OpeningBalance = OpeningBalance");
  EXPECT_TRUE(Log().CanRedo());
  Log().Redo();
  ledger_.Transactions().SaveTransaction(record);
  Log().Undo();
  EXPECT_FALSE(Exists(record.transactionId)) << "saving it unchanged was no step";
}

TEST_F(Undoing, ANewChangeEndsWhatCouldBeDoneAgain) {
  Add(bank_, -1);
  const std::int64_t second = Add(bank_, -2);
  Log().Undo();
  Run("UPDATE tblAccounts SET Description = 'by hand' WHERE AccountID = " + std::to_string(bank_));
  EXPECT_FALSE(Log().CanRedo());
  EXPECT_EQ(Log().UndoName(), "Change");
  Log().Redo();
  EXPECT_FALSE(Exists(second));
  Log().Undo();
  EXPECT_EQ(ledger_.Accounts().ReadAccount(bank_)->description, "");
  Log().Undo();
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(Undoing, AnExoticValueComesBackExactly) {
  const std::int64_t key = Add(bank_, -1);
  Run("UPDATE tblTransactions SET Reference = NULL, [Amount] = 0.1, Shares = 1e-300 "
      "WHERE TransactionID = " +
      std::to_string(key));
  LinkAndAttach(key);
  const std::string before = Contents();
  ledger_.Transactions().DeleteTransaction(key);
  Log().Undo();
  EXPECT_EQ(Contents(), before);
}

TEST_F(Undoing, AChangeOfTheSchemaForgetsEverything) {
  Add(bank_, -1);
  Run("ALTER TABLE tblAccounts ADD Colour TEXT(20)");
  EXPECT_FALSE(Log().CanUndo());
  EXPECT_THROW(Run("ALTER TABLE tblNowhere ADD Colour TEXT(20)"), StoreError);
  Run("UPDATE tblAccounts SET Colour = 'red'");
  ASSERT_TRUE(Log().CanUndo());
  Log().Undo();
  EXPECT_TRUE(Db().QueryValue("SELECT Colour FROM tblAccounts").IsNull());
  {
    const Transaction rolledBack = Db().Begin();
    Run("ALTER TABLE tblAccounts ADD Shape TEXT(20)");
    Add(bank_, -2);
  }
  const std::string before = Contents();
  Add(bank_, -3);
  ASSERT_TRUE(Log().CanUndo());
  Log().Undo();
  EXPECT_EQ(Contents(), before);
}

TEST_F(Undoing, ForgettingKeepsTheRowsAndTheNextStep) {
  Add(bank_, -1);
  Add(bank_, -2);
  Log().Clear();
  EXPECT_FALSE(Log().CanUndo());
  const std::string before = Contents();
  Add(bank_, -3);
  Log().Undo();
  EXPECT_EQ(Contents(), before);
  EXPECT_EQ(Count("tblTransactions"), 2);
}

TEST_F(Undoing, ListenersSeeTheNewState) {
  std::string shown;
  Db().OnCommit([&] { shown = Log().UndoName() + "/" + Log().RedoName(); });
  int notices = 0;
  Log().OnChange([&] { ++notices; });
  Run("UPDATE tblBank SET Web = 'x' WHERE BankID = 1");
  EXPECT_EQ(shown, "Change/");
  Log().Undo();
  EXPECT_EQ(shown, "/Change");
  EXPECT_EQ(notices, 2);
}

TEST_F(Undoing, TheFileHoldsNothingOfIt) {
  Add(bank_, -1);
  const auto other =
      Connection::Open({store_.Path(), store_.Password(), {}}, store_.platform.clock);
  EXPECT_EQ(other->TableNames(), Db().TableNames());
  clsCorvanta plain(*other, store_.platform.Get());
  EXPECT_FALSE(plain.Undo().IsStarted());
  plain.Undo().Undo();
  EXPECT_EQ(Count("tblTransactions"), 1);
}

TEST_F(Undoing, TheLogMayOutliveTheConnection) {
  auto connection = Connection::Open({store_.Path(), store_.Password(), {}}, store_.platform.clock);
  UndoLog log(*connection, {"tblBank", "tblNowhere", "tblVerification"});
  log.Start();
  connection->Execute("UPDATE tblBank SET Web = 'x' WHERE BankID = 1");
  EXPECT_TRUE(log.CanUndo());
  connection.reset();
  log.Undo();
  EXPECT_FALSE(log.CanUndo());
}

}  // namespace
}  // namespace corvanta
