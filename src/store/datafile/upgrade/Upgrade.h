#pragma once

#include <optional>
#include <string>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline datafile {

// Brings an old file's split links, money columns and quote sources up to the present layout.
// Throws StoreError at the first statement that fails before the quote sources, from which on
// failing statements are skipped. Run it in a transaction.
void UpgradeSchema(Connection& connection);

// The upgrade and the clean-up after it as one step: all of it or, when a statement fails or an
// account's balance comes out different, none of it. Returns what went wrong then. Throws
// StoreError for what the disk refuses; the file is then as it was, too.
[[nodiscard]] std::optional<std::string> UpgradeAndCleanUp(Connection& connection);

}  // namespace corvanta::inline datafile
