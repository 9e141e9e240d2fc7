#pragma once

#include "app/ReferenceView.h"
#include "ledger/ScheduleRecord.h"

namespace corvanta {

class Locale;

// The view of "LoadSchedule": what comes again and again, the next due first.
class ScheduleView : public ReferenceView {
  Q_OBJECT

 public:
  // `addAction` is what a data file without schedules offers.
  ScheduleView(const Locale& locale, QAction* addAction, QWidget* parent);

  void ShowSchedules(const std::vector<ScheduleDetails>& schedules);

 private:
  [[nodiscard]] ListRow RowFor(const ScheduleDetails& schedule) const;

  QAction* addAction_;
  const Locale& locale_;
};

}  // namespace corvanta
