#pragma once

#include "cli/ExitStatus.h"
#include "cli/GlobalOptions.h"
#include "ledger/secrets/LoginGate.h"
#include "store/datafile/OpenDataFile.h"

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline cli {

class OutputTable;

enum class Access { Read, Write };

// What a command works with during one run: the machine, the data file behind its login, and the
// two streams.
class Session {
 public:
  // `command` names this run to others who want to write: "corvanta-cli sql".
  Session(Platform& platform, const GlobalOptions& options, const std::string& command,
          std::ostream& out, std::ostream& messages);

  // The open data file; nullopt when the login was refused, which has then been told. Throws
  // StoreError and PlatformError.
  [[nodiscard]] std::optional<DataFile> Open(Access access);
  // Lets the person in before a command works on the file as a whole: false when the file asks for
  // its password and it was not given (told already). A file that cannot be looked into now is let
  // pass, for the command to say why: what it opens after all goes through Admits.
  [[nodiscard]] bool PassLogin();
  // Runs what asks for a secret, and says how to hand it over where nobody can type it.
  void Typing(const std::function<void()>& ask);
  // False, and told, when the open file asks for a password that has not been given yet. Nothing of
  // a file may be shown or changed before. Throws StoreError.
  [[nodiscard]] bool Admits(Connection& file);

  // Writes data in the form that was asked for.
  void Print(const OutputTable& table);
  // A message for a person: "Title: text".
  void Tell(const std::string& title, const std::string& text);
  // Tells it and returns Refused.
  ExitStatus Refuse(const std::string& title, const std::string& text);

  [[nodiscard]] Platform& Machine() { return platform_; }
  [[nodiscard]] DataFileOpener& Opener() { return opener_; }
  [[nodiscard]] const GlobalOptions& Options() const { return options_; }
  [[nodiscard]] std::ostream& Out() { return out_; }

 private:
  Platform& platform_;
  const GlobalOptions& options_;
  DataFileOpener opener_;
  LoginGate gate_;
  std::ostream& out_;
  std::ostream& messages_;
};

}  // namespace corvanta::inline cli
