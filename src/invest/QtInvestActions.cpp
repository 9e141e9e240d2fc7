#include "invest/QtInvestActions.h"

#include "ledger/investments/InvestmentRecord.h"

#include <QComboBox>

namespace corvanta::inline invest {

void LoadInvestActions(QComboBox& combo) {
  combo.clear();
  for (const InvestActionName& each : kInvestActions) {
    combo.addItem(QLatin1String(each.name), static_cast<int>(each.action));
  }
  combo.setCurrentIndex(-1);
}

}  // namespace corvanta::inline invest
