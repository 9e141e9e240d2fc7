// Reports for tests of what is made of them.
#pragma once

#include "reports/query/ReportTable.h"

#include <string>
#include <utility>
#include <vector>

namespace corvanta {

inline ReportTable ReportOf(int number, const char* name, std::vector<ReportColumn> columns) {
  ReportTable report;
  report.report = number;
  report.name = name;
  report.columns = std::move(columns);
  return report;
}

inline ReportColumn TextColumn(const char* header) {
  return {header, ReportColumn::Text, ReportColumn::Content::Text};
}
inline ReportColumn MoneyColumn(const char* header) {
  return {header, ReportColumn::Number, ReportColumn::Content::Money};
}

inline void AddGroup(ReportTable& report, const char* currency, std::vector<Value> cells) {
  report.rows.push_back({ReportRowKind::Group, "key", 0, currency, std::move(cells)});
}
inline void AddTotal(ReportTable& report, const char* currency, std::vector<Value> cells) {
  report.rows.push_back({ReportRowKind::Total, "", 0, currency, std::move(cells)});
}

// Payees that cost 1, 2, 3 and so on, one that pays, and one in another currency.
inline ReportTable PayeeReport(int payees) {
  ReportTable report = ReportOf(7, "Spending by Payee",
                                {TextColumn("Payee"),
                                 {"Records", ReportColumn::Number, ReportColumn::Content::Count},
                                 MoneyColumn("Income"),
                                 MoneyColumn("Expense"),
                                 MoneyColumn("Total"),
                                 TextColumn("Currency")});
  for (int payee = 1; payee <= payees; ++payee) {
    AddGroup(report, "EUR",
             {"Payee " + std::to_string(payee), 1, 0.0, -1.0 * payee, -1.0 * payee, "EUR"});
  }
  AddGroup(report, "EUR", {"Employer", 1, 5000.0, 0.0, 5000.0, "EUR"});
  AddGroup(report, "USD", {"Landlord", 1, 0.0, -900.0, -900.0, "USD"});
  AddTotal(report, "EUR", {"Total (EUR)", 1, 5000.0, -99.0, 4901.0, "EUR"});
  return report;
}

inline ReportTable CashFlowReport() {
  ReportTable report =
      ReportOf(2, "Monthly Cash Flow",
               {TextColumn("Year/Month"), MoneyColumn("Income"), MoneyColumn("Expense"),
                MoneyColumn("Total"), TextColumn("Currency")});
  AddGroup(report, "EUR", {"202610", 100.0, -120.0, -20.0, "EUR"});
  AddGroup(report, "EUR", {"202611", 200.0, -50.0, 150.0, "EUR"});
  AddTotal(report, "EUR", {"Total (EUR)", 300.0, -170.0, 130.0, "EUR"});
  return report;
}

}  // namespace corvanta
