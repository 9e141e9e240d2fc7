#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Prompts;
}

namespace corvanta::inline reference {

// What became of an item that was to be deleted. When the person declines, nothing is gone and
// nothing was kept.
struct Deletion {
  bool isGone = false;            // the item itself
  bool isChanged = false;         // anything was deleted
  std::vector<std::string> kept;  // names of the rows that something still uses

  // What was kept, in words; empty when nothing was.
  [[nodiscard]] std::string Notice() const;
};

// Of a single row: gone, or kept under that name.
[[nodiscard]] Deletion DeletionOf(bool isGone, const std::string& name);

// "Do you wish to delete this item?" and what an editor adds to it.
[[nodiscard]] bool AskDelete(Prompts& prompts, const std::string& more = {});
// The same for so many rows.
[[nodiscard]] bool AskDeleteItems(Prompts& prompts, std::size_t count);

}  // namespace corvanta::inline reference
