// Opens the windows of the reference data, each modal before its parent.
#pragma once

#include "reference/Deletion.h"
#include "reference/ListEditor.h"
#include "reference/MergeEditor.h"

#include <cstdint>

class QWidget;

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

enum class ReferenceKind {
  Account,
  AccountGroup,
  Bank,
  Category,
  Payee,
  Payment,
  Keyword,
  Currency
};

// What a dialog works on and stands before. Valid while the data file stays open.
struct DialogPlace {
  Platform& platform;
  clsCorvanta& ledger;
  QWidget* parent;
};

struct DialogResult {
  bool isChanged = false;     // the data file was changed: read the lists again
  std::int64_t savedKey = 0;  // the row saved last, to be chosen in them; 0 for none
};

// The editor in "EDIT" mode on the row of that key, in "ADD" mode for 0. A row that is gone opens
// nothing and is reported as a change. Throws StoreError when the row cannot be read.
DialogResult OpenReferenceEditor(ReferenceKind kind, std::int64_t key, const DialogPlace& place);
// The editor of a new account, which begins with group, bank and currency of that one; 0 for none.
// Throws StoreError.
DialogResult AddAccountLike(std::int64_t accountId, const DialogPlace& place);
// The list dialog. True when the data file was changed.
bool OpenReferenceList(ListKind kind, const DialogPlace& place);
// The merge dialog, from that payee or category. True when its records have moved.
bool OpenMerge(MergeKind kind, std::int64_t source, const DialogPlace& place);
// Deletes without a window of its own, after the editor's question. Throws StoreError.
Deletion DeleteReference(ReferenceKind kind, std::int64_t key, const DialogPlace& place);

}  // namespace corvanta::inline reference
