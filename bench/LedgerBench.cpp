// The sums of an account and the saving of a transaction, beside the same work through the library.
// CORVANTA_BENCH_LARGE=1 in the environment adds a file of a million transactions.
#include "BenchStore.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/Balances.h"
#include "ledger/register/Period.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <map>

namespace corvanta {
namespace {

// Filling a file takes longer than reading it, so each size is made once.
BenchStore& LedgerStore(std::int64_t rows) {
  static std::map<std::int64_t, std::unique_ptr<BenchStore>> stores;
  std::unique_ptr<BenchStore>& store = stores[rows];
  if (!store) {
    store = std::make_unique<BenchStore>();
    const auto connection = store->Open();
    connection->Execute(
        "INSERT INTO tblAccounts ([Account],AccountTypeID,BankID,OpeningBalance,CurrencyId) "
        "VALUES ('Bench',1,0,100,17)");
    store->AddTransactions(static_cast<int>(rows));
  }
  return *store;
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Unit(benchmark::kMillisecond)->Arg(100000);
  if (std::getenv("CORVANTA_BENCH_LARGE") != nullptr) bench->Arg(1000000);
}

class RawQuery {
 public:
  RawQuery(sqlite3* database, const char* sql) {
    sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr);
  }
  ~RawQuery() { sqlite3_finalize(statement_); }
  RawQuery(const RawQuery&) = delete;
  RawQuery& operator=(const RawQuery&) = delete;

  double Read() {
    sqlite3_step(statement_);
    const double value = sqlite3_column_double(statement_, 0);
    sqlite3_reset(statement_);
    return value;
  }
  void Run() {
    sqlite3_step(statement_);
    sqlite3_reset(statement_);
  }
  [[nodiscard]] sqlite3_stmt* Get() const { return statement_; }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

constexpr const char* kTotals =
    "SELECT SUM(t.Amount) + a.OpeningBalance, "
    "SUM(CASE WHEN Amount > 0 THEN Amount ELSE 0 END), "
    "SUM(CASE WHEN Amount < 0 THEN Amount ELSE 0 END) "
    "FROM tblTransactions t, tblCategory c, tblAccounts a WHERE c.CategoryID = t.CategoryID AND "
    "t.AccountID = a.AccountID AND AllocatedItem = 0 AND t.AccountID = 1 GROUP BY "
    "a.OpeningBalance";
constexpr const char* kYear =
    "SELECT SUM(t.Amount) + a.OpeningBalance, "
    "SUM(CASE WHEN Amount > 0 THEN Amount ELSE 0 END), "
    "SUM(CASE WHEN Amount < 0 THEN Amount ELSE 0 END) "
    "FROM tblTransactions t, tblCategory c, tblAccounts a WHERE c.CategoryID = t.CategoryID AND "
    "t.AccountID = a.AccountID AND AllocatedItem = 0 AND t.Date BETWEEN '2024-01-01' AND "
    "'2024-12-31T23:59:59' AND t.AccountID = 1 GROUP BY a.OpeningBalance";
constexpr const char* kUpToYear =
    "SELECT SUM(t.Amount) + a.OpeningBalance, "
    "SUM(CASE WHEN Amount > 0 THEN Amount ELSE 0 END), "
    "SUM(CASE WHEN Amount < 0 THEN Amount ELSE 0 END) "
    "FROM tblTransactions t, tblCategory c, tblAccounts a WHERE c.CategoryID = t.CategoryID AND "
    "t.AccountID = a.AccountID AND AllocatedItem = 0 AND t.Date <= '2024-12-31T23:59:59' AND "
    "t.AccountID = 1 GROUP BY a.OpeningBalance";
constexpr const char* kBalance =
    "SELECT SUM(t.Amount) FROM tblTransactions t JOIN tblCategory c ON t.CategoryID = c.CategoryID "
    "JOIN tblAccounts a ON t.AccountID = a.AccountID WHERE AllocatedItem = 0 AND a.AccountID = 1 "
    "GROUP BY a.AccountID, OpeningBalance";
constexpr const char* kUncleared =
    "SELECT COUNT(*) FROM tblTransactions WHERE AllocatedItem = 0 AND BankChk = 0 AND AccountID = "
    "1";

void ReadRaw(benchmark::State& state, std::initializer_list<const char*> statements) {
  sqlite3* database = LedgerStore(state.range(0)).OpenRaw();
  {
    std::vector<std::unique_ptr<RawQuery>> queries;
    for (const char* sql : statements) {
      queries.push_back(std::make_unique<RawQuery>(database, sql));
    }
    for (auto _ : state) {
      for (const auto& query : queries) benchmark::DoNotOptimize(query->Read());
    }
  }
  sqlite3_close(database);
}

template <typename Read>
void ReadLedger(benchmark::State& state, const Read& read) {
  BenchStore& store = LedgerStore(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  for (auto _ : state) benchmark::DoNotOptimize(read(ledger));
}

void TotalsThroughLibrary(benchmark::State& state) {
  ReadRaw(state, {kTotals});
}
void TotalsThroughLedger(benchmark::State& state) {
  ReadLedger(state,
             [](clsCorvanta& ledger) { return ledger.Balances().Totals(1, {}, std::nullopt); });
}
void YearThroughLibrary(benchmark::State& state) {
  ReadRaw(state, {kYear, kUpToYear});
}
void YearThroughLedger(benchmark::State& state) {
  const Period year{*Date::FromYmd(2024, 1, 1), *Date::FromYmd(2024, 12, 31)};
  ReadLedger(state, [&](clsCorvanta& ledger) { return ledger.Balances().Totals(1, {}, year); });
}
void BalanceThroughLibrary(benchmark::State& state) {
  ReadRaw(state, {kBalance});
}
void BalanceThroughLedger(benchmark::State& state) {
  ReadLedger(state, [](clsCorvanta& ledger) { return ledger.Balances().AccountBalance(1, {}); });
}
void UnclearedThroughLibrary(benchmark::State& state) {
  ReadRaw(state, {kUncleared});
}
void UnclearedThroughLedger(benchmark::State& state) {
  ReadLedger(state, [](clsCorvanta& ledger) { return ledger.Balances().UnclearedCount(1); });
}

// One commit of the row that the ledger writes.
void SaveThroughLibrary(benchmark::State& state) {
  sqlite3* database = LedgerStore(20000).OpenRaw();
  {
    RawQuery begin(database, "BEGIN IMMEDIATE");
    RawQuery insert(database,
                    "INSERT OR FAIL INTO tblTransactions "
                    "(AllocatedItem,Date,Amount,Description,Reference,BankChk,"
                    "BankRec,AccountID,CategoryID,PaymentID,PayeeID,Action,TransferID) VALUES "
                    "(0,'2025-12-31',-12.5,'Saved','',0,0,1,9,2,20,0,0)");
    RawQuery commit(database, "COMMIT");
    for (auto _ : state) {
      begin.Run();
      insert.Run();
      commit.Run();
    }
  }
  sqlite3_close(database);
}

TransactionRecord Row() {
  TransactionRecord record;
  record.accountId = 1;
  record.categoryId = 9;
  record.paymentId = 2;
  record.payeeId = 20;
  record.amount = -12.5;
  record.description = "Saved";
  record.date = *Date::FromYmd(2025, 12, 31);
  return record;
}

void Save(benchmark::State& state, bool withUndo) {
  BenchStore& store = LedgerStore(20000);
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  if (withUndo) ledger.Undo().Start();
  for (auto _ : state) {
    TransactionRecord record = Row();
    benchmark::DoNotOptimize(ledger.Transactions().SaveTransaction(record));
  }
}

void SaveThroughLedger(benchmark::State& state) {
  Save(state, false);
}
void SaveThroughLedgerWithUndo(benchmark::State& state) {
  Save(state, true);
}

// What the processor does for one row, without waiting for the disk.
void SaveManyInOneCommit(benchmark::State& state, bool withUndo) {
  BenchStore& store = LedgerStore(20000);
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  if (withUndo) ledger.Undo().Start();
  const Transaction rolledBack = connection->Begin();
  for (auto _ : state) {
    TransactionRecord record = Row();
    benchmark::DoNotOptimize(ledger.Transactions().SaveTransaction(record));
  }
}

void RowThroughLedger(benchmark::State& state) {
  SaveManyInOneCommit(state, false);
}
void RowThroughLedgerWithUndo(benchmark::State& state) {
  SaveManyInOneCommit(state, true);
}

BENCHMARK(TotalsThroughLibrary)->Apply(Sizes);
BENCHMARK(TotalsThroughLedger)->Apply(Sizes);
BENCHMARK(YearThroughLibrary)->Apply(Sizes);
BENCHMARK(YearThroughLedger)->Apply(Sizes);
BENCHMARK(BalanceThroughLibrary)->Apply(Sizes);
BENCHMARK(BalanceThroughLedger)->Apply(Sizes);
BENCHMARK(UnclearedThroughLibrary)->Apply(Sizes);
BENCHMARK(UnclearedThroughLedger)->Apply(Sizes);
BENCHMARK(SaveThroughLibrary)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveThroughLedger)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveThroughLedgerWithUndo)->Unit(benchmark::kMicrosecond);
BENCHMARK(RowThroughLedger)->Unit(benchmark::kMicrosecond);
BENCHMARK(RowThroughLedgerWithUndo)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace corvanta
