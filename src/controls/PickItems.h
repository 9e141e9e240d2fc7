#pragma once

#include "controls/PickBox.h"
#include "controls/QtText.h"

#include <vector>

namespace corvanta::inline controls {

// Another list below the box's text. Each choice has a `key` and a `name`.
template <typename Choice>
void FillBox(PickBox& box, const std::vector<Choice>& choices) {
  std::vector<PickItem> items;
  for (const Choice& choice : choices) items.push_back({choice.key, ToQt(choice.name)});
  box.SetItems(items);
}

}  // namespace corvanta::inline controls
