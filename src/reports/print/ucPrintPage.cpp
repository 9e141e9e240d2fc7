#include "reports/print/ucPrintPage.h"

#include "controls/Style.h"

#include <QPainter>

#include <algorithm>

namespace corvanta::inline reports {
namespace {
constexpr double kMillimetresPerInch = 25.4;
constexpr int kSurround = 2 * kRhythm;
}  // namespace

ucPrintPage::ucPrintPage(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picPreview"));
}

ucPrintPage::~ucPrintPage() = default;

void ucPrintPage::SetTable(const PrintTable& table, const std::string& date,
                           const QPageLayout& layout) {
  layout_ = layout;
  print_.reset();
  surface_ = std::make_unique<QtPainterSurface>(layout.paintRect(QPageLayout::Millimeter).size());
  print_ = std::make_unique<LVPrint>(table, date, *surface_);
  SetPage(page_);
  SetZoom(zoom_);
}

void ucPrintPage::SetPage(int page) {
  page_ = std::clamp(page, 1, std::max(1, PageCount()));
  setAccessibleName(tr("Page %1 of %2").arg(page_).arg(PageCount()));
  update();
}

void ucPrintPage::SetZoom(double zoom) {
  zoom_ = zoom;
  updateGeometry();
  resize(sizeHint());
  update();
}

double ucPrintPage::PixelsPerMillimetre() const {
  return zoom_ * logicalDpiX() / kMillimetresPerInch;
}

QSizeF ucPrintPage::FullSize() const {
  return layout_.fullRect(QPageLayout::Millimeter).size() * logicalDpiX() / kMillimetresPerInch;
}

QSize ucPrintPage::sizeHint() const {
  return (FullSize() * zoom_).toSize() + QSize(2 * kSurround, 2 * kSurround);
}

void ucPrintPage::paintEvent(QPaintEvent*) {
  if (!print_) return;
  QPainter painter(this);
  const QRect paper = rect().adjusted(kSurround, kSurround, -kSurround, -kSurround);
  painter.fillRect(paper.translated(2, 2), QColor(0, 0, 0, 60));
  // Paper is white in the dark, too.
  painter.fillRect(paper, Qt::white);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF printable = layout_.paintRect(QPageLayout::Millimeter);
  painter.translate(QPointF(paper.topLeft()) + printable.topLeft() * PixelsPerMillimetre());
  surface_->DrawWith(&painter, PixelsPerMillimetre());
  print_->DrawPage(page_);
  surface_->DrawWith(nullptr, 1);
}

}  // namespace corvanta::inline reports
