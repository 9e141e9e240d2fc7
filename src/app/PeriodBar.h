#pragma once

#include "platform/Settings.h"

#include <QWidget>

#include <optional>

class QCheckBox;
class QDateEdit;

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// The days that a register keeps to, and whether it does.
class PeriodBar : public QWidget {
  Q_OBJECT

 public:
  PeriodBar(const Locale& locale, QWidget* parent);

  // The days in the two fields, in force or not.
  [[nodiscard]] DateRange Dates() const;
  [[nodiscard]] std::optional<DateRange> InForce() const;
  // These send no signal.
  void SetDates(const DateRange& dates);
  void SetInForce(bool inForce);
  // Whether it stands under a title or at its side.
  void SetBelow(bool isBelow);

 Q_SIGNALS:
  void Changed();  // what is in force is another

 private:
  void ApplyDate(bool isStart);

  QCheckBox* chkUnset_;
  QDateEdit* from_;
  QDateEdit* to_;
};

}  // namespace corvanta::inline app
