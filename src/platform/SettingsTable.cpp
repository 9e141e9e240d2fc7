#include "platform/SettingsTable.h"

#include "platform/Date.h"
#include "platform/TextCase.h"

#include <array>
#include <charconv>

namespace corvanta::inline platform {
namespace {

constexpr std::array<std::string_view, 3> kBackupChoices{"Every Time", "Once a Day", "Once a Week"};
constexpr std::array<std::string_view, 7> kReminderChoices{
    "None", "1 Day", "1 Week", "2 Weeks", "3 Weeks", "4 Weeks", "3 Months"};
constexpr std::array<std::string_view, 22> kScheduleChoices{
    "None",     "1 Month",  "2 Months", "3 Months", "4 Months",  "5 Months",
    "6 Months", "7 Months", "8 Months", "9 Months", "10 Months", "11 Months",
    "1 Year",   "2 Years",  "3 Years",  "4 Years",  "5 Years",   "6 Years",
    "7 Years",  "8 Years",  "9 Years",  "10 Years"};
constexpr std::array<std::string_view, 8> kDecimalChoices{"2", "3", "4", "5", "6", "7", "8", "9"};
constexpr std::array<std::string_view, 2> kCostChoices{"Average", "First In First Out"};
constexpr std::array<std::string_view, 3> kOrientationChoices{"As Fits the List", "Portrait",
                                                             "Landscape"};
constexpr std::array<std::string_view, 3> kStatusChoices{"Uncleared", "Cleared", "Reconciled"};

using enum SettingKind;

// clang-format off
constexpr std::array kSettings{
    SettingInfo{Setting::Height, "Height", Number, "", "Height of the main window", {}},
    SettingInfo{Setting::Width, "Width", Number, "", "Width of the main window", {}},
    SettingInfo{Setting::Maximised, "Maximised", Check, "0", "Main window maximised", {}},
    SettingInfo{Setting::ColNo, "ColNo", Number, "0", "Column the list is sorted by", {}},
    SettingInfo{Setting::ColSort, "ColSort", Number, "0", "Sort direction: 0 up, 1 down", {}},
    SettingInfo{Setting::Account, "Account", Number, "0", "Account last shown", {}},
    SettingInfo{Setting::View, "View", Text, "TransactionShow", "View last shown", {}},
    SettingInfo{Setting::Dates, "Dates", Dates, "", "Date range of the register", {}},
    SettingInfo{Setting::SetDate, "SetDate", Check, "0", "Register keeps to its date range", {}},
    SettingInfo{Setting::SetReportDate, "SetReportDate", Check, "0", "Reports keep to their date range", {}},
    SettingInfo{Setting::FUcleared, "FUcleared", Colour, "2147483665", "Text colour of uncleared transactions", {}},
    SettingInfo{Setting::Fcleared, "Fcleared", Colour, "16711680", "Text colour of cleared transactions", {}},
    SettingInfo{Setting::Alt1, "Alt1", Colour, "16383743", "First colour of alternating rows", {}},
    SettingInfo{Setting::Alt2, "Alt2", Colour, "16250871", "Second colour of alternating rows", {}},
    SettingInfo{Setting::ShowDesc, "ShowDesc", Check, "1", "Register shows the description", {}},
    SettingInfo{Setting::ShowRef, "ShowRef", Check, "1", "Register shows the reference", {}},
    SettingInfo{Setting::ShowStatus, "ShowStatus", Check, "1", "Register shows the status", {}},
    SettingInfo{Setting::Grid, "Grid", Check, "0", "Grid lines in lists", {}},
    SettingInfo{Setting::Ledger, "Ledger", Check, "1", "Ledger look of lists", {}},
    SettingInfo{Setting::SkipBackup, "SkipBackup", Check, "0", "Skip the backup on leaving", {}},
    SettingInfo{Setting::BFreq, "BFreq", Choice, "Once a Day", "How often a backup is made", kBackupChoices},
    SettingInfo{Setting::NoReminders, "NoReminders", Choice, "1 Week", "How far ahead reminders look", kReminderChoices},
    SettingInfo{Setting::NoShedule, "NoShedule", Choice, "1 Month", "How far ahead schedules are posted", kScheduleChoices},
    SettingInfo{Setting::NoDecimal, "NoDecimal", Choice, "4", "Decimals of investment prices", kDecimalChoices},
    SettingInfo{Setting::Payment, "Payment", Choice, "Uncleared", "Status of new transactions", kStatusChoices},
    SettingInfo{Setting::Investment, "Investment", Check, "0", "Balances include investments at their value", {}},
    SettingInfo{Setting::Calendar, "Calendar", Check, "1", "Show the calendar", {}},
    SettingInfo{Setting::Closed, "Closed", Check, "0", "Include closed accounts", {}},
    SettingInfo{Setting::UpdateSchedule, "UpdateSchedule", Check, "0", "Posting moves a schedule's date", {}},
    SettingInfo{Setting::Overdue, "Overdue", Check, "1", "Show overdue reminders", {}},
    SettingInfo{Setting::AccountNo, "AccountNo", Check, "0", "Show account numbers", {}},
    SettingInfo{Setting::AutoFill, "AutoFill", Check, "1", "Fill in from earlier transactions", {}},
    SettingInfo{Setting::LocalFS, "LocalFS", Check, "1", "Keep copies of attachments with the data", {}},
    SettingInfo{Setting::BackupFS, "BackupFS", Check, "1", "Backups include the attachments", {}},
    SettingInfo{Setting::Backup, "Backup", Text, "", "Backup file", {}},
    SettingInfo{Setting::Association, "Association", Check, "0", "Open QIF and OFX files with the program", {}},
    SettingInfo{Setting::Login, "Login", Check, "0", "Ask for a password at start", {}},
    SettingInfo{Setting::ShowTips, "ShowTips", Check, "0", "Show a tip of the day at start", {}},
    SettingInfo{Setting::chT, "chT", Widths, "", "Column widths: register", {}},
    SettingInfo{Setting::chC, "chC", Widths, "", "Column widths: categories", {}},
    SettingInfo{Setting::chP, "chP", Widths, "", "Column widths: payees", {}},
    SettingInfo{Setting::chS, "chS", Widths, "", "Column widths: schedules", {}},
    SettingInfo{Setting::chI, "chI", Widths, "", "Column widths: investments", {}},
    SettingInfo{Setting::chIT, "chIT", Widths, "", "Column widths: investment transactions", {}},
    SettingInfo{Setting::chH, "chH", Widths, "", "Column widths: price history", {}},
    SettingInfo{Setting::chR, "chR", Widths, "", "Column widths: balancing", {}},
    SettingInfo{Setting::chL, "chL", Widths, "", "Column widths: lookup", {}},
    SettingInfo{Setting::chL0, "chL0", Widths, "", "Column widths: loans", {}},
    SettingInfo{Setting::chL1, "chL1", Widths, "", "Column widths: mortgages", {}},
    SettingInfo{Setting::bHeight, "bHeight", Number, "", "Height of the balancing window", {}},
    SettingInfo{Setting::bWidth, "bWidth", Number, "", "Width of the balancing window", {}},
    SettingInfo{Setting::DBPath, "DBPath", Text, "", "Folder or file of the data", {}},
    SettingInfo{Setting::CostMethod, "CostMethod", Choice, "Average", "How the cost of investments is counted", kCostChoices},
    SettingInfo{Setting::AttachInside, "AttachInside", Check, "0", "Keep attachments inside the data file", {}},
    SettingInfo{Setting::PrintPaper, "PrintPaper", Text, "", "Paper that is printed on", {}},
    SettingInfo{Setting::PrintOrientation, "PrintOrientation", Choice, "As Fits the List", "How the paper lies", kOrientationChoices},
    SettingInfo{Setting::PrintMargins, "PrintMargins", Widths, "", "Margins of a page in tenths of a millimetre", {}},
    SettingInfo{Setting::CarryBudget, "CarryBudget", Check, "1", "The budget of a month carries over what was left", {}},
};
// clang-format on

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kSettings.size(); ++i) {
    if (static_cast<std::size_t>(kSettings[i].setting) != i) return false;
  }
  return true;
}
static_assert(IsInOrder(), "the table is read by position");

bool AreDates(std::string_view text) {
  const std::size_t mark = text.find('#');
  if (mark == std::string_view::npos) return false;
  const auto start = Date::FromIso(text.substr(0, mark));
  const auto end = Date::FromIso(text.substr(mark + 1));
  return start && end && *start <= *end;
}

bool AreWidths(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = text.find('|');
    if (!ReadWholeNumber(text.substr(0, end))) return false;
    if (end == std::string_view::npos) return true;
    text.remove_prefix(end + 1);
  }
  return true;
}

template <typename Number>
std::optional<Number> ReadWhole(std::string_view text) {
  const std::string_view digits = Trim(text);
  Number number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace

std::span<const SettingInfo> AllSettings() {
  return kSettings;
}

const SettingInfo& InfoOf(Setting setting) {
  return kSettings[static_cast<std::size_t>(setting)];
}

const SettingInfo* FindSetting(std::string_view name) {
  for (const SettingInfo& info : kSettings) {
    if (EqualFolded(info.name, name)) return &info;
  }
  return nullptr;
}

std::optional<std::size_t> ChoicePosition(const SettingInfo& info, std::string_view stored) {
  const std::string_view text = Trim(stored);
  for (std::size_t i = 0; i < info.choices.size(); ++i) {
    if (EqualFolded(info.choices[i], text)) return i;
  }
  const auto position = ReadWhole<std::size_t>(text);
  if (!position || *position >= info.choices.size()) return std::nullopt;
  return position;
}

std::optional<std::string> NormalSettingText(const SettingInfo& info, std::string_view text) {
  const std::string_view trimmed = Trim(text);
  switch (info.kind) {
    case Check: {
      const auto check = ReadCheck(trimmed);
      if (!check) return std::nullopt;
      return *check ? "1" : "0";
    }
    case Number: {
      const auto number = ReadWholeNumber(trimmed);
      if (!number) return std::nullopt;
      return std::to_string(*number);
    }
    case Colour: {
      const auto colour = ReadColour(trimmed);
      if (!colour) return std::nullopt;
      return std::to_string(*colour);
    }
    case Choice: {
      const auto position = ChoicePosition(info, trimmed);
      if (!position) return std::nullopt;
      return std::string(info.choices[*position]);
    }
    case Dates:
      if (!trimmed.empty() && !AreDates(trimmed)) return std::nullopt;
      return std::string(trimmed);
    case Widths:
      if (!AreWidths(trimmed)) return std::nullopt;
      return std::string(trimmed);
    case Text:
      break;
  }
  return std::string(text);
}

std::optional<bool> ReadCheck(std::string_view text) {
  const std::string lower = ToLower(Trim(text));
  if (lower == "1" || lower == "yes" || lower == "on" || lower == "true") return true;
  if (lower == "0" || lower == "no" || lower == "off" || lower == "false") return false;
  return std::nullopt;
}

std::optional<int> ReadWholeNumber(std::string_view text) {
  const auto number = ReadWhole<int>(text);
  if (!number || *number < 0) return std::nullopt;
  return number;
}

std::optional<std::uint32_t> ReadColour(std::string_view text) {
  // A system colour may have been written as the negative number of the same 32 bits.
  const auto number = ReadWhole<std::int64_t>(text);
  if (!number || *number < INT32_MIN || *number > UINT32_MAX) return std::nullopt;
  return static_cast<std::uint32_t>(*number);
}

}  // namespace corvanta::inline platform
