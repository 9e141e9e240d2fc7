#pragma once

#include "invest/prices/SourceRow.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline invest {

// The sources that every data file has have the keys up to this one. Validating a file writes the
// first six of them anew, and puts back those that are gone.
inline constexpr std::int64_t kLastDefaultSource = 9;

// The sources of quotes and rates in a data file. Operations throw StoreError.
class SourceBook {
 public:
  // Outlives this object.
  explicit SourceBook(Connection& connection) : connection_(connection) {}

  // The source of that key or, for 0, the first of that type by name. nullopt when there is none.
  [[nodiscard]] std::optional<SourceRow> GetSourceRow(std::string_view type, std::int64_t dataId);
  // Those of a type, by name; of an empty type all of them, by type and name.
  [[nodiscard]] std::vector<SourceRow> SourcesOf(std::string_view type);
  // Writes it; a new one, of key 0, gets one behind those that every file has. Returns the key, 0
  // when there is no such row.
  std::int64_t Save(SourceRow& source);
  void Delete(std::int64_t dataId);
  // How many investments take their prices from it.
  [[nodiscard]] std::int64_t UseOf(std::int64_t dataId);
  // Gives a source of exchange rates a name that stands before those of all others, which makes it
  // the one that is asked. Returns the name.
  std::string PutFirst(std::int64_t dataId);

 private:
  // What is kept beside the row; nothing in a file that was opened for reading alone and lacks it.
  void ReadOwn(SourceRow& source);
  void WriteOwn(const SourceRow& source);
  void Rename(std::int64_t dataId, const std::string& name);

  Connection& connection_;
};

}  // namespace corvanta::inline invest
