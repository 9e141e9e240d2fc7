#pragma once

#include "ledger/LedgerCore.h"
#include "ledger/reference/ReferenceTables.h"

#include <cstdint>
#include <string>
#include <vector>

namespace corvanta::inline ledger {

// The rows of one kind of ReferenceTables.h. Operations throw StoreError.
template <typename Record>
class ReferenceRows {
 public:
  explicit ReferenceRows(LedgerCore& core) : core_(core) {}

  // By name.
  [[nodiscard]] std::vector<Record> All();
  // Those of a query that gives all their columns.
  [[nodiscard]] std::vector<Record> Read(const std::string& sql);
  // The key of the row of that name, in whatever case; 0 when there is none.
  [[nodiscard]] std::int64_t Find(const std::string& name);
  // 0 for a name of blanks.
  std::int64_t FindOrCreate(const std::string& name);
  // The key of a row of that name that is another one than `key`; 0 when there is none.
  [[nodiscard]] std::int64_t Other(const std::string& name, std::int64_t key);
  // The key, which a new row's record gets too; 0 when there is no such row.
  std::int64_t Save(Record& record);
  // False when there is no such row, or something needs it.
  bool Delete(std::int64_t key);

 private:
  LedgerCore& core_;
};

}  // namespace corvanta::inline ledger
