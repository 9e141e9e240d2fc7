#include "safety/ListComparison.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <array>
#include <cstdint>
#include <functional>
#include <unordered_map>

namespace corvanta::inline safety {
namespace {

// `condition` tells the rows of one table apart that are of two kinds.
struct Kind {
  const char* what;
  const char* table;
  const char* condition = "";
};

constexpr std::array kKinds = {
    Kind{"Account details", "tblAccounts"},
    Kind{"Account groups", "tblAccountType"},
    Kind{"Banks", "tblBank"},
    Kind{"Categories and budgets", "tblCategory"},
    Kind{"Payees", "tblPayees", " Where NOT (Investment <> 0)"},
    Kind{"Investments", "tblPayees", " Where Investment <> 0"},
    Kind{"Payment types", "tblPayments"},
    Kind{"Currencies", "tblCurrency"},
    Kind{"Keywords", "tblKeywords"},
    Kind{"Keywords of transactions", "tblKeywordLink"},
    Kind{"Attachments", "tblAttachments"},
    Kind{"Contents of attachments", "own_AttachedFiles"},
    Kind{"Schedules", "tblSchedule"},
    Kind{"Days of schedules", "own_ScheduleDays"},
    Kind{"Prices", "tblHistory"},
    Kind{"Exchange rates", "own_Rates"},
    Kind{"Data sources", "tblStockData"},
    Kind{"Answers of data sources", "own_Sources"},
};

// A hash of each row by its key, which is the first column of a table that has none.
using Rows = std::unordered_map<std::int64_t, std::size_t>;

int KeyOf(const Recordset& rows, const TableDef& table) {
  for (const ColumnDef& column : table.columns) {
    if (column.kind == ColumnKind::Counter) return rows.FieldIndex(column.name);
  }
  return 0;
}

// What is NULL in old files, or of a column that they have not got yet, reads as what stands for
// it; and their columns may stand in another order.
std::size_t HashOf(const Recordset& rows) {
  std::size_t hash = 0;
  for (int field = 0; field < static_cast<int>(rows.Fields().size()); ++field) {
    const std::string value(rows.Text(field));
    if (value.empty() || value == "0" || value == "0.0") continue;
    hash += std::hash<std::string>()(rows.Fields().at(field).name + '=' + value);
  }
  return hash;
}

Rows Read(Connection* file, const Kind& kind) {
  Rows found;
  const TableDef* table = file == nullptr ? nullptr : file->Table(kind.table);
  // A file of an earlier version has not got every table.
  if (table == nullptr) return found;
  Recordset rows = file->OpenRecordset("Select * from " + std::string(kind.table) + kind.condition);
  const int key = KeyOf(rows, *table);
  for (; !rows.Eof(); rows.MoveNext()) found[rows.Int(key)] += HashOf(rows);
  return found;
}

ListChange Compare(const Kind& kind, const Rows& now, const Rows& then) {
  ListChange change{kind.what, now.size(), then.size()};
  for (const auto& [key, content] : now) {
    const auto other = then.find(key);
    if (other == then.end()) {
      ++change.removed;
    } else if (other->second != content) {
      ++change.changed;
    }
  }
  for (const auto& [key, content] : then) {
    if (!now.contains(key)) ++change.added;
  }
  return change;
}

}  // namespace

std::vector<ListChange> CompareLists(Connection* now, Connection& then) {
  std::vector<ListChange> changes;
  for (const Kind& kind : kKinds) {
    ListChange change = Compare(kind, Read(now, kind), Read(&then, kind));
    if (change.IsChange()) changes.push_back(std::move(change));
  }
  return changes;
}

}  // namespace corvanta::inline safety
