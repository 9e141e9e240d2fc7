#include "app/PayeesView.h"

#include "controls/QtText.h"
#include "controls/Style.h"

namespace corvanta {
namespace {

std::vector<ListColumn> Columns() {
  return {{PayeesView::tr("Payee"), 24 * kRhythm, 2},
          {PayeesView::tr("Description"), 24 * kRhythm, 3}};
}

}  // namespace

PayeesView::PayeesView(QAction* addAction, QWidget* parent)
    : ReferenceView("lvpayee", tr("Payees"), Columns(), {0, false}, parent),
      addAction_(addAction) {}

void PayeesView::ShowPayees(const std::vector<PayeeRecord>& payees) {
  std::vector<ListRow> rows;
  for (const PayeeRecord& payee : payees) {
    rows.push_back({payee.payeeId, {{ToQt(payee.payee)}, {ToQt(payee.description)}}, {}});
  }
  const auto count = static_cast<qulonglong>(rows.size());
  Fill(std::move(rows), tr("Who pays you, and whom you pay"),
       count == 1 ? tr("1 payee") : tr("%1 payees").arg(locale().toString(count)), QString(),
       {QStringLiteral("payees"), tr("No payees yet"),
        tr("Payees are remembered as you enter transactions. You can also add them here."),
        addAction_});
}

}  // namespace corvanta
