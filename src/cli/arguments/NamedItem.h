#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline cli {

class Session;

// Something with a name that a person may give on the command line.
struct NamedItem {
  std::int64_t key = 0;
  std::string name;
};

// The item of that whole name, without regard to case, or of "#" and its key. nullopt when there is
// none or the name stands for several, which has then been told under `title`, together with the
// names that come near. `kind` is the word for such an item: "payee".
[[nodiscard]] std::optional<NamedItem> FindItem(const std::vector<NamedItem>& items,
                                                const std::string& typed, const std::string& title,
                                                const std::string& kind, Session& session);

}  // namespace corvanta::inline cli
