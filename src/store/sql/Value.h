#pragma once

#include "platform/Date.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace corvanta::inline sql {

// One value of the data file: NULL, a whole number, a number, or text. Dates are ISO 8601 text
// ("2026-11-21", "2026-11-21T10:30:00").
class Value {
 public:
  Value() = default;
  Value(std::int64_t number) : data_(number) {}
  Value(int number) : data_(static_cast<std::int64_t>(number)) {}
  Value(double number) : data_(number) {}
  Value(std::string text) : data_(std::move(text)) {}
  Value(std::string_view text) : data_(std::string(text)) {}
  Value(const char* text) : data_(std::string(text)) {}
  Value(Date date) : data_(date.ToIso()) {}
  Value(DateTime moment) : data_(moment.ToIso()) {}

  [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(data_); }
  [[nodiscard]] bool IsInteger() const { return std::holds_alternative<std::int64_t>(data_); }
  [[nodiscard]] bool IsDouble() const { return std::holds_alternative<double>(data_); }
  [[nodiscard]] bool IsText() const { return std::holds_alternative<std::string>(data_); }

  // The value as another kind: NULL gives 0, 0.0, "" or nullopt; text gives the number it begins
  // with; a number gives its shortest text.
  [[nodiscard]] std::int64_t Int() const;
  [[nodiscard]] double Double() const;
  [[nodiscard]] std::string Text() const;
  [[nodiscard]] std::optional<Date> AsDate() const;

  bool operator==(const Value&) const = default;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string> data_;
};

}  // namespace corvanta::inline sql
