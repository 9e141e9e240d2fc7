#pragma once

#include "cli/arguments/Arguments.h"
#include "cli/reports/WhatIfArgument.h"
#include "reports/query/ReportRequest.h"

#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Argument;
class Parser;
class Session;

// A report and all that it can be kept to, as the command line names it.
class ReportArguments {
 public:
  // The report, by its name or number.
  void DeclareReport(Parser& command, bool isRequired);
  // All that it is kept to.
  void DeclareFilters(Parser& command);
  void DeclareColumns(Parser& command);
  // What says the days in a way of its own cannot be given together with --from or --to. After
  // DeclareFilters.
  void ExcludeFirstDay(Argument& other) const;
  void ExcludeLastDay(Argument& other) const;

  [[nodiscard]] bool HasReport() const { return !report_.empty(); }
  // False, told, when there is no such report.
  [[nodiscard]] bool FillReport(ReportRequest& request, Session& session) const;
  // What was given takes the place of what the request has; the rest of it stays. False, told, when
  // something that was named is not there. Throws StoreError.
  [[nodiscard]] bool Apply(ReportRequest& request, clsCorvanta& ledger, Session& session) const;
  // The picked columns of the report of that number, as it spells them; what is there stays where
  // none was picked. False, told, when the report has not got one.
  [[nodiscard]] bool FillColumns(int report, std::vector<std::string>& columns,
                                 Session& session) const;
  // What was given and is kept in no saved report, as the options are called.
  [[nodiscard]] std::vector<std::string> NotSaved() const;

 private:
  void DeclareNames(Parser& command);
  [[nodiscard]] bool ApplyNames(ReportRequest& request, clsCorvanta& ledger,
                                Session& session) const;
  [[nodiscard]] bool ApplyPaymentTypes(ReportRequest& request, clsCorvanta& ledger,
                                       Session& session) const;
  [[nodiscard]] bool ApplyCurrency(ReportRequest& request, clsCorvanta& ledger,
                                   Session& session) const;
  void ApplySwitches(ReportRequest& request, Session& session) const;

  // --- Days (ReportArgumentsDays.cpp)

  void DeclareDays(Parser& command);
  // False, told, when the other period ends before it begins; told, too, when the range does.
  [[nodiscard]] bool ApplyDays(ReportRequest& request, clsCorvanta& ledger, Session& session) const;

  // --- Checks (ReportArgumentsChecks.cpp)

  // False, told, when something was given that counts in another report alone, or not in this one.
  [[nodiscard]] bool CheckReport(int report, Session& session) const;
  // False, told, when something was given that a forecast takes no notice of.
  [[nodiscard]] bool CheckOfForecast(Session& session) const;
  // False, told, when the days of a forecast go on for too long.
  [[nodiscard]] bool CheckForecast(const ReportRequest& request, Session& session) const;

  std::string report_;
  std::vector<std::string> accounts_;
  std::vector<std::string> categories_;
  std::vector<std::string> payees_;
  std::vector<std::string> investments_;
  std::vector<std::string> actions_;
  std::vector<std::string> keywords_;
  std::vector<std::string> paymentTypes_;
  std::string text_;
  bool textOnly_ = false;
  PeriodArguments period_;
  Argument* from_ = nullptr;
  Argument* to_ = nullptr;
  PeriodArguments otherPeriod_;
  StatusArgument status_;
  bool closed_ = false;
  bool withoutTransfers_ = false;
  bool fold_ = false;
  std::string currency_;
  bool converts_ = false;
  bool carries_ = false;
  bool carriesNot_ = false;
  bool allCategories_ = false;
  std::vector<std::string> columns_;
  WhatIfArgument whatIf_;
};

}  // namespace corvanta::inline cli
