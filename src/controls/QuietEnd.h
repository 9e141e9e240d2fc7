#pragma once

#include <QObject>

namespace corvanta::inline controls {

// A window whose parts fall silent as it goes. A window that is destroyed is hidden then, the field
// in use loses its keys, and lists are emptied: all of that sends signals, at a time when what is
// derived from the window, and its members, are gone already. No slot may run on what is left.
template <typename Window>
class QuietEnd : public Window {
 public:
  using Window::Window;

  ~QuietEnd() override {
    for (QObject* part : this->template findChildren<QObject*>()) part->blockSignals(true);
    this->blockSignals(true);
  }
};

}  // namespace corvanta::inline controls
