#pragma once

#include "ledger/Warning.h"
#include "store/datafile/FilePasswords.h"

#include <optional>
#include <string_view>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline ledger {

inline constexpr const char* kPassphraseWarning = "Passphrase warning";
// What is said in place of a recovery key.
inline constexpr const char* kNoOtherKey =
    "This data file opens with its passphrase, on every computer. There is no other key to it.";
// Shorter ones are found by trying.
inline constexpr std::size_t kMinPassphrase = 12;

// Puts the question for a passphrase to the person, who may try again until they turn back.
[[nodiscard]] PassphraseQuestion AskForPassphrase(Prompts& prompts);

// What is wrong with a passphrase that is to be set, typed twice, about the control of that name.
[[nodiscard]] std::optional<Warning> CheckNewPassphrase(std::string_view typed,
                                                        std::string_view again);

}  // namespace corvanta::inline ledger
