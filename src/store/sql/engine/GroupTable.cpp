#include "store/sql/engine/GroupTable.h"

#include <new>

namespace corvanta::inline sql {
namespace {

constexpr const char* kFold = "corvanta_fold";
constexpr const char* kGroups = "corvanta_groups";
constexpr int kNumberColumn = static_cast<int>(GroupTable::kColumns);

// --- The aggregate: its first argument is the fold's number, the others are a row's values.

void Step(sqlite3_context* context, int, sqlite3_value** values) {
  const auto* table = static_cast<const GroupTable*>(sqlite3_user_data(context));
  // The place is looked up for the first row.
  auto** fold = static_cast<GroupFold**>(sqlite3_aggregate_context(context, sizeof(GroupFold*)));
  if (fold == nullptr) return sqlite3_result_error_nomem(context);
  if (*fold == nullptr) *fold = table->Find(sqlite3_value_int64(values[0]));
  if (*fold == nullptr) return sqlite3_result_error(context, "nothing folds these rows", -1);
  // No exception passes through the library.
  try {
    (*fold)->Add(values + 1);
  } catch (...) {
    sqlite3_result_error_nomem(context);
  }
}

void Finish(sqlite3_context*) {}

// --- The table of the groups

struct Groups : sqlite3_vtab {
  const GroupTable* table = nullptr;
};
struct Cursor : sqlite3_vtab_cursor {
  const GroupFold* fold = nullptr;
  std::size_t group = 0;
};

int Connect(sqlite3* database, void* table, int, const char* const*, sqlite3_vtab** made, char**) {
  try {
    std::string columns;
    for (std::size_t i = 0; i < GroupTable::kColumns; ++i) {
      columns += "c" + std::to_string(i) + ", ";
    }
    const int result =
        sqlite3_declare_vtab(database, ("CREATE TABLE x(" + columns + "number HIDDEN)").c_str());
    if (result != SQLITE_OK) return result;
  } catch (...) {
    return SQLITE_NOMEM;
  }
  auto* groups = new (std::nothrow) Groups();
  if (groups == nullptr) return SQLITE_NOMEM;
  groups->table = static_cast<const GroupTable*>(table);
  *made = groups;
  return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* groups) {
  delete static_cast<Groups*>(groups);
  return SQLITE_OK;
}

// The number is always given; without one there is nothing.
int BestIndex(sqlite3_vtab*, sqlite3_index_info* info) {
  for (int i = 0; i < info->nConstraint; ++i) {
    const auto& constraint = info->aConstraint[i];
    const bool isNumber = constraint.iColumn == kNumberColumn && constraint.usable != 0 &&
                          constraint.op == SQLITE_INDEX_CONSTRAINT_EQ;
    if (!isNumber) continue;
    info->aConstraintUsage[i].argvIndex = 1;
    info->aConstraintUsage[i].omit = 1;
    info->estimatedCost = 1000;
    return SQLITE_OK;
  }
  info->estimatedCost = 1e12;
  return SQLITE_OK;
}

int Open(sqlite3_vtab*, sqlite3_vtab_cursor** made) {
  auto* cursor = new (std::nothrow) Cursor();
  *made = cursor;
  return cursor == nullptr ? SQLITE_NOMEM : SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
  delete static_cast<Cursor*>(cursor);
  return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* base, int, const char*, int count, sqlite3_value** values) {
  auto* cursor = static_cast<Cursor*>(base);
  cursor->group = 0;
  cursor->fold =
      count == 1 ? static_cast<Groups*>(base->pVtab)->table->Find(sqlite3_value_int64(values[0]))
                 : nullptr;
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
  ++static_cast<Cursor*>(cursor)->group;
  return SQLITE_OK;
}

int Eof(sqlite3_vtab_cursor* base) {
  const auto* cursor = static_cast<const Cursor*>(base);
  return cursor->fold == nullptr || cursor->group >= cursor->fold->Count() ? 1 : 0;
}

int Column(sqlite3_vtab_cursor* base, sqlite3_context* context, int column) {
  const auto* cursor = static_cast<const Cursor*>(base);
  try {
    const Value value = cursor->fold->At(cursor->group, static_cast<std::size_t>(column));
    if (value.IsInteger()) {
      sqlite3_result_int64(context, value.Int());
    } else if (value.IsDouble()) {
      sqlite3_result_double(context, value.Double());
    } else if (value.IsText()) {
      const std::string text = value.Text();
      sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    } else {
      sqlite3_result_null(context);
    }
  } catch (...) {
    sqlite3_result_error_nomem(context);
  }
  return SQLITE_OK;
}

int RowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* row) {
  *row = static_cast<sqlite3_int64>(static_cast<Cursor*>(cursor)->group);
  return SQLITE_OK;
}

// Without a way to create it the table needs no statement that makes it.
const sqlite3_module& Module() {
  static const sqlite3_module kModule = [] {
    sqlite3_module module{};
    module.xConnect = Connect;
    module.xBestIndex = BestIndex;
    module.xDisconnect = Disconnect;
    module.xOpen = Open;
    module.xClose = Close;
    module.xFilter = Filter;
    module.xNext = Next;
    module.xEof = Eof;
    module.xColumn = Column;
    module.xRowid = RowId;
    return module;
  }();
  return kModule;
}

}  // namespace

GroupTable::GroupTable(sqlite3* database) {
  constexpr int kAnyNumber = -1;
  sqlite3_create_function_v2(database, kFold, kAnyNumber, SQLITE_UTF8, this, nullptr, Step, Finish,
                             nullptr);
  sqlite3_create_module_v2(database, kGroups, &Module(), this, nullptr);
}

GroupFold* GroupTable::Find(std::int64_t number) const {
  const auto fold = folds_->find(number);
  return fold == folds_->end() ? nullptr : fold->second;
}

GroupTable::Entry::Entry(GroupTable& table, const jet::FoldedQuery& query)
    : folds_(table.folds_), number_(++table.last_), fold_(query.keys, query.folds) {
  const std::string number = std::to_string(number_);
  rows_ = std::string("SELECT ") + kFold + "(" + number;
  for (const std::string& value : query.values) rows_ += ", " + value;
  rows_ += ")" + query.rows;
  result_ = "SELECT " + query.items + " FROM " + kGroups + "(" + number + ") AS g" + query.order;
  folds_->emplace(number_, &fold_);
}

GroupTable::Entry::~Entry() {
  folds_->erase(number_);
}

}  // namespace corvanta::inline sql
