#include "reference/KeywordEditor.h"

#include "ledger/KeywordBook.h"
#include "ledger/ReferenceBook.h"
#include "ledger/clsCorvanta.h"
#include "platform/TextCase.h"
#include "reference/RowOf.h"
#include "reference/Rules.h"
#include "store/sql/UndoLog.h"

namespace corvanta {

std::optional<KeywordRecord> KeywordEditor::Load(std::int64_t key) {
  return RowOf(ledger_.Notes().Keywords(), &KeywordRecord::keywordId, key);
}

std::optional<Warning> KeywordEditor::Check(const KeywordRecord& form) {
  if (auto warning = Missing(form.keyword, "You need to enter a Keyword", "txtKeyword"))
    return warning;
  if (auto warning =
          NameTooLong(form.keyword, "Keyword must be less than 100 characters long", "txtKeyword"))
    return warning;
  const auto former = Load(form.keywordId);
  // Rows of one name that came with an import stay open to other changes.
  if (former && EqualFolded(Trim(form.keyword), former->keyword)) return std::nullopt;
  return Duplicate(ledger_.References().OtherKeyword(form.keyword, form.keywordId) != 0,
                   "Keyword already exists", "txtKeyword");
}

std::int64_t KeywordEditor::Save(KeywordRecord form) {
  TrimText(form.keyword);
  const UndoLog::Step step =
      ledger_.Undo().Begin(form.keywordId == 0 ? "Add Keyword" : "Edit Keyword");
  return ledger_.Notes().SaveKeyword(form);
}

Deletion KeywordEditor::Delete(std::int64_t key) {
  return AskDelete(prompts_) ? DeleteUnasked(key) : Deletion();
}

Deletion KeywordEditor::DeleteUnasked(std::int64_t key) {
  ledger_.Notes().DeleteKeyword(key);
  return {true, true, {}};
}

}  // namespace corvanta
