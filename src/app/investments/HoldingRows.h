// What the list of holdings shows: its columns, a row of it, and the figures below.
#pragma once

#include "app/lists/ListModel.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline invest {
struct Holding;
struct HoldingTotal;
}  // namespace corvanta::inline invest

namespace corvanta::inline app {

[[nodiscard]] std::vector<ListColumn> HoldingColumns(const Locale& locale);
// Of one account and one investment.
[[nodiscard]] std::int64_t HoldingKey(const Holding& holding);
// Prices and units with that many decimals.
[[nodiscard]] ListRow HoldingRow(const Holding& holding, const Locale& locale, int decimals);
// What the holdings of one currency come to, and have earned.
[[nodiscard]] QString HoldingFigure(const HoldingTotal& total, const Locale& locale);

}  // namespace corvanta::inline app
