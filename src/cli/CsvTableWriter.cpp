#include "cli/CsvTableWriter.h"

#include "cli/OutputTable.h"
#include "cli/ShortestNumber.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline cli {
namespace {

std::string Quoted(std::string_view field) {
  if (field.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(field);
  std::string quoted = "\"";
  for (const char character : field) {
    if (character == '"') quoted += '"';
    quoted += character;
  }
  return quoted + '"';
}

void WriteLine(const std::vector<std::string>& fields, std::ostream& out) {
  // A line of one empty field would read as no line at all.
  if (fields.size() == 1 && fields.front().empty()) {
    out << "\"\"\r\n";
    return;
  }
  const char* separator = "";
  for (const std::string& field : fields) {
    out << separator << Quoted(field);
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
