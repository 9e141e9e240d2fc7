#pragma once

#include "platform/Date.h"
#include "store/sql/Catalog.h"
#include "store/sql/Connection.h"
#include "store/sql/Value.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {

struct FieldDef {
  std::string name;
  ColumnKind kind = ColumnKind::Memo;  // Counter reads as Integer
};

// A row that Recordset::Visit hands over: its fields by position, NULL as 0 or empty.
class VisitedRow {
 public:
  // The values as the library hands them over.
  explicit VisitedRow(void* values) : values_(values) {}

  [[nodiscard]] bool IsNull(int index) const;
  [[nodiscard]] std::int64_t Int(int index) const;
  [[nodiscard]] double Double(int index) const;
  [[nodiscard]] std::string_view Text(int index) const;  // valid during the visit

 private:
  void* values_;
};
using RowVisitor = std::function<void(const VisitedRow&)>;

// The rows of a query, read forward; over one table also updatable. Fields are named without regard
// to case; a name that several columns carry is the first of them, and "T.Date" tells them apart.
// The statement is reset when the recordset goes out of scope.
class Recordset {
 public:
  Recordset(Recordset&&) noexcept;
  Recordset& operator=(Recordset&&) = delete;
  ~Recordset();

  [[nodiscard]] bool Eof() const;
  void MoveNext();

  [[nodiscard]] const std::vector<FieldDef>& Fields() const;
  // The position of a field, to be used where rows are many. Throws StoreError(Sql) when unknown.
  [[nodiscard]] int FieldIndex(std::string_view name) const;

  [[nodiscard]] Value Field(std::string_view name) const { return Field(FieldIndex(name)); }
  [[nodiscard]] Value Field(int index) const;
  [[nodiscard]] bool IsNull(int index) const;
  [[nodiscard]] std::int64_t Int(int index) const;       // NULL as 0
  [[nodiscard]] double Double(int index) const;          // NULL as 0
  [[nodiscard]] std::string_view Text(int index) const;  // NULL as empty; valid until MoveNext
  // The day of a date with or without a time; nullopt for NULL and for what is no date.
  [[nodiscard]] std::optional<Date> Day(int index) const;
  [[nodiscard]] std::int64_t Int(std::string_view name) const { return Int(FieldIndex(name)); }
  [[nodiscard]] double Double(std::string_view name) const { return Double(FieldIndex(name)); }
  [[nodiscard]] std::optional<Date> Day(std::string_view name) const {
    return Day(FieldIndex(name));
  }
  [[nodiscard]] std::string Text(std::string_view name) const {
    return std::string(Text(FieldIndex(name)));
  }

  // Hands over every row of a SELECT, as the engine comes by it: in no order that could be counted
  // on, and without stopping from row to row, which is what takes the time where rows are many.
  // What the visitor throws ends the visit and reaches the caller.
  static void Visit(Connection& connection, std::string_view sql, const RowVisitor& visitor);

  // A row of the recordset's one table: AddNew begins a new one, without it the current one is
  // changed. Update writes the fields that were set; after it the key of the written row is read
  // by Key() (0 in a table without a Counter).
  void AddNew();
  void Set(std::string_view name, Value value);
  void Update();
  [[nodiscard]] std::int64_t Key() const;

  class Impl;

 private:
  friend class Connection;
  explicit Recordset(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

}  // namespace corvanta::inline sql
