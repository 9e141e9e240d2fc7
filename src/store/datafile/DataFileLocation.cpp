#include "store/datafile/DataFileLocation.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "platform/TextCase.h"

#include <filesystem>

namespace corvanta::inline datafile {
namespace {

constexpr std::string_view kDefaultName = "Corvanta.dat";
constexpr std::string_view kExtension = ".dat";

bool HasDataExtension(std::string_view path) {
  return path.size() > kExtension.size() &&
         EqualFolded(path.substr(path.size() - kExtension.size()), kExtension);
}

std::string WithoutEnd(std::string_view path) {
  while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) path.remove_suffix(1);
  return std::string(path);
}

std::string Join(const std::string& folder, std::string_view name) {
  std::string path = folder;
  if (path.empty() || path.back() != '/') path += '/';
  return path.append(name);
}

// Where a link points to: what replaces the data file must not replace a link to it.
std::string WithoutLink(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_symlink(path, error)) return path;
  const std::filesystem::path file = std::filesystem::canonical(path, error);
  return error ? path : file.string();
}

DataFileLocation FromFile(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return {".", std::string(path)};
  const std::string_view folder = slash == 0 ? "/" : path.substr(0, slash);
  return {std::string(folder), std::string(path.substr(slash + 1))};
}

}  // namespace

std::string DataFileLocation::Path() const {
  return Join(folder, fileName);
}

std::string DataFileLocation::CompactionPath() const {
  return Join(folder, "Corvanta.000");
}

std::string DataFileLocation::TransferPath() const {
  std::string name = fileName;
  if (HasDataExtension(name)) name.resize(name.size() - kExtension.size());
  return Join(folder, name + ".tfr");
}

std::string DataFileLocation::DraftPath() const {
  return Path() + ".new";
}

DataFileLocation DataFileLocation::FromPath(std::string_view path) {
  const std::string trimmed = WithoutEnd(path);
  if (!NamesFolder(trimmed)) return FromFile(WithoutLink(trimmed));
  const DataFileLocation location{trimmed, std::string(kDefaultName)};
  const std::string file = location.Path();
  const std::string target = WithoutLink(file);
  return target == file ? location : FromFile(target);
}

bool DataFileLocation::NamesFolder(std::string_view path) {
  const std::string trimmed = WithoutEnd(path);
  return !FileExists(trimmed) && (!HasDataExtension(trimmed) || FolderExists(trimmed));
}

std::optional<std::string> ReadDataPath(const Registry& registry) {
  for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
    const std::optional<std::string> path = registry.Read(hive, kSettingsKey, "DBPath");
    if (path.has_value() && !Trim(*path).empty()) return std::string(Trim(*path));
  }
  return std::nullopt;
}

void SetUpFirstStart(Platform& platform) {
  if (!platform.registry.IsEmpty(Hive::CurrentUser)) return;
  if (!platform.registry.IsEmpty(Hive::LocalMachine)) return;
  platform.registry.Write(Hive::CurrentUser, kSettingsKey, "DBPath", platform.dataFolder);
}

}  // namespace corvanta::inline datafile
