#pragma once

#include <array>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

enum class ImportKind { Qif, Ofx, Csv };

// The endings of files that can be imported, in small letters and without a point.
inline constexpr std::array<std::string_view, 5> kImportEndings = {"qif", "ofx", "qfx", "csv",
                                                                   "txt"};
// Whether the file has one of them, in letters of any case.
[[nodiscard]] bool HasImportEnding(std::string_view path);
// All of them as a file dialog wants them: "*.qif *.ofx".
[[nodiscard]] std::string ImportPattern();

// By what the text begins with, else by the file's extension, else CSV. Banks name their files as
// they please.
[[nodiscard]] ImportKind KindOfImport(std::string_view path, std::string_view text);

}  // namespace corvanta::inline exchange
