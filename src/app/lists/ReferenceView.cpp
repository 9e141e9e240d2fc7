#include "app/lists/ReferenceView.h"

#include "app/LedgerSession.h"
#include "controls/QtText.h"

#include <utility>

namespace corvanta::inline app {

ReferenceView::ReferenceView(const ViewPlace& place, ReferenceKind kind, ListTraits traits,
                             QWidget* parent)
    : ListView(place, std::move(traits), parent), kind_(kind) {}

DialogPlace ReferenceView::DialogHere() const {
  return {Place().platform, Place().session.Ledger(), &Place().window};
}

void ReferenceView::Edit(std::int64_t key) {
  Apply(OpenReferenceEditor(kind_, key, DialogHere()));
}

void ReferenceView::Apply(const DialogResult& result) {
  if (!result.isChanged) return;
  Place().host.Reload();
  Place().host.ChooseRow(Name(), result.savedKey);
}

void ReferenceView::Delete(std::int64_t key) {
  const Deletion deletion = DeleteReference(kind_, key, DialogHere());
  if (deletion.isChanged) Place().host.Reload();
  Place().host.Notice(ToQt(deletion.Notice()));
}

}  // namespace corvanta::inline app
