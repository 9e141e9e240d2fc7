#include "cli/SavedForm.h"

#include "cli/output/OutputTable.h"

#include <ostream>

namespace corvanta::inline cli {

void PrintKey(std::int64_t key, Session& session) {
  if (session.Options().format == "text") {
    session.Out() << key << '\n';
    return;
  }
  OutputTable table({{"ID", OutputKind::Integer}});
  table.AddRow({key});
  session.Print(table);
}

}  // namespace corvanta::inline cli
