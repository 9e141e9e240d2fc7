#include "reports/print/LVPrint.h"
#include "reports/print/RecordingSurface.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvanta {
namespace {

constexpr const char* kDate = "Saturday, 21 November 2026";

PrintTable TableOf(std::size_t rows) {
  PrintTable table;
  table.columns = {{"Payee", 50},
                   {"Hidden", 0},
                   {"Amount", 30, PrintAlignment::Right},
                   {"Mark", 20, PrintAlignment::Centre}};
  for (std::size_t row = 1; row <= rows; ++row) {
    table.rows.push_back({"Payee " + std::to_string(row), "secret", std::to_string(row), "x"});
  }
  return table;
}

TEST(LVPrint, ColumnsFillTheWidthInTheirProportions) {
  RecordingSurface surface(200, 200);
  LVPrint print(TableOf(1), kDate, surface);
  EXPECT_EQ(print.PrintedWidths(), (std::vector<double>{100, 0, 60, 40}));
  print.DrawPage(1);
  EXPECT_EQ(surface.Find(0, "Hidden"), nullptr);
  EXPECT_EQ(surface.Find(0, "secret"), nullptr);
  for (const char* text : {"Amount", "1"}) {
    const auto* cell = surface.Find(0, text);
    ASSERT_NE(cell, nullptr) << text;
    EXPECT_DOUBLE_EQ(cell->x + cell->width, 159) << "right";
  }
  EXPECT_DOUBLE_EQ(surface.Find(0, "Payee 1")->x, 1) << "left";
  const auto* mark = surface.Find(0, "x");
  EXPECT_DOUBLE_EQ(mark->x + mark->width / 2, 180) << "centred";
}

TEST(LVPrint, EveryPageHasTitleDateNumberAndHeads) {
  RecordingSurface surface(100, 100);
  LVPrint print(TableOf(30), kDate, surface);
  ASSERT_GT(print.PageCount(), 2);
  std::vector<int> told;
  EXPECT_TRUE(print.Print([&](int page, int) {
    told.push_back(page);
    return true;
  }));
  ASSERT_EQ(surface.Pages().size(), static_cast<std::size_t>(print.PageCount()));
  EXPECT_EQ(told.size(), surface.Pages().size());
  EXPECT_EQ(surface.Ends(), 1);
  for (std::size_t page = 0; page < surface.Pages().size(); ++page) {
    EXPECT_NE(surface.Find(page, "Corvanta Printout"), nullptr);
    EXPECT_NE(surface.Find(page, kDate), nullptr);
    EXPECT_TRUE(surface.Find(page, "Payee")->isBold);
    const auto* number = surface.Find(page, "PAGE " + std::to_string(page + 1));
    ASSERT_NE(number, nullptr) << page;
    EXPECT_DOUBLE_EQ(number->x + number->width, 100) << "against the right edge";
  }
}

TEST(LVPrint, EveryRowStandsOnOnePageAboveALineWithinThePrintableArea) {
  RecordingSurface surface(100, 103);
  PrintTable table = TableOf(40);
  for (std::size_t row = 0; row < table.rows.size(); row += 3) {
    table.rows[row][0] += " of some place with a name that needs several lines";
  }
  LVPrint print(table, kDate, surface);
  print.Print();
  std::size_t next = 1;
  for (const auto& page : surface.Pages()) {
    double bottom = 0;
    std::size_t rows = 0;
    for (const auto& text : page.texts) {
      EXPECT_LE(text.x + text.width, 100);
      EXPECT_LE(text.y + 5, 103);
      bottom = std::max(bottom, text.y + 5);
      if (text.text == std::to_string(next)) ++next, ++rows;
    }
    // A line under the heads and under each row, and the closing one.
    EXPECT_EQ(page.rules.size(), rows + 2);
    EXPECT_GE(page.rules.back().y, bottom);
    EXPECT_LE(page.rules.back().y, 103);
    EXPECT_EQ(page.rules.back().length, 100);
  }
  EXPECT_EQ(next, 41U) << "all rows in their order";
}

TEST(LVPrint, APageIsDrawnAloneWithoutTurningAny) {
  RecordingSurface all(100, 100);
  LVPrint(TableOf(30), kDate, all).Print();
  RecordingSurface one(100, 100);
  LVPrint print(TableOf(30), kDate, one);
  print.DrawPage(2);
  ASSERT_EQ(one.Pages().size(), 1U);
  EXPECT_EQ(one.Ends(), 0);
  ASSERT_EQ(one.Pages()[0].texts.size(), all.Pages()[1].texts.size());
  for (std::size_t text = 0; text < one.Pages()[0].texts.size(); ++text) {
    EXPECT_EQ(one.Pages()[0].texts[text].text, all.Pages()[1].texts[text].text);
    EXPECT_EQ(one.Pages()[0].texts[text].y, all.Pages()[1].texts[text].y);
  }
}

TEST(LVPrint, PrintingCanBeStopped) {
  RecordingSurface surface(100, 100);
  EXPECT_FALSE(LVPrint(TableOf(30), kDate, surface).Print([](int page, int) { return page < 2; }));
  EXPECT_EQ(surface.Pages().size(), 1U);
  EXPECT_EQ(surface.Ends(), 0);
}

TEST(LVPrint, OddListsArePrintedAsFarAsTheyGo) {
  RecordingSurface surface(60, 100);
  PrintTable table = TableOf(0);
  LVPrint(table, kDate, surface).Print();
  EXPECT_NE(surface.Find(0, "PAGE 1"), nullptr) << "an empty list has a page, too";
  EXPECT_NE(surface.Find(0, "Mark"), nullptr);

  table.columns = {{"A", 10, PrintAlignment::Right}, {"B", 20}, {"C", 30}};
  std::string endless;
  for (int word = 0; word < 200; ++word) endless += "word" + std::to_string(word) + " ";
  table.rows = {{}, {"123456789", "b"}, {"1", "2", "3", "too many"}, {"", endless, "🦊 家計"}};
  RecordingSurface odd(60, 100);
  LVPrint print(table, kDate, odd);
  print.Print();
  EXPECT_EQ(odd.Find(0, "too many"), nullptr);
  EXPECT_NE(odd.Find(0, "* * *"), nullptr) << "no part of a number";
  EXPECT_NE(odd.Find(1, "* * *"), nullptr) << "the rest of a row that is higher than a page";
  EXPECT_NE(odd.Find(1, "🦊 家計"), nullptr);
  EXPECT_EQ(print.PageCount(), 2);

  RecordingSurface narrow(60, 100);
  LVPrint(PrintTable{}, kDate, narrow).Print();
  EXPECT_NE(narrow.Find(0, "PAGE 1"), nullptr) << "no columns at all";
}

TEST(LVPrint, TotalsStandOutAndNeverAlone) {
  for (std::size_t rows = 1; rows < 40; ++rows) {
    PrintTable table = TableOf(rows);
    table.rows.push_back({"Total (EUR)", "", "820"});
    table.rows.push_back({"Total (GBP)", "", "20"});
    table.totals = {rows, rows + 1};
    RecordingSurface surface(100, 100);
    LVPrint(table, kDate, surface).Print();
    const std::size_t last = surface.Pages().size() - 1;
    const auto* total = surface.Find(last, "Total (EUR)");
    ASSERT_NE(total, nullptr) << rows;
    EXPECT_TRUE(total->isBold);
    EXPECT_FALSE(surface.Find(last, "Total (GBP)")->y < total->y);
    const auto* before = surface.Find(last, "Payee " + std::to_string(rows));
    ASSERT_NE(before, nullptr) << rows;
    EXPECT_FALSE(before->isBold);
    std::size_t found = 0;
    for (std::size_t page = 0; page <= last; ++page) {
      for (const auto& text : surface.Pages()[page].texts) {
        EXPECT_LE(text.y + 5, 100);
        found += text.text.starts_with("Payee ") ? 1 : 0;
      }
    }
    EXPECT_EQ(found, rows) << "no row is lost or printed twice";
  }
  // A page of nothing but totals goes on as it is.
  PrintTable table = TableOf(60);
  for (std::size_t row = 0; row < 60; ++row) table.totals.insert(row);
  RecordingSurface surface(100, 100);
  LVPrint(table, kDate, surface).Print();
  EXPECT_NE(surface.Find(surface.Pages().size() - 1, "Payee 60"), nullptr);
}

TEST(LVPrint, WhatTheRowsComeToStandsBelowTheLastOne) {
  PrintTable table = TableOf(30);
  table.summaries = {{"30 payees", "1,234.00"}, {"", "-5.00"}};
  RecordingSurface surface(100, 100);
  LVPrint(table, kDate, surface).Print();
  const std::size_t last = surface.Pages().size() - 1;
  EXPECT_EQ(surface.Find(0, "30 payees"), nullptr);
  const auto* sum = surface.Find(last, "1,234.00");
  ASSERT_NE(sum, nullptr);
  EXPECT_TRUE(sum->isBold);
  EXPECT_DOUBLE_EQ(sum->x + sum->width, 99);
  EXPECT_EQ(surface.Find(last, "30 payees")->y, sum->y);
  EXPECT_GT(surface.Find(last, "-5.00")->y, sum->y);
}

TEST(LVPrint, LongLinesAroundTheRowsAreWrappedAndNeverCut) {
  PrintTable table = TableOf(5);
  table.subject =
      "1 January 2026 to 31 December 2026, and the rates that all of it was converted at";
  std::string figures = "Total (EUR): 1,234,567.00";
  for (const char* code : {"GBP", "JPY", "USD", "CHF", "SEK"}) {
    figures += std::string("  Total (") + code + "): 7,654,321.00";
  }
  table.summaries = {{"5 payees with a very long word about what they are in this list", figures}};
  for (const double height : {80.0, 100.0, 300.0}) {
    RecordingSurface surface(100, height);
    LVPrint(table, kDate, surface).Print();
    std::string all;
    for (const auto& page : surface.Pages()) {
      for (const auto& text : page.texts) {
        EXPECT_GE(text.x, 0) << text.text;
        EXPECT_LE(text.x + text.width, 100) << text.text;
        EXPECT_LE(text.y + 5, height) << text.text;
        all += text.text + " ";
      }
    }
    EXPECT_NE(all.find("converted at"), std::string::npos);
    EXPECT_NE(all.find("(SEK):"), std::string::npos);
  }
}

TEST(LVPrint, APictureHasTheFirstPage) {
  PrintTable table = TableOf(3);
  table.title = "Spending by Payee";
  PrintArea given;
  table.picture = [&](PrintSurface& surface, const PrintArea& area) {
    given = area;
    surface.Print(area.x, area.y, "drawn");
  };
  RecordingSurface surface(100, 100);
  LVPrint(table, kDate, surface).Print();
  ASSERT_EQ(surface.Pages().size(), 2U);
  EXPECT_NE(surface.Find(0, "drawn"), nullptr);
  EXPECT_NE(surface.Find(0, "Spending by Payee"), nullptr);
  EXPECT_NE(surface.Find(0, "PAGE 1"), nullptr);
  EXPECT_EQ(surface.Find(0, "Payee"), nullptr) << "no heads of columns over it";
  EXPECT_NE(surface.Find(1, "PAGE 2"), nullptr);
  EXPECT_NE(surface.Find(1, "Payee 3"), nullptr);
  EXPECT_GT(given.y, 10);
  EXPECT_DOUBLE_EQ(given.y + given.height, 100);
  table.columns.clear();
  table.rows.clear();
  RecordingSurface alone(100, 100);
  LVPrint(table, kDate, alone).Print();
  EXPECT_EQ(alone.Pages().size(), 1U);
}

TEST(LVPrint, LettersShrinkWithTheListButStayReadable) {
  const auto size = [](int pixels) {
    RecordingSurface surface(180, 260);
    PrintTable table;
    table.font.size = 10;
    table.columns = {{"A", pixels}};
    LVPrint(table, kDate, surface).DrawPage(1);
    return surface.FontSize();
  };
  EXPECT_DOUBLE_EQ(size(300), 10) << "never larger";
  EXPECT_NEAR(size(850), 8, 0.01);
  EXPECT_DOUBLE_EQ(size(5000), 6);
}

// As a list is printed that filled a large screen: most of its width is its texts'.
TEST(LVPrint, FiguresOfAVeryWideListAreNotLost) {
  PrintTable table;
  table.columns = {{"Date", 90},
                   {"Payee", 1800},
                   {"Mark", 30, PrintAlignment::Centre},
                   {"Balance", 90, PrintAlignment::Right},
                   {"Hidden", 0, PrintAlignment::Right}};
  table.rows = {{"21/11/2026", "A payee of some words", "x", "-12,345,678.00", "1"},
                {"Total", "", "", "123,456,789.00"}};
  table.totals = {1};
  RecordingSurface surface(180, 100);
  LVPrint print(table, kDate, surface);
  print.Print();
  for (const char* text : {"21/11/2026", "-12,345,678.00", "123,456,789.00", "x"}) {
    EXPECT_NE(surface.Find(0, text), nullptr) << text;
  }
  EXPECT_EQ(surface.Find(0, "* * *"), nullptr);
  double all = 0;
  for (const double width : print.PrintedWidths()) all += width;
  EXPECT_NEAR(all, 180, 1e-9);
  EXPECT_EQ(print.PrintedWidths()[4], 0);
}

TEST(LVPrint, TenTimesTheRowsAreMeasuredTenTimes) {
  const auto measured = [](std::size_t rows) {
    RecordingSurface surface(180, 260);
    LVPrint print(TableOf(rows), kDate, surface);
    print.Print();
    EXPECT_EQ(surface.Pages().size(), static_cast<std::size_t>(print.PageCount()));
    return surface.Measured();
  };
  EXPECT_LT(measured(10000), 11 * measured(1000));
}

}  // namespace
}  // namespace corvanta
