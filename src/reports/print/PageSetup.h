// The paper that is printed on, and what stays free around the page.
#pragma once

#include "ledger/Warning.h"
#include "reports/print/PrintTable.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
class Locale;
struct Platform;
}  // namespace corvanta::inline platform

namespace corvanta::inline reports {

struct PaperSize {
  std::string_view name;
  double width = 0;  // millimetres, upright
  double height = 0;
};

// A4 is the first, Letter the second one.
[[nodiscard]] std::span<const PaperSize> PaperSizes();

// In millimetres.
struct PageMargins {
  double left = 15;
  double top = 15;
  double right = 15;
  double bottom = 15;
  bool operator==(const PageMargins&) const = default;
};

struct PageSetup {
  std::size_t paper = 0;  // of PaperSizes()
  // nullopt: as fits the list.
  std::optional<PrintOrientation> orientation;
  PageMargins margins;
  bool operator==(const PageSetup&) const = default;
};

// The sheet, and what may be printed on of it.
struct PageForm {
  PaperSize paper;  // turned as it lies
  PrintArea printable;
};

// What a person has set; without it, the paper that is used where they live.
[[nodiscard]] PageSetup ReadPageSetup(const Platform& platform);
// Throws PlatformError when it cannot be kept.
void KeepPageSetup(const PageSetup& setup, Platform& platform);
// Why nothing could be printed so.
[[nodiscard]] std::optional<Warning> CheckPageSetup(const PageSetup& setup);

// How the sheet lies for a list that would have it lie so.
[[nodiscard]] PrintOrientation OrientationOf(const PageSetup& setup, PrintOrientation wish);
[[nodiscard]] PageForm PageFormOf(const PageSetup& setup, PrintOrientation wish);

}  // namespace corvanta::inline reports
