#pragma once

#include "ledger/register/Period.h"
#include "reports/query/PlainLedger.h"
#include "reports/query/ReportRequest.h"
#include "store/sql/Value.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvanta {

// A row of a report: its texts and figures.
using Cells = std::vector<Value>;

// Figures that are added to those of the same key.
class PlainSums {
 public:
  void Add(const std::string& key, const Cells& cells);
  [[nodiscard]] std::vector<Cells> Get() const;

 private:
  std::vector<std::pair<std::string, Cells>> rows_;
};

// Behind the rows their totals by currency, of the columns from `first` to `last`.
[[nodiscard]] std::vector<Cells> WithTotals(std::vector<Cells> rows, std::size_t currencyColumn,
                                            std::size_t first, std::size_t last);

// The rows of a ledger that a request counts, and what they come to: plain loops, without the
// engine.
class PlainRows {
 public:
  using Row = PlainLedger::Row;

  PlainRows(const PlainLedger& ledger, const ReportRequest& request, const PlainRates& rates,
            Date today)
      : ledger_(ledger), request_(request), rates_(rates.rates), today_(today) {}

  [[nodiscard]] const PlainLedger& Ledger() const { return ledger_; }
  [[nodiscard]] const ReportRequest& Request() const { return request_; }
  [[nodiscard]] Date Today() const { return today_; }

  // Whether the key is of the list; all are of an empty one.
  [[nodiscard]] static bool In(const std::vector<std::int64_t>& keys, std::int64_t key);
  [[nodiscard]] bool IsAccountShown(const PlainLedger::Account& account) const;
  [[nodiscard]] bool HasKeyword(const std::set<std::int64_t>& keywords) const;
  // All but the days.
  [[nodiscard]] bool Passes(const Row& row) const;
  [[nodiscard]] bool IsInRange(const Row& row) const;
  // Those of the range that pass: splits whole, or their lines.
  [[nodiscard]] std::vector<const Row*> Wholes() const;
  [[nodiscard]] std::vector<const Row*> Lines() const;
  [[nodiscard]] std::vector<const Row*> Chosen(
      const std::function<bool(const Row&)>& isWanted) const;

  [[nodiscard]] double RateOf(const std::string& currency) const;
  [[nodiscard]] std::string Shown(const std::string& currency) const;
  [[nodiscard]] std::string CurrencyOf(const Row& row) const;
  [[nodiscard]] double Money(const Row& row) const;
  // The currency of plans, and what they are shown in.
  [[nodiscard]] std::string PlansKeptIn() const;
  [[nodiscard]] std::string Home() const { return Shown(PlansKeptIn()); }

 private:
  [[nodiscard]] bool HasStatus(const Row& row) const;
  [[nodiscard]] bool HasText(const Row& row) const;

  const PlainLedger& ledger_;
  const ReportRequest& request_;
  std::map<std::string, double> rates_;
  Date today_;
};

[[nodiscard]] inline double MoneyIn(double amount) {
  return amount > 0 ? amount : 0;
}
[[nodiscard]] inline double MoneyOut(double amount) {
  return amount < 0 ? amount : 0;
}
// Units that an action brings are counted, those that it takes are taken off.
[[nodiscard]] inline double UnitsOf(const PlainLedger::Row& row) {
  return (row.action == 2 || row.action == 6 ? -1 : 1) * row.shares;
}

}  // namespace corvanta
