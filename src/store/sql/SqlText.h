// The only code that puts a value into a statement.
#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvanta::inline sql {

// The text between single quotes, embedded apostrophes doubled.
[[nodiscard]] std::string SqlText(std::string_view text);
// #mm/dd/yyyy#, whatever the locale; of a day beyond the calendar its first or last one.
[[nodiscard]] std::string SqlDate(Date date);
// #mm/dd/yyyy# at midnight, otherwise #mm/dd/yyyy hh:nn:ss#.
[[nodiscard]] std::string SqlDate(DateTime moment);
// The last second of the day: where a period that includes it ends, for rows that carry a time.
[[nodiscard]] std::string SqlEndOf(Date day);
// The shortest form that reads back as the same number, with a point. Throws std::invalid_argument
// for infinity and NaN.
[[nodiscard]] std::string SqlNumber(double number);
[[nodiscard]] std::string SqlNumber(std::int64_t number);

}  // namespace corvanta::inline sql
