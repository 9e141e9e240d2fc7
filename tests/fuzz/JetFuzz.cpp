// Any text either translates or is refused as a statement's fault.
#include "store/StoreError.h"
#include "store/jet/Normalizer.h"
#include "store/jet/Parser.h"
#include "store/jet/Writer.h"

#include <cstdint>
#include <string_view>

namespace {

corvanta::Catalog MakeCatalog() {
  corvanta::TableDef table;
  table.name = "tblItems";
  table.columns = {{"ItemID", corvanta::ColumnKind::Counter, 0, false, {}},
                   {"Name", corvanta::ColumnKind::Text, 50, false, {}},
                   {"Date", corvanta::ColumnKind::DateTime, 0, false, {}}};
  corvanta::Catalog catalog;
  catalog.Add(table);
  return catalog;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvanta;
  static const Catalog catalog = MakeCatalog();
  const std::string_view sql(reinterpret_cast<const char*>(data), size);
  try {
    jet::Normalizer normalizer;
    normalizer.Run(sql);
    const jet::Statement statement = jet::Parse(sql, normalizer.Tokens());
    const jet::WriterContext context{sql, catalog, normalizer.Parameters()};
    if (statement.index() < 4) (void)jet::WriteStatement(context, statement);
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
  }
  return 0;
}
