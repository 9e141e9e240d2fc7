#pragma once

#include "ledger/clsCorvanta.h"
#include "reports/query/ReportRequest.h"
#include "reports/query/ReportTable.h"
#include "store/datafile/OpenDataFile.h"

#include <functional>
#include <memory>
#include <string>

namespace corvanta::inline cli {

class Session;

// A report of the data file that the command line names, and what it was run with.
class ShownReport {
 public:
  // Sets what the report is run with; false, told, when something that was named is not there.
  using Fill = std::function<bool(ReportRequest& request, clsCorvanta& ledger)>;

  // Opens the file to be read, fills the request and runs it; null when that was refused, which has
  // been told. Throws StoreError and PlatformError.
  [[nodiscard]] static std::unique_ptr<ShownReport> Run(Session& session, const Fill& fill);

  [[nodiscard]] clsCorvanta& Ledger() { return ledger_; }
  [[nodiscard]] const ReportRequest& Request() const { return request_; }
  [[nodiscard]] const ReportTable& Table() const { return table_; }
  // It was opened under that name.
  void SetSavedName(const std::string& name) { table_.savedName = name; }

 private:
  ShownReport(DataFile file, Session& session);

  DataFile file_;
  clsCorvanta ledger_;
  ReportRequest request_;
  ReportTable table_;
};

}  // namespace corvanta::inline cli
