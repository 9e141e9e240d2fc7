#pragma once

#include "invest/SourceRow.h"

#include <optional>
#include <string_view>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline invest {

// The sources of quotes and rates in a data file. Operations throw StoreError.
class SourceBook {
 public:
  // Outlives this object.
  explicit SourceBook(Connection& connection) : connection_(connection) {}

  // The source of that key or, for 0, the first of that type by name. nullopt when there is none.
  [[nodiscard]] std::optional<SourceRow> GetSourceRow(std::string_view type, std::int64_t dataId);

 private:
  // What is kept beside the row; nothing in a file that was opened for reading alone and lacks it.
  void ReadOwn(SourceRow& source);

  Connection& connection_;
};

}  // namespace corvanta::inline invest
