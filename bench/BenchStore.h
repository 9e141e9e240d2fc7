#pragma once

#include "store/sql/Connection.h"
#include "store/sql/engine/Encryption.h"
#include "support/TestPlatform.h"

#include <sqlcipher/sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>

namespace corvanta {

// A data file in a temporary folder, opened by the engine or by the bare library.
class BenchStore {
 public:
  BenchStore();

  [[nodiscard]] DataSource Source() const { return {path_, "secret", ""}; }
  [[nodiscard]] std::unique_ptr<Connection> Open() {
    return Connection::Open(Source(), platform_.clock);
  }
  // The library's handle with the key and settings that the engine uses; the caller closes it.
  [[nodiscard]] sqlite3* OpenRaw() const;
  [[nodiscard]] Platform& Machine() { return platform_.Get(); }
  // Ordinary rows in account 1, spread over the ten years up to a week from today, one payee in
  // three hundred.
  void AddTransactions(int count);

 private:
  TestPlatform platform_;
  std::string path_;
};

// A data file of so many transactions, made once for all benchmarks that only read it.
[[nodiscard]] BenchStore& StoreOf(std::int64_t count);

}  // namespace corvanta
