// The commands that choose which rows are shown.
#include "app/MainActions.h"

#include <QAction>

namespace corvanta::inline app {

void MainActions::MakeFilters() {
  mnuFilterAccount =
      Make("mnuFilterAccount", tr("&Account Filter..."), "accounts", tr("Account Filter"));
  mnuFilterCategory =
      Make("mnuFilterCategory", tr("&Category Filter..."), "categories", tr("Category Filter"));
  mnuFilterPayee = Make("mnuFilterPayee", tr("&Payee Filter..."), "payees", tr("Payee Filter"));
  mnuFilterInvestment = Make("mnuFilterInvestment", tr("&Investment Filter..."), "investments",
                             tr("Investment Filter"));
  mnuFilterKeyword = Make("mnuFilterKeyword", tr("&Keyword Filter..."), "", tr("Keyword Filter"));
  mnuFilterText = Make("mnuFilterText", tr("&Text Filter..."), "", tr("Search Text Filter"));
  mnuFilterNone = Make("mnuFilterNone", tr("&No Filter"), "close", tr("Take all filters off"));
}

}  // namespace corvanta::inline app
