// The holdings of a large portfolio: 200 investments with 50,000 rows and 500,000 prices, beside
// the same rows and latest prices through the library.
#include "BenchStore.h"
#include "invest/holdings/Holdings.h"
#include "ledger/clsCorvanta.h"
#include "store/sql/SqlText.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

namespace corvanta {
namespace {

constexpr int kInvestments = 200;
constexpr int kRows = 50000;
constexpr int kPrices = 500000;
constexpr std::int64_t kFirst = 1000;  // the key of the first investment

void AddRows(Connection& connection, Date first) {
  for (int i = 0; i < kRows; ++i) {
    const int action = i % 5 == 4 ? 2 : i % 7 == 0 ? 3 : 1;
    const double price = 10 + i % 90;
    const double shares = action == 3 ? 0 : action == 2 ? 1 : 2;
    const double amount = action == 1 ? -shares * price : action == 3 ? 12.5 : shares * price;
    connection.Execute(
        "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Amount],[Date],"
        "[Action],Shares,Price,Commission,Dividend,BankChk,BankRec) VALUES (" +
        std::to_string(1 + i % 3) + ",2,2," + std::to_string(kFirst + i % kInvestments) + "," +
        SqlNumber(amount) + "," + SqlDate(first.AddDays(i * 3650 / kRows)) + "," +
        std::to_string(action) + "," + SqlNumber(shares) + "," +
        SqlNumber(action == 3 ? 0 : price) + ",0,0,0,0)");
  }
}

BenchStore& Portfolio() {
  static std::unique_ptr<BenchStore> store;
  if (store) return *store;
  store = std::make_unique<BenchStore>();
  const auto connection = store->Open();
  Transaction rows = connection->Begin();
  for (int i = 0; i < kInvestments; ++i) {
    connection->Execute("INSERT INTO tblPayees (PayeeID,Payee,[Symbol],Investment) VALUES (" +
                        std::to_string(kFirst + i) + ",'Share " + std::to_string(i) + "','S" +
                        std::to_string(i) + "',1)");
  }
  for (int i = 0; i < 3; ++i) {
    connection->Execute(
        "INSERT INTO tblAccounts ([Account],AccountTypeID,BankID,OpeningBalance,CurrencyId) "
        "VALUES ('Broker " +
        std::to_string(i) + "',1,0,0,17)");
  }
  const Date first = *Date::FromYmd(2016, 1, 1);
  AddRows(*connection, first);
  for (int i = 0; i < kPrices; ++i) {
    connection->Execute("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" +
                        std::to_string(kFirst + i % kInvestments) + "," +
                        SqlDate(first.AddDays(i / kInvestments)) + "," +
                        SqlNumber(10 + i % 997 / 10.0) + ")");
  }
  rows.Commit();
  return *store;
}

constexpr const char* kRawRows =
    "SELECT T.TransactionID, T.AccountID, T.PayeeID, T.Action, T.Date, T.Shares, T.Price, "
    "T.Commission, T.Dividend, T.Amount FROM tblTransactions T JOIN tblPayees P ON P.PayeeID = "
    "T.PayeeID WHERE P.Investment = 1 ORDER BY T.AccountID, T.PayeeID, T.Date, T.TransactionID";
constexpr const char* kRawPrice =
    "SELECT Date, Price FROM tblHistory WHERE PayeeID = ?1 ORDER BY Date DESC, HistoryID DESC "
    "LIMIT 1";
constexpr const char* kRawPrices =
    "SELECT Date, Price FROM tblHistory WHERE PayeeID = ?1 ORDER BY Date, HistoryID";

void ReadRowsRaw(sqlite3* database) {
  sqlite3_stmt* rows = nullptr;
  sqlite3_prepare_v2(database, kRawRows, -1, &rows, nullptr);
  double sum = 0;
  while (sqlite3_step(rows) == SQLITE_ROW) {
    for (const int column : {0, 1, 2, 3}) {
      sum += static_cast<double>(sqlite3_column_int64(rows, column));
    }
    benchmark::DoNotOptimize(sqlite3_column_text(rows, 4));
    for (const int column : {5, 6, 7, 8, 9}) sum += sqlite3_column_double(rows, column);
  }
  benchmark::DoNotOptimize(sum);
  sqlite3_finalize(rows);
}

void ReadPricesRaw(sqlite3* database, const char* sql) {
  sqlite3_stmt* price = nullptr;
  sqlite3_prepare_v2(database, sql, -1, &price, nullptr);
  double sum = 0;
  for (int i = 0; i < kInvestments; ++i) {
    sqlite3_bind_int64(price, 1, kFirst + i);
    while (sqlite3_step(price) == SQLITE_ROW) {
      benchmark::DoNotOptimize(sqlite3_column_text(price, 0));
      sum += sqlite3_column_double(price, 1);
    }
    sqlite3_reset(price);
  }
  benchmark::DoNotOptimize(sum);
  sqlite3_finalize(price);
}

void ReadRaw(benchmark::State& state, const char* prices) {
  sqlite3* database = Portfolio().OpenRaw();
  for (auto _ : state) {
    ReadRowsRaw(database);
    ReadPricesRaw(database, prices);
  }
  sqlite3_close(database);
}

void Read(benchmark::State& state, const HoldingsScope& scope) {
  BenchStore& store = Portfolio();
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  for (auto _ : state) benchmark::DoNotOptimize(ReadHoldings(ledger, scope));
}

void HoldingsThroughLibrary(benchmark::State& state) {
  ReadRaw(state, kRawPrice);
}
void HoldingsThroughInvest(benchmark::State& state) {
  Read(state, {0, CostMethod::Average, false, std::nullopt});
}
void HoldingsFirstInFirstOut(benchmark::State& state) {
  Read(state, {0, CostMethod::FirstInFirstOut, false, std::nullopt});
}
// What returns need beside: every price.
void AllPricesThroughLibrary(benchmark::State& state) {
  ReadRaw(state, kRawPrices);
}
void HoldingsWithReturns(benchmark::State& state) {
  Read(state, {0, CostMethod::Average, true,
               Period{*Date::FromYmd(2016, 1, 1), *Date::FromYmd(2025, 12, 31)}});
}

BENCHMARK(HoldingsThroughLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(HoldingsThroughInvest)->Unit(benchmark::kMillisecond);
BENCHMARK(HoldingsFirstInFirstOut)->Unit(benchmark::kMillisecond);
BENCHMARK(AllPricesThroughLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(HoldingsWithReturns)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvanta
