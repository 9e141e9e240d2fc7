#include "ledger/RecordsTest.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "ledger/transactions/TransferLinking.h"

namespace corvanta {
namespace {

class TransferLinking : public RecordsTest {
 protected:
  std::int64_t AddImported(std::int64_t account, double amount, const std::string& other,
                           const char* day = "2026-04-01") {
    TransactionRecord record = Row(account, amount, day);
    if (!other.empty()) {
      record.categoryId = ledger_.Categories().FindOrCreateCategory("Account:" + other, "", -1);
    }
    return ledger_.Transactions().SaveTransaction(record);
  }
  std::string CategoryOf(std::int64_t key) {
    return ledger_.Transactions().ReadTransaction(key)->category;
  }
};

TEST_F(TransferLinking, BothHalvesNameEachOther) {
  const std::int64_t out = AddImported(bank_, -25, "sAVINGS");
  const std::int64_t in = AddImported(savings_, 25, "Bank");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 1);
  EXPECT_EQ(Column("TransferID", out), in);
  EXPECT_EQ(Column("TransferID", in), out);
  EXPECT_EQ(CategoryOf(out), "Debit");
  EXPECT_EQ(CategoryOf(in), "Credit");
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(in)->payee, "Transfer");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 0);
}

TEST_F(TransferLinking, TheFirstFittingRowIsTheTwin) {
  const std::int64_t first = AddImported(bank_, -25, "Savings");
  const std::int64_t second = AddImported(bank_, -25, "Savings");
  AddImported(savings_, 25, "", "2026-04-02");  // another day
  AddImported(savings_, -25, "");               // the same direction
  AddImported(savings_, 24, "");                // another amount
  const std::int64_t split = AddImported(savings_, 25, "");
  AddLine(split, 25);
  const std::int64_t twin = AddImported(savings_, 25, "");
  const std::int64_t other = AddImported(savings_, 25, "");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 2);
  EXPECT_EQ(Column("TransferID", first), twin);
  EXPECT_EQ(Column("TransferID", second), other);
  EXPECT_EQ(ledger_.Transactions().SplitLines(split).size(), 1U);
}

TEST_F(TransferLinking, BetweenCurrenciesOnlyTheDirectionsMustDiffer) {
  const std::int64_t out = AddImported(bank_, -25, "Euros");
  AddImported(euros_, -30, "");
  const std::int64_t in = AddImported(euros_, 30, "");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 1);
  EXPECT_EQ(Column("TransferID", out), in);
}

// Nothing has no direction, so that it is no half of anything in another currency.
TEST_F(TransferLinking, AmountsOfNothingArePairedWithinACurrencyAlone) {
  AddImported(bank_, 0, "Euros");
  AddImported(euros_, 0, "");
  AddImported(euros_, 5, "");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 0);
  const std::int64_t out = AddImported(bank_, 0, "Savings");
  const std::int64_t in = AddImported(savings_, 0, "");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 1);
  EXPECT_EQ(Column("TransferID", out), in);
}

TEST_F(TransferLinking, ARowOfAClosedAccountIsNoHalf) {
  const std::int64_t out = AddImported(savings_, -7, "Bank");
  AddImported(bank_, 7, "");
  AddImported(bank_, -25, "Savings");
  const std::int64_t in = AddImported(savings_, 25, "");
  CloseAccount(savings_);
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 0);
  EXPECT_EQ(Column("TransferID", in), 0);
  EXPECT_EQ(CategoryOf(out), "Account:Bank");
}

TEST_F(TransferLinking, ARowWithoutATwinIsLeftAsItIs) {
  const std::int64_t lonely = AddImported(bank_, -25, "Savings");
  const std::int64_t own = AddImported(bank_, -7, "Bank");
  AddImported(bank_, 7, "");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 0);
  EXPECT_EQ(CategoryOf(lonely), "Account:Savings");
  EXPECT_EQ(CategoryOf(own), "Account:Bank");
}

TEST_F(TransferLinking, AccountNamesMayHoldAnything) {
  const std::string name = "O'Brien \"[x]\" 100% 🎉";
  const std::int64_t account = AddAccount(name, 0, kPounds);
  const std::int64_t out = AddImported(bank_, -1, name);
  const std::int64_t in = AddImported(account, 1, "");
  EXPECT_EQ(ledger_.Transfers().LinkImportedTransfers(), 1);
  EXPECT_EQ(Column("TransferID", out), in);
}

}  // namespace
}  // namespace corvanta
