#include "cli/output/JsonTableWriter.h"

#include "cli/output/OutputTable.h"
#include "platform/ShortestNumber.h"

#include <nlohmann/json.hpp>

#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace corvanta::inline cli {
namespace {

std::string JsonText(const std::string& text) {
  // Text that came from elsewhere may hold bytes that are no UTF-8, which no reader would take.
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string JsonValue(const Value& value) {
  if (value.IsText()) return JsonText(value.Text());
  std::string number = value.IsDouble() ? ShortestNumber(value.Double()) : value.Text();
  return number.empty() ? "null" : number;
}

// The columns' names as the keys of one object: each of them once.
std::vector<std::string> Keys(const OutputTable& table) {
  std::set<std::string> taken;
  std::vector<std::string> keys;
  for (const OutputColumn& column : table.Columns()) {
    std::string name = column.name;
    for (int number = 2; !taken.insert(name).second; ++number) {
      name = column.name + "_" + std::to_string(number);
    }
    keys.push_back(JsonText(name));
  }
  return keys;
}

}  // namespace

void JsonTableWriter::Write(const OutputTable& table, std::ostream& out) const {
  const std::vector<std::string> keys = Keys(table);
  const char* rowSeparator = "\n";
  out << '[';
  for (const std::vector<Value>& row : table.Rows()) {
    out << rowSeparator << "  {";
    for (std::size_t column = 0; column < row.size(); ++column) {
      out << (column == 0 ? "" : ", ") << keys[column] << ": " << JsonValue(row[column]);
    }
    out << '}';
    rowSeparator = ",\n";
  }
  out << (table.Rows().empty() ? "]\n" : "\n]\n");
}

}  // namespace corvanta::inline cli
