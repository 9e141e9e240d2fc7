#pragma once

#include "cli/Command.h"
#include "cli/arguments/AccountArgument.h"

#include <optional>
#include <string>

namespace corvanta::inline exchange {
class ImportEditor;
struct ImportForm;
}  // namespace corvanta::inline exchange

namespace corvanta::inline ledger {
struct Warning;
}

namespace corvanta::inline cli {

// import FILE: a QIF, OFX or CSV file into the ledger.
class ImportCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  void DeclareAnswers(Parser& command);
  void DeclareStyle(Parser& command);
  void DeclareCsv(Parser& command);
  [[nodiscard]] std::optional<Warning> Check(ImportEditor& editor, ImportForm& form) const;
  // Puts the choices for a CSV file into the form; a warning where one makes no sense.
  [[nodiscard]] std::optional<Warning> SetCsv(ImportEditor& editor, ImportForm& form) const;
  ExitStatus Import(ImportEditor& editor, const ImportForm& form, Session& session) const;

  std::string file_;
  AccountArgument account_;    // empty: the accounts that the file names
  std::string namedAccounts_;  // use or ignore; empty: not answered
  std::string duplicates_;
  std::string incomplete_ = "drop";
  std::string order_;
  std::string decimal_;
  std::string map_;
  std::string skip_;
  std::string separator_;
  bool zeroIsEmpty_ = false;
  bool completesTransfers_ = false;
  std::string debit_;
  std::string credit_;
  std::string encoding_;
  std::string mapping_;
  std::string saveMapping_;
};

}  // namespace corvanta::inline cli
