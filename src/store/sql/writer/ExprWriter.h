#pragma once

#include "store/sql/parser/Ast.h"

#include <cstdint>
#include <string>

namespace corvanta::jet {

// The collation under which texts are compared: folded bytes. It stands only in queries, never in
// the stored schema, so that other tools can read and check the file.
inline constexpr const char* kCollation = "jet";

// The precedence of a written expression's operator in the library's SQL, the loosest first.
// Parentheses are written only where they are needed, because the library's own parser allows few
// levels.
enum class Precedence : std::uint8_t {
  Or,
  And,
  Not,
  Compare,
  Add,
  Multiply,
  Concat,
  Collate,
  Atom
};

struct Written {
  std::string sql;
  Precedence precedence = Precedence::Atom;
};

// Writes a bound expression in the library's SQL. Every part of it is written once.
[[nodiscard]] Written Write(const Expr& expr);
// As a value in a result, an assignment or an argument: a truth becomes -1 or 0.
[[nodiscard]] Written WriteValue(const Expr& expr);
// As a term to sort or group by: texts without regard to case, constants not taken for columns.
[[nodiscard]] std::string WriteSortKey(const Expr& expr);
// As text: numbers in their shortest form.
[[nodiscard]] std::string WriteText(const Expr& expr);

// In parentheses unless its precedence is at least this one.
[[nodiscard]] std::string Parenthesised(const Written& written, Precedence precedence);
// The same, compared without regard to case.
[[nodiscard]] std::string Collated(const Written& written);

}  // namespace corvanta::jet
