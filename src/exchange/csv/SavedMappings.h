#pragma once

#include "exchange/csv/CsvMapping.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline exchange {

// What the columns are of: each kind of file has mappings of its own.
enum class MappedFile { Bank, Prices };

// The mappings of CSV columns that a person saved under a name, among the user's settings.
class SavedMappings {
 public:
  explicit SavedMappings(Registry& registry, MappedFile file = MappedFile::Bank)
      : registry_(registry), file_(file) {}

  [[nodiscard]] std::vector<std::string> Names() const;
  // The first one with a heading that fits, as that says; nullopt when there is none.
  [[nodiscard]] std::optional<std::string> NameOf(
      const std::function<bool(const SavedCsvMapping&)>& fits) const;
  [[nodiscard]] std::optional<SavedCsvMapping> Find(const std::string& name) const;
  // Takes the place of one of that name. Throws PlatformError when it cannot be written.
  void Save(const std::string& name, const SavedCsvMapping& saved);
  void Remove(const std::string& name);

 private:
  [[nodiscard]] std::string Key() const;

  Registry& registry_;
  MappedFile file_;
};

}  // namespace corvanta::inline exchange
