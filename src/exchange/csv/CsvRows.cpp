#include "exchange/csv/CsvRows.h"

#include "platform/FormulaGuard.h"
#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta::inline exchange {
namespace {

// A cell that runs over more lines than this has lost its closing quote.
constexpr std::size_t kMaxCellLines = 200;

bool IsLineEnd(char c) {
  return c == '\r' || c == '\n';
}

}  // namespace

bool CsvRow::IsBlank() const {
  return std::ranges::all_of(cells, [](const std::string& cell) { return Trim(cell).empty(); });
}

std::string_view CsvRow::Cell(int column) const {
  const auto index = static_cast<std::size_t>(column - 1);
  return column < 1 || index >= cells.size() ? std::string_view()
                                             : UnguardFormula(Trim(cells[index]));
}

bool CsvRows::IsAtEnd() const {
  return at_ >= text_.size() || IsLineEnd(text_[at_]);
}

bool CsvRows::IsAtSeparator() const {
  return !separator_.empty() && text_.substr(at_).starts_with(separator_);
}

void CsvRows::SkipLineEnd() {
  if (at_ >= text_.size()) return;
  const bool isPair = text_.substr(at_).starts_with("\r\n");
  at_ += isPair ? 2 : 1;
  ++line_;
}

bool CsvRows::ReadQuoted(std::string& cell) {
  const std::size_t start = at_;
  const std::size_t startLine = line_;
  std::string value;
  ++at_;
  while (at_ < text_.size() && line_ - startLine <= kMaxCellLines) {
    const char c = text_[at_];
    if (c == '"' && text_.substr(at_ + 1).starts_with('"')) {
      value += '"';
      at_ += 2;
    } else if (c == '"') {
      ++at_;
      // What stands between the quote and the separator belongs to the cell.
      std::string rest;
      ReadPlain(rest);
      // Lines below, it is the quote that opens another cell, and the first one was typed.
      if (line_ != startLine && !Trim(rest).empty()) break;
      cell = value + rest;
      return true;
    } else if (IsLineEnd(c)) {
      value += '\n';
      SkipLineEnd();
    } else {
      value += c;
      ++at_;
    }
  }
  at_ = start;
  line_ = startLine;
  return false;
}

void CsvRows::ReadPlain(std::string& cell) {
  const std::size_t start = at_;
  while (!IsAtEnd() && !IsAtSeparator()) ++at_;
  cell = text_.substr(start, at_ - start);
}

bool CsvRows::Next(CsvRow& row) {
  row.cells.clear();
  row.hasOpenQuote = false;
  if (at_ >= text_.size()) return false;
  row.line = line_;
  for (;;) {
    std::string cell;
    std::size_t quote = at_;
    while (quote < text_.size() && text_[quote] == ' ' && separator_ != " ") ++quote;
    const bool isQuoted = quote < text_.size() && text_[quote] == '"';
    const std::size_t start = at_;
    if (isQuoted) at_ = quote;
    if (!isQuoted || !ReadQuoted(cell)) {
      row.hasOpenQuote = row.hasOpenQuote || isQuoted;
      at_ = start;
      ReadPlain(cell);
    }
    row.cells.push_back(std::move(cell));
    if (IsAtEnd()) break;
    at_ += separator_.size();
  }
  SkipLineEnd();
  row.offset = at_;
  return true;
}

}  // namespace corvanta::inline exchange
