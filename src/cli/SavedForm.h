// Saving through an editor's rules.
#pragma once

#include "cli/Session.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline cli {

// The key of what an editor's rules accept and save; nullopt, told, for what they refuse.
template <typename Editor, typename Form>
std::optional<std::int64_t> SaveChecked(Editor& editor, const Form& form, Session& session) {
  if (const auto warning = editor.Check(form)) {
    session.Tell(warning->title, warning->text);
    return std::nullopt;
  }
  const std::int64_t key = editor.Save(form);
  return key == 0 ? std::nullopt : std::optional(key);
}

// The key of a new row: as text the key alone, ready for a script.
void PrintKey(std::int64_t key, Session& session);

}  // namespace corvanta::inline cli
