// The statements of an import, one record after another, through the engine and through the
// library's prepared statements on the same file.
#include "BenchStore.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

namespace corvanta {
namespace {

constexpr int kRecords = 500;

struct Record {
  std::string payee;
  std::string description;
  std::string iso;
  std::string literal;
  double amount;
};

Record MakeRecord(int i) {
  const Date date = Date::FromYmd(2026, 1, 1)->AddDays(i % 300);
  return {"payee NUMBER " + std::to_string(i * 7 % 300), "Card payment " + std::to_string(i),
          date.ToIso(), SqlDate(date), (i * 37 % 5000) / 100.0 - 30};
}

void ImportThroughEngine(benchmark::State& state) {
  BenchStore store;
  store.AddTransactions(20000);
  const auto connection = store.Open();
  for (auto _ : state) {
    Transaction undone = connection->Begin();
    for (int i = 0; i < kRecords; ++i) {
      const Record record = MakeRecord(i);
      std::int64_t payee = 0;
      std::int64_t category = 0;
      {
        const Recordset row = connection->OpenRecordset(
            "Select * From tblPayees Where lcase(Payee) =" + SqlText(record.payee));
        payee = row.Int("PayeeID");
      }
      {
        const Recordset row = connection->OpenRecordset(
            "select * from tblCategory where lcase(Category) = 'bills' AND lcase(SubCategory) = "
            "'gas'");
        category = row.Int("CategoryID");
      }
      {
        const Recordset row = connection->OpenRecordset(
            "Select T.*, P.* From tblTransactions as T INNER JOIN tblPayees AS P ON T.PayeeId = "
            "P.PayeeId Where [AccountID] = 1 AND [Amount] = " +
            SqlNumber(record.amount) + " AND [Date] = " + record.literal +
            " AND P.[Investment] = 0 AND AllocatedItem = 0");
        benchmark::DoNotOptimize(row.Eof());
      }
      connection->Execute(
          "INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,[Amount],"
          "Description,Reference,[Date],BankChk,BankRec,TransferID) VALUES (1," +
          std::to_string(category) + ",1," + std::to_string(payee) + "," +
          SqlNumber(record.amount) + "," + SqlText(record.description) + ",''," + record.literal +
          ",0,0,0)");
      connection->Execute("UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = " +
                          std::to_string(1000000 + i));
    }
  }
  state.SetItemsProcessed(state.iterations() * kRecords * 5);
}

class RawStatement {
 public:
  RawStatement(sqlite3* database, const char* sql) {
    sqlite3_prepare_v2(database, sql, -1, &statement_, nullptr);
  }
  ~RawStatement() { sqlite3_finalize(statement_); }
  RawStatement(const RawStatement&) = delete;
  RawStatement& operator=(const RawStatement&) = delete;

  void Text(int at, const std::string& text) {
    sqlite3_bind_text(statement_, at, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  void Number(int at, double number) { sqlite3_bind_double(statement_, at, number); }
  void Whole(int at, std::int64_t number) { sqlite3_bind_int64(statement_, at, number); }
  bool Step() { return sqlite3_step(statement_) == SQLITE_ROW; }
  std::int64_t First() { return sqlite3_column_int64(statement_, 0); }
  void Reset() { sqlite3_reset(statement_); }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

void ImportThroughLibrary(benchmark::State& state) {
  BenchStore store;
  store.AddTransactions(20000);
  sqlite3* database = store.OpenRaw();
  {
    RawStatement payees(database, "SELECT * FROM tblPayees WHERE Payee = ?1 COLLATE NOCASE");
    RawStatement categories(database,
                            "SELECT * FROM tblCategory WHERE Category = ?1 COLLATE NOCASE AND "
                            "SubCategory = ?2 COLLATE NOCASE");
    RawStatement duplicates(
        database,
        "SELECT T.*, P.* FROM tblTransactions T JOIN tblPayees P ON T.PayeeID = P.PayeeID WHERE "
        "AccountID = ?1 AND Amount = ?2 AND Date = ?3 AND P.Investment = 0 AND AllocatedItem = 0");
    RawStatement insert(database,
                        "INSERT OR FAIL INTO tblTransactions "
                        "(AccountID,CategoryID,PaymentID,PayeeID,Amount,Description,Reference,Date,"
                        "BankChk,BankRec,TransferID) VALUES (?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11)");
    RawStatement update(database,
                        "UPDATE tblTransactions SET TransferID = 0 WHERE TransferID = ?1");
    for (auto _ : state) {
      sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
      for (int i = 0; i < kRecords; ++i) {
        const Record record = MakeRecord(i);
        payees.Text(1, record.payee);
        payees.Step();
        const std::int64_t payee = payees.First();
        payees.Reset();
        categories.Text(1, "bills");
        categories.Text(2, "gas");
        categories.Step();
        const std::int64_t category = categories.First();
        categories.Reset();
        duplicates.Whole(1, 1);
        duplicates.Number(2, record.amount);
        duplicates.Text(3, record.iso);
        benchmark::DoNotOptimize(duplicates.Step());
        duplicates.Reset();
        insert.Whole(1, 1);
        insert.Whole(2, category);
        insert.Whole(3, 1);
        insert.Whole(4, payee);
        insert.Number(5, record.amount);
        insert.Text(6, record.description);
        insert.Text(7, "");
        insert.Text(8, record.iso);
        for (int zero = 9; zero <= 11; ++zero) insert.Whole(zero, 0);
        insert.Step();
        insert.Reset();
        update.Whole(1, 1000000 + i);
        update.Step();
        update.Reset();
      }
      sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
    }
  }
  sqlite3_close(database);
  state.SetItemsProcessed(state.iterations() * kRecords * 5);
}

BENCHMARK(ImportThroughLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(ImportThroughEngine)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvanta

BENCHMARK_MAIN();
