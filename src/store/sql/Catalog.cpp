#include "store/sql/Catalog.h"

#include "platform/TextCase.h"

namespace corvanta::inline sql {
namespace {

template <typename Item>
const Item* FindNamed(const std::vector<Item>& items, std::string_view name) {
  for (const Item& item : items) {
    if (EqualFolded(item.name, name)) return &item;
  }
  return nullptr;
}

}  // namespace

int ColumnDef::TypeCode() const {
  switch (kind) {
    case ColumnKind::Counter:
    case ColumnKind::Integer:
      return kTypeInteger;
    case ColumnKind::Small:
      return kTypeSmall;
    case ColumnKind::Double:
      return kTypeDouble;
    case ColumnKind::Single:
      return kTypeSingle;
    case ColumnKind::Currency:
      return kTypeCurrency;
    case ColumnKind::DateTime:
      return kTypeDate;
    case ColumnKind::Text:
      return kTypeText;
    case ColumnKind::Memo:
      return kTypeMemo;
    case ColumnKind::Bit:
      return kTypeBit;
  }
  return 0;
}

const ColumnDef* TableDef::Column(std::string_view column) const {
  return FindNamed(columns, column);
}

const IndexDef* TableDef::Index(std::string_view index) const {
  return FindNamed(indexes, index);
}

bool TableDef::HasAccessPath(std::string_view path) const {
  return FindNamed(accessPaths, path) != nullptr;
}

const TableDef* Catalog::Find(std::string_view table) const {
  return FindNamed(tables_, table);
}

}  // namespace corvanta::inline sql
