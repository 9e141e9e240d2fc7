#include "app/ListColours.h"

#include "platform/Settings.h"

#include <QPalette>

namespace corvanta::inline app {
namespace {

// Colours above this are numbers of the system's own colours.
constexpr std::uint32_t kSystem = 0x80000000U;

QColor SystemColour(std::uint32_t number, const QPalette& palette) {
  switch (number) {
    case 5:
      return palette.color(QPalette::Base);
    case 13:
      return palette.color(QPalette::Highlight);
    case 14:
      return palette.color(QPalette::HighlightedText);
    case 15:
      return palette.color(QPalette::Button);
    case 17:
      return palette.color(QPalette::Disabled, QPalette::Text);
    case 18:
      return palette.color(QPalette::ButtonText);
    default:
      return palette.color(QPalette::Text);
  }
}

QColor ToColour(std::uint32_t number, const QPalette& palette) {
  if (number >= kSystem) return SystemColour(number - kSystem, palette);
  const auto part = [number](unsigned shift) {
    return static_cast<int>((number >> shift) & 0xffU);
  };
  return {part(0), part(8), part(16)};
}

}  // namespace

ListColours ReadListColours(const Settings& settings, const QPalette& palette) {
  ListColours colours;
  colours.uncleared = ToColour(settings.Colour(Setting::FUcleared), palette);
  colours.cleared = ToColour(settings.Colour(Setting::Fcleared), palette);
  colours.alternate1 = ToColour(settings.Colour(Setting::Alt1), palette);
  colours.alternate2 = ToColour(settings.Colour(Setting::Alt2), palette);
  colours.grid = settings.IsOn(Setting::Grid);
  return colours;
}

}  // namespace corvanta::inline app
