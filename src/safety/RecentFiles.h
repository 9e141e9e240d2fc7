#pragma once

#include <string>
#include <vector>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline safety {

// The data files that were opened last, kept in the settings. Throws PlatformError.
class RecentFiles {
 public:
  static constexpr std::size_t kMax = 8;

  // The registry must outlive this object.
  explicit RecentFiles(Registry& registry) : registry_(registry) {}

  // The latest first.
  [[nodiscard]] std::vector<std::string> List() const;
  void Add(const std::string& path);
  void Remove(const std::string& path);

 private:
  void Write(const std::vector<std::string>& paths);

  Registry& registry_;
};

}  // namespace corvanta::inline safety
