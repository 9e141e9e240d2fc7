#include "ledger/investments/RateBook.h"

#include "store/datafile/schema/AccessPaths.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

constexpr const char* kTable = "own_Rates";

RateRecord RecordOf(const Recordset& row) {
  return {row.Int("RateID"),  row.Text("FromCode"),
          row.Text("ToCode"), row.Day("Date").value_or(Date()),
          row.Double("Rate"), row.Text("Source")};
}

std::string OfPair(const std::string& from, const std::string& to) {
  return std::string("Select * from ") + kTable + " Where FromCode = " + SqlText(from) +
         " AND ToCode = " + SqlText(to);
}

}  // namespace

bool RateBook::HasTable() const {
  return core_.store.Table(kTable) != nullptr;
}

std::vector<RateRecord> RateBook::All() {
  std::vector<RateRecord> rates;
  if (!HasTable()) return rates;
  Recordset rows = core_.store.OpenRecordset(std::string("Select * from ") + kTable +
                                             " Order by [Date] Desc, FromCode, ToCode");
  for (; !rows.Eof(); rows.MoveNext()) rates.push_back(RecordOf(rows));
  return rates;
}

std::optional<RateRecord> RateBook::LatestAsKept(const std::string& from, const std::string& to,
                                                 Date until) {
  if (!HasTable()) return std::nullopt;
  const Recordset row = core_.store.OpenRecordset(
      OfPair(from, to) + " AND Rate > 0 AND [Date] <= " + SqlDate(until) + " Order by [Date] Desc");
  if (row.Eof()) return std::nullopt;
  return RecordOf(row);
}

std::optional<RateRecord> RateBook::Latest(const std::string& from, const std::string& to,
                                           Date until) {
  std::optional<RateRecord> direct = LatestAsKept(from, to, until);
  std::optional<RateRecord> turned = LatestAsKept(to, from, until);
  if (!turned || (direct && direct->date >= turned->date)) return direct;
  turned->from.swap(turned->to);
  turned->rate = 1 / turned->rate;
  return turned;
}

std::int64_t RateBook::Keep(const RateRecord& record) {
  if (!HasTable()) EnsureAccessPaths(core_.store);
  const std::int64_t known = core_.ReadKey(
      OfPair(record.from, record.to) + " AND [Date] = " + SqlDate(record.date), "RateID");
  return core_.SaveRow(kTable, "RateID", known,
                       {{"FromCode", record.from},
                        {"ToCode", record.to},
                        {"Date", record.date},
                        {"Rate", record.rate},
                        {"Source", record.source}});
}

void RateBook::Delete(Keys rateIds) {
  if (!HasTable()) return;
  core_.ForEachRow(rateIds, [&](std::int64_t key) {
    core_.store.Execute(std::string("Delete From ") + kTable + " Where RateID = " + SqlNumber(key));
  });
}

void RateBook::Rename(const std::string& code, const std::string& now) {
  if (!HasTable()) return;
  for (const char* column : {"FromCode", "ToCode"}) {
    core_.store.Execute(std::string("UPDATE ") + kTable + " SET " + column + " = " + SqlText(now) +
                        " WHERE " + column + " = " + SqlText(code));
  }
}

}  // namespace corvanta::inline ledger
