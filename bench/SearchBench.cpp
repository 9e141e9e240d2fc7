// Searching a large file as a person types, beside the same rows through the library.
#include "BenchStore.h"
#include "ledger/search/SearchIndex.h"
#include "ledger/search/TransactionSearch.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace corvanta {
namespace {

// What one keystroke would cost without the index: every row's names and texts, compared by the
// library.
constexpr const char* kRawSearch =
    "SELECT T.TransactionID FROM tblTransactions T JOIN tblCategory C ON C.CategoryID = "
    "T.CategoryID JOIN tblPayees P ON P.PayeeID = T.PayeeID WHERE T.AllocatedItem = 0 AND "
    "(P.Payee LIKE '%row 77%' OR C.Category LIKE '%row 77%' OR C.SubCategory LIKE '%row 77%' OR "
    "T.Description LIKE '%row 77%' OR T.Reference LIKE '%row 77%')";

void SearchThroughLibrary(benchmark::State& state) {
  sqlite3* database = StoreOf(state.range(0)).OpenRaw();
  for (auto _ : state) {
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(database, kRawSearch, -1, &rows, nullptr);
    std::int64_t keys = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) keys += sqlite3_column_int64(rows, 0);
    benchmark::DoNotOptimize(keys);
    sqlite3_finalize(rows);
  }
  sqlite3_close(database);
}

// Once, when the box gets the keys; the window does it a piece at a time.
void ReadSearchIndex(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  for (auto _ : state) {
    SearchIndex index(*connection);
    index.ReadAll();
    benchmark::DoNotOptimize(index.Rows().data());
  }
}

// One piece of it, which is what a keystroke may have to wait for.
void ReadPieceOfIndex(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  auto index = std::make_unique<SearchIndex>(*connection);
  for (auto _ : state) {
    index->ReadOn(4000);
    if (!index->IsWhole()) continue;
    state.PauseTiming();
    index = std::make_unique<SearchIndex>(*connection);
    state.ResumeTiming();
  }
}

// Each keystroke after that.
void Search(benchmark::State& state, const char* text) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  const auto index = std::make_shared<SearchIndex>(*connection);
  index->ReadAll();
  std::size_t hits = 0;
  for (auto _ : state) {
    TransactionSearch search(index, SearchQuery(text, store.Machine().locale), {});
    search.Finish();
    hits = search.Hits().size();
  }
  state.counters["hits"] = static_cast<double>(hits);
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(SearchThroughLibrary)->Apply(Sizes);
BENCHMARK(ReadSearchIndex)->Apply(Sizes);
BENCHMARK(ReadPieceOfIndex)->Apply(Sizes);
BENCHMARK_CAPTURE(Search, FewHits, "row 77")->Apply(Sizes);
BENCHMARK_CAPTURE(Search, OneLetter, "r")->Apply(Sizes);
BENCHMARK_CAPTURE(Search, NoHit, "zebra crossing")->Apply(Sizes);
BENCHMARK_CAPTURE(Search, Amount, "119.90")->Apply(Sizes);

}  // namespace
}  // namespace corvanta
