#include "platform/Settings.h"
#include "support/MemoryRegistry.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

class SettingsTest : public ::testing::Test {
 protected:
  void Store(std::string_view name, std::string_view value) {
    registry_.Write(Hive::CurrentUser, "Software\\Corvanta 2.0\\Settings", name, value);
  }
  [[nodiscard]] std::string Stored(std::string_view name) const {
    return registry_.Read(Hive::CurrentUser, "Software\\Corvanta 2.0\\Settings", name)
        .value_or("(none)");
  }

  MemoryRegistry registry_;
  Settings settings_{registry_};
  Date today_ = Date::FromIso("2026-11-21").value();
};

TEST_F(SettingsTest, NewUserHasUsableDefaults) {
  EXPECT_TRUE(settings_.IsOn(Setting::ShowDesc));
  EXPECT_FALSE(settings_.IsOn(Setting::Grid));
  EXPECT_FALSE(settings_.IsOn(Setting::Login));
  EXPECT_EQ(settings_.Colour(Setting::FUcleared), 0x80000011U);
  EXPECT_EQ(settings_.Colour(Setting::Fcleared), 0xFF0000U);
  EXPECT_EQ(settings_.Colour(Setting::Alt1), 0xF9FEFFU);
  EXPECT_EQ(settings_.Colour(Setting::Alt2), 0xF7F7F7U);
  EXPECT_EQ(settings_.ScheduleMonths(), 1);
  EXPECT_EQ(settings_.Number(Setting::Height), 0);
  EXPECT_TRUE(registry_.IsEmpty(Hive::CurrentUser));
  for (const SettingInfo& info : AllSettings()) {
    EXPECT_EQ(FindSetting(info.name), &info);
    if (!info.defaultText.empty()) {
      EXPECT_EQ(NormalSettingText(info, info.defaultText), info.defaultText) << info.name;
    }
  }
}

TEST_F(SettingsTest, ChecksNumbersAndTexts) {
  settings_.SetOn(Setting::Grid, true);
  EXPECT_EQ(Stored("Grid"), "1");
  settings_.SetOn(Setting::ShowDesc, false);
  EXPECT_EQ(Stored("ShowDesc"), "0");
  EXPECT_FALSE(settings_.IsOn(Setting::ShowDesc));
  Store("ShowDesc", "perhaps");
  EXPECT_TRUE(settings_.IsOn(Setting::ShowDesc));
  settings_.SetNumber(Setting::Account, 12);
  EXPECT_EQ(settings_.Number(Setting::Account), 12);
  Store("Account", "-3");
  EXPECT_EQ(settings_.Number(Setting::Account), 0);
}

TEST_F(SettingsTest, ZeroAndNonsenseColoursAreTheDefault) {
  for (const char* text : {"0", "", "red", "99999999999", " 0 "}) {
    Store("Fcleared", text);
    EXPECT_EQ(settings_.Colour(Setting::Fcleared), 16711680U) << text;
  }
  Store("Fcleared", "255");
  EXPECT_EQ(settings_.Colour(Setting::Fcleared), 255U);
  Store("FUcleared", "-2147483631");
  EXPECT_EQ(settings_.Colour(Setting::FUcleared), 0x80000011U);
  settings_.SetColour(Setting::FUcleared, 0x80000011U);
  EXPECT_EQ(Stored("FUcleared"), "2147483665");
}

TEST_F(SettingsTest, ChoicesAreStoredAsTextAndReadAsEither) {
  struct Row {
    const char* stored;
    int months;
  };
  for (const Row& row :
       {Row{"None", 0}, Row{"11 Months", 11}, Row{"1 year", 12}, Row{"10 Years", 120}, Row{"0", 0},
        Row{"3", 3}, Row{"12", 12}, Row{"21", 120}, Row{"22", 1}, Row{"often", 1}, Row{"", 1}}) {
    Store("NoShedule", row.stored);
    EXPECT_EQ(settings_.ScheduleMonths(), row.months) << row.stored;
  }
  // An entry that is a number itself is its text, never a position.
  Store("NoDecimal", "3");
  EXPECT_EQ(settings_.InvestmentDecimals(), 3);
  Store("NoDecimal", "0");
  EXPECT_EQ(settings_.InvestmentDecimals(), 2);
  settings_.SetChoice(Setting::BFreq, 2);
  EXPECT_EQ(Stored("BFreq"), "Once a Week");
  EXPECT_EQ(settings_.ChoiceText(Setting::BFreq), "Once a Week");
}

TEST_F(SettingsTest, RemindersLookAhead) {
  struct Row {
    const char* stored;
    const char* until;
  };
  for (const Row& row : {Row{"1 Day", "2026-11-22"}, Row{"1 Week", "2026-11-28"},
                         Row{"2 Weeks", "2026-12-05"}, Row{"3 Weeks", "2026-12-12"},
                         Row{"4 Weeks", "2026-12-19"}, Row{"3 Months", "2027-02-21"}}) {
    Store("NoReminders", row.stored);
    EXPECT_EQ(settings_.RemindersUntil(today_)->ToIso(), row.until);
  }
  Store("NoReminders", "None");
  EXPECT_FALSE(settings_.RemindersUntil(today_));
}

TEST_F(SettingsTest, DatesFallBackToTheLastThirtyDays) {
  const DateRange lastDays{Date::FromIso("2026-10-22").value(), today_};
  EXPECT_EQ(settings_.Dates(today_), lastDays);
  for (const char* text : {"", "2026-01-01", "#", "2026-01-01#", "2026-02-30#2026-03-01", "a#b",
                           "2026-03-01#2026-02-01"}) {
    Store("Dates", text);
    EXPECT_EQ(settings_.Dates(today_), lastDays) << text;
  }
  const DateRange year{Date::FromIso("2026-01-01").value(), Date::FromIso("2026-12-31").value()};
  settings_.SetDates(year);
  EXPECT_EQ(Stored("Dates"), "2026-01-01#2026-12-31");
  EXPECT_EQ(settings_.Dates(today_), year);
}

TEST_F(SettingsTest, WidthsAndTheirReset) {
  EXPECT_TRUE(settings_.Widths(Setting::chT).empty());
  settings_.SetWidths(Setting::chT, {120, 0, 64});
  EXPECT_EQ(Stored("chT"), "120|0|64");
  EXPECT_EQ(settings_.Widths(Setting::chT), (std::vector<int>{120, 0, 64}));
  Store("chC", "12|x");
  EXPECT_TRUE(settings_.Widths(Setting::chC).empty());
  Store("ColNo", "4");
  Store("Height", "600");
  settings_.SetDates({today_, today_});
  settings_.ResetColumns();
  EXPECT_TRUE(settings_.Widths(Setting::chT).empty());
  EXPECT_EQ(settings_.Number(Setting::ColNo), 0);
  EXPECT_EQ(settings_.Dates(today_).start, today_.AddDays(-30));
  EXPECT_EQ(settings_.Number(Setting::Height), 600);
}

TEST_F(SettingsTest, TakesOnlyWhatASettingCanBe) {
  struct Row {
    const char* name;
    const char* text;
    std::optional<std::string> expected;
  };
  for (const Row& row : {
           Row{"grid", "on", "1"},
           Row{"Grid", "2", std::nullopt},
           Row{"NoShedule", "2 months", "2 Months"},
           Row{"NoShedule", "13 Months", std::nullopt},
           Row{"Alt1", "255", "255"},
           Row{"Alt1", "white", std::nullopt},
           Row{"Height", "-1", std::nullopt},
           Row{"Dates", "2026-01-01#2026-02-01", "2026-01-01#2026-02-01"},
           Row{"Dates", "yesterday", std::nullopt},
           Row{"chT", "1|2", "1|2"},
           Row{"chT", "1;2", std::nullopt},
           Row{"Backup", " /a b ", " /a b "},
       }) {
    const SettingInfo* info = FindSetting(row.name);
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(NormalSettingText(*info, row.text), row.expected) << row.name << "=" << row.text;
  }
  EXPECT_EQ(FindSetting("NoSchedule"), nullptr);
}

}  // namespace
}  // namespace corvanta
