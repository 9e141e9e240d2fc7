#pragma once

#include <QObject>

#include <functional>

class QWidget;

namespace corvanta::inline app {

// Has the window read its lists again when a dialog before it has changed the data file and stays
// open. Whoever opened a dialog reads them once it has closed.
class ChangeFollower : public QObject {
  Q_OBJECT

 public:
  // It is the window's own.
  ChangeFollower(QWidget& window, std::function<void()> reload);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> reload_;
};

}  // namespace corvanta::inline app
