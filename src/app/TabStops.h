#pragma once

class QWidget;

namespace corvanta::inline app {

// Moves the keys in the window to the next stop of Tab, or to the one before it; false where there
// is none. Every field and button that is shown is one. The library would take a view for its list,
// and pass by what stands between both.
bool GoToStop(QWidget& window, bool next);

}  // namespace corvanta::inline app
