#include "ledger/LedgerTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Period.h"
#include "ledger/transactions/KeywordBook.h"

namespace corvanta {
namespace {

class Register : public LedgerTest {
 protected:
  Register() {
    Run("INSERT INTO tblPayees (PayeeID,Payee) VALUES (1,'Gas R Us')");
    AddAccount(1, "Bank", 1, 100);
    AddAccount(2, "Savings", 1, 5);
  }
};

TEST_F(Register, RowsStandByDateThenKeyWithTheirRunningBalance) {
  AddTransaction(7, 1, "03/01/2026", "-0.1");
  AddTransaction(2, 1, "03/01/2026", "-0.2");
  AddTransaction(9, 1, "12/31/2025", "50");
  AddTransaction(1, 2, "01/01/2026", "1000");
  const auto rows = Ledger().Balances().Register(1, {}, std::nullopt);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].transactionId, 9);
  EXPECT_EQ(rows[0].date.ToIso(), "2025-12-31");
  EXPECT_EQ(rows[0].balance, 150);
  EXPECT_EQ(rows[1].transactionId, 2);
  EXPECT_EQ(rows[1].balance, 149.8);
  EXPECT_EQ(rows[2].transactionId, 7);
  EXPECT_EQ(rows[2].amount, -0.1);
  EXPECT_EQ(rows[2].balance, 149.7);
  EXPECT_TRUE(Ledger().Balances().Register(3, {}, std::nullopt).empty());
}

TEST_F(Register, ARowCarriesWhatItsColumnsShow) {
  AddTransaction(1, 1, "03/01/2026", "-12.5",
                 "Reference = 'R7', Description = 'It''s gas', BankSch = 4, [Action] = 1");
  AddTransaction(2, 1, "03/02/2026", "1", "CategoryID = 1, BankChk = 1");
  AddTransaction(3, 1, "03/03/2026", "1", "BankRec = 1");
  const auto rows = Ledger().Balances().Register(1, {}, std::nullopt);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].payee, "Gas R Us");
  EXPECT_EQ(rows[0].category, "Bills:Gas");
  EXPECT_EQ(rows[0].payment, "Import");
  EXPECT_EQ(rows[0].reference, "R7");
  EXPECT_EQ(rows[0].description, "It's gas");
  EXPECT_EQ(rows[0].status, "");
  EXPECT_EQ(rows[0].scheduleId, 4);
  EXPECT_EQ(rows[0].action, 1);
  EXPECT_FALSE(rows[0].isSplit || rows[0].isTransfer || rows[0].hasAttachment);
  EXPECT_EQ(rows[1].category, "Credit");
  EXPECT_EQ(rows[1].status, "C");
  EXPECT_EQ(rows[2].status, "R");
}

TEST_F(Register, SplitLinesAreNoRowsButMarkTheirParent) {
  AddTransaction(1, 1, "03/01/2026", "-10");
  AddTransaction(2, 1, "03/01/2026", "-4", "AllocatedItem = 1");
  AddTransaction(3, 1, "03/01/2026", "-6", "AllocatedItem = 1");
  Run("INSERT INTO tblAttachments (TransactionID,AttachmentFile) VALUES (1,'a.pdf')");
  Run("INSERT INTO tblAttachments (TransactionID,AttachmentFile) VALUES (1,'b.pdf')");
  for (const char* keyword : {"Tax", "Holiday"}) {
    Ledger().Notes().LinkKeyword(Ledger().Notes().FindOrCreateKeyword(keyword), 1);
  }
  const auto rows = Ledger().Balances().Register(1, {}, std::nullopt);
  ASSERT_EQ(rows.size(), 1U) << "two lines or two files do not make two rows";
  EXPECT_TRUE(rows[0].isSplit);
  EXPECT_TRUE(rows[0].hasAttachment);
  EXPECT_EQ(rows[0].keywords, "Holiday, Tax");
  EXPECT_EQ(rows[0].balance, 90);
}

TEST_F(Register, ATransferNamesTheOtherAccount) {
  AddTransaction(1, 1, "03/01/2026", "-10", "TransferID = 2");
  AddTransaction(2, 2, "03/01/2026", "10", "TransferID = 1");
  AddTransaction(3, 1, "03/02/2026", "-1", "TransferID = 77");
  AddTransaction(4, 1, "03/03/2026", "-1", "TransferID = NULL");
  const auto rows = Ledger().Balances().Register(1, {}, std::nullopt);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].payee, "Savings");
  EXPECT_TRUE(rows[0].isTransfer);
  EXPECT_EQ(rows[1].payee, "Gas R Us") << "the twin is gone";
  EXPECT_FALSE(rows[2].isTransfer);
  EXPECT_EQ(Ledger().Balances().Register(2, {}, std::nullopt)[0].payee, "Bank");
}

TEST_F(Register, APeriodBeginsWithTheBalanceBeforeIt) {
  AddTransaction(1, 1, "01/31/2026", "-10");
  AddTransaction(2, 1, "02/01/2026", "-20", "BankChk = 1");
  AddTransaction(3, 1, "02/28/2026", "-40");
  AddTransaction(4, 1, "03/01/2026", "-80");
  const Period february{*Date::FromYmd(2026, 2, 1), *Date::FromYmd(2026, 2, 28)};
  const auto rows = Ledger().Balances().Register(1, {}, february);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].balance, 70);
  EXPECT_EQ(rows[1].balance, 30);
  // Hidden rows count neither in the period nor before it.
  const auto cleared = Ledger().Balances().Register(1, {false, true, false}, february);
  ASSERT_EQ(cleared.size(), 1U);
  EXPECT_EQ(cleared[0].balance, 80);
}

TEST_F(Register, WhatTheFileLacksDoesNotHideARow) {
  AddTransaction(1, 1, "03/01/2026", "-10", "PayeeID = 999, PaymentID = 999");
  AddTransaction(2, 1, "03/01/2026", "-10", "CategoryID = 999");
  const auto rows = Ledger().Balances().Register(1, {}, std::nullopt);
  ASSERT_EQ(rows.size(), 1U) << "only what the balance counts";
  EXPECT_EQ(rows[0].payee, "");
  EXPECT_EQ(rows[0].balance, Ledger().Accounts().Accounts({}, false)[0].balance);
}

}  // namespace
}  // namespace corvanta
