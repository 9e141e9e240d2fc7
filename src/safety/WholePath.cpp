#include "safety/WholePath.h"

#include <filesystem>

namespace corvanta::inline safety {

std::optional<Warning> WholePathFault(const std::string& path, const std::string& what,
                                      const char* title, const char* field) {
  if (std::filesystem::path(path).is_absolute()) return std::nullopt;
  return Warning{title,
                 "You need to enter the whole path of the " + what + ", or select it with Browse",
                 field};
}

}  // namespace corvanta::inline safety
