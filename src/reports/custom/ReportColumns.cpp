#include "reports/custom/ReportColumns.h"

#include "platform/TextCase.h"
#include "reports/query/ReportTable.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline reports {
namespace {

bool Has(const std::vector<std::string>& list, const std::string& name) {
  return std::ranges::find(list, name) != list.end();
}

}  // namespace

const std::vector<std::string>& AllReportColumns() {
  static const std::vector<std::string> kColumns = SplitItems(
      "Account,Action,Actual,April,August,Balance,Budget,Category,Commission,Currency,Date,"
      "December,Description,Difference,Dividend,Expense,February,Gain,Income,January,July,June,"
      "Last Price,March,May,Name,November,October,Payee,Payment,Payment Type,Price,Quantity,"
      "Records,Ref,September,Shares,Status,Sub Category,Symbol,Total,Year/Month");
  return kColumns;
}

std::vector<std::string> ShownColumns(const std::vector<std::string>& headers,
                                      const std::vector<std::string>& picked) {
  const bool isAll =
      std::ranges::none_of(picked, [&](const std::string& name) { return Has(headers, name); });
  std::vector<std::string> shown;
  for (const std::string& name : AllReportColumns()) {
    if (Has(headers, name) && (isAll || Has(picked, name))) shown.push_back(name);
  }
  // Those outside the list cannot be picked from it, but be named.
  const auto isOwn = [](const std::string& name) { return !Has(AllReportColumns(), name); };
  const bool areNamed = std::ranges::any_of(
      picked, [&](const std::string& name) { return isOwn(name) && Has(headers, name); });
  for (const std::string& name : headers) {
    if (isOwn(name) && (!areNamed || Has(picked, name))) shown.push_back(name);
  }
  return shown;
}

ReportTable OnlyColumns(ReportTable report, const std::vector<std::string>& columns) {
  std::vector<std::size_t> kept;
  for (std::size_t i = 0; i < report.columns.size(); ++i) {
    if (Has(columns, report.columns[i].header)) kept.push_back(i);
  }
  if (kept.empty() || kept.size() == report.columns.size()) return report;
  const auto keep = [&kept](auto& items) {
    auto former = std::move(items);
    items.clear();
    for (const std::size_t place : kept) items.push_back(std::move(former.at(place)));
  };
  keep(report.columns);
  for (ReportRow& row : report.rows) keep(row.cells);
  return report;
}

std::vector<std::string> SplitItems(std::string_view list) {
  std::vector<std::string> items;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find(','), list.size());
    const std::string_view item = Trim(list.substr(0, end));
    if (!item.empty()) items.emplace_back(item);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return items;
}

std::string JoinItems(const std::vector<std::string>& items) {
  std::string list;
  for (const std::string& item : items) list += (list.empty() ? "" : ",") + item;
  return list;
}

ColumnPicker::ColumnPicker(const std::vector<std::string>& current) {
  for (const std::string& name : AllReportColumns()) {
    ticks_.push_back(Has(current, name));
  }
}

const std::string& ColumnPicker::Name(std::size_t column) const {
  return AllReportColumns().at(column);
}

std::optional<Warning> ColumnPicker::Check() const {
  if (std::ranges::find(ticks_, true) != ticks_.end()) return std::nullopt;
  return Warning{"Pick Columns", "Please select at least one column for the report", "lvColumns"};
}

std::vector<std::string> ColumnPicker::Columns() const {
  std::vector<std::string> columns;
  for (std::size_t i = 0; i < ticks_.size(); ++i) {
    if (ticks_[i]) columns.push_back(Name(i));
  }
  return columns;
}

}  // namespace corvanta::inline reports
