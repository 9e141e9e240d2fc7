#include "cli/output/TableWriter.h"

#include "cli/output/CsvTableWriter.h"
#include "cli/output/JsonTableWriter.h"
#include "cli/output/TextTableWriter.h"

namespace corvanta::inline cli {

std::unique_ptr<TableWriter> TableWriter::For(std::string_view form, const Locale& locale) {
  if (form == "csv") return std::make_unique<CsvTableWriter>();
  if (form == "json") return std::make_unique<JsonTableWriter>();
  return std::make_unique<TextTableWriter>(locale);
}

}  // namespace corvanta::inline cli
