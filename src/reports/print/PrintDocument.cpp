#include "reports/print/PrintDocument.h"

#include "platform/Clock.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Progress.h"
#include "platform/StatusWords.h"
#include "reports/print/LVPrint.h"

#include <array>

namespace corvanta::inline reports {
namespace {
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr double kEdge = 5;  // millimetres around a picture
}  // namespace

std::string PrintDate(const Platform& platform) {
  return platform.locale.FormatLongDate(platform.clock.Today());
}

std::optional<std::string> PdfOf(const PrintTable& table, Platform& platform) {
  const PageForm form = PageFormOf(ReadPageSetup(platform), table.orientation);
  CairoSurface surface = CairoSurface::Pdf(form, table.title);
  LVPrint print(table, PrintDate(platform), surface);
  const StatusWords words(platform.progress, "Printing...");
  if (!print.Print(PagesShownBy(platform.progress))) return std::nullopt;
  return surface.Take();
}

std::string PictureOf(const PrintPicture& picture, PictureForm form, const PictureSize& size) {
  CairoSurface surface = CairoSurface::Picture(form, size.width, size.height, size.dotsPerInch);
  surface.SetForeColor(kWhite);
  const std::array<PrintPoint, 4> sheet{
      {{0, 0}, {size.width, 0}, {size.width, size.height}, {0, size.height}}};
  surface.Shape(sheet);
  picture(surface, {kEdge, kEdge, size.width - 2 * kEdge, size.height - 2 * kEdge});
  surface.EndDoc();
  return surface.Take();
}

}  // namespace corvanta::inline reports
