#pragma once

#include "store/sql/binder/Scope.h"
#include "store/sql/lexer/Literal.h"
#include "store/sql/parser/Ast.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

// What every part of the binder needs to know of the statement.
struct BinderContext {
  std::string_view sql;
  const Catalog& catalog;
  const std::vector<Parameter>& parameters;
  const std::vector<std::int16_t>& numbers;  // of each literal's parameter, 0 for one that stays
};

// Finds out what the names of an expression stand for and of which type each part of it is. Every
// part is looked at once. Throws StoreError(Sql) for unknown columns and functions.
class ExprBinder {
 public:
  ExprBinder(const BinderContext& context, const Scope& scope) : context_(context), scope_(scope) {}

  void Bind(Expr& expr) const;
  [[noreturn]] void Fail(const Expr& expr, const std::string& what) const;

 private:
  void BindParts(Expr& expr) const;
  void BindQuery(Expr& expr) const;
  void BindLiteral(Expr& expr) const;
  void BindColumn(Expr& expr) const;
  void BindCall(Expr& expr) const;
  [[nodiscard]] static ValueType TypeOfBinary(const Expr& expr);

  const BinderContext& context_;
  const Scope& scope_;
};

// Whether values of these types are compared as texts.
[[nodiscard]] bool ComparesText(ValueType a, ValueType b);

}  // namespace corvanta::jet
