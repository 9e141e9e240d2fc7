// What the preview and the printing of a list share.
#pragma once

#include "reports/print/ReportDialogs.h"

#include <QPageLayout>

class QPagedPaintDevice;

namespace corvanta::inline reports {

// Today, as every page carries it.
[[nodiscard]] std::string PrintDate(const Platform& platform);
// Paper of the size that is used where the user lives.
[[nodiscard]] QPageLayout PageLayoutOf(PrintOrientation orientation);
// Draws all pages on the device, with its own page layout. False when the person stopped it.
// Throws PlatformError.
bool PrintPages(QPagedPaintDevice& device, const PrintTable& table, Platform& platform);
// Asks for a file and writes the pages into it. True when it was written. Throws PlatformError.
bool SavePdf(const PrintTable& table, Platform& platform);

}  // namespace corvanta::inline reports
