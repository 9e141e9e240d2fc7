#pragma once

#include "ledger/Warning.h"

#include <optional>
#include <string>

namespace corvanta::inline platform {
class Opener;
}

namespace corvanta::inline invest {

// Opens the page of a data source on which symbols are looked up; nullopt for no source, an empty
// address for one without a page. Why none was opened, about the box of sources; nullopt when one
// was.
[[nodiscard]] std::optional<Warning> OpenLookUpPage(const std::optional<std::string>& address,
                                                    Opener& opener);

}  // namespace corvanta::inline invest
