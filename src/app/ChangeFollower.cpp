#include "app/ChangeFollower.h"

#include "controls/ChangeNotice.h"

#include <QApplication>
#include <QCoreApplication>
#include <QWidget>

#include <utility>

namespace corvanta::inline app {

ChangeFollower::ChangeFollower(QWidget& window, std::function<void()> reload)
    : QObject(&window), reload_(std::move(reload)) {
  window.installEventFilter(this);
}

bool ChangeFollower::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != DataChangeEvent()) return QObject::eventFilter(watched, event);
  // Reading takes all that has been told until now.
  QCoreApplication::removePostedEvents(watched, DataChangeEvent());
  if (QApplication::activeModalWidget() != nullptr) reload_();
  return true;
}

}  // namespace corvanta::inline app
