// Every report of the catalogue worked out from plain rows. The rows of a report are its own order
// or, where it has none, any.
#pragma once

#include "reports/query/PlainRows.h"

#include <vector>

namespace corvanta {

[[nodiscard]] std::vector<Cells> PlainAccountSummary(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainCashFlow(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainTransactions(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainBudget(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainSpending(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainMonthly(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainGains(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainTrades(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainNetWorth(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainComparison(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainBudgetOfMonth(const PlainRows& plain);
[[nodiscard]] std::vector<Cells> PlainForecast(const PlainRows& plain);

}  // namespace corvanta
