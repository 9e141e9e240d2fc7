#include "safety/RecentFiles.h"

#include "platform/Registry.h"
#include "safety/SafetyKeys.h"

#include <map>

namespace corvanta::inline safety {

std::vector<std::string> RecentFiles::List() const {
  std::vector<std::string> paths;
  for (std::size_t i = 0; i < kMax; ++i) {
    const auto path = registry_.Read(Hive::CurrentUser, kRecentKey, std::to_string(i));
    if (path && !path->empty()) paths.push_back(*path);
  }
  return paths;
}

void RecentFiles::Add(const std::string& path) {
  std::vector<std::string> paths = List();
  if (path.empty() || (!paths.empty() && paths.front() == path)) return;
  std::erase(paths, path);
  paths.insert(paths.begin(), path);
  Write(paths);
}

void RecentFiles::Remove(const std::string& path) {
  std::vector<std::string> paths = List();
  if (std::erase(paths, path) > 0) Write(paths);
}

void RecentFiles::Write(const std::vector<std::string>& paths) {
  std::map<std::string, std::string> values;
  for (std::size_t i = 0; i < kMax; ++i) {
    values[std::to_string(i)] = i < paths.size() ? paths[i] : std::string();
  }
  registry_.WriteAll(Hive::CurrentUser, kRecentKey, values);
}

}  // namespace corvanta::inline safety
