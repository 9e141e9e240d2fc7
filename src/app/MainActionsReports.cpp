// The commands that show reports.
#include "app/MainActions.h"
#include "controls/QtText.h"
#include "reports/query/ReportCatalogue.h"

#include <QAction>
#include <QMenu>

#include <array>

namespace corvanta::inline app {
namespace {

// The letter of each standard report, in their order.
QString WithLetter(const ReportInfo& report) {
  static constexpr std::array kTexts = {
      "&Account Summary",          "Monthly Cash &Flow",
      "Account &Transactions",     "&Budget Report",
      "Spending by &Category",     "&Monthly Spending by Category",
      "Spending by &Payee",        "Monthl&y Spending by Payee",
      "Spending by Paym&ent Type", "&Investment Gains and Losses",
      "Investment T&ransactions"};
  const auto place = static_cast<std::size_t>(report.number) - 1;
  return place < kTexts.size() ? QLatin1String(kTexts.at(place)) : ToQt(report.name);
}

}  // namespace

void MainActions::MakeReports() {
  for (const ReportInfo& report : ReportCatalogue()) {
    const QString name = QStringLiteral("mnuReport%1").arg(report.number);
    mnuReports.push_back(Make(name.toLatin1().constData(), WithLetter(report), "",
                              tr("Show the report \"%1\"").arg(ToQt(report.name))));
  }
  mnuViewOverview = Make("mnuViewOverview", tr("&Quick Overview"), "overview",
                         tr("Show how things stand: balances, what is due, this month, the budget"),
                         QKeySequence(Qt::CTRL | Qt::Key_0));
  mnuViewOverview->setIconText(tr("Overview"));
  mnuViewReports = Make("mnuViewReports", tr("Report &List"), "reports",
                        tr("Show what came in and went out, and what it was spent on"),
                        QKeySequence(Qt::CTRL | Qt::Key_9));
  mnuViewReports->setIconText(tr("Reports"));
  mnuReportCustom = Make("mnuReportCustom", tr("C&ustom Reports..."), "",
                         tr("Open or delete reports that were saved"));
  mnuReportSave = Make("mnuReportSave", tr("&Save Report As..."), "",
                       tr("Save the report with its filters, columns and days under a name"));
  mnuReportColumns =
      Make("mnuReportColumns", tr("Pick C&olumns..."), "", tr("Choose the columns of the report"));
  mnuReportInto = Make("mnuReportInto", tr("Loo&k Into"), "",
                       tr("Show what the chosen row of the report stands for (Enter)"));
  mnuReportExplain =
      Make("mnuReportExplain", tr("E&xplain Figure..."), "",
           tr("List the transactions that the chosen figure is made of"), QKeySequence(Qt::Key_F8));
}

void MainActions::FillReportMenu(QMenu& reports) const {
  reports.addAction(mnuViewReports);
  reports.addSeparator();
  QMenu* further = nullptr;
  int number = 0;
  for (QAction* report : mnuReports) {
    if (++number <= kStandardReports) {
      reports.addAction(report);
      continue;
    }
    if (further == nullptr) {
      further = AddSubmenu(reports, "mnuReportsFurther", tr("Furt&her Reports"));
    }
    further->addAction(report);
  }
  reports.addSeparator();
  reports.addActions({mnuReportCustom, mnuReportSave, mnuReportColumns});
  reports.addSeparator();
  reports.addActions({mnuReportInto, mnuReportExplain});
}

}  // namespace corvanta::inline app
