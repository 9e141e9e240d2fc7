#include "platform/FormulaGuard.h"

#include <algorithm>
#include <array>

namespace corvanta::inline platform {
namespace {

// The last four are the wide forms of the first, which some spreadsheets take for the same.
constexpr std::array<std::string_view, 11> kBeginnings = {
    "=",           "+", "-", "@", "\t", "\r", "\n", "\xEF\xBC\x9D", "\xEF\xBC\x8B", "\xEF\xBC\x8D",
    "\xEF\xBC\xA0"};

// Apostrophes of the text's own do not hide a formula from the one who takes one off.
bool IsLikeFormula(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of('\''), text.size()));
  return std::ranges::any_of(kBeginnings,
                             [&](std::string_view begin) { return text.starts_with(begin); });
}

}  // namespace

std::string GuardFormula(std::string_view text) {
  return (IsLikeFormula(text) ? "'" : "") + std::string(text);
}

std::string_view UnguardFormula(std::string_view text) {
  return text.starts_with('\'') && IsLikeFormula(text) ? text.substr(1) : text;
}

}  // namespace corvanta::inline platform
