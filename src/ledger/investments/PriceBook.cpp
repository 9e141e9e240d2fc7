#include "ledger/investments/PriceBook.h"

#include "platform/Platform.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {
namespace {

PriceRecord RecordOf(const Recordset& row) {
  return {row.Int("HistoryID"), row.Int("PayeeID"), row.Day("Date").value_or(Date()),
          row.Double("Price")};
}

}  // namespace

void PriceBook::StorePrice(std::int64_t payeeId, Date date, double price) {
  if (payeeId == 0) return;
  const UndoLog::Step step = core_.undo.Begin("Save Price");
  Transaction all = core_.store.Begin();
  Recordset row =
      core_.store.OpenRecordset("Select * from tblHistory Where PayeeID = " + SqlNumber(payeeId) +
                                " AND [Date] = " + SqlDate(date));
  if (row.Eof()) {
    core_.SaveRow("tblHistory", "HistoryID", 0,
                  {{"PayeeID", payeeId}, {"Date", date}, {"Price", price}});
  }
  // A file of another program may hold several of one day.
  for (; !row.Eof(); row.MoveNext()) {
    row.Set("Price", price);
    row.Update();
  }
  all.Commit();
}

bool PriceBook::StorePrices(std::int64_t payeeId, std::span<const DayPrice> prices) {
  const UndoLog::Step step = core_.undo.Begin("Import Prices");
  return core_.ForEachRow(prices.size(), core_.platform.progress, [&](std::size_t row) {
    StorePrice(payeeId, prices[row].date, prices[row].price);
  });
}

std::vector<PriceRecord> PriceBook::PricesOf(std::int64_t payeeId) {
  std::vector<PriceRecord> prices;
  Recordset rows =
      core_.store.OpenRecordset("Select * from tblHistory Where PayeeID = " + SqlNumber(payeeId) +
                                " Order by [Date] Desc, HistoryID Desc");
  for (; !rows.Eof(); rows.MoveNext()) prices.push_back(RecordOf(rows));
  return prices;
}

std::optional<PriceRecord> PriceBook::LatestPrice(std::int64_t payeeId) {
  const Recordset row = core_.store.OpenRecordset(
      "Select Top 1 * from tblHistory WHERE PayeeId = " + SqlNumber(payeeId) +
      " Order by [Date] Desc, HistoryID Desc");
  if (row.Eof()) return std::nullopt;
  return RecordOf(row);
}

void PriceBook::DeletePrices(Keys historyIds) {
  const UndoLog::Step step = core_.undo.Begin("Delete Prices");
  core_.ForEachRow(historyIds, [&](std::int64_t key) {
    core_.store.Execute("Delete From tblHistory Where HistoryID = " + SqlNumber(key));
  });
}

}  // namespace corvanta::inline ledger
