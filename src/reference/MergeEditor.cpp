#include "reference/MergeEditor.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "platform/Prompts.h"
#include "reference/CategoryEditor.h"

namespace corvanta::inline reference {
namespace {
constexpr const char* kMergeWarning = "Merge Record Warning";
constexpr const char* kTargetField = "cmbMerge";
}  // namespace

std::string MergeEditor::ListWord() const {
  return kind_ == MergeKind::Payee ? "PAYEE" : "CATEGORY";
}

std::string MergeEditor::Word() const {
  return kind_ == MergeKind::Payee ? "Payee" : "Category";
}

std::string MergeEditor::Caption() const {
  return "Merge " + Word();
}

std::string MergeEditor::TargetLabel() const {
  return Word() + " to Merge into";
}

std::vector<MergeItem> MergeEditor::Items() {
  std::vector<MergeItem> items;
  if (kind_ == MergeKind::Payee) {
    for (const PayeeRecord& payee : ledger_.References().Payees())
      items.push_back({payee.payeeId, payee.payee});
    return items;
  }
  for (const CategoryRecord& category : ledger_.Categories().Categories()) {
    items.push_back({category.categoryId, FullName(category)});
  }
  return items;
}

std::optional<Warning> MergeEditor::Check(std::int64_t source, std::int64_t target) {
  if (target == 0) {
    return Warning{kMergeWarning, "Please select a " + Word() + " to Merge records to",
                   kTargetField};
  }
  if (target != source) return std::nullopt;
  return Warning{kMergeWarning,
                 Word() + " to Merge and " + Word() + " to Merge into can not be the same.",
                 kTargetField};
}

bool MergeEditor::Merge(std::int64_t source, const MergeItem& target) {
  if (!prompts_.Ask("Proceed to merge records?",
                    "All records from " + ListWord() + " will be Moved into " + " the " +
                        target.name + " to Merge. Do you wish to continue?")) {
    return false;
  }
  if (kind_ == MergeKind::Payee) {
    ledger_.References().MergePayees(source, target.key);
  } else {
    ledger_.Categories().MergeCategories(source, target.key);
  }
  prompts_.Tell("Merge Records", "Merge completed.");
  return true;
}

}  // namespace corvanta::inline reference
