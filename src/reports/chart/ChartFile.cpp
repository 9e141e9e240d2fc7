#include "reports/chart/ChartFile.h"

#include "platform/ExportWords.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"
#include "reports/chart/ChartPicture.h"
#include "reports/print/PrintDocument.h"

namespace corvanta::inline reports {

PrintTable PrintTableOf(const ChartData& chart, const Locale& locale) {
  PrintTable table;
  table.title = chart.title;
  table.orientation = PrintOrientation::Landscape;
  table.picture = ChartPicture(chart, locale, false);
  return table;
}

std::optional<PictureForm> PictureFormOf(std::string_view path) {
  const std::string name = ToLower(path);
  if (name.ends_with(".svg")) return PictureForm::Svg;
  if (name.ends_with(".png")) return PictureForm::Png;
  return std::nullopt;
}

std::string ChartBytes(const ChartData& chart, PictureForm form, const Locale& locale) {
  return PictureOf(ChartPicture(chart, locale, true), form);
}

bool AskAndSaveChart(const ChartData& chart, Platform& platform) {
  // The question knows one filter; the last of these closes the list.
  const auto path = platform.prompts.SaveFile(
      {"Save Chart", "SVG Picture (*.svg);;PNG Picture", "*.png", {}, {}});
  if (!path) return false;
  const auto form = PictureFormOf(*path);
  if (!form) {
    platform.prompts.Tell(kFileExportWarning, kNeedsExtension, Icon::Warning);
    return false;
  }
  platform.files.Save(*path, ChartBytes(chart, *form, platform.locale), FormerFile::Replace);
  return true;
}

}  // namespace corvanta::inline reports
