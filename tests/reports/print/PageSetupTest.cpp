#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "reports/print/PageSetup.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

TEST(PageSetup, WhatWasSetComesBack) {
  TestPlatform machine;
  EXPECT_EQ(ReadPageSetup(machine.Get()), PageSetup{}) << "A4, as the list wants it, 15 mm around";
  for (const auto& orientation :
       {std::optional<PrintOrientation>(), std::optional(PrintOrientation::Portrait),
        std::optional(PrintOrientation::Landscape)}) {
    const PageSetup setup{3, orientation, {0, 12.5, 7, 30}};
    KeepPageSetup(setup, machine.Get());
    EXPECT_EQ(ReadPageSetup(machine.Get()), setup);
  }
  for (const char* odd : {"15|15|15", "900|15|900|15", "-1|2|3|4", "wide"}) {
    machine.registry.Write(Hive::CurrentUser, kSettingsKey, "PrintMargins", odd);
    EXPECT_EQ(ReadPageSetup(machine.Get()).margins, PageMargins{}) << odd;
  }
}

TEST(PageSetup, ThePaperIsThatOfTheCountry) {
  TestPlatform machine;
  IcuLocale american("en_US");
  const Platform& usual = machine.Get();
  Platform there{
      usual.registry, american,       usual.clock,  usual.machine,     usual.files, usual.prompts,
      usual.progress, usual.download, usual.opener, usual.spreadsheet, "",          ""};
  EXPECT_EQ(PaperSizes()[ReadPageSetup(there).paper].name, "Letter");
}

TEST(PageSetup, ThePageIsWhatTheMarginsLeave) {
  const PageSetup setup{0, std::nullopt, {10, 20, 30, 40}};
  const PageForm upright = PageFormOf(setup, PrintOrientation::Portrait);
  EXPECT_EQ(upright.paper.width, 210);
  EXPECT_EQ(upright.printable.x, 10);
  EXPECT_EQ(upright.printable.width, 170);
  EXPECT_EQ(upright.printable.height, 237);
  const PageForm across = PageFormOf(setup, PrintOrientation::Landscape);
  EXPECT_EQ(across.paper.width, 297);
  EXPECT_EQ(across.printable.width, 257);
  PageSetup fixed = setup;
  fixed.orientation = PrintOrientation::Portrait;
  EXPECT_EQ(PageFormOf(fixed, PrintOrientation::Landscape).paper.width, 210);
}

TEST(PageSetup, MarginsLeaveRoomForAPage) {
  EXPECT_FALSE(CheckPageSetup({}));
  const auto field = [](const PageSetup& setup) {
    const auto warning = CheckPageSetup(setup);
    return warning ? warning->field : "";
  };
  EXPECT_EQ(field({99, std::nullopt, {}}), "cmbPaper");
  EXPECT_EQ(field({0, std::nullopt, {-1, 15, 15, 15}}), "txtLeft");
  EXPECT_EQ(field({0, std::nullopt, {15, 15, 15, 101}}), "txtBottom");
  EXPECT_EQ(field({0, std::nullopt, {90, 15, 90, 15}}), "txtLeft");
  // Upright there is room enough, but the list may turn the paper.
  EXPECT_EQ(field({0, std::nullopt, {15, 90, 15, 90}}), "txtTop");
  EXPECT_EQ(field({0, PrintOrientation::Portrait, {15, 90, 15, 90}}), "");
}

}  // namespace
}  // namespace corvanta
