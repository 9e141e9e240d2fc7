#include "reports/print/LVPrint.h"

#include "platform/Progress.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace corvanta::inline reports {
namespace {

// What a cell leaves free of its column, half of it on either side.
constexpr double kGutter = 2;
constexpr double kRowPadding = 0.7;   // above and below the lines of a row
constexpr double kTitleSpace = 0.8;   // below the title
constexpr double kHeadingSpace = 3;   // between the heading and the heads of the columns
constexpr double kHeaderPadding = 1;  // below the heads of the columns
constexpr double kHairline = 0.15;
constexpr double kRule = 0.35;

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kRowLine = 0xB8B8B8;

constexpr double kTitleScale = 1.5;
constexpr double kSmallestFont = 6;  // points
constexpr double kPixelsPerMillimetre = 96 / 25.4;

std::size_t MostLines(const std::vector<std::vector<std::string>>& cells) {
  std::size_t most = 1;
  for (const auto& lines : cells) most = std::max(most, lines.size());
  return most;
}

}  // namespace

LVPrint::LVPrint(PrintTable table, std::string date, PrintSurface& surface)
    : table_(std::move(table)), date_(std::move(date)), surface_(surface) {
  SetWidths();
  SetFontSize();
  Paginate();
}

int LVPrint::PageCount() const {
  return static_cast<int>(firstRows_.size()) + (HasPicture() ? 1 : 0);
}

void LVPrint::SetWidths() {
  double all = 0;
  for (const PrintColumn& column : table_.columns) all += std::max(column.width, 0);
  for (const PrintColumn& column : table_.columns) {
    widths_.push_back(column.width > 0 ? surface_.ScaleWidth() * column.width / all : 0);
  }
}

void LVPrint::SetFontSize() {
  double pixels = 0;
  for (const PrintColumn& column : table_.columns) pixels += std::max(column.width, 0);
  const double scale = pixels > 0 ? surface_.ScaleWidth() / (pixels / kPixelsPerMillimetre) : 1;
  font_ = table_.font;
  font_.size =
      std::max(std::min(kSmallestFont, table_.font.size), table_.font.size * std::min(1.0, scale));
  headerFont_ = font_;
  headerFont_.isBold = true;
  titleFont_ = table_.font;
  titleFont_.size *= kTitleScale;
  titleFont_.isBold = true;
}

double LVPrint::LineHeight(const PrintFont& font) {
  surface_.SetFont(font);
  return surface_.TextHeight("A");
}

double LVPrint::RowHeight(std::size_t lines) const {
  return static_cast<double>(lines) * lineHeight_ + 2 * kRowPadding;
}

double LVPrint::SummaryHeight() {
  return static_cast<double>(WrapSummaries().size()) * RowHeight(1);
}

std::vector<std::string> LVPrint::Wrap(std::string_view text, double width, LongWord words) {
  return WrapText(text, width, words,
                  [this](std::string_view piece) { return surface_.TextWidth(piece); });
}

double LVPrint::RoomIn(std::size_t column) const {
  return widths_[column] - kGutter;
}

LVPrint::WrappedRow LVPrint::WrapRow(std::size_t row) {
  const auto& cells = table_.rows[row];
  WrappedRow wrapped(widths_.size());
  surface_.SetFont(IsTotal(row) ? headerFont_ : font_);
  for (std::size_t column = 0; column < std::min(cells.size(), widths_.size()); ++column) {
    if (widths_[column] == 0 || cells[column].empty()) continue;
    // Part of a number would be read as another number.
    const bool isNumber = table_.columns[column].alignment == PrintAlignment::Right;
    auto& lines = wrapped[column];
    lines = Wrap(cells[column], RoomIn(column), isNumber ? LongWord::Marked : LongWord::Broken);
    if (lines.size() > mostLines_) {
      lines.resize(mostLines_);
      lines.back() = kDoesNotFit;
    }
  }
  return wrapped;
}

LVPrint::WrappedRow LVPrint::WrapHeaders() {
  surface_.SetFont(headerFont_);
  WrappedRow wrapped(widths_.size());
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    if (widths_[column] == 0) continue;
    wrapped[column] = Wrap(table_.columns[column].header, RoomIn(column));
  }
  return wrapped;
}

std::vector<std::string> LVPrint::WrapTitle() {
  surface_.SetFont(font_);
  const double width = surface_.ScaleWidth() - surface_.TextWidth("PAGE 99999") - kGutter;
  surface_.SetFont(titleFont_);
  return Wrap(table_.title, width);
}

std::vector<std::string> LVPrint::WrapSubject() {
  if (table_.subject.empty()) return {};
  surface_.SetFont(font_);
  return Wrap(table_.subject, surface_.ScaleWidth());
}

std::vector<PrintSummary> LVPrint::WrapSummaries() {
  surface_.SetFont(headerFont_);
  const auto wrap = [this](const std::string& text, double width) {
    return text.empty() ? std::vector<std::string>{} : Wrap(text, width);
  };
  const double width = surface_.ScaleWidth() - kGutter;
  std::vector<PrintSummary> lines;
  for (const PrintSummary& summary : table_.summaries) {
    const bool isBoth = !summary.left.empty() && !summary.right.empty();
    const double half = isBoth ? (width - kGutter) / 2 : width;
    std::vector<std::string> left = wrap(summary.left, half);
    std::vector<std::string> right = wrap(summary.right, half);
    const std::size_t count = std::max({left.size(), right.size(), std::size_t{1}});
    left.resize(count);
    right.resize(count);
    for (std::size_t i = 0; i < count; ++i) lines.push_back({left[i], right[i]});
  }
  return lines;
}

void LVPrint::Paginate() {
  // A bold letter may be the higher one.
  lineHeight_ = std::max(LineHeight(font_), LineHeight(headerFont_));
  top_ = static_cast<double>(WrapTitle().size()) * LineHeight(titleFont_) + kTitleSpace +
         static_cast<double>(1 + WrapSubject().size()) * lineHeight_ + kHeadingSpace +
         static_cast<double>(MostLines(WrapHeaders())) * LineHeight(headerFont_) + kHeaderPadding;
  const double room = surface_.ScaleHeight() - top_;
  mostLines_ = static_cast<std::size_t>(
      std::max(1.0, std::floor((room - 2 * kRowPadding - kRule) / lineHeight_)));
  firstRows_.clear();
  if (HasPicture() && table_.columns.empty()) return;
  firstRows_ = {0};
  std::vector<double> heights;
  double used = 0;
  for (std::size_t row = 0; row < table_.rows.size(); ++row) {
    heights.push_back(RowHeight(MostLines(WrapRow(row))));
    if (used > 0 && used + heights.back() + kRule > room) {
      std::size_t first = FirstOfNextPage(row);
      const auto taken = [&] {
        return std::accumulate(heights.begin() + static_cast<std::ptrdiff_t>(first),
                               heights.end() - 1, 0.0);
      };
      if (taken() + heights.back() + kRule > room) first = row;
      firstRows_.push_back(first);
      used = taken();
    }
    used += heights.back();
  }
  // What is below the rows gets a page of its own where it does not fit.
  if (used > 0 && used + SummaryHeight() + kRule > room) firstRows_.push_back(table_.rows.size());
}

std::size_t LVPrint::FirstOfNextPage(std::size_t row) const {
  std::size_t first = row;
  while (first > firstRows_.back() + 1 && IsTotal(first)) --first;
  // Nothing but totals, or one long row before them: they go on as they are.
  return IsTotal(first) ? row : first;
}

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
