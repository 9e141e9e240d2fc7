// Opens the windows of what belongs to a transaction beside its figures, each modal before its
// parent.
#pragma once

#include "ledger/Keys.h"

#include <cstdint>

class QWidget;

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline notes {

// What a dialog works on and stands before. Valid while the data file stays open.
struct NotePlace {
  Platform& platform;
  clsCorvanta& ledger;
  QWidget* parent;
};

// The keywords of these transactions, to be chosen. What is not to be changed is told and opens
// nothing. True when the data file was changed. Throws StoreError.
bool OpenKeywords(Keys transactions, const NotePlace& place);
// The files attached to the transaction. True when the data file was changed.
bool OpenAttachments(std::int64_t transactionId, const NotePlace& place);

}  // namespace corvanta::inline notes
