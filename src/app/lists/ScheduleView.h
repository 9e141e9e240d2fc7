#pragma once

#include "app/lists/ListView.h"
#include "ledger/schedules/ScheduleRecord.h"

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

// The view of "LoadSchedule": what comes again and again, the next due first.
class ScheduleView : public ListView {
  Q_OBJECT

 public:
  ScheduleView(const ViewPlace& place, QWidget* parent);

  void Show(const ViewCommand& command) override;
  [[nodiscard]] bool Can(EditTask task) const override;
  void Do(EditTask task) override;
  void MarkCommands(bool isShown) override;

 protected:
  void Add() override;
  void Edit(std::int64_t key) override;
  void Delete(std::int64_t key) override;

 private:
  [[nodiscard]] ListRow RowFor(const ScheduleDetails& schedule) const;
  void Copy();
  void Paste();
  // The keys on the clipboard.
  [[nodiscard]] std::vector<std::int64_t> Copied() const;

  const Locale& locale_;
};

}  // namespace corvanta::inline app
