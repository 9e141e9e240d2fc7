// Rules that the editors share. Each gives the warning of a rule that is broken.
#pragma once

#include "ledger/Warning.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline reference {

// In characters; a name of exactly so many is accepted.
inline constexpr std::size_t kLongestName = 100;
inline constexpr const char* kSaveWarning = "Save Warning";

// `message` for a text of blanks.
[[nodiscard]] std::optional<Warning> Missing(std::string_view text, std::string_view message,
                                             std::string_view field);
// `message` for a name of more than kLongestName characters.
[[nodiscard]] std::optional<Warning> NameTooLong(std::string_view text, std::string_view message,
                                                 std::string_view field);
// `message` when `isThere`.
[[nodiscard]] std::optional<Warning> Duplicate(bool isThere, std::string_view message,
                                               std::string_view field);
// A row that the program finds by its name keeps it, in whatever case.
[[nodiscard]] std::optional<Warning> FixedName(std::string_view fixed, std::string_view former,
                                               std::string_view name, std::string_view what,
                                               std::string_view field);

struct FieldText {
  std::string_view column;
  std::string_view text;
  std::string_view field;
};
// For the first text that its column cannot hold.
[[nodiscard]] std::optional<Warning> TextTooLong(clsCorvanta& ledger, std::string_view table,
                                                 std::initializer_list<FieldText> texts);

// Without the blanks around it.
void TrimText(std::string& text);

}  // namespace corvanta::inline reference
