// What the preview and the printing of a list share.
#pragma once

#include "reports/print/PageSetup.h"
#include "reports/print/ReportDialogs.h"

#include <QPageLayout>

class QPagedPaintDevice;

namespace corvanta::inline reports {

// The paper as it is set, for a list that would have it lie so.
[[nodiscard]] QPageLayout PageLayoutOf(const PageSetup& setup, PrintOrientation wish);
// Draws all pages on the device, with its own page layout. False when the person stopped it.
// Throws PlatformError.
bool PrintPages(QPagedPaintDevice& device, const PrintTable& table, Platform& platform);
// Asks for a file and writes the pages into it. True when it was written. Throws PlatformError.
bool SavePdf(const PrintTable& table, Platform& platform, const PageSetup& setup);
// The same as PrintList, on that paper.
bool PrintList(const PrintTable& table, const PrintPlace& place, const PageSetup& setup);

}  // namespace corvanta::inline reports
