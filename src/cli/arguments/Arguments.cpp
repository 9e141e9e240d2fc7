#include "cli/arguments/Arguments.h"

#include "cli/Parser.h"
#include "platform/TextCase.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace corvanta::inline cli {
namespace {

constexpr const char* kFirstDay = "0001-01-01";
constexpr const char* kLastDay = "9999-12-31";

std::string StatusFault(const std::string& text) {
  if (!text.empty() && text.find_first_not_of("ucr") == std::string::npos) return {};
  return "'" + text + "' is no choice of u (uncleared), c (cleared) and r (reconciled)";
}

Date DayOf(const std::string& text, const char* fallback) {
  return Date::FromIso(text.empty() ? fallback : text).value_or(Date());
}

std::optional<double> ReadPlainNumber(const std::string& text) {
  // Neither words such as "nan" nor an exponent.
  if (text.find_first_not_of("0123456789.-") != std::string::npos) return std::nullopt;
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, number, std::chars_format::fixed);
  if (error != std::errc() || last != end) return std::nullopt;
  return number;
}

}  // namespace

std::function<std::string(std::string&)> OneOf(std::vector<std::string> words) {
  return [words = std::move(words)](std::string& text) -> std::string {
    std::string fault = "'" + text + "' is none of";
    for (const std::string& word : words) {
      if (EqualFolded(word, text)) {
        text = word;
        return {};
      }
      fault += (word == words.front() ? " " : ", ") + word;
    }
    return fault;
  };
}

bool IsWholeNumber(std::string_view text, std::size_t maxDigits) {
  return !text.empty() && text.size() <= maxDigits &&
         text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string EmptyFault(const std::string& text) {
  return text.empty() ? "it may not be empty" : std::string();
}

std::string NumberFault(const std::string& text) {
  return ReadPlainNumber(text) ? "" : "'" + text + "' is no number such as 1234.56";
}

double NumberOf(const std::string& text) {
  return ReadPlainNumber(text).value_or(0);
}

std::string DateFault(const std::string& text) {
  if (Date::FromIso(text)) return {};
  return "'" + text + "' is no date of the form YYYY-MM-DD";
}

void PeriodArguments::Declare(Parser& command) {
  command.AddOption("--from", from, "First day shown (YYYY-MM-DD)")->Check(DateFault);
  command.AddOption("--to", to, "Last day shown (YYYY-MM-DD)")->Check(DateFault);
  command.Finally([this] {
    // Dates of this one form are in order as texts are.
    if (!from.empty() && !to.empty() && to < from) {
      throw UsageError("--to", to + " lies before --from " + from);
    }
  });
}

std::optional<Period> PeriodArguments::Get() const {
  if (from.empty() && to.empty()) return std::nullopt;
  return Period{DayOf(from, kFirstDay), DayOf(to, kLastDay)};
}

void StatusArgument::Declare(Parser& command) {
  command.AddOption("--status", letters, "Statuses shown: any of the letters u, c, r")
      ->Check(StatusFault);
}

StatusFilter StatusArgument::Get() const {
  if (letters.empty()) return {};
  const auto has = [this](char letter) { return letters.find(letter) != std::string::npos; };
  return {has('u'), has('c'), has('r')};
}

}  // namespace corvanta::inline cli
