#include "reports/print/QtPrinting.h"

#include "controls/QtText.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/Prompts.h"
#include "platform/StatusWords.h"
#include "reports/print/LVPrint.h"
#include "reports/print/QtPainterSurface.h"

#include <QBuffer>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>

namespace corvanta::inline reports {
namespace {

constexpr double kMargin = 15;  // millimetres
constexpr int kPdfResolution = 1200;

}  // namespace

std::string PrintDate(const Platform& platform) {
  return platform.locale.FormatLongDate(platform.clock.Today());
}

QPageLayout PageLayoutOf(PrintOrientation orientation) {
  const bool isLetter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageLayout(
      QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4),
      orientation == PrintOrientation::Landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
      QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
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
  return print.Print([&](int page, int pages) {
    progress.SetStep(static_cast<std::size_t>(page - 1), static_cast<std::size_t>(pages));
    return progress.Yield();
  });
}

bool SavePdf(const PrintTable& table, Platform& platform) {
  const auto path = platform.prompts.SaveFile({"Save as PDF", "PDF Documents", "*.pdf", "pdf", {}});
  if (!path) return false;
  // Written as a whole at the end, so that a full disk leaves no half of a document.
  QBuffer document;
  document.open(QIODevice::WriteOnly);
  QPdfWriter writer(&document);
  writer.setResolution(kPdfResolution);
  writer.setTitle(ToQt(table.title));
  writer.setPageLayout(PageLayoutOf(table.orientation));
  if (!PrintPages(writer, table, platform)) return false;
  const QByteArray& bytes = document.data();
  platform.files.WriteAtomically(*path,
                                 {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  return true;
}

}  // namespace corvanta::inline reports
