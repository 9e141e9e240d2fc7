#include "reports/custom/ReportDefinitions.h"

#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace corvanta::inline reports {
namespace {

constexpr std::string_view kItem = "Item";

std::string PathOf(std::string_view key) {
  return std::string(kReportsKey) + '\\' + std::string(key);
}

}  // namespace

std::vector<ReportDefinitions::Listed> ReportDefinitions::All() const {
  std::vector<Listed> all;
  for (const std::string& key : registry_.SubKeys(Hive::CurrentUser, kReportsKey)) {
    const auto value = registry_.Read(Hive::CurrentUser, PathOf(key), "Report");
    const ReportLabel label = ReadReportLabel(value.value_or(std::string()));
    if (!label.name.empty()) all.push_back({label.name, label.report});
  }
  std::ranges::stable_sort(
      all, [](const Listed& a, const Listed& b) { return CompareFolded(a.name, b.name) < 0; });
  return all;
}

std::optional<std::string> ReportDefinitions::KeyOf(std::string_view name) const {
  std::optional<std::string> alike;
  for (const std::string& key : registry_.SubKeys(Hive::CurrentUser, kReportsKey)) {
    const auto value = registry_.Read(Hive::CurrentUser, PathOf(key), "Report");
    const std::string own = ReadReportLabel(value.value_or(std::string())).name;
    if (own.empty()) continue;
    if (own == name) return key;
    if (!alike && EqualFolded(own, name)) alike = key;
  }
  return alike;
}

std::optional<ReadDefinition> ReportDefinitions::Find(std::string_view name) const {
  const std::optional<std::string> key = KeyOf(Trim(name));
  if (!key) return std::nullopt;
  std::map<std::string, std::string> values;
  const auto read = [&](const std::string& value) {
    values[value] = registry_.Read(Hive::CurrentUser, PathOf(*key), value).value_or(std::string());
  };
  for (const std::string& value : DefinitionValueNames()) read(value);
  read(kFurtherValue);
  return DefinitionOf(values);
}

std::string ReportDefinitions::NewKey() const {
  std::int64_t highest = 0;
  for (const std::string& key : registry_.SubKeys(Hive::CurrentUser, kReportsKey)) {
    if (!EqualFolded(std::string_view(key).substr(0, kItem.size()), kItem)) continue;
    const std::string_view number = std::string_view(key).substr(kItem.size());
    std::int64_t own = 0;
    const auto [end, fault] = std::from_chars(number.data(), number.data() + number.size(), own);
    const bool isWhole = fault == std::errc() && end == number.data() + number.size();
    // One that has no number behind it is left where it is.
    if (isWhole && own < std::numeric_limits<std::int64_t>::max()) highest = std::max(highest, own);
  }
  return std::string(kItem) + std::to_string(highest + 1);
}

void ReportDefinitions::Save(const ReportDefinition& definition) {
  const std::optional<std::string> known = KeyOf(definition.name);
  const std::string path = PathOf(known ? *known : NewKey());
  RegistryValues values = ValuesOf(definition);
  // Those of the former one go in the same write.
  if (registry_.Read(Hive::CurrentUser, path, kFurtherValue)) values.try_emplace(kFurtherValue);
  registry_.WriteAll(Hive::CurrentUser, path, values);
}

bool ReportDefinitions::Delete(std::string_view name) {
  const std::optional<std::string> key = KeyOf(Trim(name));
  if (key) registry_.DeleteKey(Hive::CurrentUser, PathOf(*key));
  return key.has_value();
}

}  // namespace corvanta::inline reports
