// What the options are called, where a person finds them, and what each one does.
#pragma once

#include "platform/SettingsTable.h"

#include <span>
#include <string_view>

namespace corvanta::inline app {

struct OptionWords {
  Setting setting;
  std::string_view control;  // its control's name: "chkGrids"
  std::string_view label;
  std::string_view tip;  // what it does, in whole sentences
};

struct OptionSection {
  std::string_view title;
  std::span<const OptionWords> options;
};

// The sections in the order in which they are shown. Each option stands in one of them.
[[nodiscard]] std::span<const OptionSection> OptionSections();

// Whether each of the words that are looked for, in letters of any case, is in what is said of the
// option, in its choices or in its section's title. An empty text finds every option.
[[nodiscard]] bool IsFound(const OptionSection& section, const OptionWords& option,
                           std::string_view looked);

}  // namespace corvanta::inline app
