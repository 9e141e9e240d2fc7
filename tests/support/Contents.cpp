#include "support/Contents.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

namespace corvanta {

std::string ContentsOf(Connection& connection, std::initializer_list<const char*> tables) {
  std::string text;
  for (const char* table : tables) {
    Recordset rows = connection.OpenRecordset(table);
    for (; !rows.Eof(); rows.MoveNext()) {
      text += table;
      for (int field = 0; field < static_cast<int>(rows.Fields().size()); ++field) {
        text += rows.IsNull(field) ? "|NULL" : "|" + std::string(rows.Text(field));
      }
      text += "\n";
    }
  }
  return text;
}

}  // namespace corvanta
