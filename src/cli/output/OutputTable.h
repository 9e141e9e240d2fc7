#pragma once

#include "store/sql/Value.h"

#include <cstddef>
#include <string>
#include <vector>

namespace corvanta::inline cli {

// How a column is written for a person; files for programs write every value by its own kind.
enum class OutputKind {
  Text,
  Integer,  // keys and counts: digits without grouping
  Number,   // as many decimals as its values need
  Money,    // the decimals of the locale
  Date
};

struct OutputColumn {
  std::string name;
  OutputKind kind = OutputKind::Text;
};

// What a command answers: named columns and rows of values, whatever form it is written in.
class OutputTable {
 public:
  explicit OutputTable(std::vector<OutputColumn> columns) : columns_(std::move(columns)) {}

  // One value for every column, in their order.
  void AddRow(std::vector<Value> row);

  [[nodiscard]] const std::vector<OutputColumn>& Columns() const { return columns_; }
  [[nodiscard]] const std::vector<std::vector<Value>>& Rows() const { return rows_; }

 private:
  std::vector<OutputColumn> columns_;
  std::vector<std::vector<Value>> rows_;
};

}  // namespace corvanta::inline cli
