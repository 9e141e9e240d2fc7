#include "store/datafile/opening/TransferFile.h"

#include "platform/Files.h"
#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "platform/TextCase.h"
#include "store/datafile/opening/clsCipher.h"

#include <algorithm>
#include <utility>

namespace corvanta::inline datafile {
namespace {

constexpr std::string_view kProgramKey = "Software\\Corvanta 2.0\\";
constexpr std::string_view kPasswordMark = "999@";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Section {
  std::string_view heading;
  std::string_view key;
};

constexpr Section kSections[] = {
    {"SETTINGS", "Settings"},
    {"REPORTS", "Reports"},
    {"STOCKS", "Stocks"},
    {"CURRENCY", "Currency"},
};

std::string WithoutMark(std::string_view text) {
  if (text.starts_with(kPasswordMark)) text.remove_prefix(kPasswordMark.size());
  return std::string(text);
}

void CollectKey(const RegistryText& text, const std::string& section, const std::string& key,
                RegistryKeys& keys) {
  RegistryValues values;
  for (const std::string& name : text.ValueNames(section)) {
    if (EqualFolded(name, "DBPath")) continue;
    std::string value = text.Read(section, name).value_or("");
    // The files that are here already may go by this setting: it is never switched off so.
    if (EqualFolded(name, "Login") && !ReadCheck(value).value_or(false)) continue;
    values[name] = std::move(value);
  }
  if (!values.empty()) keys[key] = std::move(values);
  for (const std::string& subKey : text.SubKeys(section)) {
    CollectKey(text, section + "\\" + subKey, key + "\\" + subKey, keys);
  }
}

void ReadKey(const Registry& registry, const std::string& key, const std::string& section,
             RegistryText& text) {
  for (const std::string& name : registry.ValueNames(Hive::CurrentUser, key)) {
    if (EqualFolded(name, "DBPath")) continue;
    text.Write(section, name, registry.Read(Hive::CurrentUser, key, name).value_or(""));
  }
  for (const std::string& subKey : registry.SubKeys(Hive::CurrentUser, key)) {
    ReadKey(registry, key + "\\" + subKey, section + "\\" + subKey, text);
  }
}

}  // namespace

std::optional<TransferFile> TransferFile::FromText(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const std::size_t lineEnd = std::min(text.find('\n'), text.size());
  const std::optional<std::string> password =
      clsCipher().Decipher(WithoutMark(Trim(text.substr(0, lineEnd))));
  if (!password.has_value()) return std::nullopt;
  std::string rest(text.substr(lineEnd));
  std::erase(rest, '\r');
  return TransferFile{WithoutMark(*password), RegistryText(rest)};
}

void TransferFile::WriteSettings(Registry& registry) const {
  RegistryKeys keys;
  for (const Section& section : kSections) {
    CollectKey(settings, std::string(section.heading),
               std::string(kProgramKey) + std::string(section.key), keys);
  }
  if (!keys.empty()) registry.WriteKeys(Hive::CurrentUser, keys);
}

void WriteTransferFile(const std::string& path, const std::string& password,
                       const Registry& registry, Files& files, FormerFile former) {
  RegistryText settings;
  for (const Section& section : kSections) {
    ReadKey(registry, std::string(kProgramKey) + std::string(section.key),
            std::string(section.heading), settings);
  }
  const std::string line = clsCipher().Encipher(std::string(kPasswordMark) + password);
  files.Save(path, line + "\n" + settings.ToText(), former);
}

}  // namespace corvanta::inline datafile
