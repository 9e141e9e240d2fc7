#pragma once

#include "cli/output/TableWriter.h"

namespace corvanta::inline cli {

// Comma-separated values as RFC 4180 has them: a header line, CR LF at every line's end, quotes
// where a field needs them. Dates are ISO, numbers shortest with a point, NULL is empty.
class CsvTableWriter : public TableWriter {
 public:
  void Write(const OutputTable& table, std::ostream& out) const override;
};

}  // namespace corvanta::inline cli
