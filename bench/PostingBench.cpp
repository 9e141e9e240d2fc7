// The posting of 200 monthly schedules over ten years into a file of 100,000 transactions, beside
// the same rows through the library.
#include "BenchStore.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateSource.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/SchedulePosting.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "platform/Clock.h"
#include "platform/Settings.h"
#include "support/AgreeingPlatform.h"

#include <benchmark/benchmark.h>

#include <optional>

namespace corvanta {
namespace {

constexpr int kSchedules = 200;
constexpr int kMonths = 121;  // in ten years, the first and the last day among them

class NoRates : public RateSource {
 public:
  std::optional<RateAnswer> Rate(const std::string&, const std::string&) override {
    return std::nullopt;
  }
};

void AddSchedules(clsCorvanta& ledger, Date from) {
  Transaction all = ledger.Store().Begin();
  for (int i = 0; i < kSchedules; ++i) {
    ScheduleRecord record;
    record.accountId = 1;
    record.categoryId = 9;
    record.paymentId = 2;
    record.payeeId = 20;
    record.periodId = 6;  // monthly
    record.amount = -12.5;
    record.description = "Posted";
    record.dateFrom = from;
    record.addToAccount = AddToAccount::Ahead;
    ledger.Schedules().SaveSchedule(record);
  }
  all.Commit();
}

BenchStore& FilledStore() {
  static std::unique_ptr<BenchStore> store;
  if (!store) {
    store = std::make_unique<BenchStore>();
    const auto connection = store->Open();
    connection->Execute(
        "INSERT INTO tblAccounts ([Account],AccountTypeID,BankID,OpeningBalance,CurrencyId) "
        "VALUES ('Bench',1,0,100,17)");
    store->AddTransactions(100000);
    connection->Execute("DELETE FROM tblSchedule");  // of the sample data
    clsCorvanta ledger(*connection, store->Machine());
    AddSchedules(ledger, store->Machine().clock.Today());
    Settings(store->Machine().registry).SetText(Setting::NoShedule, "10 Years");
  }
  return *store;
}

void PostThroughLedger(benchmark::State& state) {
  BenchStore& store = FilledStore();
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  AgreeingPlatform machine(store.Machine());
  NoRates rates;
  for (auto _ : state) {
    const PostingResult result = SchedulePosting(ledger, machine.Get(), rates).PostSchedules();
    state.PauseTiming();
    connection->Execute("DELETE FROM tblTransactions WHERE BankSch > 0");
    state.ResumeTiming();
    if (result.occurrences == kSchedules * kMonths) continue;
    state.SkipWithError("not all was posted");
    break;
  }
}

void PassWithNothingToPost(benchmark::State& state) {
  BenchStore& store = FilledStore();
  const auto connection = store.Open();
  clsCorvanta ledger(*connection, store.Machine());
  AgreeingPlatform machine(store.Machine());
  NoRates rates;
  SchedulePosting posting(ledger, machine.Get(), rates);
  posting.PostSchedules();
  for (auto _ : state) benchmark::DoNotOptimize(posting.PostSchedules());
  connection->Execute("DELETE FROM tblTransactions WHERE BankSch > 0");
}

void InsertRows(sqlite3* database, Date from) {
  sqlite3_stmt* insert = nullptr;
  sqlite3_prepare_v2(
      database,
      "INSERT OR FAIL INTO tblTransactions "
      "(AccountID,CategoryID,PaymentID,PayeeID,Amount,Reference,"
      "Description,BankChk,BankRec,Action,AllocatedItem,TransferID,BankSch,Date,ScheduleDate) "
      "VALUES (1,9,2,20,-12.5,'','Posted',0,0,0,0,0,?1,?2,?2)",
      -1, &insert, nullptr);
  sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
  for (int schedule = 1; schedule <= kSchedules; ++schedule) {
    for (int month = 0; month < kMonths; ++month) {
      const std::string day = from.AddMonths(month).ToIso();
      sqlite3_bind_int(insert, 1, schedule);
      sqlite3_bind_text(insert, 2, day.data(), static_cast<int>(day.size()), SQLITE_TRANSIENT);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
  }
  sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_finalize(insert);
}

void PostThroughLibrary(benchmark::State& state) {
  BenchStore& store = FilledStore();
  sqlite3* database = store.OpenRaw();
  for (auto _ : state) {
    InsertRows(database, store.Machine().clock.Today());
    state.PauseTiming();
    sqlite3_exec(database, "DELETE FROM tblTransactions WHERE BankSch > 0", nullptr, nullptr,
                 nullptr);
    state.ResumeTiming();
  }
  sqlite3_close(database);
}

BENCHMARK(PostThroughLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(PostThroughLedger)->Unit(benchmark::kMillisecond);
BENCHMARK(PassWithNothingToPost)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace corvanta
