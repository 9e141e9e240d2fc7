#pragma once

#include <string_view>

namespace corvanta {

enum class ImportKind { Qif, Ofx, Csv };

// By what the text begins with, else by the file's extension, else CSV. Banks name their files as
// they please.
[[nodiscard]] ImportKind KindOfImport(std::string_view path, std::string_view text);

}  // namespace corvanta
