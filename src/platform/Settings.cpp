#include "platform/Settings.h"

#include "platform/Registry.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <map>

namespace corvanta::inline platform {
namespace {

constexpr std::array kColumnSettings{Setting::chT,     Setting::chC,  Setting::chP,  Setting::chS,
                                     Setting::chI,     Setting::chIT, Setting::chH,  Setting::chR,
                                     Setting::chL,     Setting::chL0, Setting::chL1, Setting::ColNo,
                                     Setting::ColSort, Setting::Dates};

const SettingInfo& InfoOfKind(Setting setting, [[maybe_unused]] SettingKind kind) {
  const SettingInfo& info = InfoOf(setting);
  assert(info.kind == kind);
  return info;
}

}  // namespace

std::optional<std::string> Settings::Stored(const SettingInfo& info) const {
  return registry_.Read(Hive::CurrentUser, info.key, info.name);
}

bool Settings::IsOn(Setting check) const {
  const SettingInfo& info = InfoOfKind(check, SettingKind::Check);
  return ReadCheck(Stored(info).value_or("")).value_or(info.defaultText == "1");
}

void Settings::SetOn(Setting check, bool isOn) {
  SetText(check, isOn ? "1" : "0");
}

int Settings::Number(Setting number) const {
  const SettingInfo& info = InfoOfKind(number, SettingKind::Number);
  const auto stored = ReadWholeNumber(Stored(info).value_or(""));
  return stored ? *stored : ReadWholeNumber(info.defaultText).value_or(0);
}

void Settings::SetNumber(Setting setting, int number) {
  SetText(setting, std::to_string(number));
}

std::uint32_t Settings::Colour(Setting colour) const {
  const SettingInfo& info = InfoOfKind(colour, SettingKind::Colour);
  const std::uint32_t stored = ReadColour(Stored(info).value_or("")).value_or(0);
  return stored != 0 ? stored : ReadColour(info.defaultText).value_or(0);
}

void Settings::SetColour(Setting setting, std::uint32_t colour) {
  SetText(setting, std::to_string(colour));
}

std::size_t Settings::Choice(Setting choice) const {
  const SettingInfo& info = InfoOfKind(choice, SettingKind::Choice);
  const auto stored = ChoicePosition(info, Stored(info).value_or(""));
  return stored ? *stored : ChoicePosition(info, info.defaultText).value_or(0);
}

std::string_view Settings::ChoiceText(Setting choice) const {
  return InfoOf(choice).choices[Choice(choice)];
}

void Settings::SetChoice(Setting choice, std::size_t position) {
  const SettingInfo& info = InfoOfKind(choice, SettingKind::Choice);
  assert(position < info.choices.size());
  SetText(choice, info.choices[position]);
}

std::string Settings::Text(Setting setting) const {
  const SettingInfo& info = InfoOf(setting);
  return Stored(info).value_or(std::string(info.defaultText));
}

void Settings::SetText(Setting setting, std::string_view text) {
  const SettingInfo& info = InfoOf(setting);
  registry_.Write(Hive::CurrentUser, info.key, info.name, text);
}

bool Settings::IsStored(Setting setting) const {
  return Stored(InfoOf(setting)).has_value();
}

std::vector<int> Settings::Widths(Setting setting) const {
  const SettingInfo& info = InfoOfKind(setting, SettingKind::Widths);
  const std::string stored = Stored(info).value_or("");
  std::vector<int> widths;
  std::string_view rest = Trim(stored);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find('|'), rest.size());
    const auto width = ReadWholeNumber(rest.substr(0, end));
    if (!width) return {};
    widths.push_back(*width);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return widths;
}

void Settings::SetWidths(Setting setting, const std::vector<int>& widths) {
  std::string text;
  for (const int width : widths) {
    if (!text.empty()) text += '|';
    text += std::to_string(width);
  }
  SetText(setting, text);
}

DateRange Settings::Dates(Date today) const {
  const std::string stored = Stored(InfoOf(Setting::Dates)).value_or("");
  const std::size_t mark = stored.find('#');
  if (mark != std::string::npos) {
    const auto start = Date::FromIso(Trim(std::string_view(stored).substr(0, mark)));
    const auto end = Date::FromIso(Trim(std::string_view(stored).substr(mark + 1)));
    if (start && end && *start <= *end) return {*start, *end};
  }
  return {today.AddDays(-30), today};
}

void Settings::SetDates(const DateRange& dates) {
  SetText(Setting::Dates, dates.start.ToIso() + "#" + dates.end.ToIso());
}

int Settings::ScheduleMonths() const {
  // The first twelve entries count months, the others years.
  const int position = static_cast<int>(Choice(Setting::NoShedule));
  return position <= 11 ? position : (position - 11) * 12;
}

std::optional<Date> Settings::RemindersUntil(Date today) const {
  switch (Choice(Setting::NoReminders)) {
    case 0:
      return std::nullopt;
    case 1:
      return today.AddDays(1);
    case 6:
      return today.AddMonths(3);
    default:
      return today.AddDays(7 * (static_cast<int>(Choice(Setting::NoReminders)) - 1));
  }
}

int Settings::InvestmentDecimals() const {
  return 2 + static_cast<int>(Choice(Setting::NoDecimal));
}

void Settings::ResetColumns() {
  std::map<std::string, std::string> empty;
  for (const Setting setting : kColumnSettings) empty.emplace(InfoOf(setting).name, "");
  empty.emplace("chA", "");  // the window's own, of the accounts list
  registry_.WriteAll(Hive::CurrentUser, kSettingsKey, empty);
}

}  // namespace corvanta::inline platform
