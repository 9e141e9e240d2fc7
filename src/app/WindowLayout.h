#pragma once

#include "controls/ListSort.h"
#include "controls/Style.h"

#include <QList>
#include <QRect>
#include <QString>

#include <map>
#include <string>
#include <string_view>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline app {

// What the left column is wide at least, where nobody has moved its edge.
inline constexpr int kLeftWidth = 34 * kRhythm;

// How the main window was left: where it stood, how its areas were divided, what it showed.
struct WindowLayout {
  QRect place;  // without the frame, not maximised; of width 0 where nothing was kept
  bool hasPosition = false;
  bool maximised = false;
  QList<int> columns;   // widths of the three columns; empty where none were kept
  QList<int> leftRows;  // heights in the left column
  QString view;         // the command last shown
  qint64 account = 0;
  bool showsReminders = false;  // folded at first: the register needs the width
  bool showsRibbon = true;
  SortState sort;  // of the list last shown
  // What the views keep, by the names of the settings; written only.
  std::map<std::string, std::string> views;
};

// What makes no sense in the settings reads as nothing kept.
[[nodiscard]] WindowLayout ReadLayout(Registry& registry);
// The widths of a list's columns, which stand in the setting of that name, separated by "|".
[[nodiscard]] QString ReadWidths(const Registry& registry, std::string_view name);
// All values in one write. Throws PlatformError.
void WriteLayout(Registry& registry, const WindowLayout& layout);

// The kept place, moved and shrunk so that the whole window is on the screen's free area; without
// a kept one a comfortable size in its middle.
[[nodiscard]] QRect PlaceOnScreen(const WindowLayout& layout, const QRect& free);

}  // namespace corvanta::inline app
