// Reading the register and the balances of a large file, beside the same rows through the library.
#include "BenchStore.h"
#include "ledger/clsCorvanta.h"

#include <benchmark/benchmark.h>

#include <string>

namespace corvanta {
namespace {

// What a register shows of each row, as one would write it for the library by hand.
constexpr const char* kRawRegister =
    "SELECT T.TransactionID, T.Date, T.Amount, T.Reference, T.Description, T.BankChk, T.BankRec, "
    "T.BankSch, T.Action, T.TransferID, C.Category, C.SubCategory, P.Payee, M.Payment FROM "
    "tblTransactions T JOIN tblCategory C ON C.CategoryID = T.CategoryID JOIN tblPayees P ON "
    "P.PayeeID = T.PayeeID JOIN tblPayments M ON M.PaymentID = T.PaymentID WHERE T.AllocatedItem = "
    "0 AND T.AccountID = 1 ORDER BY T.Date, T.TransactionID";

void RegisterThroughLibrary(benchmark::State& state) {
  BenchStore store;
  store.AddTransactions(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    sqlite3* database = store.OpenRaw();
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(database, kRawRegister, -1, &rows, nullptr);
    double sum = 0;
    std::size_t bytes = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) {
      sum += sqlite3_column_double(rows, 2);
      for (const int column : {0, 5, 6, 7, 8, 9}) {
        bytes += static_cast<std::size_t>(sqlite3_column_int64(rows, column));
      }
      for (const int column : {1, 3, 4, 10, 11, 12, 13}) {
        benchmark::DoNotOptimize(sqlite3_column_text(rows, column));
        bytes += static_cast<std::size_t>(sqlite3_column_bytes(rows, column));
      }
    }
    benchmark::DoNotOptimize(sum);
    benchmark::DoNotOptimize(bytes);
    sqlite3_finalize(rows);
    sqlite3_close(database);
  }
}

void RegisterThroughLedger(benchmark::State& state) {
  BenchStore store;
  store.AddTransactions(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto connection = store.Open();
    clsCorvanta ledger(*connection, store.Machine());
    benchmark::DoNotOptimize(ledger.Register(1, {}, std::nullopt));
  }
}

void AccountsThroughLedger(benchmark::State& state) {
  BenchStore store;
  store.AddTransactions(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto connection = store.Open();
    clsCorvanta ledger(*connection, store.Machine());
    benchmark::DoNotOptimize(ledger.Accounts({}, true));
  }
}

BENCHMARK(RegisterThroughLibrary)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(RegisterThroughLedger)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(AccountsThroughLedger)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvanta
