#pragma once

#include "invest/holdings/HoldingRow.h"

#include <deque>

namespace corvanta::inline invest {

// Which units leave a holding first, and with which cost.
enum class CostMethod { Average, FirstInFirstOut };

// What one investment in one account comes to, row after row: units, what those held have cost, and
// what was gained with those that were sold. In the account's currency.
//
//   Average          cost of q units sold out of u held = cost held * q / u
//   FirstInFirstOut  cost of q units sold = cost of the q units bought first
//   gain of a sale   proceeds less commission - cost of the units sold
//
// (International Accounting Standard 2, paragraphs 25 and 27, has both ways to assign a cost.)
// Commissions are part of the cost and taken off the proceeds.
//
// Units that are added without a price are those of a split or a bonus: they cost nothing and stand
// beside those held, so that what was bought first stays first. With a price they are a lot of
// their own. Units that are removed take their cost with them and bring no gain. What is sold
// beyond the units held is owed, and the gain of it comes when it is bought back.
class CostBasis {
 public:
  // Units that came together; negative ones are owed.
  struct Lot {
    double units = 0;
    double cost = 0;  // of all of them; negative what was got for those that are owed
  };

  explicit CostBasis(CostMethod method) : method_(method) {}

  // In the order of days, those of one day in the order of their keys.
  void Add(const HoldingRow& row);

  [[nodiscard]] double Units() const { return units_; }
  [[nodiscard]] double Cost() const;
  // What is held, those first that leave first; one lot where the average counts.
  [[nodiscard]] const std::deque<Lot>& Lots() const { return lots_; }
  [[nodiscard]] double Realised() const { return realised_; }
  [[nodiscard]] double Dividends() const { return dividends_; }

 private:
  // Units that come for that cost, or go (both negative) for that much.
  void Trade(double units, double cost);
  // Takes units out of those held, or owed, and returns what they cost.
  double Close(double units);
  void Open(double units, double cost);
  void Spread(double units);
  void Settle();

  CostMethod method_;
  std::deque<Lot> lots_;  // one alone where the average counts
  double units_ = 0;
  double realised_ = 0;
  double dividends_ = 0;
};

}  // namespace corvanta::inline invest
