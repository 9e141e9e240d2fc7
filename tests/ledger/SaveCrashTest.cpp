// A program that dies in the middle of an operation leaves all of it or nothing.
#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Files.h"
#include "support/FaultVfs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>

namespace corvanta {
namespace {

constexpr const char* kVfs = "faulty";
constexpr int kMostOperations = 400;

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
    std::string text;
    for (const char* table :
         {"tblTransactions", "tblKeywordLink", "tblAttachments", "tblAccounts"}) {
      Recordset rows = store.OpenRecordset(table);
      for (; !rows.Eof(); rows.MoveNext()) {
        for (int i = 0; i < static_cast<int>(rows.Fields().size()); ++i) {
          text.append(rows.Text(i)).append("|");
        }
        text += "\n";
      }
    }
    return text;
  }

  using Operation = std::function<void(clsCorvanta&)>;

  // Runs in a process of its own that obeys the plan; true when it came to its end.
  bool RunInChild(const Operation& operation, const std::string& password, long at) {
    const pid_t child = ::fork();
    if (child == 0) {
      FaultPlan plan(GetParam(), at);
      const FaultVfs vfs(kVfs, plan);
      try {
        const auto store = Connection::Open({store_.Path(), password, kVfs}, store_.platform.clock);
        clsCorvanta ledger(*store, store_.platform.Get());
        operation(ledger);
      } catch (const std::exception&) {
        ::_exit(1);
      }
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

  void Sweep(const Operation& operation) {
    const std::string password = store_.Password();
    const auto open = [&] {
      return Connection::Open({store_.Path(), password, {}}, store_.platform.clock);
    };
    store_.Close();
    const std::string bytes = ReadFile(store_.Path());
    const std::string before = Contents(*open());
    int stopped = 0;
    bool isDone = false;
    for (long at = 1; !isDone && at < kMostOperations && !HasFailure(); ++at) {
      SCOPED_TRACE("operation " + std::to_string(at));
      isDone = RunInChild(operation, password, at);
      const auto store = open();
      const std::string found = Contents(*store);
      EXPECT_EQ(LedgerProblems(*store), std::vector<std::string>{});
      EXPECT_TRUE(store->Check().empty());
      if (!isDone && found != before) {
        // Then it was whole: doing it in peace comes to the same.
        store_.platform.folder.Write("peace.dat", bytes);
        const auto peace = Connection::Open(
            {store_.platform.folder.Path("peace.dat"), password, {}}, store_.platform.clock);
        clsCorvanta ledger(*peace, store_.platform.Get());
        operation(ledger);
        EXPECT_EQ(found, Contents(*peace));
      }
      stopped += isDone ? 0 : 1;
      std::ofstream(store_.Path(), std::ios::binary) << bytes;
    }
    EXPECT_TRUE(isDone);
    EXPECT_GT(stopped, 5);
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

std::string NameOf(const testing::TestParamInfo<Fault>& tested) {
  constexpr const char* kNames[] = {"IoError", "DiskFull", "Exit", "TornWrite", "DropUnsynced"};
  return kNames[static_cast<std::size_t>(tested.param)];
}

INSTANTIATE_TEST_SUITE_P(Faults, SaveCrash,
                         testing::Values(Fault::IoError, Fault::DiskFull, Fault::Exit,
                                         Fault::TornWrite, Fault::DropUnsynced),
                         NameOf);

}  // namespace
}  // namespace corvanta
