#pragma once

#include "ledger/register/Period.h"
#include "ledger/register/RowFilter.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline reports {

// A report as a person has saved it: one of the catalogue with its filters, columns, days and
// currency.
struct ReportDefinition {
  std::string name;  // as the person gave it
  int report = 0;    // its number in the catalogue
  RowFilter filter;
  // Categories of the filter that were chosen with all of their sub-categories: one key of each.
  // Sub-categories that such a category gets later belong to the report, too.
  std::vector<std::int64_t> wholeCategories;
  std::vector<std::string> actions;  // names of investment actions, such as "Buy"; none: all
  std::vector<std::string> columns;  // headings of the shown columns; none: all
  std::vector<int> widths;           // theirs, in pixels; 0 for one that fills what is left
  std::optional<Period> range;       // the days it keeps to
  std::string currency;              // the code that it converts into; empty: it does not
  // Choices that the thirteen values have no place for. That the text is kept to the rows
  // themselves is one of them, too.
  std::optional<Period> otherRange = {};        // that a comparison sets beside the days
  std::vector<std::int64_t> paymentTypes = {};  // their keys; none: all
  bool withoutTransfers = false;
  bool foldsSubCategories = false;

  bool operator==(const ReportDefinition&) const = default;
};

// The thirteen values that a definition is kept as. Beside the name stands the report's number
// ("Food#5"); the days are "#2026-01-01#2026-12-31"; lists are separated by commas. Where there are
// choices without a place among them, a further value holds these:
// "Compare=#2025-01-01#2025-12-31;Payment=1,3;Transfers=0;SubCategories=0;TextOnly=1".
[[nodiscard]] std::map<std::string, std::string> ValuesOf(const ReportDefinition& definition);

// A definition that was read, and what of its values could not be, in sentences for a person.
struct ReadDefinition {
  ReportDefinition definition;
  std::vector<std::string> troubles;
};
// Values that are missing are empty ones. A definition that does not say which report it is of, as
// others write them, is known by its name or, where one report alone has all of its columns, by
// these; otherwise its report is 0.
[[nodiscard]] ReadDefinition DefinitionOf(const std::map<std::string, std::string>& values);

// What the value "Report" says: the name, and the number behind it; 0 where there is none.
struct ReportLabel {
  std::string name;
  int report = 0;
};
[[nodiscard]] ReportLabel ReadReportLabel(std::string_view value);

// What the choices beside the thirteen values are kept in.
inline constexpr const char* kFurtherValue = "Further";
// The names of the thirteen values.
[[nodiscard]] const std::vector<std::string>& DefinitionValueNames();

}  // namespace corvanta::inline reports
