#pragma once

#include "ledger/LedgerTest.h"
#include "reports/query/ReportRunner.h"
#include "store/sql/SqlText.h"
#include "support/ScriptedRates.h"

namespace corvanta {

// Two accounts, of euros and of dollars, with three transactions.
class Reports : public LedgerTest {
 protected:
  Reports() {
    AddAccount(1, "Bank", 1, 100, Currency("EUR"));
    AddAccount(2, "Dollars", 1, 10, Currency("USD"));
    AddTransaction(1, 1, "01/31/2026 18:30:00", "-20");
    AddTransaction(2, 1, "02/01/2026", "-30");
    AddTransaction(3, 2, "02/02/2026", "500");
    Run("INSERT INTO tblPayees (PayeeID,Payee) VALUES (1,'Grocer')");
  }
  int Currency(const std::string& code) {
    return static_cast<int>(
        Store()
            .QueryValue("Select CurrencyID from tblCurrency WHERE Currency = " + SqlText(code))
            .Int());
  }
  static Period Days(const char* from, const char* to) {
    return {*Date::FromIso(from), *Date::FromIso(to)};
  }
  ReportTable Show(const ReportRequest& request) {
    return RunReport(Ledger(), request, rates_, machine_.Get());
  }
  ReportTable Show(int report) {
    ReportRequest request;
    request.report = report;
    return Show(request);
  }
  static std::string Text(const ReportRow& row) {
    std::string text;
    for (const Value& cell : row.cells) text += cell.Text() + "|";
    return text;
  }
  static ReportRequest Converted(int report) {
    ReportRequest request;
    request.report = report;
    request.currency = "EUR";
    request.converts = true;
    return request;
  }

  ScriptedRates rates_;
};

}  // namespace corvanta
