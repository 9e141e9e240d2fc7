#include "reports/query/ReportCatalogue.h"

#include "platform/TextCase.h"

#include <array>
#include <cstddef>

namespace corvanta::inline reports {
namespace {

constexpr std::array kMonths = {"January",   "February", "March",    "April",
                                "May",       "June",     "July",     "August",
                                "September", "October",  "November", "December"};

std::vector<std::string> Split(std::string_view list) {
  std::vector<std::string> items;
  for (;;) {
    const std::size_t end = list.find(',');
    items.emplace_back(list.substr(0, end));
    if (end == std::string_view::npos) return items;
    list = list.substr(end + 1);
  }
}

bool IsMonth(std::string_view header) {
  for (const char* month : kMonths) {
    if (header == month) return true;
  }
  return false;
}

// The headers say it better than the list of types, which is one short in a report of months.
ReportColumn::Content ContentOf(std::string_view header, ReportColumn::Kind kind) {
  using enum ReportColumn::Content;
  if (kind == ReportColumn::Date) return Date;
  if (header == "Records") return Count;
  if (header == "Quantity" || header == "Price" || header == "Last Price") return Quantity;
  if (IsMonth(header)) return Money;
  return kind == ReportColumn::Number && header != "Currency" ? Money : Text;
}

}  // namespace

const std::vector<ReportInfo>& ReportCatalogue() {
  static const std::vector<ReportInfo> kReports = {
      {1, "Account Summary", "Account,Income,Expense,Balance,Currency,", ",N,N,N,,"},
      {2, "Monthly Cash Flow", "Year/Month,Income,Expense,Total,Currency,", ",N,N,N,,"},
      {3, "Account Transactions",
       "Account,Date,Payee,Category,Ref,Description,Status,Income,Expense,Balance,Currency",
       ",D,,,,,,N,N,N,"},
      {4, "Budget Report", "Category,Sub Category,Budget,Actual,Difference,Currency,", ",,N,N,N,,"},
      {5, "Spending by Category", "Category,Sub Category,Records,Income,Expense,Total,Currency,",
       ",,N,N,N,N,,"},
      {6, "Monthly Spending by Category",
       "Category,Sub Category,January,February,March,April,May,June,July,August,September,October,"
       "November,December,Total,Currency,",
       ",,N,N,N,N,N,N,N,N,N,N,N,N,N,,"},
      {7, "Spending by Payee", "Payee,Records,Income,Expense,Total,Currency,", ",N,N,N,N,,"},
      {8, "Monthly Spending by Payee",
       "Payee,January,February,March,April,May,June,July,August,September,October,November,"
       "December,Total,Currency,",
       ",,N,N,N,N,N,N,N,N,N,N,N,N,N,,"},
      {9, "Spending by Payment Type", "Payment Type,Records,Income,Expense,Total,Currency,",
       ",N,N,N,N,,"},
      {10, "Investment Gains and Losses",
       "Name,Symbol,Currency,Description,Last Price,Quantity,Total,Gain,", ",,,,N,N,N,N,"},
      {11, "Investment Transactions",
       "Account,Date,Action,Symbol,Description,Dividend,Price,Quantity,Commission,Total,Currency,",
       ",D,,,,N,N,N,N,N,,", false},
      {12, "Net Worth by Month", "Year/Month,Cash,Investments,Net Worth,Currency,", ",N,N,N,,"},
      {13, "Two Periods Compared",
       "Category,Sub Category,This Period,Other Period,Difference,Currency,", ",,N,N,N,,"},
      {14, "Budget of the Month", "Category,Sub Category,Plan,Carried Over,Actual,Left,Currency,",
       ",,N,N,N,N,,"},
      {15, "Balance Forecast", "Account,Date,Expected,Average,Balance,Currency,", ",D,N,N,N,,"}};
  return kReports;
}

const ReportInfo* FindReport(int number) {
  const std::vector<ReportInfo>& reports = ReportCatalogue();
  if (number < 1 || static_cast<std::size_t>(number) > reports.size()) return nullptr;
  return &reports[static_cast<std::size_t>(number) - 1];
}

const ReportInfo* FindReport(std::string_view nameOrNumber) {
  const std::string_view typed = Trim(nameOrNumber);
  for (const ReportInfo& report : ReportCatalogue()) {
    if (EqualFolded(report.name, typed) || std::to_string(report.number) == typed) return &report;
  }
  return nullptr;
}

bool HasSubCategories(int report) {
  const ReportInfo* info = FindReport(report);
  return info != nullptr && std::string_view(info->headers).starts_with("Category,");
}

std::vector<ReportColumn> ColumnsOf(const ReportInfo& report) {
  const std::vector<std::string> headers = Split(report.headers);
  const std::vector<std::string> types = Split(report.types);
  std::vector<ReportColumn> columns;
  for (std::size_t i = 0; i < headers.size(); ++i) {
    if (headers[i].empty()) continue;
    const std::string type = i < types.size() ? types[i] : std::string();
    const ReportColumn::Kind kind = type == "N"   ? ReportColumn::Number
                                    : type == "D" ? ReportColumn::Date
                                                  : ReportColumn::Text;
    columns.push_back({headers[i], kind, ContentOf(headers[i], kind)});
  }
  return columns;
}

const char* MonthName(int month) {
  return kMonths.at(static_cast<std::size_t>(month) - 1);
}

}  // namespace corvanta::inline reports
