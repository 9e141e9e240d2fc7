#include "controls/ChangeNotice.h"

#include <QCoreApplication>
#include <QWidget>

namespace corvanta::inline controls {

QEvent::Type DataChangeEvent() {
  static const auto kType = static_cast<QEvent::Type>(QEvent::registerEventType());
  return kType;
}

// Later: the change may be in the middle of what it consists of.
void TellBehind(const QWidget& dialog) {
  for (QWidget* behind = dialog.parentWidget(); behind != nullptr;
       behind = behind->parentWidget()) {
    if (behind->isWindow()) QCoreApplication::postEvent(behind, new QEvent(DataChangeEvent()));
  }
}

}  // namespace corvanta::inline controls
