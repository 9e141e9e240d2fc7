// A report as the rows of a list.
#pragma once

#include "app/lists/ListModel.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline reports {
struct ReportColumn;
struct ReportTable;
}  // namespace corvanta::inline reports

namespace corvanta::inline app {

// The columns of a report, figures at the right.
[[nodiscard]] std::vector<ListColumn> ColumnsOf(const std::vector<ReportColumn>& columns,
                                                const Locale& locale);
// The same as wide as what stands in them: figures in whole, texts up to a length, and where there
// is too little room texts give way, those that take the most first. Of a long report texts are
// measured here and there.
[[nodiscard]] std::vector<ListColumn> FittedColumns(const ReportTable& table, const Locale& locale,
                                                    int decimals);
// Its rows, whose keys are their numbers, from 1. `decimals` is how many prices and quantities
// have. Rows of totals stay below the others in whatever order. The table must outlive the rows.
[[nodiscard]] std::unique_ptr<ListRows> RowsOf(const ReportTable& table, const Locale& locale,
                                               int decimals);
// The column that a row comes to: its last one of money; nullopt for a report without.
[[nodiscard]] std::optional<std::size_t> FigureColumn(const ReportTable& table);

}  // namespace corvanta::inline app
