#include "app/lists/PayeesView.h"

#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/ViewCommand.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"

namespace corvanta::inline app {
namespace {

ListTraits Traits(const MainActions& actions) {
  return {kPayeeShow,
          actions.mnuViewPayees,
          "lvpayee",
          "chP",
          PayeesView::tr("Payees"),
          {{PayeesView::tr("Payee"), 24 * kRhythm, 2},
           {PayeesView::tr("Description"), 24 * kRhythm, 3}},
          {0, false},
          actions.mnuPayeeNew,
          actions.mnuPayeeEdit,
          actions.mnuPayeeDelete};
}

}  // namespace

PayeesView::PayeesView(const ViewPlace& place, QWidget* parent)
    : ReferenceView(place, ReferenceKind::Payee, Traits(place.actions), parent) {}

void PayeesView::Show(const ViewCommand& /*command*/) {
  std::vector<ListRow> rows;
  for (const PayeeRecord& payee : Place().session.Ledger().References().Payees()) {
    rows.push_back({payee.payeeId, {{ToQt(payee.payee)}, {ToQt(payee.description)}}, {}});
  }
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("Who pays you, and whom you pay"),
       count == 1 ? tr("1 payee") : tr("%1 payees").arg(locale().toString(count)), {},
       {QStringLiteral("payees"), tr("No payees yet"),
        tr("Payees are remembered as you enter transactions. You can also add them here.")});
}

}  // namespace corvanta::inline app
