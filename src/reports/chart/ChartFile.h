// Charts as pages and files.
#pragma once

#include "reports/chart/ChartData.h"
#include "reports/print/CairoSurface.h"
#include "reports/print/PrintTable.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
class Locale;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline reports {

// The chart as a page that is previewed and printed like a list. The locale outlives it.
[[nodiscard]] PrintTable PrintTableOf(const ChartData& chart, const Locale& locale);

// By the file name's extension, .svg or .png; nullopt for any other.
[[nodiscard]] std::optional<PictureForm> PictureFormOf(std::string_view path);
// The chart with its title as the bytes of such a file. Throws PlatformError.
[[nodiscard]] std::string ChartBytes(const ChartData& chart, PictureForm form,
                                     const Locale& locale);
// Asks for a file and writes the chart into it. True when it was written; a name without one of the
// extensions is told. Throws PlatformError.
bool AskAndSaveChart(const ChartData& chart, Platform& platform);

}  // namespace corvanta::inline reports
