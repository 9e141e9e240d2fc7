// Opens the windows of transaction entry, each modal before its parent.
#pragma once

#include "entry/AllocationEditor.h"
#include "entry/TransactionForm.h"
#include "ledger/Keys.h"
#include "platform/Date.h"

#include <cstdint>
#include <functional>
#include <optional>

class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
class RateSource;
}  // namespace corvanta::inline ledger

namespace corvanta::inline entry {

// What a dialog works on and stands before. Valid while the data file stays open.
struct EntryPlace {
  Platform& platform;
  clsCorvanta& ledger;
  RateSource& rates;
  QWidget* parent;
  // Called when rows have changed while a dialog goes on standing ("Add &New"); may be empty.
  std::function<void()> changed{};
  // Opens the schedule of that key, or for 0 a new one filled from the transaction, before that
  // window. True when the data file was changed. Empty for OpenSchedule().
  std::function<bool(const TransactionForm& row, std::int64_t scheduleId, QWidget* parent)>
      openSchedule{};
};

struct EntryResult {
  bool isChanged = false;          // the data file was changed: read the lists again
  std::int64_t savedKey = 0;       // the row saved last; 0 for none
  bool isScheduleChanged = false;  // a schedule was: run a posting pass
};

// Which transaction the editor opens with: the row of that key ("EDIT"), otherwise a new one
// ("ADD") in the account. A prefilled form is shown as it is, and edits the row of its own key
// where it has one. A new one is of that day, of today without one.
struct TransactionRequest {
  std::int64_t key = 0;
  std::int64_t accountId = 0;
  std::optional<TransactionForm> prefilled{};
  std::optional<Date> day{};
};

// Which schedule the editor opens with: the one of that key ("EDIT"), otherwise a new one ("ADD")
// in the account. A prefilled transaction gives a new one its fields, and its day as the start.
struct ScheduleRequest {
  std::int64_t key = 0;
  std::int64_t accountId = 0;
  std::optional<TransactionForm> prefilled;
};

// The transaction editor, of an investment transaction its own. A row that cannot be edited is told
// and opens nothing; one that is gone opens nothing and is reported as a change. Throws StoreError
// when the row cannot be read.
EntryResult OpenTransaction(const TransactionRequest& request, const EntryPlace& place);
// The editor of schedules. Without any account it says so and opens nothing; a schedule that is
// gone opens nothing and is reported as a change. Throws StoreError when it cannot be read.
EntryResult OpenSchedule(const ScheduleRequest& request, const EntryPlace& place);
// The split dialog. Its result says only whether lines were written; the parent's amount is what
// the data file then holds.
EntryResult OpenAllocation(const AllocationParent& parent, const EntryPlace& place);
// The editor of several transactions, in the order of the list.
EntryResult OpenMultiEdit(Keys keys, const EntryPlace& place);
// The quick entry: of the row of that key, or of a new one in the account for 0. A row that only
// the full editor can show opens that one.
EntryResult OpenAutofill(std::int64_t accountId, std::int64_t key, const EntryPlace& place);

}  // namespace corvanta::inline entry
