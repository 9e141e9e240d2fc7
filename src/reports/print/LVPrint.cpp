#include "reports/print/LVPrint.h"

#include "platform/Progress.h"
#include "reports/print/PrintMeasures.h"

namespace corvanta::inline reports {
namespace {

constexpr double kHairline = 0.15;
constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kRowLine = 0xB8B8B8;

}  // namespace

void LVPrint::DrawPage(int page) {
  currentY_ = 0;
  DrawHeading(page);
  if (HasPicture() && page == 1) return DrawPicture();
  const auto index = static_cast<std::size_t>(page - (HasPicture() ? 2 : 1));
  const bool isLast = index + 1 == firstRows_.size();
  DrawHeaders();
  DrawRows(firstRows_.at(index), isLast ? table_.rows.size() : firstRows_[index + 1]);
  DrawRule(kRule, kBlack);
  if (isLast) DrawSummaries();
}

void LVPrint::DrawRows(std::size_t begin, std::size_t end) {
  for (std::size_t row = begin; row < end; ++row) {
    // The line above the totals is that of a sum.
    if (IsTotal(row) && row > begin && !IsTotal(row - 1)) DrawRule(kRule, kBlack);
    DrawRow(WrapRow(row), IsTotal(row));
  }
}

void LVPrint::DrawPicture() {
  table_.picture(surface_,
                 {0, currentY_, surface_.ScaleWidth(), surface_.ScaleHeight() - currentY_});
}

void LVPrint::DrawSummaries() {
  const std::vector<PrintSummary> lines = WrapSummaries();
  surface_.SetFont(headerFont_);
  for (const PrintSummary& summary : lines) {
    const double y = currentY_ + kRowPadding;
    surface_.Print(kGutter / 2, y, summary.left);
    surface_.Print(surface_.ScaleWidth() - kGutter / 2 - surface_.TextWidth(summary.right), y,
                   summary.right);
    currentY_ += RowHeight(1);
  }
}

bool LVPrint::Print(const PageNotice& notice) {
  for (int page = 1; page <= PageCount(); ++page) {
    if (notice && !notice(page, PageCount())) return false;
    if (page > 1) surface_.NewPage();
    DrawPage(page);
  }
  surface_.EndDoc();
  return true;
}

void LVPrint::DrawHeading(int page) {
  const std::vector<std::string> title = WrapTitle();
  const std::vector<std::string> subject = WrapSubject();
  surface_.SetForeColor(kBlack);
  const double titleHeight = LineHeight(titleFont_);
  for (const std::string& line : title) {
    surface_.Print(0, currentY_, line);
    currentY_ += titleHeight;
  }
  currentY_ += kTitleSpace;
  surface_.SetFont(font_);
  for (const std::string& line : subject) {
    surface_.Print(0, currentY_, line);
    currentY_ += lineHeight_;
  }
  const std::string number = "PAGE " + std::to_string(page);
  surface_.Print(0, currentY_, date_);
  surface_.Print(surface_.ScaleWidth() - surface_.TextWidth(number), currentY_, number);
  currentY_ += lineHeight_ + kHeadingSpace;
}

void LVPrint::DrawHeaders() {
  const WrappedRow headers = WrapHeaders();
  const double lineHeight = LineHeight(headerFont_);
  const double bottom = currentY_ + static_cast<double>(MostLines(headers)) * lineHeight;
  double left = 0;
  for (std::size_t column = 0; column < headers.size(); ++column) {
    // Heads of several lines and of one stand on the same line above their columns.
    currentY_ = bottom - static_cast<double>(headers[column].size()) * lineHeight;
    DrawCell(headers[column], column, left);
    left += widths_[column];
  }
  currentY_ = bottom + kHeaderPadding;
  DrawRule(kRule, kBlack);
}

void LVPrint::DrawRow(const WrappedRow& row, bool isTotal) {
  surface_.SetFont(isTotal ? headerFont_ : font_);
  const double top = currentY_;
  double left = 0;
  currentY_ = top + kRowPadding;
  surface_.SetForeColor(kBlack);
  for (std::size_t column = 0; column < row.size(); ++column) {
    DrawCell(row[column], column, left);
    left += widths_[column];
  }
  currentY_ = top + RowHeight(MostLines(row));
  DrawRule(kHairline, kRowLine);
}

void LVPrint::DrawCell(const std::vector<std::string>& lines, std::size_t column, double left) {
  const double lineHeight = surface_.TextHeight("A");
  double y = currentY_;
  for (const std::string& line : lines) {
    const double free = RoomIn(column) - surface_.TextWidth(line);
    double x = left + kGutter / 2;
    if (table_.columns[column].alignment == PrintAlignment::Right) x += free;
    if (table_.columns[column].alignment == PrintAlignment::Centre) x += free / 2;
    surface_.Print(x, y, line);
    y += lineHeight;
  }
}

void LVPrint::DrawRule(double thickness, std::uint32_t colour) {
  surface_.SetForeColor(colour);
  surface_.Line(0, currentY_, surface_.ScaleWidth(), currentY_, thickness);
  surface_.SetForeColor(kBlack);
}

LVPrint::PageNotice PagesShownBy(Progress& progress) {
  return [&progress](int page, int pages) {
    progress.SetStep(static_cast<std::size_t>(page - 1), static_cast<std::size_t>(pages));
    return progress.Yield();
  };
}

}  // namespace corvanta::inline reports
