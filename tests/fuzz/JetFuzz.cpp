// Any text either translates or is refused as a statement's fault.
#include "store/sql/StoreError.h"
#include "store/sql/binder/Binder.h"
#include "store/sql/engine/StatementReader.h"
#include "store/sql/writer/Writer.h"

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
    StatementReader reader;
    const ReadStatement read = reader.Read(sql);
    if (read.kind == StatementKind::Definition) return 0;
    jet::Bind({sql, catalog, read.parameters, read.numbers}, *read.tree);
    (void)jet::WriteStatement(*read.tree);
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
  }
  return 0;
}
