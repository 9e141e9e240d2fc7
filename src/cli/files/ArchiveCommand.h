#pragma once

#include "cli/Command.h"

#include <string>
#include <vector>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline safety {
struct ArchiveForm;
struct ArchivePlan;
}  // namespace corvanta::inline safety

namespace corvanta::inline cli {

// archive FILE --before D: moves old transactions into a data file of their own.
class ArchiveCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  // False where an account is not there, which has been told.
  bool FindAccounts(clsCorvanta& ledger, Session& session, ArchiveForm& form) const;
  static void Print(const ArchivePlan& plan, Session& session);

  std::string file_;
  std::string before_;
  std::vector<std::string> accounts_;
  bool onlyReconciled_ = false;
  bool isDry_ = false;
};

}  // namespace corvanta::inline cli
