#include "reference/ReferenceWords.h"

#include <algorithm>
#include <cassert>
#include <iterator>

namespace corvanta::inline reference {
namespace {

constexpr TextWords kTexts[] = {
    {"Address", "&Address:", "Its address", 3},
    {"Postcode", "&Postcode:", "Its postcode"},
    {"Telephone", "&Telephone:", "Its telephone number"},
    {"Account", "C&ustomer Reference:", "Your customer reference there"},
    {"Sortcode", "S&ort Code:", "Its sort code"},
    {"Web", "&Web Address:", "Its web address"},
    {"Description", "Desc&ription:", "What it is"},
};

}  // namespace

const TextWords& WordsOf(std::string_view column) {
  const auto* words = std::ranges::find(kTexts, column, &TextWords::column);
  assert(words != std::end(kTexts));
  return *words;
}

}  // namespace corvanta::inline reference
