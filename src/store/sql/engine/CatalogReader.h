#pragma once

#include "store/sql/Catalog.h"

#include <string>

struct sqlite3;

namespace corvanta::inline sql {

// Reads the tables, columns and indexes of the schema from an open file. Throws StoreError.
[[nodiscard]] Catalog ReadCatalog(sqlite3* database, const std::string& file);

}  // namespace corvanta::inline sql
