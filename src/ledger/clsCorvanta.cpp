#include "ledger/clsCorvanta.h"

#include "platform/Platform.h"
#include "platform/Progress.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <chrono>

namespace corvanta {
namespace {

std::vector<std::string> UndoneTables() {
  return {"tblAccounts", "tblAccountType",  "tblBank",         "tblCategory",    "tblHistory",
          "tblPayees",   "tblPayments",     "tblKeywords",     "tblKeywordLink", "tblAttachments",
          "tblSchedule", "tblTransactions", "own_ScheduleDays"};
}

// The bar goes with the operation, however it ends.
class StepsShown {
 public:
  explicit StepsShown(Progress& progress) : progress_(progress) {}
  ~StepsShown() { progress_.SetStep(0, 0); }
  StepsShown(const StepsShown&) = delete;
  StepsShown& operator=(const StepsShown&) = delete;

 private:
  Progress& progress_;
};

}  // namespace

clsCorvanta::clsCorvanta(Connection& connection, Platform& platform)
    : connection_(connection), platform_(platform), undo_(connection, UndoneTables()) {}

std::int64_t clsCorvanta::ReadKey(const std::string& sql, std::string_view column) {
  const Recordset row = connection_.OpenRecordset(sql);
  return row.Eof() ? 0 : row.Field(column).Int();
}

bool clsCorvanta::ForEachRow(Keys keys, const std::function<void(std::int64_t)>& change) {
  return ForEachRow(keys.size(), platform_.progress, [&](std::size_t row) { change(keys[row]); });
}

// One transaction, however long it takes: what the person asked for at once is done or not, so that
// asking again after a failure never does a part of it twice.
bool clsCorvanta::ForEachRow(std::size_t count, Progress& progress,
                             const std::function<void(std::size_t)>& change) {
  using Time = std::chrono::steady_clock;
  constexpr auto kShowEvery = std::chrono::milliseconds(250);
  const StepsShown steps(progress);
  Transaction all = connection_.Begin();
  Time::time_point shown = Time::now();
  for (std::size_t done = 0; done < count;) {
    change(done);
    ++done;
    if (!progress.Yield() && done < count) return false;
    if (done < count && Time::now() - shown >= kShowEvery) {
      progress.SetStep(done, count);
      shown = Time::now();
    }
  }
  all.Commit();
  return true;
}

}  // namespace corvanta
