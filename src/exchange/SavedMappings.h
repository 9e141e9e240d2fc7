#pragma once

#include "exchange/CsvMapping.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline exchange {

// The mappings of CSV columns that a person saved under a name, among the user's settings.
class SavedMappings {
 public:
  explicit SavedMappings(Registry& registry) : registry_(registry) {}

  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::optional<SavedCsvMapping> Find(const std::string& name) const;
  // Takes the place of one of that name. Throws PlatformError when it cannot be written.
  void Save(const std::string& name, const SavedCsvMapping& saved);
  void Remove(const std::string& name);

 private:
  Registry& registry_;
};

}  // namespace corvanta::inline exchange
