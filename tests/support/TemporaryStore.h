#pragma once

#include "store/sql/Connection.h"
#include "support/TestPlatform.h"

#include <memory>
#include <string>

namespace corvanta {

enum class StoreContent {
  Default,  // what a data file made empty holds: reference rows only
  Sample    // and the sample data, with dates before FixedClock's first day
};

// Puts a data file into the platform's data folder, the key that opens it into its profile, and the
// folder into DBPath. The file is made once per process and content, and copied then. Returns the
// file's path.
std::string PutDataFile(TestPlatform& platform, StoreContent content = StoreContent::Sample);

// A machine with an open data file on it.
class TemporaryStore {
 public:
  explicit TemporaryStore(StoreContent content = StoreContent::Sample);

  TestPlatform platform;

  // The connection, opened at the first call.
  [[nodiscard]] Connection& Db();
  void Close() { connection_.reset(); }
  [[nodiscard]] const std::string& Path() const { return path_; }
  // The password of the data file.
  [[nodiscard]] std::string Password();
  // The first column of the first row, as a number.
  [[nodiscard]] std::int64_t Number(const std::string& sql);

 private:
  std::string path_;
  std::unique_ptr<Connection> connection_;
};

}  // namespace corvanta
