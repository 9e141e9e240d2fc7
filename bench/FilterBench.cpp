// Each filter of the register at the sizes that it must be quick at, beside the library reading the
// same rows by hand.
#include "BenchStore.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/FilterChoice.h"
#include "ledger/register/FilteredRegister.h"
#include "ledger/register/RegisterRows.h"
#include "ledger/register/RegisterShelf.h"
#include "ledger/register/RowFilter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>

namespace corvanta {
namespace {

// Ordinary rows, of which one in forty has a keyword and one in twenty is of the second account.
BenchStore& FilterStore(std::int64_t count) {
  static std::map<std::int64_t, std::unique_ptr<BenchStore>> stores;
  std::unique_ptr<BenchStore>& store = stores[count];
  if (store) return *store;
  store = std::make_unique<BenchStore>();
  store->AddTransactions(static_cast<int>(count));
  const auto connection = store->Open();
  connection->Execute("INSERT INTO tblKeywords (Keyword) VALUES ('Work')");
  connection->Execute(
      "INSERT INTO tblKeywordLink (KeywordID,TransactionID) SELECT 1, TransactionID FROM "
      "tblTransactions WHERE TransactionID MOD 40 = 7");
  connection->Execute(
      "INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "SELECT 'Second',AccountTypeID,CurrencyId,0,0 FROM tblAccounts WHERE AccountID = 1");
  connection->Execute("UPDATE tblTransactions SET AccountID = 2 WHERE TransactionID MOD 20 = 0");
  return *store;
}

// What the window does to show the chosen rows of the register that stands there, which is read
// already (`isKept`), or of one that is gone to.
void Filter(benchmark::State& state, const RowFilter& filter, bool isKept = true) {
  BenchStore& store = FilterStore(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  const RegisterScope scope{1, {}, std::nullopt, filter};
  std::vector<FilteredAccount> accounts;
  for (const AccountRow& account : ledger.Accounts().Accounts(TreeOptions())) {
    const auto wanted = scope.Accounts();
    if (std::ranges::count(wanted, account.accountId) == 0) continue;
    accounts.push_back(
        {account.accountId, account.currencyId, account.openingBalance, account.sums});
  }
  RegisterShelf shelf;
  if (isKept) {
    for (const FilteredAccount& account : accounts) {
      shelf.Fetch(*connection, {account.accountId, {}}, account.openingBalance, account.sums)
          ->ReadAll();
    }
  }
  std::size_t shown = 0;
  for (auto _ : state) {
    // What was chosen before is not kept, the registers that it was chosen of are.
    RegisterShelf own = shelf;
    const auto rows = own.FetchFiltered(*connection, scope, accounts);
    std::vector<std::size_t> screen;
    for (std::size_t i = 1; i <= std::min<std::size_t>(64, rows->Count()); ++i) {
      screen.push_back(rows->Count() - i);
    }
    benchmark::DoNotOptimize(rows->Read(screen));
    shown = rows->Count();
  }
  state.counters["rows"] = static_cast<double>(shown);
}

RowFilter Of(FilterKind kind, const std::vector<std::int64_t>& keys) {
  RowFilter filter;
  filter.SetKeys(kind, keys);
  return filter;
}
RowFilter Text(const char* text, bool isTextOnly) {
  RowFilter filter;
  filter.SetSearch({text, isTextOnly});
  return filter;
}

void FilterByAccounts(benchmark::State& state) {
  Filter(state, Of(FilterKind::Account, {1, 2}));
}
void FilterByCategory(benchmark::State& state) {
  Filter(state, Of(FilterKind::Category, {5, 6, 7}));
}
void FilterByCategoryUnread(benchmark::State& state) {
  Filter(state, Of(FilterKind::Category, {5, 6, 7}), false);
}
void FilterByPayees(benchmark::State& state) {
  Filter(state, Of(FilterKind::Payee, {20, 21}));
}
void FilterByManyPayees(benchmark::State& state) {
  std::vector<std::int64_t> keys;
  for (std::int64_t key = 20; key < 300; ++key) keys.push_back(key);
  Filter(state, Of(FilterKind::Payee, keys));
}
void FilterByInvestment(benchmark::State& state) {
  Filter(state, Of(FilterKind::Investment, {20}));
}
void FilterByKeyword(benchmark::State& state) {
  Filter(state, Of(FilterKind::Keyword, {1}));
}
void FilterByText(benchmark::State& state) {
  Filter(state, Text("Row 77", false));
}
void FilterByTextOnly(benchmark::State& state) {
  Filter(state, Text("Row 77", true));
}

// The least that a text filter can cost: every row's own texts, compared by the library.
void TextsThroughLibraryByHand(benchmark::State& state) {
  sqlite3* database = FilterStore(state.range(0)).OpenRaw();
  for (auto _ : state) {
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(database,
                       "SELECT TransactionID FROM tblTransactions WHERE Description LIKE '%Row "
                       "77%' OR Reference LIKE '%Row 77%' OR Amount LIKE '%Row 77%'",
                       -1, &rows, nullptr);
    std::int64_t keys = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) keys += sqlite3_column_int64(rows, 0);
    benchmark::DoNotOptimize(keys);
    sqlite3_finalize(rows);
  }
  sqlite3_close(database);
}

// What opening the dialog reads, and a key typed in its search.
void FilterDialogItems(benchmark::State& state) {
  BenchStore& store = FilterStore(state.range(0));
  const auto connection = store.Open();
  for (auto _ : state) {
    const FilterChoice choice(*connection, FilterKind::Payee, {20});
    std::size_t matches = 0;
    for (std::size_t group = 0; group < choice.Groups().size(); ++group) {
      matches += choice.Matches(group, 0, "number 7") ? 1 : 0;
    }
    benchmark::DoNotOptimize(matches);
  }
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(FilterByAccounts)->Apply(Sizes);
BENCHMARK(FilterByCategory)->Apply(Sizes);
BENCHMARK(FilterByCategoryUnread)->Apply(Sizes);
BENCHMARK(FilterByPayees)->Apply(Sizes);
BENCHMARK(FilterByManyPayees)->Apply(Sizes);
BENCHMARK(FilterByInvestment)->Apply(Sizes);
BENCHMARK(FilterByKeyword)->Apply(Sizes);
BENCHMARK(FilterByText)->Apply(Sizes);
BENCHMARK(FilterByTextOnly)->Apply(Sizes);
BENCHMARK(TextsThroughLibraryByHand)->Apply(Sizes);
BENCHMARK(FilterDialogItems)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvanta
