#include "store/sql/lexer/Words.h"

#include <array>
#include <cstdint>

namespace corvanta::jet {
namespace {

struct WordName {
  std::string_view text;  // in capitals
  Word word;
};

constexpr std::array kWords = {WordName{"ADD", Word::Add},
                               WordName{"ALL", Word::All},
                               WordName{"ALTER", Word::Alter},
                               WordName{"AND", Word::And},
                               WordName{"AS", Word::As},
                               WordName{"ASC", Word::Asc},
                               WordName{"BETWEEN", Word::Between},
                               WordName{"BY", Word::By},
                               WordName{"COLUMN", Word::Column},
                               WordName{"CONSTRAINT", Word::Constraint},
                               WordName{"CREATE", Word::Create},
                               WordName{"DEFAULT", Word::Default},
                               WordName{"DELETE", Word::Delete},
                               WordName{"DESC", Word::Desc},
                               WordName{"DISTINCT", Word::Distinct},
                               WordName{"DISTINCTROW", Word::DistinctRow},
                               WordName{"DROP", Word::Drop},
                               WordName{"EXISTS", Word::Exists},
                               WordName{"FROM", Word::From},
                               WordName{"GROUP", Word::Group},
                               WordName{"HAVING", Word::Having},
                               WordName{"IN", Word::In},
                               WordName{"INDEX", Word::Index},
                               WordName{"INNER", Word::Inner},
                               WordName{"INSERT", Word::Insert},
                               WordName{"INTO", Word::Into},
                               WordName{"IS", Word::Is},
                               WordName{"JOIN", Word::Join},
                               WordName{"KEY", Word::Key},
                               WordName{"LEFT", Word::Left},
                               WordName{"LIKE", Word::Like},
                               WordName{"MOD", Word::Mod},
                               WordName{"NOT", Word::Not},
                               WordName{"NULL", Word::Null},
                               WordName{"ON", Word::On},
                               WordName{"OR", Word::Or},
                               WordName{"ORDER", Word::Order},
                               WordName{"OUTER", Word::Outer},
                               WordName{"PRIMARY", Word::Primary},
                               WordName{"RIGHT", Word::Right},
                               WordName{"SELECT", Word::Select},
                               WordName{"SET", Word::Set},
                               WordName{"TABLE", Word::Table},
                               WordName{"TOP", Word::Top},
                               WordName{"UNION", Word::Union},
                               WordName{"UNIQUE", Word::Unique},
                               WordName{"UPDATE", Word::Update},
                               WordName{"VALUES", Word::Values},
                               WordName{"WHERE", Word::Where}};

// Where the words of one first letter begin in kWords (which is in order).
constexpr std::array<std::uint8_t, 27> FirstLetters() {
  std::array<std::uint8_t, 27> first{};
  std::size_t at = 0;
  for (std::size_t letter = 0; letter < 27; ++letter) {
    while (at < kWords.size() && kWords[at].text[0] < static_cast<char>('A' + letter)) ++at;
    first[letter] = static_cast<std::uint8_t>(at);
  }
  return first;
}

constexpr auto kFirstLetters = FirstLetters();

bool SameWord(std::string_view text, std::string_view capitals) {
  if (text.size() != capitals.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (Upper(text[i]) != capitals[i]) return false;
  }
  return true;
}

}  // namespace

Word FindWord(std::string_view text) {
  const char first = Upper(text[0]);
  if (first < 'A' || first > 'Z' || text.size() > 11) return Word::None;
  const auto letter = static_cast<std::size_t>(first - 'A');
  for (std::size_t i = kFirstLetters[letter]; i < kFirstLetters[letter + 1]; ++i) {
    if (SameWord(text, kWords[i].text)) return kWords[i].word;
  }
  return Word::None;
}

Word WordOfSign(char sign, char next) {
  switch (sign) {
    case '<':
      return next == '>' ? Word::NotEqual : next == '=' ? Word::LessEqual : Word::Less;
    case '>':
      return next == '=' ? Word::GreaterEqual : Word::Greater;
    case '=':
      return Word::Equal;
    case '+':
      return Word::Plus;
    case '-':
      return Word::Minus;
    case '*':
      return Word::Star;
    case '/':
      return Word::Slash;
    case '\\':
      return Word::Backslash;
    case '^':
      return Word::Caret;
    case '&':
      return Word::Ampersand;
    case '(':
      return Word::Open;
    case ')':
      return Word::Close;
    case ',':
      return Word::Comma;
    case '.':
      return Word::Dot;
    case ';':
      return Word::Semicolon;
    default:
      return Word::None;
  }
}

}  // namespace corvanta::jet
