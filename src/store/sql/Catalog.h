#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {

enum class ColumnKind {
  Counter,
  Integer,
  Small,
  Double,
  Single,
  Currency,
  DateTime,
  Text,
  Memo,
  Bit
};

// Type codes of the catalog, as the program's statements test them.
inline constexpr int kTypeSmall = 2;
inline constexpr int kTypeInteger = 3;
inline constexpr int kTypeSingle = 4;
inline constexpr int kTypeDouble = 5;
inline constexpr int kTypeCurrency = 6;
inline constexpr int kTypeDate = 7;
inline constexpr int kTypeBit = 11;
inline constexpr int kTypeText = 202;
inline constexpr int kTypeMemo = 203;

struct ColumnDef {
  std::string name;
  ColumnKind kind = ColumnKind::Integer;
  int size = 0;  // of Text: the most characters it holds
  bool notNull = false;
  std::string defaultValue;  // the literal as it stands in the DDL, empty for none

  [[nodiscard]] int TypeCode() const;
};

struct IndexDef {
  std::string name;  // unique within its table
  std::vector<std::string> columns;
  bool unique = false;
};

struct TableDef {
  std::string name;
  std::vector<ColumnDef> columns;
  std::string primaryKeyName;  // empty when the table has no primary key
  std::vector<std::string> primaryKey;
  std::vector<IndexDef> indexes;
  // What else the rows can be found by, which is not shown.
  std::vector<IndexDef> accessPaths;

  // The column or index of that name (without regard to case), or nullptr.
  [[nodiscard]] const ColumnDef* Column(std::string_view column) const;
  [[nodiscard]] const IndexDef* Index(std::string_view index) const;
  [[nodiscard]] bool HasAccessPath(std::string_view path) const;
};

// The tables of one data file.
class Catalog {
 public:
  // In order of creation.
  [[nodiscard]] const std::vector<TableDef>& Tables() const { return tables_; }
  // Without regard to case; nullptr when there is none.
  [[nodiscard]] const TableDef* Find(std::string_view table) const;
  void Add(TableDef table) { tables_.push_back(std::move(table)); }

 private:
  std::vector<TableDef> tables_;
};

}  // namespace corvanta::inline sql
