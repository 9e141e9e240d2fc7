#pragma once

#include "store/sql/Catalog.h"
#include "store/sql/parser/Ast.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

[[nodiscard]] ValueType TypeOf(ColumnKind kind);
[[nodiscard]] ColumnKind KindOf(ValueType type);
// The type of a value that is one or the other.
[[nodiscard]] ValueType Unify(ValueType a, ValueType b);
[[nodiscard]] inline bool IsNumeric(ValueType type) {
  return type == ValueType::Bool || type == ValueType::Integer || type == ValueType::Double;
}
// As a value a truth is the number -1 or 0.
[[nodiscard]] inline ValueType AsValue(ValueType type) {
  return type == ValueType::Bool ? ValueType::Integer : type;
}

struct ScopeSource {
  std::string name;  // its alias, or the table's own name
  std::vector<BoundColumn> columns;
};

struct ResolvedColumn {
  const ScopeSource* source = nullptr;
  const BoundColumn* column = nullptr;
};

// The sources whose columns a query may name; a query in brackets also sees those around it.
class Scope {
 public:
  explicit Scope(const Scope* outer = nullptr) : outer_(outer) {}

  void Add(ScopeSource source) { sources_.push_back(std::move(source)); }
  [[nodiscard]] const std::vector<ScopeSource>& Sources() const { return sources_; }
  [[nodiscard]] const ScopeSource* Find(std::string_view name) const;

  enum class Result : std::uint8_t { Found, Unknown, Ambiguous };
  // The column of that name; an empty qualifier looks in every source.
  Result Resolve(std::string_view qualifier, std::string_view name, ResolvedColumn& found) const;

 private:
  const Scope* outer_;
  std::vector<ScopeSource> sources_;
};

[[nodiscard]] ScopeSource SourceOf(const TableDef& table, std::string_view alias);

}  // namespace corvanta::jet
