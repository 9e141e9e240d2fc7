#include "app/MainViews.h"

#include "app/investments/HoldingsView.h"
#include "app/investments/InvestmentTransView.h"
#include "app/investments/InvestmentsView.h"
#include "app/lists/AccountsView.h"
#include "app/lists/CategoriesView.h"
#include "app/lists/PayeesView.h"
#include "app/lists/ScheduleView.h"
#include "app/overview/OverviewView.h"
#include "app/register/TransactionShowView.h"
#include "app/reports/ReportsView.h"

namespace corvanta::inline app {

std::vector<MainView*> MakeMainViews(const ViewPlace& place, QWidget* parent) {
  std::vector<MainView*> views;
  views.push_back(new AccountsView(place, parent));
  views.push_back(new TransactionShowView(place, parent));
  views.push_back(new CategoriesView(place, parent));
  views.push_back(new PayeesView(place, parent));
  views.push_back(new ScheduleView(place, parent));
  views.push_back(new InvestmentsView(place, parent));
  views.push_back(new InvestmentTransView(place, parent));
  views.push_back(new HoldingsView(place, parent));
  views.push_back(new ReportsView(place, parent));
  views.push_back(new OverviewView(place, parent));
  return views;
}

}  // namespace corvanta::inline app
