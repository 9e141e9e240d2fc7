// A report as a file of its own, made without a window.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline reports {

struct ReportTable;

enum class ReportForm { Csv, Xls, Xlsx, Pdf, Svg, Png };

// By the file name's extension; nullopt for any other.
[[nodiscard]] std::optional<ReportForm> ReportFormOf(std::string_view path);

// The bytes of such a file: the rows as a table or as pages, or for .svg and .png the chart of the
// first currency that has one. nullopt when the person stopped the printing, and, told, for the
// chart of a report that has none or no rows. Throws PlatformError.
[[nodiscard]] std::optional<std::string> ReportBytes(const ReportTable& report, ReportForm form,
                                                     Platform& platform);

}  // namespace corvanta::inline reports
