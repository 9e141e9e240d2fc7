#pragma once

#include "reports/print/PrintSurface.h"
#include "reports/print/TextWrap.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Progress;
}

namespace corvanta::inline reports {

// Draws a list page by page. Every page carries the title, the date, its number and the heads of
// the columns; a row is never divided between two pages, and a total never stands on a page without
// a row that it is the total of. A picture has the first page.
//
// The columns share the width of the page as they share that of the screen. Where the page is
// narrower than the list was, the letters shrink with it, down to a size that can still be read;
// from there on columns with room to spare give way to those whose figures have too little.
class LVPrint {
 public:
  // Called before each page; false ends the printing.
  using PageNotice = std::function<bool(int page, int pages)>;

  // `date` is today's long date. The surface outlives this object and keeps its size.
  LVPrint(PrintTable table, std::string date, PrintSurface& surface);

  [[nodiscard]] int PageCount() const;
  // Of every column in millimetres; 0 for a hidden one.
  [[nodiscard]] const std::vector<double>& PrintedWidths() const { return widths_; }

  // Draws that page, the first one being 1, and nothing else: it neither begins nor ends one.
  void DrawPage(int page);
  // Draws all pages, each on a page of its own, and ends the document. False when it was ended
  // before its time; then the document is not ended.
  bool Print(const PageNotice& notice = {});

 private:
  // One line of each cell below the other.
  using WrappedRow = std::vector<std::vector<std::string>>;

  void SetWidths();
  void SetFontSize();
  void MakeRoomForFigures();
  // What a column needs so that none of its figures and usual words is divided.
  [[nodiscard]] double NeedOf(std::size_t column);
  void Paginate();
  // In the font in force.
  [[nodiscard]] std::vector<std::string> Wrap(std::string_view text, double width,
                                              LongWord words = LongWord::Broken);
  [[nodiscard]] double RoomIn(std::size_t column) const;
  [[nodiscard]] bool HasPicture() const { return table_.picture != nullptr; }
  [[nodiscard]] bool IsTotal(std::size_t row) const { return table_.totals.contains(row); }
  [[nodiscard]] WrappedRow WrapRow(std::size_t row);
  [[nodiscard]] WrappedRow WrapHeaders();
  [[nodiscard]] std::vector<std::string> WrapTitle();
  [[nodiscard]] std::vector<std::string> WrapSubject();
  // Each line of the summaries that a page has, none wider than the page.
  [[nodiscard]] std::vector<PrintSummary> WrapSummaries();
  [[nodiscard]] double RowHeight(std::size_t lines) const;
  [[nodiscard]] double SummaryHeight();
  // Where the page begins that the row does not fit on any more.
  [[nodiscard]] std::size_t FirstOfNextPage(std::size_t row) const;
  [[nodiscard]] double LineHeight(const PrintFont& font);

  // Each draws at currentY_ and moves it on.
  void DrawHeading(int page);
  void DrawHeaders();
  void DrawRows(std::size_t begin, std::size_t end);
  void DrawRow(const WrappedRow& row, bool isTotal);
  void DrawSummaries();
  void DrawPicture();
  void DrawCell(const std::vector<std::string>& lines, std::size_t column, double left);
  void DrawRule(double thickness, std::uint32_t colour);

  PrintTable table_;
  std::string date_;
  PrintSurface& surface_;
  PrintFont titleFont_;
  PrintFont headerFont_;
  PrintFont font_;
  std::vector<double> widths_;
  double lineHeight_ = 0;
  std::size_t mostLines_ = 1;  // of a row, so that it fits on a page
  double top_ = 0;             // where the rows of a page begin
  std::vector<std::size_t> firstRows_;
  double currentY_ = 0;
};

// Shows on which page the printing is, and ends it when the person stops it.
[[nodiscard]] LVPrint::PageNotice PagesShownBy(Progress& progress);

}  // namespace corvanta::inline reports
