#include "store/sql/binder/Scope.h"

#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta::jet {
ValueType TypeOf(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::Counter:
    case ColumnKind::Integer:
    case ColumnKind::Small:
      return ValueType::Integer;
    case ColumnKind::Bit:
      return ValueType::Integer;
    case ColumnKind::Double:
    case ColumnKind::Single:
    case ColumnKind::Currency:
      return ValueType::Double;
    case ColumnKind::DateTime:
      return ValueType::Date;
    case ColumnKind::Text:
    case ColumnKind::Memo:
      return ValueType::Text;
  }
  return ValueType::Null;
}

ColumnKind KindOf(ValueType type) {
  switch (type) {
    case ValueType::Bool:
    case ValueType::Integer:
      return ColumnKind::Integer;
    case ValueType::Double:
      return ColumnKind::Double;
    case ValueType::Date:
      return ColumnKind::DateTime;
    case ValueType::Null:
    case ValueType::Text:
      break;
  }
  return ColumnKind::Memo;
}

ValueType Unify(ValueType a, ValueType b) {
  if (a == ValueType::Null || a == b) return b;
  if (b == ValueType::Null) return a;
  if (IsNumeric(a) && IsNumeric(b)) return std::max(a, b);
  return ValueType::Text;
}

const ScopeSource* Scope::Find(std::string_view name) const {
  for (const ScopeSource& source : sources_) {
    if (EqualFolded(source.name, name)) return &source;
  }
  return nullptr;
}

Scope::Result Scope::Resolve(std::string_view qualifier, std::string_view name,
                             ResolvedColumn& found) const {
  int matches = 0;
  for (const ScopeSource& source : sources_) {
    if (!qualifier.empty() && !EqualFolded(source.name, qualifier)) continue;
    for (const BoundColumn& column : source.columns) {
      if (!EqualFolded(column.name, name)) continue;
      if (++matches == 1) found = {&source, &column};
      break;
    }
  }
  if (matches == 1) return Result::Found;
  if (matches > 1) return Result::Ambiguous;
  return outer_ != nullptr ? outer_->Resolve(qualifier, name, found) : Result::Unknown;
}

ScopeSource SourceOf(const TableDef& table, std::string_view alias) {
  ScopeSource source;
  source.name = alias.empty() ? table.name : std::string(alias);
  for (const ColumnDef& column : table.columns) {
    source.columns.push_back({column.name, TypeOf(column.kind), column.kind});
  }
  return source;
}

}  // namespace corvanta::jet
