// Every preference of the program: its name in the registry, its kind and its default.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace corvanta::inline platform {

// Keys of the current user's hive.
inline constexpr std::string_view kSettingsKey = "Software\\Corvanta 2.0\\Settings";
inline constexpr std::string_view kReportsKey = "Software\\Corvanta 2.0\\Reports";
inline constexpr std::string_view kStocksKey = "Software\\Corvanta 2.0\\Stocks";
inline constexpr std::string_view kCurrencyKey = "Software\\Corvanta 2.0\\Currency";

// The values under kSettingsKey, named as they are there. The order is that of AllSettings().
enum class Setting {
  Height,
  Width,
  Maximised,
  ColNo,
  ColSort,
  Account,
  View,
  Dates,
  SetDate,
  SetReportDate,
  FUcleared,
  Fcleared,
  Alt1,
  Alt2,
  ShowDesc,
  ShowRef,
  ShowStatus,
  Grid,
  Ledger,
  SkipBackup,
  BFreq,
  NoReminders,
  NoShedule,
  NoDecimal,
  Payment,
  Investment,
  Calendar,
  Closed,
  UpdateSchedule,
  Overdue,
  AccountNo,
  AutoFill,
  LocalFS,
  BackupFS,
  Backup,
  Association,
  Login,
  ShowTips,
  chT,
  chC,
  chP,
  chS,
  chI,
  chIT,
  chH,
  chR,
  chL,
  chL0,
  chL1,
  bHeight,
  bWidth,
  DBPath,
  CostMethod,
  AttachInside,
  PrintPaper,
  PrintOrientation,
  PrintMargins,
  CarryBudget,
};

enum class SettingKind {
  Check,   // "1" or "0"
  Number,  // a whole number, 0 or more
  Colour,  // red + 256 * green + 65536 * blue, or a system colour above 0x80000000; in decimal
  Choice,  // one of `choices`: the entry's text
  Text,
  Dates,   // "YYYY-MM-DD#YYYY-MM-DD"
  Widths,  // column widths in pixels: "120|80|64"
};

struct SettingInfo {
  Setting setting;
  std::string_view name;
  SettingKind kind;
  std::string_view defaultText;  // empty where the program decides as it runs
  std::string_view meaning;      // for a person, in a few words
  std::span<const std::string_view> choices;
  std::string_view key = kSettingsKey;
};

[[nodiscard]] std::span<const SettingInfo> AllSettings();
[[nodiscard]] const SettingInfo& InfoOf(Setting setting);
// By name, without regard to case; null when no setting is called so.
[[nodiscard]] const SettingInfo* FindSetting(std::string_view name);

// The position of a choice stored as its text or, as other versions did, as its position from 0.
// The text goes first where both would fit. nullopt when it is neither.
[[nodiscard]] std::optional<std::size_t> ChoicePosition(const SettingInfo& info,
                                                        std::string_view stored);
// What a person gave for a setting, in the form it is stored in; nullopt when the setting cannot
// have that value. Check boxes also take yes, no, on, off, true and false.
[[nodiscard]] std::optional<std::string> NormalSettingText(const SettingInfo& info,
                                                           std::string_view text);

// The forms of stored values; each nullopt when the text is not of that form.
[[nodiscard]] std::optional<bool> ReadCheck(std::string_view text);
[[nodiscard]] std::optional<int> ReadWholeNumber(std::string_view text);
[[nodiscard]] std::optional<std::uint32_t> ReadColour(std::string_view text);

}  // namespace corvanta::inline platform
