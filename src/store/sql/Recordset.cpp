#include "store/sql/Recordset.h"

#include "platform/TextCase.h"
#include "store/sql/engine/ConnectionImpl.h"
#include "store/sql/writer/Quote.h"

#include <sqlcipher/sqlite3.h>

#include <optional>

namespace corvanta::inline sql {

using jet::QuoteName;

class Recordset::Impl {
 public:
  Impl(Connection::Impl& connection, PreparedUse rows)
      : connection_(connection), rows_(std::move(rows)) {
    MoveNext();
  }

  void MoveNext() { hasRow_ = connection_.Step(*rows_); }
  [[nodiscard]] bool HasRow() const { return hasRow_; }
  [[nodiscard]] sqlite3_stmt* Row() const { return rows_->handle.get(); }
  [[nodiscard]] const std::vector<FieldDef>& Fields() const { return rows_->fields; }
  [[nodiscard]] std::int64_t Key() const { return key_; }

  void Begin() {
    adding_ = true;
    set_.clear();
  }

  void Set(const std::string& column, Value value) {
    for (auto& [name, old] : set_) {
      if (!EqualFolded(name, column)) continue;
      old = std::move(value);
      return;
    }
    set_.emplace_back(column, std::move(value));
  }

  void Update() {
    const TableDef* table = connection_.Tables().Find(rows_->table);
    if (table == nullptr) {
      throw StoreError(StoreErrorCode::Sql, "The rows of this query cannot be changed.");
    }
    if (adding_) {
      Insert(*table);
    } else {
      Change(*table);
    }
    adding_ = false;
    set_.clear();
    connection_.Changed();
  }

 private:
  [[nodiscard]] static const ColumnDef* KeyColumn(const TableDef& table) {
    for (const ColumnDef& column : table.columns) {
      if (column.kind == ColumnKind::Counter) return &column;
    }
    return nullptr;
  }

  // OR FAIL: one row is refused before anything of it is written. The library would otherwise keep,
  // and encipher, every page that the row changes, in order to take it back.
  void Insert(const TableDef& table) {
    std::string sql = "INSERT OR FAIL INTO " + QuoteName(table.name);
    std::string marks;
    for (const auto& [name, value] : set_) {
      sql += (marks.empty() ? " (" : ", ") + QuoteName(name);
      marks += marks.empty() ? "?" : ", ?";
    }
    sql += set_.empty() ? " DEFAULT VALUES" : ") VALUES (" + marks + ")";
    Write(sql, std::nullopt);
    key_ = KeyColumn(table) != nullptr ? sqlite3_last_insert_rowid(connection_.Database()) : 0;
  }

  // The current row is found by its key; a table without one holds a single row. OR FAIL as above.
  void Change(const TableDef& table) {
    if (!hasRow_) throw StoreError(StoreErrorCode::Sql, "There is no current row to change.");
    if (set_.empty()) return;
    const ColumnDef* key = KeyColumn(table);
    std::string sql = "UPDATE OR FAIL " + QuoteName(table.name);
    bool first = true;
    for (const auto& [name, value] : set_) {
      sql += (first ? " SET " : ", ") + QuoteName(name) + " = ?";
      first = false;
    }
    std::optional<std::int64_t> row;
    if (key != nullptr) {
      sql += " WHERE " + QuoteName(key->name) + " = ?";
      row = sqlite3_column_int64(Row(), FieldOf(key->name));
    }
    key_ = row.value_or(0);
    Write(sql, row);
  }

  [[nodiscard]] int FieldOf(const std::string& name) const {
    for (std::size_t i = 0; i < Fields().size(); ++i) {
      if (EqualFolded(Fields()[i].name, name)) return static_cast<int>(i);
    }
    throw StoreError(StoreErrorCode::Sql, "The query must read " + name + " to change its rows.");
  }

  void Write(const std::string& sql, std::optional<std::int64_t> row) {
    const PreparedUse use = connection_.Statements().AcquireOwn(sql);
    int number = 0;
    for (const auto& [name, value] : set_) BindValue(use->handle.get(), ++number, value);
    if (row) sqlite3_bind_int64(use->handle.get(), ++number, *row);
    connection_.Step(*use);
  }

  static void BindValue(sqlite3_stmt* statement, int number, const Value& value) {
    if (value.IsNull()) {
      sqlite3_bind_null(statement, number);
    } else if (value.IsInteger()) {
      sqlite3_bind_int64(statement, number, value.Int());
    } else if (value.IsDouble()) {
      sqlite3_bind_double(statement, number, value.Double());
    } else {
      const std::string text = value.Text();
      sqlite3_bind_text(statement, number, text.data(), static_cast<int>(text.size()),
                        SQLITE_TRANSIENT);
    }
  }

  Connection::Impl& connection_;
  PreparedUse rows_;
  bool hasRow_ = false;
  bool adding_ = false;
  std::vector<std::pair<std::string, Value>> set_;
  std::int64_t key_ = 0;
};

Recordset::Recordset(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

Recordset Connection::OpenRecordset(std::string_view sql) {
  ReadStatement statement = impl_->Statements().Read(sql);
  if (statement.kind != StatementKind::Rows) {
    throw StoreError(StoreErrorCode::Sql, "This statement has no rows to open.");
  }
  return Recordset(
      std::make_unique<Recordset::Impl>(*impl_, impl_->Statements().Acquire(statement, true)));
}

void Recordset::Visit(Connection& connection, std::string_view sql, const RowVisitor& visitor) {
  connection.impl_->Visit(sql, visitor);
}

bool Recordset::Eof() const {
  return !impl_->HasRow();
}
void Recordset::MoveNext() {
  impl_->MoveNext();
}
const std::vector<FieldDef>& Recordset::Fields() const {
  return impl_->Fields();
}
void Recordset::AddNew() {
  impl_->Begin();
}
void Recordset::Update() {
  impl_->Update();
}
std::int64_t Recordset::Key() const {
  return impl_->Key();
}

int Recordset::FieldIndex(std::string_view name) const {
  const auto& fields = impl_->Fields();
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (EqualFolded(fields[i].name, name)) return static_cast<int>(i);
  }
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::string_view full = fields[i].name;
    const std::size_t dot = full.find('.');
    if (dot != std::string_view::npos && EqualFolded(full.substr(dot + 1), name)) {
      return static_cast<int>(i);
    }
  }
  throw StoreError(StoreErrorCode::Sql, "The query has no column " + std::string(name) + ".");
}

void Recordset::Set(std::string_view name, Value value) {
  impl_->Set(impl_->Fields()[static_cast<std::size_t>(FieldIndex(name))].name, std::move(value));
}

bool Recordset::IsNull(int index) const {
  return sqlite3_column_type(impl_->Row(), index) == SQLITE_NULL;
}

std::int64_t Recordset::Int(int index) const {
  if (sqlite3_column_type(impl_->Row(), index) == SQLITE_FLOAT) return Field(index).Int();
  return sqlite3_column_int64(impl_->Row(), index);
}

double Recordset::Double(int index) const {
  return sqlite3_column_double(impl_->Row(), index);
}

std::string_view Recordset::Text(int index) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(impl_->Row(), index));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(impl_->Row(), index))};
}

std::optional<Date> Recordset::Day(int index) const {
  return Date::FromIso(Text(index).substr(0, 10));
}

Value Recordset::Field(int index) const {
  switch (sqlite3_column_type(impl_->Row(), index)) {
    case SQLITE_INTEGER:
      return Value(static_cast<std::int64_t>(sqlite3_column_int64(impl_->Row(), index)));
    case SQLITE_FLOAT:
      return Value(sqlite3_column_double(impl_->Row(), index));
    case SQLITE_NULL:
      return Value();
    default:
      return Value(Text(index));
  }
}

}  // namespace corvanta::inline sql
