#include "cli/files/NewSecret.h"

#include "cli/GlobalOptions.h"
#include "cli/Session.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace corvanta::inline cli {

std::optional<std::string> AskNewSecret(const char* title, const std::string& noun,
                                        SecretRule check, Session& session) {
  Prompts& prompts = session.Machine().prompts;
  const auto typed = prompts.AskText(title, "Enter the new " + noun + ":", true);
  auto again = prompts.AskText(title, "Enter it once more:", true);
  // What a program hands over was not mistyped in the dark: once will do.
  if (!again && session.Options().passwordFd) again = typed;
  if (const auto warning = check(typed.value_or(""), again.value_or(""))) {
    session.Tell(warning->title, warning->text);
    return std::nullopt;
  }
  return typed;
}

}  // namespace corvanta::inline cli
