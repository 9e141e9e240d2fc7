#pragma once

#include "cli/ExitStatus.h"

#include <string>
#include <vector>

namespace corvanta::inline reports {
struct ReportTable;
}

namespace corvanta::inline cli {

class Parser;
class Session;

// --out FILE and --force: where a report goes, and --out's absence: to the output, in the form that
// was asked for.
class ReportOutput {
 public:
  void Declare(Parser& command);
  [[nodiscard]] bool IsFile() const { return !path_.empty(); }
  [[nodiscard]] bool Replaces() const { return force_; }
  // Whether the report may go there; told when not.
  [[nodiscard]] bool MayWrite(Session& session) const;
  // Writes these columns of it, or all without any. A chart is of the whole report. Throws
  // PlatformError.
  ExitStatus Write(const ReportTable& report, const std::vector<std::string>& columns,
                   Session& session) const;

 private:
  std::string path_;
  bool force_ = false;
};

}  // namespace corvanta::inline cli
