#include "store/sql/engine/Functions.h"

#include "platform/Clock.h"
#include "platform/Date.h"
#include "platform/TextCase.h"
#include "store/sql/SqlText.h"
#include "store/sql/engine/Pattern.h"
#include "store/sql/writer/ExprWriter.h"

#include <sqlcipher/sqlite3.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace corvanta::jet {
namespace {

using Arguments = sqlite3_value**;

bool IsNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

std::string_view TextOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr
             ? std::string_view()
             : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// A number as its shortest text; anything else as the text it is.
std::string ShownText(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) {
    const double number = sqlite3_value_double(value);
    return std::isfinite(number) ? SqlNumber(number) : std::string();
  }
  return std::string(TextOf(value));
}

std::optional<DateTime> DateOf(sqlite3_value* value) {
  return IsNull(value) ? std::nullopt : DateTime::FromIso(TextOf(value));
}

void ResultText(sqlite3_context* context, const std::string& text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void Fail(sqlite3_context* context, const char* message) {
  sqlite3_result_error(context, message, -1);
}

int Collate(void*, int lengthA, const void* a, int lengthB, const void* b) {
  return CompareFolded({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                       {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

void Lower(sqlite3_context* context, int, Arguments values) {
  if (!IsNull(values[0])) ResultText(context, ToLower(ShownText(values[0])));
}

void Upper(sqlite3_context* context, int, Arguments values) {
  if (!IsNull(values[0])) ResultText(context, ToUpper(ShownText(values[0])));
}

void Text(sqlite3_context* context, int, Arguments values) {
  if (!IsNull(values[0])) ResultText(context, ShownText(values[0]));
}

// The pattern is mostly the same for all rows of a statement: the library keeps it along with it.
void Like(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[0]) || IsNull(values[1])) return;
  auto* pattern = static_cast<Pattern*>(sqlite3_get_auxdata(context, 0));
  std::optional<Pattern> own;
  if (pattern == nullptr) {
    own.emplace(ShownText(values[0]));
    pattern = &*own;
  }
  // A text is not copied.
  const bool isNumber = sqlite3_value_type(values[1]) == SQLITE_FLOAT;
  const bool matches =
      isNumber ? pattern->Matches(ShownText(values[1])) : pattern->Matches(TextOf(values[1]));
  sqlite3_result_int(context, matches ? 1 : 0);
  if (!own) return;
  const auto drop = [](void* kept) { delete static_cast<Pattern*>(kept); };
  sqlite3_set_auxdata(context, 0, new Pattern(std::move(*own)), drop);
}

// The character at which the second text begins in the first, counted from 1; 0 when nowhere.
void InStr(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[1]) || IsNull(values[2])) return;
  const std::string text = FoldCase(ShownText(values[1]));
  const std::string sought = FoldCase(ShownText(values[2]));
  std::size_t from = 0;
  for (int skip = sqlite3_value_int(values[0]); skip > 1 && from < text.size(); --skip) {
    do ++from;
    while (from < text.size() && (static_cast<unsigned char>(text[from]) & 0xC0U) == 0x80U);
  }
  const std::size_t found = text.find(sought, from);
  const std::size_t position =
      found == std::string::npos ? 0 : TextLength(std::string_view(text).substr(0, found)) + 1;
  sqlite3_result_int64(context, static_cast<sqlite3_int64>(position));
}

// Halves go to the even neighbour, as the dialect's conversions do.
void Round(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[0])) return;
  const int decimals = sqlite3_value_int(values[1]);
  const double number = sqlite3_value_double(values[0]);
  if (decimals == 0) {
    const double rounded = std::nearbyint(number);
    if (std::abs(rounded) < 9.2e18) {
      sqlite3_result_int64(context, static_cast<sqlite3_int64>(rounded));
    } else {
      sqlite3_result_double(context, rounded);
    }
    return;
  }
  const double factor = std::pow(10.0, decimals);
  sqlite3_result_double(context, std::nearbyint(number * factor) / factor);
}

// The last characters of a text, as many as the number says.
void Right(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[0]) || IsNull(values[1])) return;
  const std::string_view text = TextOf(values[0]);
  std::size_t from = text.size();
  for (auto left = sqlite3_value_int64(values[1]); left > 0 && from > 0; --left) {
    do --from;
    while (from > 0 && (static_cast<unsigned char>(text[from]) & 0xC0U) == 0x80U);
  }
  ResultText(context, std::string(text.substr(from)));
}

void Sign(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[0])) return;
  const double number = sqlite3_value_double(values[0]);
  sqlite3_result_int(context, (number > 0 ? 1 : 0) - (number < 0 ? 1 : 0));
}

void Floor(sqlite3_context* context, int, Arguments values) {
  if (!IsNull(values[0]))
    sqlite3_result_double(context, std::floor(sqlite3_value_double(values[0])));
}

void Power(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[0]) || IsNull(values[1])) return;
  sqlite3_result_double(context,
                        std::pow(sqlite3_value_double(values[0]), sqlite3_value_double(values[1])));
}

// The number that a whole text is; NULL for any other text.
void Number(sqlite3_context* context, int, Arguments values) {
  if (sqlite3_value_type(values[0]) != SQLITE_TEXT) {
    sqlite3_result_value(context, values[0]);
    return;
  }
  const std::string_view text = Trim(TextOf(values[0]));
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec == std::errc() && result.ptr == text.data() + text.size() && !text.empty()) {
    sqlite3_result_double(context, number);
  }
}

void AddToDate(sqlite3_context* context, int, Arguments values) {
  const std::optional<DateTime> date = DateOf(values[2]);
  if (IsNull(values[0]) || IsNull(values[1]) || !date) return;
  try {
    const DateTime moved{DateAdd(TextOf(values[0]), sqlite3_value_int(values[1]), date->date),
                         date->seconds};
    ResultText(context, moved.ToIso());
  } catch (const std::invalid_argument&) {
    Fail(context, "DateAdd knows the intervals d, ww, m, q and yyyy");
  }
}

void DateDifference(sqlite3_context* context, int count, Arguments values) {
  const std::optional<DateTime> from = DateOf(values[1]);
  const std::optional<DateTime> to = DateOf(values[2]);
  if (IsNull(values[0]) || !from || !to) return;
  // The dialect numbers the week's days from 1 Sunday.
  const int dialectDay = count > 3 ? sqlite3_value_int(values[3]) : 1;
  const int firstDay = dialectDay <= 1 ? 7 : dialectDay - 1;
  try {
    sqlite3_result_int(context, DateDiff(TextOf(values[0]), from->date, to->date, firstDay));
  } catch (const std::invalid_argument&) {
    Fail(context, "DateDiff knows the intervals d, w, ww, m, q and yyyy");
  }
}

void WeekDay(sqlite3_context* context, int, Arguments values) {
  if (const std::optional<DateTime> date = DateOf(values[0])) {
    sqlite3_result_int(context, date->date.WeekDay() % 7 + 1);
  }
}

void SerialDate(sqlite3_context* context, int, Arguments values) {
  if (IsNull(values[0]) || IsNull(values[1]) || IsNull(values[2])) return;
  // Months and days beyond their range carry over, as in 14/0 for 31 December.
  const std::optional<Date> year = Date::FromYmd(sqlite3_value_int(values[0]), 1, 1);
  if (!year) return Fail(context, "DateSerial needs a year from 1 to 9999");
  const Date month = year->AddMonths(sqlite3_value_int(values[1]) - 1);
  ResultText(context, month.AddDays(sqlite3_value_int(values[2]) - 1).ToIso());
}

void Now(sqlite3_context* context, int, Arguments) {
  const auto* clock = static_cast<const Clock*>(sqlite3_user_data(context));
  ResultText(context, clock->Now().ToIso());
}

void Today(sqlite3_context* context, int, Arguments) {
  const auto* clock = static_cast<const Clock*>(sqlite3_user_data(context));
  ResultText(context, clock->Today().ToIso());
}

struct Definition {
  const char* name;
  int arguments;
  bool deterministic;
  void (*function)(sqlite3_context*, int, Arguments);
};

constexpr Definition kFunctions[] = {{"jet_lower", 1, true, Lower},
                                     {"jet_upper", 1, true, Upper},
                                     {"jet_text", 1, true, Text},
                                     {"jet_like", 2, true, Like},
                                     {"jet_instr", 3, true, InStr},
                                     {"jet_round", 2, true, Round},
                                     {"jet_floor", 1, true, Floor},
                                     {"jet_right", 2, true, Right},
                                     {"jet_sign", 1, true, Sign},
                                     {"jet_power", 2, true, Power},
                                     {"jet_number", 1, true, Number},
                                     {"jet_dateadd", 3, true, AddToDate},
                                     {"jet_datediff", 3, true, DateDifference},
                                     {"jet_datediff", 4, true, DateDifference},
                                     {"jet_weekday", 1, true, WeekDay},
                                     {"jet_dateserial", 3, true, SerialDate},
                                     {"jet_now", 0, false, Now},
                                     {"jet_today", 0, false, Today}};

}  // namespace

void RegisterFunctions(sqlite3* database, const Clock& clock) {
  sqlite3_create_collation(database, kCollation, SQLITE_UTF8, nullptr, Collate);
  for (const Definition& definition : kFunctions) {
    const int flags = SQLITE_UTF8 | (definition.deterministic ? SQLITE_DETERMINISTIC : 0);
    sqlite3_create_function(database, definition.name, definition.arguments, flags,
                            const_cast<Clock*>(&clock), definition.function, nullptr, nullptr);
  }
}

}  // namespace corvanta::jet
