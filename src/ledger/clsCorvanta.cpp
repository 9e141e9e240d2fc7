#include "ledger/clsCorvanta.h"

#include "platform/Platform.h"
#include "platform/Progress.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"
#include "store/StoreError.h"

#include <chrono>

namespace corvanta {
namespace {

std::vector<std::string> UndoneTables() {
  return {"tblAccounts",    "tblAccountType", "tblBank",     "tblCategory",
          "tblHistory",     "tblPayees",      "tblPayments", "tblKeywords",
          "tblKeywordLink", "tblAttachments", "tblSchedule", "tblTransactions"};
}

}  // namespace

clsCorvanta::clsCorvanta(Connection& connection, Platform& platform)
    : connection_(connection), platform_(platform), undo_(connection, UndoneTables()) {}

std::int64_t clsCorvanta::ReadKey(const std::string& sql, std::string_view column) {
  const Recordset row = connection_.OpenRecordset(sql);
  return row.Eof() ? 0 : row.Field(column).Int();
}

std::size_t clsCorvanta::ForEachRow(Keys keys, const std::function<void(std::int64_t)>& change) {
  return ForEachRow(keys.size(), platform_.progress, [&](std::size_t row) { change(keys[row]); });
}

// Committing each row would wait for the disk each time, committing all at the end would lose the
// finished rows with a failing one.
std::size_t clsCorvanta::ForEachRow(std::size_t count, Progress& progress,
                                    const std::function<void(std::size_t)>& change) {
  using Time = std::chrono::steady_clock;
  constexpr auto kCommitEvery = std::chrono::milliseconds(250);
  std::size_t done = 0;
  bool goesOn = true;
  while (goesOn && done < count) {
    const Time::time_point start = Time::now();
    Transaction batch = connection_.Begin();
    try {
      do {
        change(done);
        ++done;
        goesOn = progress.Yield();
      } while (goesOn && done < count && Time::now() - start < kCommitEvery);
    } catch (const StoreError&) {
      progress.SetStep(0, 0);
      batch.Commit();
      throw;
    }
    batch.Commit();
    if (done < count) progress.SetStep(done, count);
  }
  progress.SetStep(0, 0);
  return done;
}

}  // namespace corvanta
