#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"

namespace corvanta {
namespace {

constexpr const char* kAskUnused = "Do you wish to delete this item?";
constexpr const char* kAskUsed =
    "Do you wish to delete this Account, and all Account Transactions?";
constexpr const char* kAskAgain =
    "All Account Transactions for this Account will be deleted, Do you wish to continue?";

class AccountDeletion : public RecordsTest {
 protected:
  bool HasAccount(std::int64_t key) { return ledger_.Accounts().ReadAccount(key).has_value(); }
};

TEST_F(AccountDeletion, AnUnusedAccountTakesOneQuestion) {
  ScriptedPrompts& prompts = store_.platform.prompts;
  prompts.ExpectAsk("Delete Item?", kAskUnused, false);
  EXPECT_FALSE(ledger_.Accounts().DeleteAccount(euros_, prompts));
  EXPECT_TRUE(HasAccount(euros_));
  prompts.ExpectAsk("Delete Item?", kAskUnused, true);
  EXPECT_TRUE(ledger_.Accounts().DeleteAccount(euros_, prompts));
  EXPECT_FALSE(HasAccount(euros_));
}

TEST_F(AccountDeletion, AUsedAccountTakesTwoQuestions) {
  Add(bank_, -1);
  EXPECT_FALSE(ledger_.Accounts().DeleteUnusedAccount(bank_));
  ScriptedPrompts& prompts = store_.platform.prompts;
  prompts.ExpectAsk("Delete Item?", kAskUsed, false);
  EXPECT_FALSE(ledger_.Accounts().DeleteAccount(bank_, prompts));
  prompts.ExpectAsk("Delete Item?", kAskUsed, true);
  prompts.ExpectAsk("Delete Item Confirm", kAskAgain, false);
  EXPECT_FALSE(ledger_.Accounts().DeleteAccount(bank_, prompts));
  EXPECT_EQ(Count("tblTransactions"), 1);
  prompts.ExpectAsk("Delete Item?", kAskUsed, true);
  prompts.ExpectAsk("Delete Item Confirm", kAskAgain, true);
  EXPECT_TRUE(ledger_.Accounts().DeleteAccount(bank_, prompts));
  EXPECT_FALSE(HasAccount(bank_));
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(AccountDeletion, NothingPointsToWhatIsGone) {
  const auto [from, to] = AddTransfer(bank_, savings_, 25);
  const std::int64_t split = Add(bank_, -2);
  LinkAndAttach(AddLine(split, -2));
  LinkAndAttach(to);
  const std::int64_t own = AddSchedule(bank_, -4, savings_);
  AddSchedule(bank_, -4, 0, AddSchedule(bank_, -4));
  const std::int64_t incoming = AddSchedule(savings_, -9, bank_);
  Run("UPDATE tblTransactions SET BankSch = " + std::to_string(own) +
      " WHERE TransactionID = " + std::to_string(to));
  EXPECT_EQ(ledger_.Accounts().UseOf(bank_).transactions, 3);
  EXPECT_EQ(ledger_.Accounts().UseOf(bank_).schedules, 4);

  ledger_.Accounts().DeleteAccount(bank_);
  EXPECT_EQ(Count("tblTransactions"), 1);
  EXPECT_EQ(Column("TransferID", to), 0);
  EXPECT_EQ(Column("BankSch", to), 0);
  EXPECT_EQ(Amount(to), 25);
  EXPECT_EQ(Count("tblKeywordLink"), 1);
  EXPECT_EQ(Count("tblSchedule"), 1);
  EXPECT_EQ(
      Number("SELECT TfrAccountID FROM tblSchedule WHERE ScheduleID = " + std::to_string(incoming)),
      0);
  ledger_.Accounts().DeleteAccount(0);
  EXPECT_EQ(Count("tblTransactions"), 1);
  EXPECT_FALSE(Exists(from));
}

TEST_F(AccountDeletion, AnAccountThatOnlyReceivesIsInUse) {
  AddSchedule(bank_, -9, euros_);
  EXPECT_TRUE(ledger_.Accounts().UseOf(euros_).IsUsed());
  EXPECT_FALSE(ledger_.Accounts().DeleteUnusedAccount(euros_));
}

}  // namespace
}  // namespace corvanta
