// Reading the register and the balances of a large file, beside the same rows through the library.
#include "BenchStore.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/clsCorvanta.h"
#include "ledger/register/BalanceBook.h"
#include "ledger/register/RegisterOrder.h"
#include "ledger/register/RegisterRows.h"
#include "ledger/schedules/Reminders.h"
#include "store/sql/SqlText.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

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
    benchmark::DoNotOptimize(ledger.Balances().Register(1, {}, std::nullopt));
  }
}

// Of the account's entries the keys and amounts alone, in their order: what no register can do
// without.
constexpr const char* kRawEntries =
    "SELECT TransactionID, Amount FROM tblTransactions WHERE AllocatedItem = 0 AND AccountID = 1 "
    "ORDER BY Date, TransactionID";

// And with all that a register keeps of each of its entries: the floor of a first sort by a name.
constexpr const char* kRawKept =
    "SELECT TransactionID, Amount, Date, CategoryID, PayeeID, PaymentID, TransferID, BankChk, "
    "BankRec FROM tblTransactions WHERE AllocatedItem = 0 AND AccountID = 1 ORDER BY Date, "
    "TransactionID";

// The one text that a list may be sorted by, as the rows are stored: what a first sort by it has to
// read besides.
constexpr const char* kRawTexts = "SELECT TransactionID, Description FROM tblTransactions";

void ReadRaw(benchmark::State& state, const char* sql) {
  sqlite3* database = StoreOf(state.range(0)).OpenRaw();
  for (auto _ : state) {
    sqlite3_stmt* rows = nullptr;
    sqlite3_prepare_v2(database, sql, -1, &rows, nullptr);
    std::int64_t keys = 0;
    double sum = 0;
    while (sqlite3_step(rows) == SQLITE_ROW) {
      for (int column = 0; column < sqlite3_column_count(rows); ++column) {
        const int type = sqlite3_column_type(rows, column);
        if (type == SQLITE_INTEGER) keys += sqlite3_column_int64(rows, column);
        if (type == SQLITE_FLOAT) sum += sqlite3_column_double(rows, column);
        if (type == SQLITE_TEXT) benchmark::DoNotOptimize(sqlite3_column_text(rows, column));
      }
    }
    benchmark::DoNotOptimize(sum);
    benchmark::DoNotOptimize(keys);
    sqlite3_finalize(rows);
  }
  sqlite3_close(database);
}

void EntriesThroughLibrary(benchmark::State& state) {
  ReadRaw(state, kRawEntries);
}
void KeptThroughLibrary(benchmark::State& state) {
  ReadRaw(state, kRawKept);
}
void TextsThroughLibrary(benchmark::State& state) {
  ReadRaw(state, kRawTexts);
}

// What the window does to show another account, whose sums the tree has read: the figures, the days
// ahead, and the rows on the screen.
void Switch(benchmark::State& state, std::optional<RegisterColumn> column, bool isKept) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  const AccountRow account = ledger.Accounts().Accounts(TreeOptions()).front();
  bool isDescending = false;
  const auto show = [&](RegisterRows& rows) {
    benchmark::DoNotOptimize(LowestAhead(rows, store.Machine().clock.Today()));
    std::vector<std::uint32_t> order;
    // The other way round than before: the last order is kept.
    isDescending = !isDescending;
    if (column) order = SortedRegister(rows, *column, isDescending);
    rows.ReadOn(10000);
    std::vector<std::size_t> screen;
    for (std::size_t i = 1; i <= 64; ++i) {
      screen.push_back(column ? order[i] : rows.Count() - i);
    }
    benchmark::DoNotOptimize(rows.Read(screen));
  };
  const RegisterScope scope{account.accountId, {}};
  RegisterRows kept(*connection, scope, account.openingBalance, account.sums);
  if (isKept) kept.ReadAll();
  for (auto _ : state) {
    if (isKept) {
      show(kept);
      continue;
    }
    RegisterRows rows(*connection, scope, account.openingBalance, account.sums);
    show(rows);
  }
}

void SwitchUnsorted(benchmark::State& state) {
  Switch(state, std::nullopt, false);
}
void SwitchSortedByPayee(benchmark::State& state) {
  Switch(state, RegisterColumn::Payee, false);
}
void SwitchSortedByDescription(benchmark::State& state) {
  Switch(state, RegisterColumn::Description, false);
}
// Of a register that the window has read to its end meanwhile.
void SortByPayee(benchmark::State& state) {
  Switch(state, RegisterColumn::Payee, true);
}
void SortByBalance(benchmark::State& state) {
  Switch(state, RegisterColumn::Balance, true);
}

// What the window does behind a save: the tree, and the end of the register.
void ShowAfterASave(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  double amount = 1;
  for (auto _ : state) {
    amount = -amount;
    connection->Execute("UPDATE tblTransactions SET [Amount] = " + SqlNumber(amount) +
                        " WHERE TransactionID = 1000");
    const AccountRow account = ledger.Accounts().Accounts(TreeOptions()).front();
    RegisterRows rows(*connection, {account.accountId, {}}, account.openingBalance, account.sums);
    benchmark::DoNotOptimize(rows.Entry(rows.Count() - 1));
    benchmark::DoNotOptimize(rows.UnclearedCount());
  }
}

// The figures and the last rows of one year, of cleared entries alone.
void ShowAYear(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  const Period year{*Date::FromYmd(2024, 2, 10), *Date::FromYmd(2025, 2, 9)};
  for (auto _ : state) {
    RegisterRows rows(*connection, {1, {false, true, false}, year}, 0);
    benchmark::DoNotOptimize(rows.Entry(rows.Count() - 1));
  }
}

// What the window does while nothing else happens.
void ReadToTheEnd(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  const AccountRow account = ledger.Accounts().Accounts(TreeOptions()).front();
  for (auto _ : state) {
    RegisterRows rows(*connection, {account.accountId, {}}, account.openingBalance, account.sums);
    while (!rows.IsWhole()) rows.ReadOn(15000);
    benchmark::DoNotOptimize(rows.Figures());
  }
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(100000)->Arg(400000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

void AccountsThroughLedger(benchmark::State& state) {
  BenchStore store;
  store.AddTransactions(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const auto connection = store.Open();
    clsCorvanta ledger(*connection, store.Machine());
    benchmark::DoNotOptimize(ledger.Accounts().Accounts({}, true));
  }
}

// Read at the start and after every change, of a file without a schedule: next to nothing.
void RemindersThroughLedger(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  const Date today = store.Machine().clock.Today();
  for (auto _ : state) {
    benchmark::DoNotOptimize(Reminders(ledger, today, today.AddDays(30), true));
  }
}

BENCHMARK(EntriesThroughLibrary)->Apply(Sizes);
BENCHMARK(KeptThroughLibrary)->Apply(Sizes);
BENCHMARK(TextsThroughLibrary)->Apply(Sizes);
BENCHMARK(SwitchUnsorted)->Apply(Sizes);
BENCHMARK(SwitchSortedByPayee)->Apply(Sizes);
BENCHMARK(SwitchSortedByDescription)->Apply(Sizes);
BENCHMARK(SortByPayee)->Apply(Sizes);
BENCHMARK(SortByBalance)->Apply(Sizes);
BENCHMARK(ShowAfterASave)->Apply(Sizes);
BENCHMARK(ShowAYear)->Apply(Sizes);
BENCHMARK(ReadToTheEnd)->Apply(Sizes);
BENCHMARK(RemindersThroughLedger)->Apply(Sizes);
BENCHMARK(RegisterThroughLibrary)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(RegisterThroughLedger)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(AccountsThroughLedger)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvanta
