#pragma once

#include <QEvent>

class QWidget;

namespace corvanta::inline controls {

// Lists that stand behind a dialog follow what it changes while it stays open.

// What the windows behind get once the event loop has them.
[[nodiscard]] QEvent::Type DataChangeEvent();
// Tells every window that the dialog stands before.
void TellBehind(const QWidget& dialog);

}  // namespace corvanta::inline controls
