#include "controls/CalendarRole.h"

#include "controls/ucCalendar.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace corvanta::inline controls {
namespace {

// What assistive tools hear: the chosen day is the calendar's value.
class CalendarInterface : public QAccessibleWidget {
 public:
  explicit CalendarInterface(ucCalendar* calendar)
      : QAccessibleWidget(calendar, QAccessible::SpinBox), calendar_(calendar) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Value) return calendar_->Describe(calendar_->Selected());
    return QAccessibleWidget::text(kind);
  }

 private:
  ucCalendar* calendar_;
};

}  // namespace

void TellCalendarRole() {
  static const bool isTold = [] {
    QAccessible::installFactory([](const QString& name, QObject* object) {
      QAccessibleInterface* made = nullptr;
      if (name == QLatin1String(ucCalendar::staticMetaObject.className())) {
        made = new CalendarInterface(static_cast<ucCalendar*>(object));
      }
      return made;
    });
    return true;
  }();
  (void)isTold;
}

}  // namespace corvanta::inline controls
