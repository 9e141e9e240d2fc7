#pragma once

#include "reports/print/LVPrint.h"
#include "reports/print/QtPainterSurface.h"

#include <QPageLayout>
#include <QWidget>

#include <memory>

namespace corvanta::inline reports {

// A sheet of paper with one page of a printed list on it.
class ucPrintPage : public QWidget {
  Q_OBJECT

 public:
  explicit ucPrintPage(QWidget* parent);
  ~ucPrintPage() override;

  // Lays the list out anew and shows its first page, or the page that was shown while there is one.
  void SetTable(const PrintTable& table, const std::string& date, const QPageLayout& layout);
  [[nodiscard]] int PageCount() const { return print_ ? print_->PageCount() : 0; }
  [[nodiscard]] int Page() const { return page_; }
  // A page outside the document shows its first or last one.
  void SetPage(int page);

  // 1 is the size that the page has on paper.
  [[nodiscard]] double Zoom() const { return zoom_; }
  void SetZoom(double zoom);
  // The size of the sheet at a zoom of 1, with what surrounds it.
  [[nodiscard]] QSizeF FullSize() const;
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] double PixelsPerMillimetre() const;

  QPageLayout layout_;
  std::unique_ptr<QtPainterSurface> surface_;
  std::unique_ptr<LVPrint> print_;
  int page_ = 1;
  double zoom_ = 1;
};

}  // namespace corvanta::inline reports
