#pragma once

#include "reports/custom/ReportDefinition.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline reports {

// The saved reports of this user: a key "Item" with a number for each.
class ReportDefinitions {
 public:
  // The registry must outlive this object.
  explicit ReportDefinitions(Registry& registry) : registry_(registry) {}

  struct Listed {
    std::string name;
    int report = 0;  // 0 where it is not known
  };
  // All of them by their names, without regard to case.
  [[nodiscard]] std::vector<Listed> All() const;
  // nullopt when there is none of that name.
  [[nodiscard]] std::optional<ReadDefinition> Find(std::string_view name) const;
  // One of the same name is written over; another one gets a number above all others. Throws
  // PlatformError; then nothing is changed.
  void Save(const ReportDefinition& definition);
  // False when there is none of that name. Throws PlatformError.
  bool Delete(std::string_view name);

 private:
  // The key's name; nullopt when no definition is called so.
  [[nodiscard]] std::optional<std::string> KeyOf(std::string_view name) const;
  [[nodiscard]] std::string NewKey() const;

  Registry& registry_;
};

}  // namespace corvanta::inline reports
