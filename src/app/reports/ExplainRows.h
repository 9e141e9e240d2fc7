// What a figure is made of as the rows of a list.
#pragma once

#include "app/lists/ListModel.h"
#include "reports/query/Explain.h"

#include <memory>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// The columns of such a list, from left to right.
enum class ExplainColumn { Date, Account, Payee, Amount, Currency, Rate, Sign, Counts };

[[nodiscard]] std::vector<ListColumn> ExplainColumns(const Locale& locale);
// The rows, whose keys are their numbers, from 1; `decimals` is how many the amounts have (below 0:
// the locale's). They are written as they come into sight. Rows and locale must outlive them.
[[nodiscard]] std::unique_ptr<ListRows> ExplainRowsOf(const std::vector<ExplainedRow>& rows,
                                                      const Locale& locale, int decimals);

}  // namespace corvanta::inline app
