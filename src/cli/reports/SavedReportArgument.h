#pragma once

#include "reports/custom/ReportDefinition.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reports {
struct ReportRequest;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// A saved report, as the command line names it: the same ones that the window has.
class SavedReportArgument {
 public:
  void Declare(Parser& command, const std::string& meaning);

  // What the request keeps is saved under the name. One that is there is asked about, unless
  // `replaces`. False, told, when the name is none or was not to be replaced. Throws StoreError and
  // PlatformError.
  [[nodiscard]] bool Save(const ReportRequest& request, const std::vector<std::string>& columns,
                          bool replaces, clsCorvanta& ledger, Session& session) const;
  // Fills the request and the columns with what is saved, and the name as it was saved; what of it
  // the data file has no more is told. False, told, when it cannot be opened. Throws StoreError.
  [[nodiscard]] bool Open(ReportRequest& request, std::vector<std::string>& columns,
                          std::string& name, clsCorvanta& ledger, Session& session) const;
  // Asks first. False when it is there still, which has been told where there is none of the name.
  [[nodiscard]] bool Delete(Session& session) const;

 private:
  // As it was saved; nullopt, told, when there is none of that name.
  [[nodiscard]] std::optional<std::string> Find(Session& session) const;

  std::string name_;
};

}  // namespace corvanta::inline cli
