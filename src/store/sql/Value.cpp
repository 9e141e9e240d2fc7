#include "store/sql/Value.h"

#include "store/sql/SqlText.h"

#include <cmath>
#include <cstdlib>

namespace corvanta::inline sql {

std::int64_t Value::Int() const {
  if (const auto* whole = std::get_if<std::int64_t>(&data_)) return *whole;
  const double number = Double();
  // Outside the range of whole numbers the cast would be undefined.
  if (!(std::abs(number) < 9.2e18)) return 0;
  return std::llround(number);
}

double Value::Double() const {
  if (const auto* whole = std::get_if<std::int64_t>(&data_)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&data_)) return *number;
  if (const auto* text = std::get_if<std::string>(&data_))
    return std::strtod(text->c_str(), nullptr);
  return 0;
}

std::string Value::Text() const {
  if (const auto* text = std::get_if<std::string>(&data_)) return *text;
  if (const auto* whole = std::get_if<std::int64_t>(&data_)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&data_)) {
    return std::isfinite(*number) ? SqlNumber(*number) : std::string();
  }
  return {};
}

std::optional<Date> Value::AsDate() const {
  const auto* text = std::get_if<std::string>(&data_);
  if (text == nullptr) return std::nullopt;
  const auto moment = DateTime::FromIso(*text);
  return moment ? std::optional(moment->date) : std::nullopt;
}

}  // namespace corvanta::inline sql
