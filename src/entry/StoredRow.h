#pragma once

#include "store/sql/Connection.h"

#include <cstdint>
#include <optional>

namespace corvanta::inline entry {

// A row as the data file holds it, read once for all the steps of an edit.
template <typename Row>
class StoredRow {
 public:
  // `read` gives the row of the key. It is asked again for another key, and once something may have
  // changed the row.
  template <typename Read>
  const std::optional<Row>& Of(std::int64_t key, const Connection& store, const Read& read) {
    if (key == key_ && changes_ == store.Changes() && !store.InTransaction()) return row_;
    row_ = key == 0 ? std::nullopt : read(key);
    key_ = key;
    changes_ = store.Changes();
    return row_;
  }

 private:
  std::optional<Row> row_;
  std::int64_t key_ = 0;
  std::optional<std::uint64_t> changes_;  // of the data file, when the row was read
};

}  // namespace corvanta::inline entry
