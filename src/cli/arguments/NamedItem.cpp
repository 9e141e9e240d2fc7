#include "cli/arguments/NamedItem.h"

#include "cli/Session.h"
#include "cli/arguments/CloseNames.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline cli {
namespace {

std::vector<NamedItem> Matches(const std::vector<NamedItem>& items, const std::string& typed) {
  std::vector<NamedItem> found;
  for (const NamedItem& item : items) {
    if (EqualFolded(Trim(item.name), Trim(typed))) found.push_back(item);
  }
  if (!found.empty()) return found;
  for (const NamedItem& item : items) {
    if ("#" + std::to_string(item.key) == typed) found.push_back(item);
  }
  return found;
}

std::string SeveralText(const std::vector<NamedItem>& found, const std::string& typed) {
  std::string text = "\"" + typed + "\" is the name of several: ";
  for (const NamedItem& item : found) {
    text += (&item == found.data() ? "#" : ", #") + std::to_string(item.key);
  }
  return text + ". Name the one that is meant by its key.";
}

}  // namespace

std::optional<NamedItem> FindItem(const std::vector<NamedItem>& items, const std::string& typed,
                                  const std::string& title, const std::string& kind,
                                  Session& session) {
  const std::vector<NamedItem> found = Matches(items, typed);
  if (found.size() == 1) return found.front();
  if (found.size() > 1) {
    session.Tell(title, SeveralText(found, typed));
    return std::nullopt;
  }
  std::vector<std::string> names;
  for (const NamedItem& item : items) names.push_back(item.name);
  session.Tell(
      title, "There is no " + kind + " \"" + typed + "\"." + DidYouMean(CloseNames(typed, names)));
  return std::nullopt;
}

}  // namespace corvanta::inline cli
