#include "ledger/secrets/PassphrasePrompt.h"

#include "platform/Prompts.h"
#include "platform/TextCase.h"

namespace corvanta::inline ledger {

PassphraseQuestion AskForPassphrase(Prompts& prompts) {
  return [&prompts](const std::string& path, bool isAgain) {
    const std::string question =
        isAgain ? "This passphrase does not open " + path + ". Capital letters count. Once more:"
                : "The data file " + path + " opens with its passphrase:";
    return prompts.AskText("Passphrase", question, true);
  };
}

std::optional<Warning> CheckNewPassphrase(std::string_view typed, std::string_view again) {
  constexpr const char* kField = "txtPassphrase";
  if (Trim(typed).empty()) {
    return Warning{kPassphraseWarning, "You need to enter a Passphrase", kField};
  }
  if (Trim(typed) != typed) {
    return Warning{kPassphraseWarning, "A passphrase has no blanks before or behind it", kField};
  }
  if (TextLength(typed) < kMinPassphrase) {
    return Warning{kPassphraseWarning,
                   "A passphrase needs 12 characters or more. Four or five words that have nothing "
                   "to do with each other are easy to keep in mind",
                   kField};
  }
  if (typed != again) {
    return Warning{kPassphraseWarning,
                   "The two passphrases are not the same. Please type them again",
                   "txtPassphraseAgain"};
  }
  return std::nullopt;
}

}  // namespace corvanta::inline ledger
