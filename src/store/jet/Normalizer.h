#pragma once

#include "store/jet/Token.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

enum class ParameterKind : char { Integer = 'i', Number = 'n', Text = 't', Date = 'd' };

// A value that is bound. Texts and dates (as ISO 8601) point into the statement or the normalizer.
struct Parameter {
  ParameterKind kind = ParameterKind::Integer;
  std::int64_t integer = 0;
  double number = 0;
  std::string_view text;
};

// Splits a statement into what it does and the values it does it with. Compared values, VALUES and
// SET values become numbered parameters (in a SELECT equal ones share a number, so that an
// expression that stands twice stays the same expression); function arguments and compared 0, 1
// and -1 stay text. What remains is the key under which the prepared statement is kept.
class Normalizer {
 public:
  // Throws StoreError(Sql). The results are valid until the next call and while `sql` lives.
  void Run(std::string_view sql);

  [[nodiscard]] const std::vector<Token>& Tokens() const { return tokens_; }
  [[nodiscard]] const std::vector<Parameter>& Parameters() const { return parameters_; }
  [[nodiscard]] const std::string& Key() const { return key_; }
  // False for statements with a literal IN list, whose keys would hardly ever be met again.
  [[nodiscard]] bool IsReusable() const { return reusable_; }

 private:
  void Mark();
  [[nodiscard]] bool IsAssigned(std::size_t i, std::size_t before) const;
  [[nodiscard]] bool MarkLiteral(std::size_t i);
  void MakeParameter(Token& token, bool negative);
  std::int16_t Number(const Parameter& parameter);
  void BuildKey();

  std::string_view sql_;
  std::vector<Token> tokens_;
  std::vector<Parameter> parameters_;
  std::deque<std::string> texts_;
  std::string key_;
  bool reusable_ = true;

  // Where the reader stands while marking.
  bool sharing_ = false;
  bool inSet_ = false;
  bool inValues_ = false;
  int depth_ = 0;
  std::vector<int> betweenDepths_;
  std::vector<int> listDepths_;
};

// A date literal's text ("11/21/2026", "11/21/2026 10:30:00", "2026-11-21", blanks around it) as
// ISO 8601; empty when it is no date.
[[nodiscard]] std::string IsoFromLiteral(std::string_view literal);

}  // namespace corvanta::jet
