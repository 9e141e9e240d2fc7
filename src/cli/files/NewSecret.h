#pragma once

#include "ledger/Warning.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline cli {

class Session;

using SecretRule = std::optional<Warning> (*)(std::string_view typed, std::string_view again);

// Asks twice for a secret that is to be set ("password"). nullopt when the rule is against it,
// which is told.
[[nodiscard]] std::optional<std::string> AskNewSecret(const char* title, const std::string& noun,
                                                      SecretRule check, Session& session);

}  // namespace corvanta::inline cli
