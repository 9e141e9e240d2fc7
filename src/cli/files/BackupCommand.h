#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline safety {
class Backup;
struct BackedFile;
struct BackupWishes;
}  // namespace corvanta::inline safety

namespace corvanta::inline cli {

// backup: makes a backup of the data file where the settings send it, or in the file that is named.
// backup --list: those that are there.
class BackupCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  static ExitStatus List(const Backup& backup, const BackedFile& file, Session& session);
  ExitStatus Make(Backup& backup, const BackedFile& file, Session& session) const;

  std::string file_;
  bool lists_ = false;
  bool withTransfer_ = false;
};

}  // namespace corvanta::inline cli
