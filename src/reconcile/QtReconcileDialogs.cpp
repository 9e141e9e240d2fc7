#include "controls/CommandEdge.h"
#include "entry/EntryDialogs.h"
#include "platform/Platform.h"
#include "reconcile/FrmReconcile.h"
#include "reconcile/ReconcileDialogs.h"
#include "reports/print/ReportDialogs.h"

namespace corvanta::inline reconcile {

ReconcileResult OpenReconcile(std::int64_t accountId, const ReconcilePlace& place) {
  ReconcileOpeners openers;
  ReconcileResult result;
  openers.transaction = [&](std::int64_t key, QWidget* parent,
                            const std::function<void()>& changed) {
    const EntryPlace entry{place.platform, place.ledger, place.rates, parent, changed};
    const EntryResult row = OpenTransaction({key, accountId, {}}, entry);
    result.isScheduleChanged = result.isScheduleChanged || row.isScheduleChanged;
    return row.isChanged;
  };
  openers.print = [&](const QTableView& list, const std::string& title, QWidget* parent) {
    OpenPrintPreview(PrintTableOf(list, title), {place.platform, parent});
  };
  FrmReconcile form(accountId, place.platform, place.ledger, openers, place.parent);
  bool isOpen = false;
  RunCommand(place.platform.prompts, [&] { isOpen = form.Open(); });
  if (isOpen) form.exec();
  result.isChanged = form.IsChanged();
  result.outcome = form.Outcome();
  return result;
}

}  // namespace corvanta::inline reconcile
