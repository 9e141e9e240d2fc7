// A program that dies in the middle of an operation leaves all of it or nothing.
#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Files.h"
#include "support/Contents.h"
#include "support/FaultyDisk.h"

#include <functional>

namespace corvanta {
namespace {

class SaveCrash : public RecordsTest, public testing::WithParamInterface<Fault> {
 protected:
  // A split and a transfer, both with what hangs on them.
  SaveCrash() {
    split_ = Add(bank_, -10);
    LinkAndAttach(AddLine(split_, -4));
    AddLine(split_, -6);
    twin_ = AddTransfer(bank_, savings_, 25).second;
    LinkAndAttach(twin_);
  }

  static std::string Contents(Connection& store) {
    return ContentsOf(store,
                      {"tblTransactions", "tblKeywordLink", "tblAttachments", "tblAccounts"});
  }

  using Operation = std::function<void(clsCorvanta&)>;

  void Sweep(const Operation& operation) {
    const auto run = [&](Connection& store) {
      clsCorvanta ledger(store, store_.platform.Get());
      operation(ledger);
    };
    const std::string password = store_.Password();
    const std::string before = Contents(store_.Db());
    store_.Close();
    const std::string bytes = ReadFile(store_.Path());
    const auto check = [&](Connection& store, bool isDone) {
      const std::string found = Contents(store);
      if (isDone || found == before) return;
      // Then it was whole: doing it in peace comes to the same.
      store_.platform.folder.Write("peace.dat", bytes);
      const auto peace = Connection::Open({store_.platform.folder.Path("peace.dat"), password, {}},
                                          store_.platform.clock);
      run(*peace);
      EXPECT_EQ(found, Contents(*peace));
    };
    EXPECT_GT(SweepFaults(store_, GetParam(), run, check), 5);
  }

  std::int64_t split_ = 0;
  std::int64_t twin_ = 0;
};

TEST_P(SaveCrash, SavingATransferOverASplit) {
  TransactionRecord from = Row(bank_, -10);
  TransactionRecord to = Row(euros_, 12);
  from.transactionId = split_;
  Sweep([&](clsCorvanta& ledger) {
    TransactionRecord first = from;
    TransactionRecord second = to;
    ledger.Transactions().SaveTransfer(first, second);
  });
}

TEST_P(SaveCrash, DeletingASplitAndATransfer) {
  Sweep([&](clsCorvanta& ledger) {
    const std::vector keys{split_, twin_};
    ledger.Transactions().DeleteTransactions(keys);
  });
}

TEST_P(SaveCrash, DeletingAnAccount) {
  Sweep([&](clsCorvanta& ledger) { ledger.Accounts().DeleteAccount(bank_); });
}

INSTANTIATE_TEST_SUITE_P(Faults, SaveCrash,
                         testing::Values(Fault::IoError, Fault::DiskFull, Fault::Exit,
                                         Fault::TornWrite, Fault::DropUnsynced),
                         [](const auto& tested) { return FaultName(tested.param); });

}  // namespace
}  // namespace corvanta
