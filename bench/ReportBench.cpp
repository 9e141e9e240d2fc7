// Each report over many rows, beside its queries by hand through the library alone, and what one of
// its figures is made of.
#include "BenchStore.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateSource.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "reports/overview/Overview.h"
#include "reports/query/Explain.h"
#include "reports/query/ReportRunner.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <vector>

namespace corvanta {
namespace {

class NoRates : public RateSource {
 public:
  std::optional<RateAnswer> Rate(const std::string&, const std::string&) override {
    return std::nullopt;
  }
};

bool IsFigure(const ReportTable& table, std::size_t row, std::size_t column) {
  return table.columns[column].HoldsNumbers() && !table.rows[row].cells[column].IsNull();
}

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

// The first figure of a row: of the first one, which stands for a group or a transaction, or of the
// last one, which is a total where the report has one.
void ExplainARow(benchmark::State& state, bool isLast) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  NoRates rates;
  ReportRequest request;
  request.report = static_cast<int>(state.range(1));
  const ReportTable table = RunReport(ledger, request, rates, store.Machine());
  if (table.rows.empty()) return state.SkipWithError("no rows");
  const std::size_t row = isLast ? table.rows.size() - 1 : 0;
  std::size_t column = 0;
  while (column < table.columns.size() && !IsFigure(table, row, column)) ++column;
  std::size_t rows = 0;
  for (auto _ : state) {
    rows = Explain(ledger, request, table, row, column, store.Machine()).size();
    benchmark::DoNotOptimize(rows);
  }
  state.counters["rows"] = static_cast<double>(rows);
}

void ExplainFirstRow(benchmark::State& state) {
  ExplainARow(state, false);
}
void ExplainLastRow(benchmark::State& state) {
  ExplainARow(state, true);
}

// The statements that each report cannot do without, as plainly as the library can run them.
class ByHand {
 public:
  // In the order of the reports' numbers.
  [[nodiscard]] std::vector<std::string> All() const {
    return {
        "SELECT A.AccountID, A.Account, " + inAndOut_ + whole_ + "GROUP BY A.AccountID, A.Account",
        "SELECT substr(T.Date, 1, 7), " + inAndOut_ + ", CU.Currency" + whole_ +
            "GROUP BY substr(T.Date, 1, 7), CU.Currency ORDER BY 1, CU.Currency",
        "SELECT A.Account, T.TransactionID, T.Amount, T.Date, T.Action, T.Reference, "
        "T.Description, T.BankChk, T.BankRec, T.TransferID, C.Category, C.SubCategory, P.Payment, "
        "PP.Payee, CU.Currency" +
            lines_ + "ORDER BY T.Date, T.TransactionID",
        "SELECT MIN(T.Date), MAX(T.Date) FROM tblTransactions T JOIN tblAccounts A ON "
        "A.AccountID = T.AccountID WHERE A.CloseAccount <> 1; SELECT SUM(Amount), CU.Currency, "
        "C.CategoryID" +
            lines_ + "GROUP BY CU.Currency, C.CategoryID",
        "SELECT COUNT(*), " + inAndOut_ + category_ + lines_ + "GROUP BY " + byCategory_ + inOrder_,
        "SELECT substr(T.Date, 6, 2), SUM(Amount)" + category_ + lines_ +
            "GROUP BY substr(T.Date, 6, 2), " + byCategory_ + inOrder_,
        "SELECT COUNT(*), " + inAndOut_ + payee_ + whole_ + "GROUP BY " + byPayee_ +
            "ORDER BY PP.Payee",
        "SELECT substr(T.Date, 6, 2), SUM(Amount)" + payee_ + whole_ +
            "GROUP BY substr(T.Date, 6, 2), " + byPayee_ + "ORDER BY PP.Payee",
        "SELECT COUNT(*), " + inAndOut_ + ", P.PaymentID, P.Payment, CU.Currency" + whole_ +
            "GROUP BY P.PaymentID, P.Payment, CU.Currency ORDER BY P.Payment",
        "SELECT T.Action, SUM(T.Shares), SUM(Amount), T.PayeeID" + open_ +
            "AND PP.Investment = 1 GROUP BY T.PayeeID, T.Action",
        "SELECT A.Account, T.Date, T.Action, PP.Symbol, T.Shares, T.Price, T.Amount" + open_ +
            "AND PP.Investment = 1 ORDER BY PP.Payee, T.Date",
        "SELECT substr(T.Date, 1, 7), SUM(Amount), CU.Currency" + whole_ +
            "GROUP BY substr(T.Date, 1, 7), CU.Currency",
        "SELECT SUM(Amount)" + category_ + lines_ + Year("2026") + "GROUP BY " + byCategory_ +
            "; SELECT SUM(Amount)" + category_ + lines_ + Year("2025") + "GROUP BY " + byCategory_,
        "SELECT substr(T.Date, 1, 7), SUM(Amount), CU.Currency, C.CategoryID" + lines_ +
            Year("2026") + "GROUP BY substr(T.Date, 1, 7), CU.Currency, C.CategoryID",
        "SELECT T.AccountID, SUM(Amount), MIN(T.Date)" + whole_ + Year("2026") +
            "GROUP BY T.AccountID"};
  }

 private:
  static std::string Year(const std::string& year) {
    return "AND T.Date BETWEEN '" + year + "-01-01' AND '" + year + "-12-31 23:59:59' ";
  }

  const std::string open_ =
      " FROM tblTransactions T JOIN tblCategory C ON C.CategoryID = T.CategoryID JOIN tblAccounts "
      "A ON A.AccountID = T.AccountID JOIN tblCurrency CU ON CU.CurrencyID = A.CurrencyId JOIN "
      "tblPayees PP ON PP.PayeeID = T.PayeeID JOIN tblPayments P ON P.PaymentID = T.PaymentID "
      "WHERE A.CloseAccount <> 1 ";
  // Whole entries, in a form in which the library does not look nearly all rows up in the index of
  // lines; or of splits the lines.
  const std::string whole_ = open_ + "AND NOT (T.AllocatedItem <> 0) ";
  const std::string lines_ =
      open_ +
      "AND T.TransactionID NOT IN (SELECT AllocatedItem FROM tblTransactions WHERE AllocatedItem "
      "<> 0) ";
  const std::string inAndOut_ =
      "SUM(CASE WHEN Amount > 0 THEN Amount END), SUM(CASE WHEN Amount < 0 THEN Amount END)";
  const std::string byCategory_ = "C.CategoryID, C.Category, C.SubCategory, CU.Currency ";
  const std::string byPayee_ = "PP.PayeeID, PP.Payee, CU.Currency, T.TransferID ";
  const std::string category_ = ", " + byCategory_;
  const std::string payee_ = ", " + byPayee_;
  const std::string inOrder_ = "ORDER BY C.Category, C.SubCategory";
};

// A value read as what it is: a text by its bytes, which no report can do without.
double Looked(sqlite3_stmt* row, int column) {
  if (sqlite3_column_type(row, column) != SQLITE_TEXT) return sqlite3_column_double(row, column);
  benchmark::DoNotOptimize(sqlite3_column_text(row, column));
  return sqlite3_column_bytes(row, column);
}

// Steps through all statements of the text.
void QueryByHand(benchmark::State& state) {
  sqlite3* database = StoreOf(state.range(0)).OpenRaw();
  const std::string text = ByHand().All().at(static_cast<std::size_t>(state.range(1) - 1));
  for (auto _ : state) {
    double sum = 0;
    for (const char* sql = text.c_str(); *sql != '\0';) {
      sqlite3_stmt* rows = nullptr;
      if (sqlite3_prepare_v2(database, sql, -1, &rows, &sql) != SQLITE_OK) {
        state.SkipWithError(sqlite3_errmsg(database));
        sqlite3_close(database);
        return;
      }
      while (sqlite3_step(rows) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(rows); ++i) sum += Looked(rows, i);
      }
      sqlite3_finalize(rows);
    }
    benchmark::DoNotOptimize(sum);
  }
  sqlite3_close(database);
}

// What the overview at the start waits for: what is kept, and behind the first drawing the rest.
void OverviewAtOnce(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  const Date today = store.Machine().clock.Today();
  for (auto _ : state) {
    OverviewReader reader(ledger, today, false, store.Machine());
    reader.ReadStanding();
    benchmark::DoNotOptimize(reader.Read().accounts.size());
  }
}

void OverviewRest(benchmark::State& state) {
  BenchStore& store = StoreOf(state.range(0));
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  const Date today = store.Machine().clock.Today();
  for (auto _ : state) {
    OverviewReader reader(ledger, today, false, store.Machine());
    while (reader.ReadNext()) {
    }
    benchmark::DoNotOptimize(reader.Read().flows.size());
  }
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}
void Reports(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgsProduct({{100000, 1000000}, benchmark::CreateDenseRange(1, 15, 1)})
      ->Unit(benchmark::kMillisecond);
}

BENCHMARK(RunOneReport)->Apply(Reports);
BENCHMARK(QueryByHand)->Apply(Reports);
BENCHMARK(ExplainFirstRow)->Apply(Reports);
BENCHMARK(ExplainLastRow)->Apply(Reports);
BENCHMARK(OverviewAtOnce)->Apply(Sizes);
BENCHMARK(OverviewRest)->Apply(Sizes);

}  // namespace
}  // namespace corvanta
