#include "reports/print/PageSetup.h"

#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/Settings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace corvanta::inline reports {
namespace {

constexpr std::array<PaperSize, 6> kPapers{{{"A4", 210, 297},
                                            {"Letter", 215.9, 279.4},
                                            {"Legal", 215.9, 355.6},
                                            {"A5", 148, 210},
                                            {"A3", 297, 420},
                                            {"B5", 176, 250}}};
constexpr std::size_t kA4 = 0;
constexpr std::size_t kLetter = 1;

// The currencies of the countries whose offices use Letter.
constexpr std::array<std::string_view, 12> kLetterCurrencies = {
    "USD", "CAD", "MXN", "PHP", "CLP", "COP", "CRC", "DOP", "GTQ", "NIO", "PAB", "VES"};

constexpr double kWidestMargin = 100;
// A page with less has no room for a heading and a row.
constexpr double kSmallestSide = 50;

std::size_t UsualPaper(const Locale& locale) {
  const bool isLetter =
      std::ranges::find(kLetterCurrencies, locale.CurrencyCode()) != kLetterCurrencies.end();
  return isLetter ? kLetter : kA4;
}

// Stored in tenths of a millimetre.
std::optional<PageMargins> ReadMargins(const std::vector<int>& stored) {
  const auto isOdd = [](int tenths) { return tenths < 0 || tenths > 10 * kWidestMargin; };
  if (stored.size() != 4 || std::ranges::any_of(stored, isOdd)) return std::nullopt;
  return PageMargins{stored[0] / 10.0, stored[1] / 10.0, stored[2] / 10.0, stored[3] / 10.0};
}

int Tenths(double millimetres) {
  return static_cast<int>(std::lround(millimetres * 10));
}

}  // namespace

std::span<const PaperSize> PaperSizes() {
  return kPapers;
}

PageSetup ReadPageSetup(const Platform& platform) {
  const Settings settings(platform.registry);
  PageSetup setup;
  setup.paper = UsualPaper(platform.locale);
  const std::string paper = settings.Text(Setting::PrintPaper);
  for (std::size_t i = 0; i < kPapers.size(); ++i) {
    if (kPapers[i].name == paper) setup.paper = i;
  }
  const std::size_t orientation = settings.Choice(Setting::PrintOrientation);
  if (orientation == 1) setup.orientation = PrintOrientation::Portrait;
  if (orientation == 2) setup.orientation = PrintOrientation::Landscape;
  setup.margins = ReadMargins(settings.Widths(Setting::PrintMargins)).value_or(PageMargins{});
  // What was changed by hand may leave no page at all.
  if (CheckPageSetup(setup)) setup.margins = {};
  return setup;
}

void KeepPageSetup(const PageSetup& setup, Platform& platform) {
  Settings settings(platform.registry);
  settings.SetText(Setting::PrintPaper, kPapers.at(setup.paper).name);
  const std::size_t orientation = !setup.orientation                                 ? 0
                                  : *setup.orientation == PrintOrientation::Portrait ? 1
                                                                                     : 2;
  settings.SetChoice(Setting::PrintOrientation, orientation);
  const PageMargins& margins = setup.margins;
  settings.SetWidths(Setting::PrintMargins, {Tenths(margins.left), Tenths(margins.top),
                                             Tenths(margins.right), Tenths(margins.bottom)});
}

std::optional<Warning> CheckPageSetup(const PageSetup& setup) {
  const auto warn = [](const char* text, const char* field) {
    return Warning{"Page Setup", text, field};
  };
  if (setup.paper >= kPapers.size()) return warn("You need to select a paper size", "cmbPaper");
  const std::array<std::pair<double, const char*>, 4> sides{{{setup.margins.left, "txtLeft"},
                                                             {setup.margins.top, "txtTop"},
                                                             {setup.margins.right, "txtRight"},
                                                             {setup.margins.bottom, "txtBottom"}}};
  for (const auto& [margin, field] : sides) {
    if (!(margin >= 0 && margin <= kWidestMargin)) {
      return warn("Please enter a margin from 0 to 100 mm", field);
    }
  }
  // The list decides which way the paper lies, so both have to do.
  for (const auto wish : {PrintOrientation::Portrait, PrintOrientation::Landscape}) {
    const PrintArea area = PageFormOf(setup, wish).printable;
    if (area.width < kSmallestSide) {
      return warn("The margins leave too little of the paper. Make them smaller.", "txtLeft");
    }
    if (area.height < kSmallestSide) {
      return warn("The margins leave too little of the paper. Make them smaller.", "txtTop");
    }
  }
  return std::nullopt;
}

PrintOrientation OrientationOf(const PageSetup& setup, PrintOrientation wish) {
  return setup.orientation.value_or(wish);
}

PageForm PageFormOf(const PageSetup& setup, PrintOrientation wish) {
  PageForm form{kPapers.at(setup.paper), {}};
  if (OrientationOf(setup, wish) == PrintOrientation::Landscape) {
    std::swap(form.paper.width, form.paper.height);
  }
  const PageMargins& margins = setup.margins;
  form.printable = {margins.left, margins.top, form.paper.width - margins.left - margins.right,
                    form.paper.height - margins.top - margins.bottom};
  return form;
}

}  // namespace corvanta::inline reports
