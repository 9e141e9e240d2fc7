#include "cli/output/CsvTableWriter.h"

#include "cli/output/OutputTable.h"
#include "platform/CsvText.h"
#include "platform/ShortestNumber.h"

#include <ostream>
#include <string>
#include <vector>

namespace corvanta::inline cli {
namespace {

void WriteLine(const std::vector<std::string>& fields, std::ostream& out) {
  // A line of one empty field would read as no line at all.
  if (fields.size() == 1 && fields.front().empty()) {
    out << "\"\"\r\n";
    return;
  }
  const char* separator = "";
  for (const std::string& field : fields) {
    out << separator << CsvField(field);
    separator = ",";
  }
  out << "\r\n";
}

}  // namespace

void CsvTableWriter::Write(const OutputTable& table, std::ostream& out) const {
  std::vector<std::string> fields;
  for (const OutputColumn& column : table.Columns()) fields.push_back(column.name);
  WriteLine(fields, out);
  for (const std::vector<Value>& row : table.Rows()) {
    fields.clear();
    for (const Value& value : row) {
      fields.push_back(value.IsDouble() ? ShortestNumber(value.Double()) : value.Text());
    }
    WriteLine(fields, out);
  }
}

}  // namespace corvanta::inline cli
