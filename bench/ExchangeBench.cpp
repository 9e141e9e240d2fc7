// A QIF file imported into an empty file, and again, beside the same rows through the library.
// CORVANTA_BENCH_LARGE=1 in the environment adds a file of 400,000 records.
#include "BenchStore.h"
#include "exchange/import/FileImport.h"
#include "ledger/clsCorvanta.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace corvanta {
namespace {

constexpr int kPayees = 300;
constexpr int kCategories = 60;

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Unit(benchmark::kMillisecond)->Iterations(1)->Arg(25000)->Arg(100000);
  if (std::getenv("CORVANTA_BENCH_LARGE") != nullptr) bench->Arg(400000);
}

Date DateOf(int row, int count) {
  return Date::FromYmd(2001, 1, 1)->AddDays(static_cast<std::int32_t>(row * 9000LL / count));
}

std::string AmountOf(int row) {
  return std::to_string(row % 2000 - 1200) + "." + std::to_string(10 + row % 90);
}

std::string QifText(int count) {
  std::string text = "!Account\nNBench\nTBank\n^\n!Type:Bank\n";
  for (int i = 0; i < count; ++i) {
    const Date date = DateOf(i, count);
    text += "D" + std::to_string(date.Day()) + "/" + std::to_string(date.Month()) + "/" +
            std::to_string(date.Year()) + "\nT" + AmountOf(i) + "\nN" + std::to_string(i) +
            "\nPPayee number " + std::to_string(i % kPayees) + "\nMRow " + std::to_string(i) +
            "\nLCategory:Part " + std::to_string(i % kCategories) + "\n^\n";
  }
  return text;
}

// Of the sums that the file keeps.
void DropTriggers(const BenchStore& store) {
  sqlite3* database = store.OpenRaw();
  std::string drop;
  const auto add = [](void* text, int, char** values, char**) {
    *static_cast<std::string*>(text) += std::string("DROP TRIGGER \"") + values[0] + "\"; ";
    return 0;
  };
  sqlite3_exec(database, "SELECT name FROM sqlite_master WHERE type = 'trigger'", add, &drop,
               nullptr);
  sqlite3_exec(database, drop.c_str(), nullptr, nullptr, nullptr);
  sqlite3_close(database);
}

class ImportBench {
 public:
  explicit ImportBench(int count, bool keepsSums = true)
      : connection_(OpenStore(keepsSums)), ledger_(*connection_, store_.Machine()) {
    job_.path = folder_.Write("bench.qif", QifText(count));
    job_.duplicates = DuplicateAnswer::Skip;
  }

  ImportSummary Run() { return FileImport(ledger_, store_.Machine()).Run(job_); }

 private:
  std::unique_ptr<Connection> OpenStore(bool keepsSums) {
    if (!keepsSums) DropTriggers(store_);
    return store_.Open();
  }

  TemporaryFolder folder_;
  BenchStore store_;
  std::unique_ptr<Connection> connection_;
  clsCorvanta ledger_;
  ImportJob job_;
};

void InsertThroughLibrary(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const BenchStore store;
  sqlite3* database = store.OpenRaw();
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(database,
                     "INSERT OR FAIL INTO tblTransactions "
                     "(AllocatedItem,Date,Amount,Description,Reference,BankChk,"
                     "BankRec,AccountID,CategoryID,PaymentID,PayeeID,Action,TransferID) VALUES "
                     "(0,?1,?2,?3,?4,0,0,1,?5,1,?6,0,0)",
                     -1, &insert, nullptr);
  const auto bind = [&](int number, const std::string& text) {
    sqlite3_bind_text(insert, number, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  };
  for (auto _ : state) {
    sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    for (int i = 0; i < count; ++i) {
      bind(1, DateOf(i, count).ToIso());
      sqlite3_bind_double(insert, 2, std::strtod(AmountOf(i).c_str(), nullptr));
      bind(3, "Row " + std::to_string(i));
      bind(4, std::to_string(i));
      sqlite3_bind_int(insert, 5, 3 + i % kCategories);
      sqlite3_bind_int(insert, 6, 14 + i % kPayees);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  }
  sqlite3_finalize(insert);
  sqlite3_close(database);
}

void ImportIntoAnEmptyFile(benchmark::State& state) {
  ImportBench bench(static_cast<int>(state.range(0)));
  std::size_t imported = 0;
  for (auto _ : state) imported = bench.Run().imported;
  state.counters["imported"] = static_cast<double>(imported);
}

// What keeping the sums costs is the difference.
void ImportWithoutKeptSums(benchmark::State& state) {
  ImportBench bench(static_cast<int>(state.range(0)), false);
  std::size_t imported = 0;
  for (auto _ : state) imported = bench.Run().imported;
  state.counters["imported"] = static_cast<double>(imported);
}

void ImportAgain(benchmark::State& state) {
  ImportBench bench(static_cast<int>(state.range(0)));
  std::size_t skipped = bench.Run().duplicates;
  for (auto _ : state) skipped = bench.Run().duplicates;
  state.counters["skipped"] = static_cast<double>(skipped);
}

BENCHMARK(InsertThroughLibrary)->Apply(Sizes);
BENCHMARK(ImportIntoAnEmptyFile)->Apply(Sizes);
BENCHMARK(ImportWithoutKeptSums)->Apply(Sizes);
BENCHMARK(ImportAgain)->Apply(Sizes);

}  // namespace
}  // namespace corvanta
