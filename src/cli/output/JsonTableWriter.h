#pragma once

#include "cli/output/TableWriter.h"

namespace corvanta::inline cli {

// An array with an object for every row, in the order of the columns. Whole numbers keep all their
// digits, other numbers are the shortest that read back the same, NULL is null, text stays UTF-8.
// A column whose name another one before it has is told apart by a number: "Date", "Date_2".
class JsonTableWriter : public TableWriter {
 public:
  void Write(const OutputTable& table, std::ostream& out) const override;
};

}  // namespace corvanta::inline cli
