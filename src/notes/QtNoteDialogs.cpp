#include "notes/FrmAttachments.h"
#include "notes/FrmKeywordChoice.h"
#include "notes/NoteDialogs.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace corvanta::inline notes {

bool OpenKeywords(Keys transactions, const NotePlace& place) {
  KeywordChoice choice(place.ledger, place.platform, transactions);
  if (const auto warning = choice.CheckOpen()) {
    place.platform.prompts.Tell(warning->title, warning->text);
    return false;
  }
  FrmKeywordChoice form(std::move(choice), place);
  form.exec();
  return form.IsChanged();
}

bool OpenAttachments(std::int64_t transactionId, const NotePlace& place) {
  FrmAttachments form(transactionId, place);
  form.exec();
  return form.IsChanged();
}

}  // namespace corvanta::inline notes
