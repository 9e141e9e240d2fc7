#include "reference/Deletion.h"

#include "platform/Prompts.h"

namespace corvanta::inline reference {

std::string Deletion::Notice() const {
  if (kept.empty()) return {};
  if (kept.size() == 1) return "“" + kept.front() + "” is still needed and was kept.";
  constexpr std::size_t kShown = 3;
  std::string names;
  for (std::size_t index = 0; index < kept.size() && index < kShown; ++index) {
    names += (names.empty() ? "“" : ", “") + kept[index] + "”";
  }
  if (kept.size() > kShown) names += " and " + std::to_string(kept.size() - kShown) + " more";
  return names + " are still needed and were kept.";
}

Deletion DeletionOf(bool isGone, const std::string& name) {
  Deletion deletion{isGone, isGone, {}};
  if (!isGone) deletion.kept.push_back(name);
  return deletion;
}

bool AskDelete(Prompts& prompts, const std::string& more) {
  return prompts.Ask("Delete Item?", "Do you wish to delete this item?" + more, Icon::Information);
}

bool AskDeleteItems(Prompts& prompts, std::size_t count) {
  if (count == 1) return AskDelete(prompts);
  return prompts.Ask("Delete Items?",
                     "Do you wish to delete these " + std::to_string(count) + " items?",
                     Icon::Information);
}

}  // namespace corvanta::inline reference
