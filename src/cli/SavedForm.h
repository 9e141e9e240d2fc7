// Saving through an editor's rules.
#pragma once

#include "cli/Session.h"

#include <cstdint>
#include <optional>
#include <string>

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

// Saves what the options made of the form of a saved row, and says so; one that they left as it was
// loaded is not saved, and that is said.
template <typename Editor, typename Form>
ExitStatus SaveChanges(Editor& editor, const Form& loaded, const Form& form,
                       const std::string& title, const std::string& name, Session& session) {
  if (form == loaded) {
    session.Tell(title, name + " is as it was: nothing was to be changed");
    return ExitStatus::Done;
  }
  if (!SaveChecked(editor, form, session)) return ExitStatus::Refused;
  session.Tell(title, name + " changed");
  return ExitStatus::Done;
}

// The key of a new row: as text the key alone, ready for a script.
void PrintKey(std::int64_t key, Session& session);

}  // namespace corvanta::inline cli
