// Each report over many rows, beside its query by hand through the library alone.
#include "BenchStore.h"
#include "ledger/RateSource.h"
#include "ledger/clsCorvanta.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportRunner.h"

#include <benchmark/benchmark.h>

namespace corvanta {
namespace {

class NoRates : public RateSource {
 public:
  std::optional<RateAnswer> Rate(const std::string&, const std::string&) override {
    return std::nullopt;
  }
};

// Ranges: how many rows, and the report's number.
void RunOneReport(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  NoRates rates;
  ReportRequest request;
  request.report = static_cast<int>(state.range(1));
  std::size_t rows = 0;
  for (auto _ : state) {
    const ReportTable table = RunReport(ledger, request, rates, store.Machine());
    rows = table.rows.size();
    benchmark::DoNotOptimize(rows);
  }
  state.counters["rows"] = static_cast<double>(rows);
}

void ExplainTotal(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  NoRates rates;
  ReportRequest request;
  request.report = 2;
  const ReportTable table = RunReport(ledger, request, rates, store.Machine());
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        Explain(ledger, request, table, table.rows.size() - 1, 2, store.Machine()));
  }
}

// The same figures as plainly as the library can give them.
void QueryByHand(benchmark::State& state, const char* sql) {
  sqlite3* database = StoreOf(state.range(0)).OpenRaw();
  for (auto _ : state) {
    sqlite3_stmt* rows = nullptr;
    if (sqlite3_prepare_v2(database, sql, -1, &rows, nullptr) != SQLITE_OK) {
      state.SkipWithError(sqlite3_errmsg(database));
      break;
    }
    double sum = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) {
      for (int i = 0; i < sqlite3_column_count(rows); ++i) sum += sqlite3_column_double(rows, i);
    }
    benchmark::DoNotOptimize(sum);
    sqlite3_finalize(rows);
  }
  sqlite3_close(database);
}

void MonthsByHand(benchmark::State& state) {
  QueryByHand(state,
              "SELECT strftime('%Y%m', T.Date) AS M, SUM(CASE WHEN Amount > 0 THEN Amount END), "
              "SUM(CASE WHEN Amount < 0 THEN Amount END), CC.Currency FROM tblTransactions T JOIN "
              "tblCategory C ON C.CategoryID = T.CategoryID JOIN tblAccounts A ON A.AccountID = "
              "T.AccountID JOIN tblCurrency CC ON CC.CurrencyID = A.CurrencyId JOIN tblPayees PP "
              "ON PP.PayeeID = T.PayeeID WHERE A.CloseAccount <> 1 AND T.AllocatedItem = 0 GROUP "
              "BY M, CC.Currency ORDER BY M, CC.Currency");
}
void CategoriesByHand(benchmark::State& state) {
  QueryByHand(state,
              "SELECT COUNT(*), SUM(CASE WHEN Amount < 0 THEN Amount END), SUM(CASE WHEN Amount > "
              "0 THEN Amount END), C.CategoryID, C.Category, C.SubCategory, CU.Currency FROM "
              "tblTransactions T JOIN tblCategory C ON C.CategoryID = T.CategoryID JOIN "
              "tblAccounts A ON A.AccountID = T.AccountID JOIN tblCurrency CU ON CU.CurrencyID = "
              "A.CurrencyId JOIN tblPayees PP ON PP.PayeeID = T.PayeeID JOIN tblPayments P ON "
              "P.PaymentID = T.PaymentID WHERE A.CloseAccount <> 1 AND T.TransactionID NOT IN "
              "(SELECT AllocatedItem FROM tblTransactions WHERE AllocatedItem <> 0) GROUP BY "
              "C.CategoryID, C.Category, C.SubCategory, CU.Currency ORDER BY C.Category, "
              "C.SubCategory");
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}
void Reports(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgsProduct({{100000, 1000000}, benchmark::CreateDenseRange(1, 15, 1)})
      ->Unit(benchmark::kMillisecond);
}

BENCHMARK(RunOneReport)->Apply(Reports);
BENCHMARK(ExplainTotal)->Apply(Sizes);
BENCHMARK(MonthsByHand)->Apply(Sizes);
BENCHMARK(CategoriesByHand)->Apply(Sizes);

}  // namespace
}  // namespace corvanta
