// Sources that are ready to pick.
#pragma once

#include "invest/prices/SourceRow.h"

#include <span>
#include <string>
#include <string_view>

namespace corvanta::inline invest {

struct SourcePreset {
  std::string_view name;
  std::string_view type;
  std::string_view url;
  std::string_view field;  // a pointer into a JSON text
  std::string_view lookUpUrl;

  // Whether it wants a key of the person's own.
  [[nodiscard]] bool WantsKey() const;
  // As a new source.
  [[nodiscard]] SourceRow Row() const;
};

[[nodiscard]] std::span<const SourcePreset> SourcePresets();

// What has to be said of them.
inline constexpr const char* kPresetsUntried =
    "These sources were written down from what their services say of themselves, and could not be "
    "tried. Press Test before you rely on one.";

}  // namespace corvanta::inline invest
