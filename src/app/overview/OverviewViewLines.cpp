// What the tiles of the overview say.
#include "app/overview/OverviewView.h"
#include "controls/QtText.h"
#include "platform/Locale.h"
#include "platform/Platform.h"

namespace corvanta::inline app {
namespace {
constexpr std::size_t kMaxLines = 10;
}

OverviewTile::Cell OverviewView::Money(double amount, bool isStrong) const {
  return {ToQt(place_.platform.locale.FormatNumber(amount)), amount < 0, isStrong};
}

std::vector<OverviewView::Line> OverviewView::BalanceLines() const {
  std::vector<Line> lines;
  for (const AccountRow& account : Now().accounts) {
    if (lines.size() == kMaxLines) break;
    lines.push_back({{{ToQt(account.account)},
                      Money(account.balance),
                      {ToQt(account.currency), false, false, true}},
                     [this, id = account.accountId] {
                       place_.host.Guard([this, id] { place_.host.OpenAccount(id); });
                     }});
  }
  const std::size_t left = Now().accounts.size() - lines.size();
  if (left > 0) lines.push_back({{{tr("and %1 more").arg(left), false, false, true}}});
  if (lines.empty()) lines.push_back({{{tr("There is no account yet"), false, false, true}}});
  return lines;
}

std::vector<OverviewView::Line> OverviewView::DueLines() const {
  std::vector<Line> lines;
  const Locale& own = place_.platform.locale;
  const auto add = [&](const std::vector<Reminder>& items, bool isOverdue) {
    for (const Reminder& item : items) {
      if (lines.size() == kMaxLines || item.isReceiving) continue;
      lines.push_back({{{ToQt(item.payee), false, isOverdue},
                        {ToQt(own.FormatShortDate(item.date)), isOverdue, false, !isOverdue},
                        Money(item.amount),
                        {ToQt(item.currency), false, false, true}}});
    }
  };
  add(Now().due.overdue, true);
  add(Now().due.future, false);
  if (lines.empty()) {
    lines.push_back({{{tr("Nothing is due in the next two weeks"), false, false, true}}});
  }
  return lines;
}

std::vector<OverviewView::Line> OverviewView::MonthLines() const {
  std::vector<Line> lines;
  for (const Overview::Flow& flow : Now().flows) {
    lines.push_back({{{ToQt(flow.currency), false, false, true},
                      {tr("this month"), false, false, true},
                      {tr("last month"), false, false, true}}});
    lines.push_back({{{tr("Income")}, Money(flow.income), Money(flow.lastIncome)}});
    lines.push_back({{{tr("Expense")}, Money(flow.expense), Money(flow.lastExpense)}});
    lines.push_back({{{tr("Left over"), false, true},
                      Money(flow.income + flow.expense, true),
                      Money(flow.lastIncome + flow.lastExpense, true)}});
  }
  if (lines.empty()) {
    lines.push_back({{{tr("No transactions in this month and the last one"), false, false, true}}});
  }
  return lines;
}

std::vector<OverviewView::Line> OverviewView::BudgetLines() const {
  std::vector<Line> lines;
  for (const Overview::Plan& plan : Now().plans) {
    const OverviewTile::Cell code{ToQt(plan.currency), false, false, true};
    if (plan.budget == 0) {
      lines.push_back({{{tr("Spent besides, no rate known")}, Money(-plan.actual), code}});
      continue;
    }
    const double left = plan.actual - plan.budget;
    lines.push_back({{{tr("To be spent this month")}, Money(-plan.budget), code}});
    lines.push_back({{{tr("Spent")}, Money(-plan.actual), code}});
    lines.push_back(
        {{{left < 0 ? tr("Too much") : tr("Left"), false, true}, Money(left, true), code}});
  }
  if (Now().arePlansConverted) {
    lines.push_back({{{tr("Other currencies at the last known rates"), false, false, true}}});
  }
  if (lines.empty()) {
    lines.push_back({{{tr("No category has a budget"), false, false, true}}});
  }
  return lines;
}

std::vector<OverviewView::Line> OverviewView::WorthLines() const {
  std::vector<Line> lines;
  for (const Overview::Worth& worth : Now().worths) {
    const OverviewTile::Cell code{ToQt(worth.currency), false, false, true};
    lines.push_back({{{tr("What you have")}, Money(worth.assets), code}});
    if (worth.debts < 0) lines.push_back({{{tr("What you owe")}, Money(worth.debts), code}});
    lines.push_back(
        {{{tr("Net worth"), false, true}, Money(worth.assets + worth.debts, true), code}});
  }
  if (lines.empty()) lines.push_back({{{tr("There is no account yet"), false, false, true}}});
  return lines;
}

}  // namespace corvanta::inline app
