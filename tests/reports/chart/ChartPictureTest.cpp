#include "platform/Files.h"
#include "reports/chart/ChartFile.h"
#include "reports/chart/ChartPicture.h"
#include "reports/chart/ReportRows.h"
#include "reports/print/LVPrint.h"
#include "reports/print/RecordingSurface.h"
#include "reports/print/ReportPrint.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvanta {
namespace {

constexpr PrintArea kArea{10, 20, 200, 120};

RecordingSurface::Page Drawn(const ReportTable& report) {
  const FixedLocale locale;
  RecordingSurface surface(300, 300);
  ChartPicture(BuildChart(report), locale, true)(surface, kArea);
  return surface.Pages().front();
}

void ExpectInside(const PrintPoint& point) {
  EXPECT_GE(point.x, kArea.x);
  EXPECT_LE(point.x, kArea.x + kArea.width);
  EXPECT_GE(point.y, kArea.y);
  EXPECT_LE(point.y, kArea.y + kArea.height);
}

TEST(ChartPicture, BarsAreAsLongAsTheirValues) {
  const auto page = Drawn(PayeeReport(4));
  ASSERT_EQ(page.shapes.size(), 5U) << "the legend's, and one for each payee";
  const auto length = [&](std::size_t bar) {
    return page.shapes.at(bar)[1].x - page.shapes.at(bar)[0].x;
  };
  EXPECT_NEAR(length(1), 4 * length(4), 1e-6);
  EXPECT_NEAR(length(2), 3 * length(4), 1e-6);
  EXPECT_EQ(page.shapes[1][0].x, page.shapes[4][0].x);
  EXPECT_LT(page.shapes[1][0].y, page.shapes[4][0].y) << "the largest at the top";
}

TEST(ChartPicture, AllOfItStaysInItsArea) {
  ReportTable report = PayeeReport(30);
  report.rows[29].cells[0] = "A payee with a name that is far too long for the room beside its bar";
  for (const ReportTable& shown : {report, CashFlowReport()}) {
    const auto page = Drawn(shown);
    EXPECT_FALSE(page.shapes.empty());
    for (const auto& shape : page.shapes) {
      for (const PrintPoint& corner : shape) ExpectInside(corner);
    }
    for (const auto& text : page.texts) {
      ExpectInside({text.x, text.y});
      EXPECT_LE(text.x + text.width, kArea.x + kArea.width + 0.01) << text.text;
    }
  }
  const auto page = Drawn(CashFlowReport());
  const auto texts = [&](const char* wanted) {
    return std::ranges::count(page.texts, wanted, &RecordingSurface::Text::text);
  };
  EXPECT_EQ(texts("Monthly Cash Flow"), 1);
  EXPECT_EQ(texts("Expense (EUR)"), 1);
  EXPECT_EQ(texts("2026-11"), 1);
  EXPECT_EQ(texts("-50"), 1) << "below zero, too";
}

TEST(ChartPicture, AChartIsSavedAndPrinted) {
  TestPlatform machine;
  const ChartData chart = BuildChart(CashFlowReport());
  const std::string path = machine.folder.Path("flow.SVG");
  machine.prompts.ExpectSaveFile("Save Chart", path);
  EXPECT_TRUE(AskAndSaveChart(chart, machine.Get()));
  EXPECT_NE(ReadFile(path).find("<svg"), std::string::npos);
  machine.prompts.ExpectSaveFile("Save Chart", machine.folder.Path("flow.gif"));
  machine.prompts.ExpectTell("File Export Warning",
                             "Please enter, file name including correct file extension");
  EXPECT_FALSE(AskAndSaveChart(chart, machine.Get()));
  EXPECT_TRUE(ChartBytes(chart, PictureForm::Png, machine.locale).starts_with("\x89PNG"));

  RecordingSurface surface(260, 180);
  LVPrint(PrintTableOf(chart, machine.locale), "today", surface).Print();
  ASSERT_EQ(surface.Pages().size(), 1U);
  EXPECT_NE(surface.Find(0, "PAGE 1"), nullptr);
  EXPECT_NE(surface.Find(0, "2026-10"), nullptr);
}

TEST(ReportPrint, AReportIsPrintedAsTheLocaleWritesIt) {
  const FixedLocale locale;
  ReportTable report = PayeeReport(1);
  report.rows[0].cells[3] = -1234.5;
  report.columns.push_back({"Quantity", ReportColumn::Number, ReportColumn::Content::Quantity});
  report.rows[0].cells.emplace_back(1.625);
  report.rows[0].currency = "JPY";
  const PrintTable table = PrintTableOf(report, locale);
  EXPECT_EQ(table.title, "Spending by Payee");
  EXPECT_EQ(table.columns[3].alignment, PrintAlignment::Right);
  EXPECT_EQ(table.rows[0], (std::vector<std::string>{"Payee 1", "1", "0.00", "-1,234.50", "-1.00",
                                                     "EUR", "1.625"}));
  EXPECT_EQ(table.rows[1][2], "5,000.00");
  EXPECT_EQ(table.totals, std::set<std::size_t>{3});
  for (const PrintColumn& column : table.columns) EXPECT_GT(column.width, 0);
}

TEST(ReportPrint, PaperSaysWhatTheReportIsOf) {
  const FixedLocale locale;
  ReportTable report = PayeeReport(1);
  EXPECT_EQ(PrintTableOf(report, locale).subject, "All days");
  const Period month{*Date::FromIso("2026-11-01"), *Date::FromIso("2026-11-30")};
  report.periods = {month};
  const std::string days = DaysText(report.periods, locale);
  EXPECT_EQ(days, locale.FormatLongDate(month.from) + " to " + locale.FormatLongDate(month.to));
  report.rates = {{"EUR", 1, false}, {"USD", 0.85, true}, {"JPY", 1, false}};
  EXPECT_EQ(PrintTableOf(report, locale).subject, days) << "nothing is converted";
  report.convertedInto = "EUR";
  report.savedName = "Mine";
  EXPECT_EQ(PrintTableOf(report, locale).subject, "Mine  ·  " + days + "  ·  1 USD = 0.8500 EUR");
}

// Letters as wide as those of a usual typeface, whose bold digits are the widest.
class InkSurface : public RecordingSurface {
 public:
  using RecordingSurface::RecordingSurface;
  void SetFont(const PrintFont& font) override {
    RecordingSurface::SetFont(font);
    em_ = font.size * (font.isBold ? 0.7 : 0.64) * 25.4 / 72;
  }
  [[nodiscard]] double TextWidth(std::string_view text) override {
    return RecordingSurface::TextWidth(text) * em_;
  }

 private:
  double em_ = 0;
};

TEST(ReportPrint, NoFigureIsLostOnAWidePage) {
  const FixedLocale locale;
  ReportTable report = ReportOf(
      3, "Account Transactions",
      {TextColumn("Account"), TextColumn("Payee"), TextColumn("Category"), TextColumn("Ref"),
       TextColumn("Description"), TextColumn("Status"), MoneyColumn("Income"),
       MoneyColumn("Expense"), MoneyColumn("Balance"), TextColumn("Currency")});
  const std::string name = "A name of many words that goes on and on beyond a line";
  ReportRow row;
  row.currency = "EUR";
  row.cells = {name, name,       name,        "676861", name + name,
               "C",  1234567.89, -7654321.01, 88009.74, "EUR"};
  report.rows = {row, row};
  report.rows.back().kind = ReportRowKind::Total;
  const PrintTable table = PrintTableOf(report, locale);
  EXPECT_EQ(table.orientation, PrintOrientation::Landscape);
  InkSurface surface(267, 180);
  LVPrint(table, "today", surface).Print();
  for (const auto& page : surface.Pages()) {
    for (const auto& text : page.texts) EXPECT_NE(text.text, "* * *");
  }
  EXPECT_NE(surface.Find(0, "676861"), nullptr) << "a reference is not divided";
  EXPECT_NE(surface.Find(0, "-7,654,321.01"), nullptr);
}

}  // namespace
}  // namespace corvanta
