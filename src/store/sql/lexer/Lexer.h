#pragma once

#include "store/sql/lexer/Token.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvanta::jet {

// Cuts a statement into tokens, an End token last. The tokens point into `sql`. `tokens` is filled
// anew; its memory is used again. Throws StoreError(Sql) that names the place of a text, name or
// date without an end, or of a sign that the dialect does not have.
void Tokenize(std::string_view sql, std::vector<Token>& tokens);

// The text of a quoted token with doubled quotation marks made single.
[[nodiscard]] std::string Unquote(const Token& token);

// A statement's fault at a place (counted from 0), as the error that callers see.
[[noreturn]] void FailAt(std::string_view sql, std::size_t offset, const std::string& what);

}  // namespace corvanta::jet
