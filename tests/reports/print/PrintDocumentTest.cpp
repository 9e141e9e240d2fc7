#include "reports/print/PrintDocument.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

#include <array>

namespace corvanta {
namespace {

PrintTable LongTable(int rows) {
  PrintTable table;
  table.title = "Sample Bank Account";
  table.columns = {{"Date", 90}, {"Payee", 220}, {"Amount", 110, PrintAlignment::Right}};
  for (int row = 0; row < rows; ++row) {
    table.rows.push_back({"21/11/2026", "Baker & Söhne 🦊 " + std::to_string(row), "-12.50"});
  }
  return table;
}

// How many times a piece of text occurs.
std::size_t CountOf(std::string_view piece, std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != text.npos; at = text.find(piece, at + 1)) ++count;
  return count;
}

TEST(PrintDocument, AListBecomesAPdfOfAllItsPages) {
  TestPlatform machine;
  const auto pages = PdfOf(LongTable(120), machine.Get());
  ASSERT_TRUE(pages);
  EXPECT_TRUE(pages->starts_with("%PDF-"));
  EXPECT_NE(pages->find("%%EOF"), std::string::npos);
  EXPECT_GT(pages->size(), PdfOf(LongTable(1), machine.Get())->size());
  EXPECT_EQ(machine.progress.Status(), "");
  machine.progress.StopAfter(1);
  EXPECT_FALSE(PdfOf(LongTable(500), machine.Get()));
}

TEST(PrintDocument, TheFontSaysHowWideATextIs) {
  CairoSurface surface = CairoSurface::Pdf(PageFormOf({}, PrintOrientation::Portrait), "");
  EXPECT_EQ(surface.ScaleWidth(), 180);
  PrintFont font;
  font.size = 10;
  surface.SetFont(font);
  const double plain = surface.TextWidth("Baker & Söhne");
  EXPECT_GT(plain, 15);
  EXPECT_LT(plain, 40);
  EXPECT_EQ(surface.TextWidth("Baker & Söhne"), plain);
  const double height = surface.TextHeight("A");
  EXPECT_NEAR(height, 4.1, 1);
  font.size = 20;
  surface.SetFont(font);
  EXPECT_NEAR(surface.TextWidth("Baker & Söhne"), 2 * plain, 0.5);
  EXPECT_NEAR(surface.TextHeight("A"), 2 * height, 0.1);
}

TEST(PrintDocument, APictureIsAFileOfItsOwn) {
  const PrintPicture picture = [](PrintSurface& surface, const PrintArea& area) {
    surface.SetForeColor(0xC00020);
    const std::array<PrintPoint, 3> corners{
        {{area.x, area.y}, {area.x + area.width, area.y}, {area.x, area.y + area.height}}};
    surface.Shape(corners);
    surface.Path(corners, 0.5, PrintStroke::Dashed);
    surface.Print(area.x, area.y, "Söhne");
  };
  const std::string drawn = PictureOf(picture, PictureForm::Svg, {100, 50, 144});
  EXPECT_TRUE(drawn.starts_with("<?xml"));
  EXPECT_NE(drawn.find("</svg>"), std::string::npos);
  EXPECT_GE(CountOf("<path", drawn), 3U);
  const std::string dots = PictureOf(picture, PictureForm::Png, {100, 50, 254});
  ASSERT_TRUE(dots.starts_with("\x89PNG"));
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned char>(dots.at(at)) * 256 +
           static_cast<unsigned char>(dots.at(at + 1));
  };
  EXPECT_EQ(number(18), 1000) << "ten dots to the millimetre";
  EXPECT_EQ(number(22), 500);
}

}  // namespace
}  // namespace corvanta
