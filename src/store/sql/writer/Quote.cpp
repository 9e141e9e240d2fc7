#include "store/sql/writer/Quote.h"

namespace corvanta::jet {
namespace {

std::string Quote(std::string_view text, char quote) {
  std::string quoted(1, quote);
  for (const char c : text) {
    if (c == quote) quoted += c;
    quoted += c;
  }
  quoted += quote;
  return quoted;
}

}  // namespace

std::string QuoteName(std::string_view name) {
  return Quote(name, '"');
}
std::string QuoteText(std::string_view text) {
  return Quote(text, '\'');
}

}  // namespace corvanta::jet
