#include "ledger/investments/TradePlaces.h"

#include "ledger/KeyLists.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace corvanta::inline ledger {
namespace {

struct Figures {
  double shares = 0;
  double price = 0;
  std::int64_t transactionId = 0;
};

std::tuple<double, double> OrderOf(const Figures& figures) {
  return {figures.shares, figures.price};
}

}  // namespace

TradePlaces ReadTradePlaces(Connection& store, Keys transactionIds) {
  TradePlaces places;
  std::vector<Figures> all;
  const auto take = [&](const VisitedRow& row) {
    // Without units no price is shown.
    const double shares = row.Double(2);
    all.push_back({shares, shares == 0 ? 0 : row.Double(3), row.Int(0)});
    places[row.Int(0)].action = row.Int(1);
  };
  ForEachKeyList(transactionIds, [&](const std::string& list) {
    Recordset::Visit(store,
                     "Select T.TransactionID, T.[Action], T.Shares, T.Price from tblTransactions T "
                     "WHERE T.[Action] Between 1 AND 6 AND T.TransactionID IN (" +
                         list + ")",
                     take);
  });
  std::ranges::sort(all, {}, OrderOf);
  std::uint64_t place = 0;
  for (std::size_t i = 0; i < all.size(); ++i) {
    if (i > 0 && OrderOf(all[i - 1]) != OrderOf(all[i])) ++place;
    places[all[i].transactionId].place = place;
  }
  return places;
}

}  // namespace corvanta::inline ledger
