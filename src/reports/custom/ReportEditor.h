#pragma once

#include "ledger/Warning.h"
#include "reports/custom/ReportDefinitions.h"

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline platform {
class Prompts;
class Registry;
}  // namespace corvanta::inline platform

namespace corvanta::inline reports {

// The rules of "Custom Reports": the saved reports are listed, opened, deleted, and saved under a
// name.
class ReportEditor {
 public:
  // Both must outlive this object.
  ReportEditor(Registry& registry, Prompts& prompts) : definitions_(registry), prompts_(prompts) {}

  struct Item {
    std::string name;
    std::string report;  // what it is a report of; empty where that is not known
  };
  // By name.
  [[nodiscard]] std::vector<Item> Items() const;
  // nullopt when it is there no more, or does not say which report it is of; the person has been
  // told.
  [[nodiscard]] std::optional<ReadDefinition> Open(const std::string& name);
  // Asks first. True when it is gone. Throws PlatformError.
  bool Delete(const std::string& name);

  // What is wrong with the name to save under.
  [[nodiscard]] static std::optional<Warning> CheckName(const std::string& name);
  // Asks before another report than `opened` (a name, empty for none) is written over. True when it
  // was saved. Throws PlatformError.
  bool Save(const ReportDefinition& definition, const std::string& opened);

 private:
  ReportDefinitions definitions_;
  Prompts& prompts_;
};

}  // namespace corvanta::inline reports
