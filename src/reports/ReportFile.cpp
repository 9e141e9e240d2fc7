#include "reports/ReportFile.h"

#include "platform/ExportWords.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reports/chart/ChartFile.h"
#include "reports/print/PrintDocument.h"
#include "reports/print/ReportPrint.h"
#include "reports/query/ReportCatalogue.h"
#include "reports/query/ReportTable.h"
#include "reports/sheet/SheetExport.h"
#include "reports/sheet/SheetTable.h"

namespace corvanta::inline reports {
namespace {

std::optional<std::string> ChartOf(const ReportTable& report, PictureForm form,
                                   Platform& platform) {
  const ChartData chart = BuildOwnChart(report, platform.locale.CurrencyCode());
  if (chart.IsEmpty()) {
    const ReportInfo* info = FindReport(report.report);
    const bool hasChart = info != nullptr && info->hasChart;
    platform.prompts.Tell(
        kFileExportWarning,
        hasChart ? "The report has no rows that a chart could be drawn of. Nothing was written."
                 : "The report \"" + report.name +
                       "\" has no chart. Nothing was written. Choose a name that ends in .pdf or "
                       ".xlsx instead.");
    return std::nullopt;
  }
  return ChartBytes(chart, form, platform.locale);
}

}  // namespace

std::optional<ReportForm> ReportFormOf(std::string_view path) {
  if (ToLower(path).ends_with(".pdf")) return ReportForm::Pdf;
  if (const auto picture = PictureFormOf(path)) {
    return *picture == PictureForm::Svg ? ReportForm::Svg : ReportForm::Png;
  }
  const auto sheet = SheetFormOf(path);
  if (!sheet) return std::nullopt;
  if (*sheet == SheetForm::Csv) return ReportForm::Csv;
  return *sheet == SheetForm::Xls ? ReportForm::Xls : ReportForm::Xlsx;
}

std::optional<std::string> ReportBytes(const ReportTable& report, ReportForm form,
                                       Platform& platform) {
  switch (form) {
    case ReportForm::Pdf:
      return PdfOf(PrintTableOf(report, platform.locale), platform);
    case ReportForm::Svg:
      return ChartOf(report, PictureForm::Svg, platform);
    case ReportForm::Png:
      return ChartOf(report, PictureForm::Png, platform);
    case ReportForm::Xls:
      return SheetBytes(SheetOf(report), SheetForm::Xls, platform);
    case ReportForm::Xlsx:
      return SheetBytes(SheetOf(report), SheetForm::Xlsx, platform);
    case ReportForm::Csv:
      break;
  }
  return CsvOf(SheetOf(report));
}

}  // namespace corvanta::inline reports
