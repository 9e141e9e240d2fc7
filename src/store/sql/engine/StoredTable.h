#pragma once

#include "store/sql/Catalog.h"

#include <string>
#include <string_view>

namespace corvanta::inline sql {

// Indexes whose names begin so only make the engine fast and are not shown in the catalog.
inline constexpr std::string_view kAccessPathPrefix = "fast_";

// The library's CREATE TABLE for a definition, under the name given. What the dialect refuses (a
// text too long, a value of another kind) stands in it as named checks that any tool understands.
[[nodiscard]] std::string CreateTableText(const TableDef& table, std::string_view name);
// The library's CREATE INDEX; its own names are unique in the file, the dialect's in their table.
[[nodiscard]] std::string CreateIndexText(const TableDef& table, const IndexDef& index);
[[nodiscard]] std::string StoredIndexName(std::string_view table, std::string_view index);

}  // namespace corvanta::inline sql
