#include "store/sql/engine/StatementReader.h"

#include "store/sql/binder/LiteralUses.h"
#include "store/sql/lexer/Lexer.h"
#include "store/sql/parser/Parser.h"

#include <algorithm>
#include <charconv>

namespace corvanta::inline sql {
namespace {

// The library binds 999 values at the most; beyond this many the rest stays text.
constexpr std::size_t kMaxParameters = 900;
// Forms are few, but a person's own queries would add to them for as long as the program runs.
constexpr std::size_t kMaxForms = 1000;

StatementKind KindOf(const jet::Statement& tree) {
  if (std::holds_alternative<std::unique_ptr<jet::Select>>(tree)) return StatementKind::Rows;
  const bool changes = std::holds_alternative<jet::Insert>(tree) ||
                       std::holds_alternative<jet::Update>(tree) ||
                       std::holds_alternative<jet::Delete>(tree);
  return changes ? StatementKind::Change : StatementKind::Definition;
}

// A token as it stood, so that different statements have different keys.
void AppendToken(std::string& text, const jet::Token& token) {
  char open = 0;
  char close = 0;
  if (token.kind == jet::TokenKind::Bracketed) {
    open = '[';
    close = ']';
  } else if (token.kind == jet::TokenKind::Text) {
    open = close = *(token.text.data() - 1);
  } else if (token.kind == jet::TokenKind::Date) {
    open = close = '#';
  }
  if (open != 0) text += open;
  text += token.text;
  if (close != 0) text += close;
  text += ' ';
}

// 0 and 1 are often marks rather than values, so that a form tells them apart.
bool IsPartOfForm(const jet::Token& token) {
  if (!jet::IsLiteral(token)) return true;
  return token.kind == jet::TokenKind::Number && (token.text == "0" || token.text == "1");
}

std::int16_t NumberOf(const jet::Parameter& parameter, bool shares,
                      std::vector<jet::Parameter>& parameters) {
  if (shares) {
    const auto same = std::find(parameters.begin(), parameters.end(), parameter);
    if (same != parameters.end()) {
      return static_cast<std::int16_t>(same - parameters.begin() + 1);
    }
  }
  if (parameters.size() >= kMaxParameters) return 0;
  parameters.push_back(parameter);
  return static_cast<std::int16_t>(parameters.size());
}

}  // namespace

ReadStatement StatementReader::Read(std::string_view sql) {
  ReadStatement statement;
  statement.sql = sql;
  jet::Tokenize(sql, statement.tokens);
  WriteForm(statement.tokens);
  const auto known = forms_.find(formText_);
  if (known != forms_.end()) {
    TakeValues(statement, known->second);
    return statement;
  }
  statement.tree = std::make_unique<jet::Statement>(jet::Parse(sql, statement.tokens));
  const Form form = FormOf(statement);
  TakeValues(statement, form);
  if (form.isReusable && form.kind != StatementKind::Definition) {
    if (forms_.size() >= kMaxForms) forms_.clear();
    forms_.emplace(formText_, form);
  }
  return statement;
}

void StatementReader::WriteForm(const std::vector<jet::Token>& tokens) {
  formText_.clear();
  for (const jet::Token& token : tokens) {
    if (IsPartOfForm(token)) {
      AppendToken(formText_, token);
    } else {
      // Signs that no token begins with.
      formText_ += token.kind == jet::TokenKind::Number ? "$ "
                   : token.kind == jet::TokenKind::Text ? "? "
                                                        : "! ";
    }
  }
}

StatementReader::Form StatementReader::FormOf(const ReadStatement& statement) {
  Form form;
  form.kind = KindOf(*statement.tree);
  const auto literals = static_cast<std::size_t>(
      std::count_if(statement.tokens.begin(), statement.tokens.end(), jet::IsLiteral));
  const jet::LiteralUses found = jet::UsesOf(*statement.tree, literals);
  form.isReusable = found.isReusable;
  for (const jet::LiteralUse& use : found.uses) {
    form.isBound.push_back(use.isBound);
    form.isNegated.push_back(use.isNegated);
  }
  return form;
}

void StatementReader::TakeValues(ReadStatement& statement, const Form& form) {
  statement.kind = form.kind;
  statement.isReusable = form.isReusable;
  statement.numbers.resize(form.isBound.size());
  for (const jet::Token& token : statement.tokens) {
    if (!jet::IsLiteral(token) || !form.isBound[token.literal]) continue;
    const jet::Parameter parameter =
        jet::ReadLiteral(statement.sql, token, form.isNegated[token.literal], statement.texts);
    statement.numbers[token.literal] =
        NumberOf(parameter, form.kind == StatementKind::Rows, statement.parameters);
  }
  WriteKey(statement, form);
}

void StatementReader::WriteKey(ReadStatement& statement, const Form& form) {
  const std::vector<jet::Token>& tokens = statement.tokens;
  const auto isBound = [&](const jet::Token& token) {
    return jet::IsLiteral(token) && statement.numbers[token.literal] > 0;
  };
  statement.key.reserve(statement.sql.size());
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const jet::Token& token = tokens[i];
    if (isBound(token)) {
      const std::int16_t number = statement.numbers[token.literal];
      char digits[8];
      statement.key += '?';
      statement.key.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
      statement.key +=
          static_cast<char>(statement.parameters[static_cast<std::size_t>(number - 1)].kind);
      statement.key += ' ';
    } else if (token.word != jet::Word::Minus || !isBound(tokens[i + 1]) ||
               !form.isNegated[tokens[i + 1].literal]) {
      AppendToken(statement.key, token);
    }
  }
}

StatementKind KindOfStatement(std::string_view sql) {
  std::vector<jet::Token> tokens;
  jet::Tokenize(sql, tokens);
  return KindOf(jet::Parse(sql, tokens));
}

}  // namespace corvanta::inline sql
