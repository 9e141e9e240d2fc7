#include "support/TemporaryStore.h"

#include "platform/SettingsTable.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/InstallationKey.h"

#include <fstream>
#include <map>
#include <stdexcept>

namespace corvanta {
namespace {

struct Template {
  std::string key;
  std::string dataFile;
};

std::string KeyPath(TestPlatform& platform) {
  return platform.Get().profileFolder + "/installation.key";
}

DataFileLocation LocationOf(TestPlatform& platform) {
  return DataFileLocation::FromPath(platform.Get().dataFolder);
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

Template MakeTemplate(StoreContent content) {
  TestPlatform platform;
  const DataFileLocation location = LocationOf(platform);
  platform.files.CreateFolder(location.folder);
  CreateDataFile(location, InstallationPassword(platform.Get()), content == StoreContent::Default,
                 platform.Get());
  return {ReadFile(KeyPath(platform)), ReadFile(location.Path())};
}

const Template& TemplateOf(StoreContent content) {
  static std::map<StoreContent, Template> templates;
  const auto found = templates.find(content);
  if (found != templates.end()) return found->second;
  return templates.emplace(content, MakeTemplate(content)).first->second;
}

}  // namespace

std::string PutDataFile(TestPlatform& platform, StoreContent content) {
  const Template& made = TemplateOf(content);
  const DataFileLocation location = LocationOf(platform);
  platform.files.CreateFolder(platform.Get().profileFolder);
  platform.files.CreateFolder(location.folder);
  WriteBytes(KeyPath(platform), made.key);
  WriteBytes(location.Path(), made.dataFile);
  platform.registry.Write(Hive::CurrentUser, kSettingsKey, "DBPath", location.folder);
  return location.Path();
}

TemporaryStore::TemporaryStore(StoreContent content) : path_(PutDataFile(platform, content)) {}

Connection& TemporaryStore::Db() {
  if (connection_ == nullptr) {
    connection_ = Connection::Open({path_, Password(), {}}, platform.clock);
  }
  return *connection_;
}

std::string TemporaryStore::Password() {
  return InstallationPassword(platform.Get());
}

std::int64_t TemporaryStore::Number(const std::string& sql) {
  return Db().QueryValue(sql).Int();
}

}  // namespace corvanta
