#include "cli/output/OutputTable.h"

#include <cassert>
#include <utility>

namespace corvanta::inline cli {

void OutputTable::AddRow(std::vector<Value> row) {
  assert(row.size() == columns_.size());
  rows_.push_back(std::move(row));
}

}  // namespace corvanta::inline cli
