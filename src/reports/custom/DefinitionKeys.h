// What a saved report names, against what the open data file has.
#pragma once

#include "reports/custom/ReportDefinition.h"

#include <string>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline reports {

// A saved report as it can be run now.
struct OpenedDefinition {
  // Without the identifiers that the data file has no more; whole categories have brought their
  // present sub-categories. Without a currency that is none of the data file.
  ReportDefinition definition;
  // Lists of which nothing is left: the report has no rows.
  std::vector<FilterKind> emptied;
  // What could not be read, and what is gone, in sentences for a person.
  std::vector<std::string> troubles;
};
// Throws StoreError.
[[nodiscard]] OpenedDefinition OpenDefinition(const ReadDefinition& read, Connection& store,
                                              const Locale& locale);
// The troubles as one text; the saved report keeps all that is in it.
[[nodiscard]] std::string TroubleText(const OpenedDefinition& opened);

// Of the chosen categories one of each that is chosen with all of its sub-categories. Throws
// StoreError.
[[nodiscard]] std::vector<std::int64_t> WholeCategoriesOf(const RowFilter& filter,
                                                          Connection& store);

}  // namespace corvanta::inline reports
