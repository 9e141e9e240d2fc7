#include "cli/Session.h"

#include "cli/output/OutputTable.h"
#include "cli/output/TableWriter.h"
#include "ledger/secrets/LoginPassword.h"
#include "ledger/secrets/PassphrasePrompt.h"
#include "platform/ConsolePrompts.h"
#include "platform/Platform.h"
#include "platform/ShownText.h"
#include "store/sql/StoreError.h"

#include <chrono>
#include <ostream>

namespace corvanta::inline cli {
Session::Session(Platform& platform, const GlobalOptions& options, const std::string& command,
                 std::ostream& out, std::ostream& messages)
    : platform_(platform),
      options_(options),
      opener_(platform, "corvanta-cli " + command),
      gate_(platform.registry),
      out_(out),
      messages_(messages) {
  if (options.data) opener_.SetDataPath(*options.data);
  opener_.SetPatience({std::chrono::seconds(options.wait), {}});
  opener_.SetPassphraseQuestion(
      [this, ask = AskForPassphrase(platform.prompts)](const std::string& path, bool isAgain) {
        std::optional<std::string> typed;
        Typing([&] { typed = ask(path, isAgain); });
        return typed;
      });
}

std::optional<DataFile> Session::Open(Access access) {
  // The password is asked before the lock is taken: a person thinking must not hold up a window.
  if (access == Access::Write && !PassLogin()) return std::nullopt;
  DataFile file = opener_.OpenExisting(access == Access::Write);
  if (!Admits(*file.connection)) return std::nullopt;
  return file;
}

bool Session::PassLogin() {
  try {
    const DataFile file = opener_.OpenExisting(false);
    return Admits(*file.connection);
  } catch (const StoreError& error) {
    // Who turned back at the passphrase is not asked again.
    if (error.Code() == StoreErrorCode::WrongPassphrase) throw;
    return true;
  }
}

void Session::Typing(const std::function<void()>& ask) {
  try {
    ask();
  } catch (const PromptRefused&) {
    Tell(kPasswordWarning, "There is no terminal to type it at. Hand it over with --password-fd.");
  }
}

bool Session::Admits(Connection& file) {
  if (!gate_.Asks(file)) return true;
  bool admits = false;
  Typing([&] {
    const std::optional<std::string> typed =
        platform_.prompts.AskText("Password", "Enter the password of this data file:", true);
    admits = typed && gate_.Admit(file, *typed);
    if (!admits) Tell(kPasswordWarning, kWrongPassword);
  });
  return admits;
}

void Session::Print(const OutputTable& table) {
  TableWriter::For(options_.format, platform_.locale)->Write(table, out_);
}

void Session::Tell(const std::string& title, const std::string& text) {
  out_.flush();  // so that data and messages stand in order where both go to one place
  messages_ << ShownText(title + ": " + text) + '\n';
}

ExitStatus Session::Refuse(const std::string& title, const std::string& text) {
  Tell(title, text);
  return ExitStatus::Refused;
}

}  // namespace corvanta::inline cli
