#pragma once

#include "ledger/register/PeriodPreset.h"
#include "platform/Date.h"
#include "platform/Settings.h"

#include <QWidget>

#include <optional>

class QCheckBox;
class QDateEdit;
class QMenu;
class QToolButton;

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
  // What the usual periods are counted from.
  void SetToday(Date today) { today_ = today; }
  // A button at its end.
  void AddTool(QWidget* tool);
  // Whether it stands under a title or at its side.
  void SetBelow(bool isBelow);

 Q_SIGNALS:
  void Changed();  // what is in force is another

 private:
  void ApplyDate(bool isStart);
  void ApplyPreset(PeriodPreset preset);
  void FillPresets();

  QCheckBox* chkUnset_;
  QDateEdit* from_;
  QDateEdit* to_;
  QToolButton* cmdPeriods_;
  QMenu* presets_;
  Date today_;
};

}  // namespace corvanta::inline app
