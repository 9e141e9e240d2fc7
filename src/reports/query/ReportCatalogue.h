#pragma once

#include "reports/query/ReportTable.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

// Over the list of reports.
inline constexpr const char* kReportRoot = "Corvanta Reports";

// A report of the catalogue. Its two lists go with it to printing and spreadsheets.
struct ReportInfo {
  int number = 0;
  const char* name = "";
  const char* headers = "";  // joined by ","
  const char* types = "";    // "N" for numbers, "D" for dates, else empty; joined by ","
  bool hasChart = true;
};

// All of them in the order of their numbers, which begin at 1 and have no gaps: the eleven standard
// ones and those behind them.
[[nodiscard]] const std::vector<ReportInfo>& ReportCatalogue();
inline constexpr int kStandardReports = 11;
inline constexpr int kAccountSummary = 1;
inline constexpr int kCashFlow = 2;
inline constexpr int kAccountTransactions = 3;
inline constexpr int kBudgets = 4;
inline constexpr int kSpendingByCategory = 5;
inline constexpr int kMonthlySpendingByCategory = 6;
inline constexpr int kSpendingByPayee = 7;
inline constexpr int kMonthlySpendingByPayee = 8;
inline constexpr int kSpendingByPaymentType = 9;
inline constexpr int kInvestmentGains = 10;
inline constexpr int kInvestmentTransactions = 11;
inline constexpr int kNetWorth = 12;
inline constexpr int kTwoPeriods = 13;
inline constexpr int kBudgetOfMonth = 14;
inline constexpr int kBalanceForecast = 15;
inline constexpr std::size_t kPlanColumn = 2;  // of the budget of a month
// nullptr when there is none of that number.
[[nodiscard]] const ReportInfo* FindReport(int number);
// By its name, in whatever case, or its number as digits; nullptr when there is none.
[[nodiscard]] const ReportInfo* FindReport(std::string_view nameOrNumber);
// Whether its rows are categories, which may be folded.
[[nodiscard]] bool HasSubCategories(int report);
// A column for every header of the list; the lists' last item, which is empty, is none.
[[nodiscard]] std::vector<ReportColumn> ColumnsOf(const ReportInfo& report);
// "January" to "December".
[[nodiscard]] const char* MonthName(int month);

}  // namespace corvanta::inline reports
