#include "invest/holdings/CostBasis.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace corvanta::inline invest {
namespace {

// Of a unit; what is left below it is the noise of adding fractions.
constexpr double kNothing = 1e-9;

}  // namespace

void CostBasis::Add(const HoldingRow& row) {
  dividends_ += row.DividendPaid();
  switch (static_cast<InvestAction>(row.action)) {
    case InvestAction::Buy:
    case InvestAction::ReinvestDividend:
      Trade(row.shares, row.Cost());
      break;
    case InvestAction::Sell:
      Trade(-row.shares, -row.Proceeds());
      break;
    case InvestAction::RemoveShares: {
      const double held = std::clamp(row.shares, 0.0, std::max(units_, 0.0));
      Close(held);
      Open(held - row.shares, 0);
      break;
    }
    default:
      if (row.price == 0) {
        Spread(row.shares);
      } else {
        Trade(row.shares, row.Cost());
      }
  }
  Settle();
}

double CostBasis::Cost() const {
  return std::accumulate(lots_.begin(), lots_.end(), 0.0,
                         [](double sum, const Lot& lot) { return sum + lot.cost; });
}

void CostBasis::Trade(double units, double cost) {
  if (units == 0) {
    realised_ -= cost;
    return;
  }
  const bool closes = units_ != 0 && (units > 0) != (units_ > 0);
  if (!closes) return Open(units, cost);
  const double closed = std::min(std::abs(units), std::abs(units_));
  const double share = closed / std::abs(units);
  realised_ -= cost * share + Close(closed);
  Open(std::copysign(std::abs(units) - closed, units), cost * (1 - share));
}

double CostBasis::Close(double units) {
  double cost = 0;
  while (units > 0 && !lots_.empty()) {
    Lot& lot = lots_.front();
    const double taken = std::min(units, std::abs(lot.units));
    const double part = lot.units == 0 ? 1 : taken / std::abs(lot.units);
    cost += lot.cost * part;
    units_ -= lot.units * part;
    units -= taken;
    lot.cost -= lot.cost * part;
    lot.units -= lot.units * part;
    if (part >= 1) lots_.pop_front();
  }
  return cost;
}

void CostBasis::Open(double units, double cost) {
  if (units == 0) return;
  units_ += units;
  if (method_ == CostMethod::FirstInFirstOut || lots_.empty()) {
    lots_.push_back({units, cost});
    return;
  }
  lots_.front().units += units;
  lots_.front().cost += cost;
}

void CostBasis::Spread(double units) {
  if (units_ <= 0) return Trade(units, 0);
  const double factor = (units_ + units) / units_;
  for (Lot& lot : lots_) lot.units *= factor;
  units_ += units;
}

void CostBasis::Settle() {
  if (std::abs(units_) >= kNothing) return;
  // What a rest of nothing has cost was spent on what is gone.
  realised_ -= Cost();
  units_ = 0;
  lots_.clear();
}

}  // namespace corvanta::inline invest
