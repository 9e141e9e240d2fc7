#include "app/lists/ListColours.h"

#include "controls/ListTable.h"
#include "controls/OutlinedStyle.h"
#include "controls/Style.h"
#include "platform/Settings.h"

#include <QApplication>
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

}  // namespace

QColor ColourOf(std::uint32_t number, const QPalette& palette) {
  if (number >= kSystem) return SystemColour(number - kSystem, palette);
  const auto part = [number](unsigned shift) {
    return static_cast<int>((number >> shift) & 0xffU);
  };
  return {part(0), part(8), part(16)};
}

ListColours ReadListColours(const Settings& settings, const QPalette& palette) {
  ListColours colours;
  colours.uncleared = ColourOf(settings.Colour(Setting::FUcleared), palette);
  colours.cleared = ColourOf(settings.Colour(Setting::Fcleared), palette);
  colours.alternate1 = ColourOf(settings.Colour(Setting::Alt1), palette);
  colours.alternate2 = ColourOf(settings.Colour(Setting::Alt2), palette);
  colours.grid = settings.IsOn(Setting::Grid);
  colours.ledger = settings.IsOn(Setting::Ledger);
  return colours;
}

void ApplyListColours(const Settings& settings) {
  QPalette palette = QApplication::palette();
  const ListColours colours = ReadListColours(settings, palette);
  if (!colours.ledger) {
    palette.setColor(QPalette::AlternateBase, palette.color(QPalette::Base));
  } else if (!IsDark(palette)) {
    palette.setColor(QPalette::Base, colours.alternate1);
    palette.setColor(QPalette::AlternateBase, colours.alternate2);
  }
  QApplication::setPalette(palette, ListTable::staticMetaObject.className());
  if (auto* style = qobject_cast<OutlinedStyle*>(QApplication::style())) {
    style->SetListLines(colours.grid);
  }
}

}  // namespace corvanta::inline app
