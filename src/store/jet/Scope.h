#pragma once

#include "store/Catalog.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

// What kind of value an expression gives, as far as it is known before the statement runs.
enum class ValueType : std::uint8_t { Null, Bool, Integer, Double, Date, Text };

[[nodiscard]] ValueType TypeOf(ColumnKind kind);
[[nodiscard]] ColumnKind KindOf(ValueType type);
// The type of a value that is one or the other.
[[nodiscard]] ValueType Unify(ValueType a, ValueType b);
[[nodiscard]] inline bool IsNumeric(ValueType type) {
  return type == ValueType::Bool || type == ValueType::Integer || type == ValueType::Double;
}

// A name in double quotes, for the library's SQL.
[[nodiscard]] std::string QuoteName(std::string_view name);
// A text in single quotes, for the library's SQL.
[[nodiscard]] std::string QuoteText(std::string_view text);

struct ScopeColumn {
  std::string name;
  ValueType type = ValueType::Null;
  ColumnKind kind = ColumnKind::Memo;
};

struct ScopeSource {
  std::string name;  // its alias, or the table's own name
  std::vector<ScopeColumn> columns;
};

struct ResolvedColumn {
  const ScopeSource* source = nullptr;
  const ScopeColumn* column = nullptr;
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
