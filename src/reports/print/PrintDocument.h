// Lists and pictures as files, made without a window.
#pragma once

#include "reports/print/CairoSurface.h"
#include "reports/print/PageSetup.h"
#include "reports/print/PrintTable.h"

#include <optional>
#include <string>

namespace corvanta::inline reports {

// Today, as every page carries it.
[[nodiscard]] std::string PrintDate(const Platform& platform);

// All pages of the list as a PDF document on the paper that is set, with the progress shown;
// nullopt when the person stopped it. Throws PlatformError.
[[nodiscard]] std::optional<std::string> PdfOf(const PrintTable& table, Platform& platform);

// The size of a picture that is a file of its own.
struct PictureSize {
  double width = 240;  // millimetres
  double height = 135;
  double dotsPerInch = 144;  // of a PNG
};
// The picture on white, as the bytes of such a file. Throws PlatformError.
[[nodiscard]] std::string PictureOf(const PrintPicture& picture, PictureForm form,
                                    const PictureSize& size = {});

}  // namespace corvanta::inline reports
