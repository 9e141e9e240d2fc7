// The values that stand in a statement.
#pragma once

#include "store/sql/lexer/Token.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace corvanta::jet {

enum class ParameterKind : char { Integer = 'i', Number = 'n', Text = 't', Date = 'd' };

// A value that is bound. Texts and dates (as ISO 8601) point into the statement, or to where
// ReadLiteral kept them.
struct Parameter {
  ParameterKind kind = ParameterKind::Integer;
  std::int64_t integer = 0;
  double number = 0;
  std::string_view text;

  [[nodiscard]] bool operator==(const Parameter& other) const = default;
};

// The value of a literal; `negated` for a number with a minus sign before it. A text that has to be
// changed is kept in `texts`. Throws StoreError(Sql) for a number out of range and a date that is
// none; `sql` is the statement.
[[nodiscard]] Parameter ReadLiteral(std::string_view sql, const Token& token, bool negated,
                                    std::deque<std::string>& texts);

// A date literal's text ("11/21/2026", "11/21/2026 10:30:00", "2026-11-21", blanks around it) as
// ISO 8601; empty when it is no date.
[[nodiscard]] std::string IsoFromLiteral(std::string_view literal);

}  // namespace corvanta::jet
