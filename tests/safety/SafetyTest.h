#pragma once

#include "platform/SettingsTable.h"
#include "safety/Backup.h"
#include "store/datafile/OpenDataFile.h"
#include "store/sql/Connection.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace corvanta {

// A machine with an open data file that holds the sample data, and one that makes backups of it.
class SafetyTest : public testing::Test {
 protected:
  SafetyTest() { store_.Db().Execute("UPDATE tblVerification SET UpdateRun = Now()"); }

  [[nodiscard]] BackedFile File() { return {store_.Path(), store_.Password()}; }
  void Set(std::string_view name, const std::string& value) {
    store_.platform.registry.Write(Hive::CurrentUser, kSettingsKey, name, value);
  }
  void SetToday(int year, int month, int day, int hour = 12, int minute = 0) {
    store_.platform.clock.Set({*Date::FromYmd(year, month, day), hour * 3600 + minute * 60});
  }
  // The names in a folder, in order.
  static std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
  }
  [[nodiscard]] std::unique_ptr<Connection> Connect(const std::string& path) {
    return Connection::Open({path, store_.Password(), {}}, store_.platform.clock);
  }
  [[nodiscard]] std::int64_t NumberIn(const std::string& path, const std::string& sql) {
    return Connect(path)->QueryValue(sql).Int();
  }

  TemporaryStore store_;
  Writer writer_{"a test", {}};
  Backup backup_{store_.platform.Get(), writer_};
};

}  // namespace corvanta
