#pragma once

#include "platform/Date.h"
#include "platform/SettingsTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {

class Registry;

struct DateRange {
  Date start;
  Date end;
  auto operator<=>(const DateRange&) const = default;
};

// The user's preferences in their natural types, over the registry of the current user. A value
// that is absent, or that makes no sense for its setting, reads as the default. Each call reads
// or writes the registry: nothing is held here. A getter asked for a setting of another kind is a
// programmer's error. Setters throw PlatformError when the registry cannot be written.
class Settings {
 public:
  // The registry must outlive this object.
  explicit Settings(Registry& registry) : registry_(registry) {}

  [[nodiscard]] bool IsOn(Setting check) const;
  void SetOn(Setting check, bool isOn);

  // 0 where nothing was stored and the program decides (such as the window's size).
  [[nodiscard]] int Number(Setting number) const;
  void SetNumber(Setting setting, int number);

  // Never 0: a stored 0 reads as the default, so black cannot be chosen.
  [[nodiscard]] std::uint32_t Colour(Setting colour) const;
  void SetColour(Setting setting, std::uint32_t colour);

  // The entry chosen, as its position in the list and as its text. The text is what is stored.
  [[nodiscard]] std::size_t Choice(Setting choice) const;
  [[nodiscard]] std::string_view ChoiceText(Setting choice) const;
  void SetChoice(Setting choice, std::size_t position);

  // The stored text of any setting, or its default's; unchecked.
  [[nodiscard]] std::string Text(Setting setting) const;
  void SetText(Setting setting, std::string_view text);
  [[nodiscard]] bool IsStored(Setting setting) const;

  // Column widths in pixels; empty where none are stored.
  [[nodiscard]] std::vector<int> Widths(Setting widths) const;
  void SetWidths(Setting setting, const std::vector<int>& widths);

  // The register's date range; the last 30 days to today where none is stored.
  [[nodiscard]] DateRange Dates(Date today) const;
  void SetDates(const DateRange& dates);

  // "NoShedule" as months, 0 ("None") to 120.
  [[nodiscard]] int ScheduleMonths() const;
  // The last day that "NoReminders" looks ahead to; nullopt for "None".
  [[nodiscard]] std::optional<Date> RemindersUntil(Date today) const;
  // "NoDecimal", 2 to 9.
  [[nodiscard]] int InvestmentDecimals() const;

  // Forgets the column widths, the sorted column and its direction, and the register's dates.
  void ResetColumns();

 private:
  [[nodiscard]] std::optional<std::string> Stored(const SettingInfo& info) const;

  Registry& registry_;
};

}  // namespace corvanta::inline platform
