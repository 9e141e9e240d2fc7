#include "app/MainViews.h"

#include "app/AccountsView.h"
#include "app/CategoriesView.h"
#include "app/HoldingsView.h"
#include "app/InvestmentTransView.h"
#include "app/InvestmentsView.h"
#include "app/PayeesView.h"
#include "app/ScheduleView.h"
#include "app/TransactionShowView.h"
#include "app/overview/OverviewView.h"
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
