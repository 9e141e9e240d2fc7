#include "reference/Rules.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/TextCase.h"

namespace corvanta::inline reference {

std::optional<Warning> Missing(std::string_view text, std::string_view message,
                               std::string_view field) {
  if (!Trim(text).empty()) return std::nullopt;
  return Warning{kSaveWarning, std::string(message), std::string(field)};
}

std::optional<Warning> NameTooLong(std::string_view text, std::string_view message,
                                   std::string_view field) {
  if (TextLength(Trim(text)) <= kLongestName) return std::nullopt;
  return Warning{kSaveWarning, std::string(message), std::string(field)};
}

std::optional<Warning> Duplicate(bool isThere, std::string_view message, std::string_view field) {
  if (!isThere) return std::nullopt;
  return Warning{"Duplicate Record", std::string(message), std::string(field)};
}

std::optional<Warning> FixedName(std::string_view fixed, std::string_view former,
                                 std::string_view name, std::string_view what,
                                 std::string_view field) {
  if (!EqualFolded(former, fixed) || EqualFolded(Trim(name), fixed)) return std::nullopt;
  return Warning{kSaveWarning,
                 "The " + std::string(what) + " '" + std::string(fixed) +
                     "' is needed by the program and keeps its name",
                 std::string(field)};
}

std::optional<Warning> TextTooLong(clsCorvanta& ledger, std::string_view table,
                                   std::initializer_list<FieldText> texts) {
  for (const FieldText& text : texts) {
    const auto problem = ledger.References().TooLong(table, {{text.column, text.text}});
    if (problem) return Warning{kSaveWarning, problem->text, std::string(text.field)};
  }
  return std::nullopt;
}

void TrimText(std::string& text) {
  text = std::string(Trim(text));
}

}  // namespace corvanta::inline reference
