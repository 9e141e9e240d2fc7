#include "exchange/csv/SavedMappings.h"

#include "platform/Registry.h"
#include "platform/SettingsTable.h"

namespace corvanta::inline exchange {

std::string SavedMappings::Key() const {
  return std::string(kSettingsKey) + (file_ == MappedFile::Bank ? "\\Import" : "\\ImportPrices");
}

std::vector<std::string> SavedMappings::Names() const {
  std::vector<std::string> names;
  for (const std::string& name : registry_.ValueNames(Hive::CurrentUser, Key())) {
    if (Find(name)) names.push_back(name);
  }
  return names;
}

std::optional<std::string> SavedMappings::NameOf(
    const std::function<bool(const SavedCsvMapping&)>& fits) const {
  for (const std::string& name : Names()) {
    const auto saved = Find(name);
    if (saved && !saved->header.empty() && fits(*saved)) return name;
  }
  return std::nullopt;
}

std::optional<SavedCsvMapping> SavedMappings::Find(const std::string& name) const {
  const std::optional<std::string> text = registry_.Read(Hive::CurrentUser, Key(), name);
  return text ? ReadSavedMapping(*text) : std::nullopt;
}

void SavedMappings::Save(const std::string& name, const SavedCsvMapping& saved) {
  registry_.Write(Hive::CurrentUser, Key(), name, ToText(saved));
}

void SavedMappings::Remove(const std::string& name) {
  registry_.DeleteValue(Hive::CurrentUser, Key(), name);
}

}  // namespace corvanta::inline exchange
