// Forms of arguments that several commands share. A wrong one is wrong usage.
#pragma once

#include "ledger/register/Period.h"
#include "ledger/register/StatusFilter.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline cli {

class Parser;

// --from D and --to D, either of them alone too.
struct PeriodArguments {
  std::string from;
  std::string to;

  void Declare(Parser& command);
  // nullopt when neither was given; an open end reaches to the first or last day there is.
  [[nodiscard]] std::optional<Period> Get() const;
};

// --status with any of the letters u (uncleared), c (cleared) and r (reconciled).
struct StatusArgument {
  std::string letters;

  void Declare(Parser& command);
  [[nodiscard]] StatusFilter Get() const;
};

// The check of an argument that is one of a few words (in any case); it puts the word in place as
// it stands in the list.
[[nodiscard]] std::function<std::string(std::string&)> OneOf(std::vector<std::string> words);
// Whether the text is a whole number, without a sign, of that many digits at the most.
[[nodiscard]] bool IsWholeNumber(std::string_view text, std::size_t maxDigits);
// What is wrong with an argument that may not be empty; empty when nothing is. An unset variable of
// a script must not lead to the user's own file.
[[nodiscard]] std::string EmptyFault(const std::string& text);
// What is wrong with a number argument: digits, a point before decimals, a minus sign in front;
// empty when nothing is. Whatever the locale, for a script must mean the same everywhere.
[[nodiscard]] std::string NumberFault(const std::string& text);
// The number of an argument that has no fault.
[[nodiscard]] double NumberOf(const std::string& text);
// What is wrong with a date argument, which is YYYY-MM-DD alone; empty when nothing is.
[[nodiscard]] std::string DateFault(const std::string& text);

}  // namespace corvanta::inline cli
