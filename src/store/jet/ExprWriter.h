#pragma once

#include "store/jet/Ast.h"
#include "store/jet/Normalizer.h"
#include "store/jet/Scope.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

// How tightly a written expression holds together in the library's SQL; brackets are written only
// where they are needed, because the library's own reader allows few levels.
enum class Strength : std::uint8_t { Or, And, Not, Compare, Add, Multiply, Concat, Collate, Atom };

struct Written {
  std::string sql;
  Strength strength = Strength::Atom;
  ValueType type = ValueType::Null;
};

// What every part of the writer needs to know of the statement.
struct WriterContext {
  std::string_view sql;
  const Catalog& catalog;
  const std::vector<Parameter>& parameters;
};

// Writes expressions in the library's SQL. Throws StoreError(Sql) for unknown columns and
// functions.
class ExprWriter {
 public:
  ExprWriter(const WriterContext& context, const Scope& scope) : context_(context), scope_(scope) {}

  [[nodiscard]] Written Write(const Expr& expr) const;
  // As a value in a result, an assignment or an argument: a truth becomes -1 or 0.
  [[nodiscard]] Written WriteValue(const Expr& expr) const;
  // As a term to sort or group by: texts without regard to case, constants not taken for columns.
  [[nodiscard]] std::string WriteSortKey(const Expr& expr) const;

  [[nodiscard]] const WriterContext& Context() const { return context_; }
  [[noreturn]] void Fail(const Expr& expr, const std::string& what) const;

 private:
  [[nodiscard]] Written WriteLiteral(const Expr& expr) const;
  [[nodiscard]] Written WriteColumn(const Expr& expr) const;
  [[nodiscard]] Written WriteBinary(const Expr& expr) const;
  [[nodiscard]] Written WriteComparison(const Expr& expr) const;
  [[nodiscard]] Written WriteLike(const Expr& expr) const;
  [[nodiscard]] Written WriteSum(const Expr& expr) const;
  [[nodiscard]] Written WriteArithmetic(const Expr& expr) const;
  [[nodiscard]] Written WriteBetween(const Expr& expr) const;
  [[nodiscard]] Written WriteIn(const Expr& expr) const;
  [[nodiscard]] Written WriteChain(const Expr& expr, Strength strength, const char* sign) const;

  const WriterContext& context_;
  const Scope& scope_;
};

// With brackets around it unless it holds together at least this tightly.
[[nodiscard]] std::string Hold(const Written& written, Strength strength);
// As text: numbers in their shortest form.
[[nodiscard]] std::string AsText(const Written& written);

}  // namespace corvanta::jet
