#include "invest/holdings/HoldingsReader.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <tuple>

namespace corvanta::inline invest {
namespace {

constexpr const char* kRows =
    "SELECT T.TransactionID, T.AccountID, T.PayeeID, T.Action, T.[Date], T.Shares, T.Price, "
    "T.Commission, T.Dividend, T.Amount from tblTransactions T INNER JOIN tblPayees P ON "
    "P.PayeeID = T.PayeeID WHERE P.Investment = 1";

Date DayOf(std::string_view text) {
  return Date::FromIso(text.substr(0, 10)).value_or(Date());
}

bool IsBefore(const HoldingRow& first, const HoldingRow& second) {
  return std::tie(first.accountId, first.payeeId, first.day, first.transactionId) <
         std::tie(second.accountId, second.payeeId, second.day, second.transactionId);
}

}  // namespace

std::vector<HoldingRow> ReadHoldingRows(Connection& store, std::int64_t accountId) {
  std::string sql = kRows;
  if (accountId != 0) sql += " AND T.AccountID = " + SqlNumber(accountId);
  std::vector<HoldingRow> rows;
  Recordset::Visit(store, sql, [&rows](const VisitedRow& row) {
    rows.push_back({row.Int(0), row.Int(1), row.Int(2), static_cast<int>(row.Int(3)),
                    DayOf(row.Text(4)), row.Double(5), row.Double(6), row.Double(7), row.Double(8),
                    row.Double(9)});
  });
  std::ranges::sort(rows, IsBefore);
  return rows;
}

std::unordered_map<std::int64_t, HoldingAccount> ReadHoldingAccounts(Connection& store) {
  std::unordered_map<std::int64_t, HoldingAccount> accounts;
  Recordset rows = store.OpenRecordset(
      "Select A.AccountID, A.Account, A.CurrencyId, C.Currency, A.CloseAccount from tblAccounts A "
      "LEFT JOIN tblCurrency C ON C.CurrencyID = A.CurrencyId");
  for (; !rows.Eof(); rows.MoveNext()) {
    accounts[rows.Int(0)] = {std::string(rows.Text(1)), rows.Int(2), std::string(rows.Text(3)),
                             rows.Int(4) != 0};
  }
  return accounts;
}

std::unordered_map<std::int64_t, HoldingName> ReadHoldingNames(Connection& store) {
  std::unordered_map<std::int64_t, HoldingName> names;
  Recordset rows =
      store.OpenRecordset("Select PayeeID, Payee, Symbol from tblPayees Where Investment = 1");
  for (; !rows.Eof(); rows.MoveNext()) {
    names[rows.Int(0)] = {std::string(rows.Text(1)), std::string(rows.Text(2))};
  }
  return names;
}

std::vector<DayPrice> ReadPrices(Connection& store, std::int64_t payeeId) {
  std::vector<DayPrice> prices;
  Recordset rows = store.OpenRecordset("Select [Date], Price from tblHistory WHERE PayeeId = " +
                                       SqlNumber(payeeId) + " Order by [Date], HistoryID");
  for (; !rows.Eof(); rows.MoveNext()) {
    const DayPrice price{rows.Day(0).value_or(Date()), rows.Double(1)};
    if (!prices.empty() && prices.back().date == price.date) prices.pop_back();
    prices.push_back(price);
  }
  return prices;
}

}  // namespace corvanta::inline invest
