// Opens the window that balances an account, modal before its parent.
#pragma once

#include "reconcile/Reconciliation.h"

#include <cstdint>
#include <optional>

class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
class RateSource;
}  // namespace corvanta::inline ledger

namespace corvanta::inline reconcile {

// What the window works on and stands before. Valid while the data file stays open.
struct ReconcilePlace {
  Platform& platform;
  clsCorvanta& ledger;
  RateSource& rates;  // for the transactions that are entered from the window
  QWidget* parent;
};

struct ReconcileResult {
  bool isChanged = false;                   // the data file was changed: read the lists again
  bool isScheduleChanged = false;           // a schedule was: run a posting pass
  std::optional<ReconcileOutcome> outcome;  // of the ticks that were applied
};

// Balances the account; one that is closed, or 0, is told and opens nothing. What the data file
// refuses is told.
ReconcileResult OpenReconcile(std::int64_t accountId, const ReconcilePlace& place);

}  // namespace corvanta::inline reconcile
