#include "ledger/LedgerTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/StatusFilter.h"

namespace corvanta {
namespace {

class Accounts : public LedgerTest {
 protected:
  double BalanceOf(const std::string& name, const StatusFilter& filter = {}) {
    for (const AccountRow& row : Ledger().Accounts().Accounts(filter, true)) {
      if (row.account == name) return row.balance;
    }
    ADD_FAILURE() << "no account " << name;
    return 0;
  }
};

TEST_F(Accounts, StandInTheOrderOfGroupsAndNamesWithTheirReferences) {
  AddAccount(1, "zebra", 1);
  AddAccount(2, "Visa", 3, -20, 43);
  AddAccount(3, "Apple", 1, 500.25);
  AddAccount(4, "Odd", 1, 0, 999);
  const auto rows = Ledger().Accounts().Accounts({}, false);
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0].account, "Apple");
  EXPECT_EQ(rows[0].accountType, "Bank Accounts");
  EXPECT_EQ(rows[0].currency, "GBP");
  EXPECT_EQ(rows[0].bank, "");
  EXPECT_EQ(rows[0].balance, 500.25);
  EXPECT_EQ(rows[1].account, "Odd");
  EXPECT_EQ(rows[1].currency, "");
  EXPECT_EQ(rows[2].account, "zebra");
  EXPECT_EQ(rows[3].accountType, "Credit Accounts");
  EXPECT_EQ(rows[3].currency, "EUR");
  EXPECT_EQ(rows[3].balance, -20);
}

TEST_F(Accounts, ClosedOnesAreShownOnlyWhenAskedFor) {
  AddAccount(1, "Open");
  AddAccount(2, "Shut", 1, 0, 17, 1);
  AddAccount(3, "Shut before", 1, 0, 17, -1);
  AddAccount(4, "Unmarked");
  Run("UPDATE tblAccounts SET CloseAccount = NULL WHERE AccountID = 4");
  EXPECT_EQ(Ledger().Accounts().Accounts({}, false).size(), 2U);
  const auto all = Ledger().Accounts().Accounts({}, true);
  ASSERT_EQ(all.size(), 4U);
  EXPECT_FALSE(all[0].closed);
  EXPECT_TRUE(all[1].closed);
  EXPECT_TRUE(all[2].closed);
  EXPECT_FALSE(all[3].closed);
}

TEST_F(Accounts, BalancesCountWholeEntriesOfKnownCategories) {
  AddAccount(1, "Bank", 1, 100);
  AddAccount(2, "Empty", 1, 7.5);
  AddTransaction(1, 1, "01/02/2026", "-30.1");
  AddTransaction(2, 1, "01/03/2026", "-20.2");
  AddTransaction(3, 1, "01/02/2026", "-30.1", "AllocatedItem = 1");
  AddTransaction(4, 1, "01/04/2026", "55", "CategoryID = 4711");
  EXPECT_EQ(BalanceOf("Bank"), 49.7);
  EXPECT_EQ(BalanceOf("Empty"), 7.5);
}

TEST_F(Accounts, BalancesFollowTheStatusFilter) {
  AddAccount(1, "Bank", 1, 1000);
  AddTransaction(1, 1, "01/01/2026", "1");
  AddTransaction(2, 1, "01/01/2026", "10", "BankChk = 1");
  AddTransaction(3, 1, "01/01/2026", "100", "BankChk = 1, BankRec = 1");
  AddTransaction(4, 1, "01/01/2026", "200", "BankChk = 0, BankRec = 1");
  EXPECT_EQ(BalanceOf("Bank", {true, false, false}), 1001);
  EXPECT_EQ(BalanceOf("Bank", {false, true, false}), 1010);
  EXPECT_EQ(BalanceOf("Bank", {false, false, true}), 1300);
  EXPECT_EQ(BalanceOf("Bank", {true, false, true}), 1301);
  EXPECT_EQ(BalanceOf("Bank", {false, true, true}), 1310);
  EXPECT_EQ(BalanceOf("Bank", {true, true, false}), 1011);
  EXPECT_EQ(BalanceOf("Bank", {false, false, false}), 1311);
}

TEST_F(Accounts, AreFoundByNameOrKey) {
  AddAccount(3, "Bank");
  AddAccount(8, "#3");
  AddAccount(9, "Öffentlich");
  EXPECT_EQ(Ledger().Accounts().FindAccount("BANK")->accountId, 3);
  EXPECT_EQ(Ledger().Accounts().FindAccount("öFFENTLICH")->accountId, 9);
  EXPECT_EQ(Ledger().Accounts().FindAccount("#3")->accountId, 8) << "a name goes before a key";
  EXPECT_EQ(Ledger().Accounts().FindAccount("#9")->accountId, 9);
  for (const char* none : {"", "#", "#x", "#9x", "#99999999999999999999", "Ban"}) {
    EXPECT_FALSE(Ledger().Accounts().FindAccount(none)) << none;
  }
}

}  // namespace
}  // namespace corvanta
