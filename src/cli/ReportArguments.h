#pragma once

#include "cli/Arguments.h"
#include "reports/query/ReportRequest.h"

#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// A report and all that it can be kept to, as the command line names it.
class ReportArguments {
 public:
  // The report, by its name or number, and its filters.
  void Declare(Parser& command, bool isRequired);
  [[nodiscard]] bool HasReport() const { return !report_.empty(); }
  // False, told, when something that was named is not there. Throws StoreError.
  [[nodiscard]] bool Fill(ReportRequest& request, clsCorvanta& ledger, Session& session) const;

 private:
  void DeclareFilters(Parser& command);
  [[nodiscard]] bool FillNames(ReportRequest& request, clsCorvanta& ledger, Session& session) const;
  void FillDays(ReportRequest& request, clsCorvanta& ledger) const;
  [[nodiscard]] bool FillWhatIf(ReportRequest& request, clsCorvanta& ledger,
                                Session& session) const;

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
  StatusArgument status_;
  bool closed_ = false;
  bool withoutTransfers_ = false;
  bool fold_ = false;
  std::string currency_;
  bool converts_ = false;
  std::vector<std::string> whatIf_;
};

}  // namespace corvanta::inline cli
