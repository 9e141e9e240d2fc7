#include "cli/files/ValidateCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"

namespace corvanta::inline cli {

Parser* ValidateCommand::Declare(Parser& parser) {
  return parser.AddCommand("validate", "Compact, upgrade, clean up and check the data file");
}

ExitStatus ValidateCommand::Run(Session& session) {
  if (!session.PassLogin()) return ExitStatus::Refused;
  const DataFile file = session.Opener().Validate();
  if (!session.Admits(*file.connection)) return ExitStatus::Refused;
  session.Tell("Validate Data Files", "The data file is sound: " + file.connection->Path());
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
