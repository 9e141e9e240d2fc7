#include "store/jet/Normalizer.h"

#include "platform/Date.h"
#include "platform/TextCase.h"
#include "store/jet/Lexer.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace corvanta::jet {
namespace {

// The library binds 999 values at the most; beyond this many the rest stays text.
constexpr std::size_t kMostParameters = 900;

bool Compares(Word word) {
  return word == Word::Like || word == Word::Between ||
         (word >= Word::Equal && word <= Word::GreaterEqual);
}

bool Calculates(Word word) {
  return word == Word::Mod || (word >= Word::Plus && word <= Word::Ampersand);
}

bool IsLiteral(const Token& token) {
  return token.kind == TokenKind::Number || token.kind == TokenKind::Text ||
         token.kind == TokenKind::Date;
}

// Up to `count` whole numbers separated by the sign given; false when the text is anything else.
template <std::size_t count>
bool ReadNumbers(std::string_view text, char separator, std::array<int, count>& numbers) {
  const char* at = text.data();
  const char* const end = at + text.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) {
      if (at == end || *at != separator) return false;
      ++at;
    }
    const auto [next, error] = std::from_chars(at, end, numbers[i]);
    if (error != std::errc() || next == at) return false;
    at = next;
  }
  return at == end;
}

}  // namespace

std::string IsoFromLiteral(std::string_view literal) {
  const std::string_view text = Trim(literal);
  const std::size_t blank = text.find(' ');
  const std::string_view day = text.substr(0, blank);
  std::array<int, 3> parts{};
  std::optional<Date> date;
  if (ReadNumbers(day, '/', parts)) {
    date = Date::FromYmd(parts[2], parts[0], parts[1]);
  } else if (ReadNumbers(day, '-', parts)) {
    date = Date::FromYmd(parts[0], parts[1], parts[2]);
  }
  if (!date) return {};
  DateTime moment{*date, 0};
  if (blank != std::string_view::npos) {
    const std::string_view time = Trim(text.substr(blank));
    std::array<int, 3> clock{};
    std::array<int, 2> minutes{};
    if (ReadNumbers(time, ':', minutes)) {
      clock = {minutes[0], minutes[1], 0};
    } else if (!ReadNumbers(time, ':', clock)) {
      return {};
    }
    if (clock[0] < 0 || clock[0] > 23 || clock[1] < 0 || clock[1] > 59 || clock[2] < 0 ||
        clock[2] > 59) {
      return {};
    }
    moment.seconds = clock[0] * 3600 + clock[1] * 60 + clock[2];
  }
  return moment.ToIso();
}

void Normalizer::Run(std::string_view sql) {
  sql_ = sql;
  parameters_.clear();
  texts_.clear();
  betweenDepths_.clear();
  listDepths_.clear();
  reusable_ = true;
  inSet_ = false;
  inValues_ = false;
  depth_ = 0;
  Tokenize(sql, tokens_);
  sharing_ = tokens_[0].word == Word::Select;
  Mark();
  BuildKey();
}

void Normalizer::Mark() {
  const Word first = tokens_[0].word;
  if (first == Word::Create || first == Word::Alter || first == Word::Drop) return;
  for (std::size_t i = 0; i < tokens_.size(); ++i) {
    const Token& token = tokens_[i];
    if (IsLiteral(token)) {
      if (!MarkLiteral(i) && !listDepths_.empty() && listDepths_.back() == depth_) {
        reusable_ = false;
      }
      continue;
    }
    switch (token.word) {
      case Word::Open:
        ++depth_;
        if (i > 0 && tokens_[i - 1].word == Word::In) listDepths_.push_back(depth_);
        break;
      case Word::Close:
        if (!listDepths_.empty() && listDepths_.back() == depth_) listDepths_.pop_back();
        --depth_;
        break;
      case Word::Between:
        betweenDepths_.push_back(depth_);
        break;
      case Word::Set:
        inSet_ = first == Word::Update;
        break;
      case Word::Where:
        inSet_ = false;
        break;
      case Word::Values:
        inValues_ = first == Word::Insert;
        break;
      default:
        break;
    }
  }
}

// A value alone on the right of SET's equals sign or alone in a VALUES list: always bound.
bool Normalizer::IsAssigned(std::size_t i, std::size_t before) const {
  const Word previous = tokens_[before].word;
  const Token& next = tokens_[i + 1];
  if (inValues_ && depth_ == 1) {
    return (previous == Word::Open || previous == Word::Comma) &&
           (next.word == Word::Comma || next.word == Word::Close);
  }
  return inSet_ && depth_ == 0 && previous == Word::Equal &&
         (next.word == Word::Comma || next.word == Word::Where || next.word == Word::Semicolon ||
          next.kind == TokenKind::End);
}

bool Normalizer::MarkLiteral(std::size_t i) {
  Token& token = tokens_[i];
  if (i == 0) return false;
  std::size_t before = i - 1;
  bool negative = false;
  if (before > 0 && tokens_[before].word == Word::Minus && token.kind == TokenKind::Number) {
    const Token& beforeSign = tokens_[before - 1];
    const Word word = beforeSign.word;
    negative = Compares(word) || word == Word::Open || word == Word::Comma || word == Word::And;
    if (negative) --before;
  }
  bool bound = IsAssigned(i, before);
  if (!bound) {
    Word previous = tokens_[before].word;
    if (previous == Word::And && !betweenDepths_.empty() && betweenDepths_.back() == depth_) {
      betweenDepths_.pop_back();
      previous = Word::Between;
    }
    const bool common = token.kind == TokenKind::Number && token.text.size() == 1 &&
                        (token.text[0] == '1' || (token.text[0] == '0' && !negative));
    bound = Compares(previous) && !common && !Calculates(tokens_[i + 1].word);
  }
  if (!bound || parameters_.size() >= kMostParameters) return false;
  MakeParameter(token, negative);
  // The sign went into the value; a parameter token without text before it stands for nothing.
  if (negative) tokens_[i - 1].parameter = -1;
  return true;
}

void Normalizer::MakeParameter(Token& token, bool negative) {
  Parameter parameter;
  const char* const end = token.text.data() + token.text.size();
  switch (token.kind) {
    case TokenKind::Number: {
      const auto whole = std::from_chars(token.text.data(), end, parameter.integer);
      if (whole.ec == std::errc() && whole.ptr == end) {
        if (negative) parameter.integer = -parameter.integer;
        break;
      }
      parameter.kind = ParameterKind::Number;
      const auto result = std::from_chars(token.text.data(), end, parameter.number);
      if (result.ec != std::errc()) FailAt(sql_, token.offset, "the number is out of range");
      if (negative) parameter.number = -parameter.number;
      break;
    }
    case TokenKind::Date:
      parameter.kind = ParameterKind::Date;
      texts_.push_back(IsoFromLiteral(token.text));
      parameter.text = texts_.back();
      if (parameter.text.empty()) FailAt(sql_, token.offset, "there is no such date");
      break;
    default:
      parameter.kind = ParameterKind::Text;
      parameter.text = token.text;
      if (token.hasQuotes) {
        texts_.push_back(Unquote(token));
        parameter.text = texts_.back();
      }
      break;
  }
  token.parameter = Number(parameter);
}

std::int16_t Normalizer::Number(const Parameter& parameter) {
  if (sharing_) {
    for (std::size_t i = 0; i < parameters_.size(); ++i) {
      const Parameter& other = parameters_[i];
      if (other.kind == parameter.kind && other.integer == parameter.integer &&
          other.number == parameter.number && other.text == parameter.text) {
        return static_cast<std::int16_t>(i + 1);
      }
    }
  }
  parameters_.push_back(parameter);
  return static_cast<std::int16_t>(parameters_.size());
}

void Normalizer::BuildKey() {
  key_.clear();
  for (const Token& token : tokens_) {
    if (token.parameter < 0) continue;
    if (token.parameter > 0) {
      char number[8];
      const auto end = std::to_chars(number, number + sizeof number, token.parameter).ptr;
      key_ += '?';
      key_.append(number, end);
      key_ += static_cast<char>(parameters_[static_cast<std::size_t>(token.parameter - 1)].kind);
    } else {
      switch (token.kind) {
        case TokenKind::Bracketed:
          key_ += '[';
          break;
        case TokenKind::Text:
          key_ += *(token.text.data() - 1);
          break;
        case TokenKind::Date:
          key_ += '#';
          break;
        default:
          break;
      }
      key_ += token.text;
      switch (token.kind) {
        case TokenKind::Bracketed:
          key_ += ']';
          break;
        case TokenKind::Text:
          key_ += *(token.text.data() - 1);
          break;
        case TokenKind::Date:
          key_ += '#';
          break;
        default:
          break;
      }
    }
    key_ += ' ';
  }
}

}  // namespace corvanta::jet
