#include "reports/print/LVPrint.h"
#include "reports/print/PrintMeasures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace corvanta::inline reports {
namespace {

constexpr double kTitleScale = 1.5;
constexpr double kSmallestFont = 6;  // points
constexpr double kPixelsPerMillimetre = 96 / 25.4;
// Of a column that gives way to others, in millimetres.
constexpr double kLeastColumn = 14;
constexpr double kRounding = 0.05;
constexpr std::size_t kLongestWord = 20;  // longer ones are divided

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
  if (table_.font.size * scale < kSmallestFont) MakeRoomForFigures();
}

// Letters that cannot become as small as the list does need more of the page.
void LVPrint::MakeRoomForFigures() {
  std::vector<double> lacks(widths_.size());
  std::vector<double> spares(widths_.size());
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    if (widths_[column] == 0) continue;
    const double need = NeedOf(column);
    lacks[column] = std::max(0.0, need - widths_[column]);
    spares[column] = std::max(0.0, widths_[column] - std::max(need, kLeastColumn));
  }
  const double lack = std::accumulate(lacks.begin(), lacks.end(), 0.0);
  const double spare = std::accumulate(spares.begin(), spares.end(), 0.0);
  if (lack == 0 || spare == 0) return;
  const double moved = std::min(lack, spare);
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    widths_[column] += lacks[column] * moved / lack - spares[column] * moved / spare;
  }
}

double LVPrint::NeedOf(std::size_t column) {
  const bool isNumber = table_.columns[column].alignment == PrintAlignment::Right;
  surface_.SetFont(headerFont_);
  double need = surface_.TextWidth(LongestWord(table_.columns[column].header));
  std::array<std::size_t, 2> longest{};
  for (std::size_t row = 0; row < table_.rows.size(); ++row) {
    if (column >= table_.rows[row].size()) continue;
    const std::string& text = table_.rows[row][column];
    const std::string_view whole = isNumber ? text : LongestWord(text);
    // Measuring is what costs: all digits are of one width, and longer words are mostly wider.
    std::size_t& most = longest.at(IsTotal(row) ? 1 : 0);
    if (whole.size() <= most || (!isNumber && whole.size() > kLongestWord)) continue;
    most = whole.size();
    surface_.SetFont(IsTotal(row) ? headerFont_ : font_);
    need = std::max(need, surface_.TextWidth(whole));
  }
  return need + kGutter + kRounding;
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

}  // namespace corvanta::inline reports
