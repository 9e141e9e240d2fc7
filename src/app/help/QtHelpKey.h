#pragma once

#include <QObject>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline app {

// F1 in any dialog of the program shows the page about it. The main window has a command of its own
// for that key.
class QtHelpKey : public QObject {
  Q_OBJECT

 public:
  // Works as long as it lives. The platform must outlive it.
  explicit QtHelpKey(Platform& platform);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Platform& platform_;
};

}  // namespace corvanta::inline app
