#pragma once

#include "cli/Command.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {
class Value;
}

namespace corvanta::inline cli {

class Argument;

// settings [NAME [VALUE]]: lists, reads and writes preferences. Needs no data file.
class SettingsCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  ExitStatus List(Session& session) const;
  ExitStatus Read(Session& session) const;
  ExitStatus Write(Session& session) const;
  ExitStatus RefuseName(Session& session) const;

  // The value in force: what is stored where it makes sense, otherwise the default; NULL when the
  // program decides as it runs, nullopt when there is no setting of that name.
  [[nodiscard]] std::optional<Value> InForce(Session& session, const std::string& name) const;
  [[nodiscard]] std::vector<std::string> Names(Session& session) const;
  [[nodiscard]] std::string_view Key() const;
  // Whether it is the key of the program's own preferences, whose names and kinds are known.
  [[nodiscard]] bool IsPreferences() const;

  std::string keyName_ = "Settings";
  std::string name_;
  std::string value_;
  Argument* nameOption_ = nullptr;
  Argument* valueOption_ = nullptr;
};

}  // namespace corvanta::inline cli
