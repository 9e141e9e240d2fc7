#include "reports/print/QtPrinting.h"

#include "controls/QtText.h"
#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "reports/print/LVPrint.h"
#include "reports/print/PrintDocument.h"
#include "reports/print/QtPainterSurface.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

namespace corvanta::inline reports {
namespace {

constexpr int kPdfResolution = 1200;

}  // namespace

QPageLayout PageLayoutOf(const PageSetup& setup, PrintOrientation wish) {
  const PaperSize& paper = PaperSizes()[setup.paper];
  const PageMargins& margins = setup.margins;
  const bool isLandscape = OrientationOf(setup, wish) == PrintOrientation::Landscape;
  return QPageLayout(QPageSize(QSizeF(paper.width, paper.height), QPageSize::Millimeter),
                     isLandscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                     QMarginsF(margins.left, margins.top, margins.right, margins.bottom),
                     QPageLayout::Millimeter);
}

bool PrintPages(QPagedPaintDevice& device, const PrintTable& table, Platform& platform) {
  QPainter painter;
  if (!painter.begin(&device)) {
    throw PlatformError(
        "The printer cannot be used. Nothing was printed. Choose another one, or save a PDF "
        "instead.");
  }
  Progress& progress = platform.progress;
  const StatusWords words(progress, "Printing...");
  PrinterSurface surface(device, painter);
  LVPrint print(table, PrintDate(platform), surface);
  return print.Print(PagesShownBy(progress));
}

bool SavePdf(const PrintTable& table, Platform& platform, const PageSetup& setup) {
  const auto path = platform.prompts.SaveFile({"Save as PDF", "PDF Documents", "*.pdf", "pdf", {}});
  if (!path) return false;
  // Written as a whole at the end, so that a full disk leaves no half of a document.
  QBuffer document;
  document.open(QIODevice::WriteOnly);
  QPdfWriter writer(&document);
  writer.setResolution(kPdfResolution);
  writer.setTitle(ToQt(table.title));
  writer.setPageLayout(PageLayoutOf(setup, table.orientation));
  if (!PrintPages(writer, table, platform)) return false;
  const QByteArray& bytes = document.data();
  platform.files.Save(*path, {bytes.constData(), static_cast<std::size_t>(bytes.size())},
                      FormerFile::Replace);
  return true;
}

}  // namespace corvanta::inline reports
