#include "notes/ucPicture.h"

#include "controls/Style.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace corvanta::inline notes {
namespace {
// A photograph of today is larger than any screen; a file that pretends to be huge is not read.
constexpr int kMaxPixels = 2400;
}  // namespace

ucPicture::ucPicture(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picAttachment"));
  setMinimumSize(18 * kRhythm, 18 * kRhythm);
}

bool ucPicture::Show(const QByteArray& bytes, const QString& name) {
  QByteArray copy = bytes;
  QBuffer source(&copy);
  QImageReader reader(&source);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (const QSize size = reader.size(); size.width() > kMaxPixels || size.height() > kMaxPixels) {
    reader.setScaledSize(size.scaled(kMaxPixels, kMaxPixels, Qt::KeepAspectRatio));
  }
  picture_ = QPixmap::fromImage(reader.read());
  setAccessibleName(picture_.isNull() ? QString() : tr("Picture of %1").arg(name));
  setToolTip(accessibleName());
  update();
  return !picture_.isNull();
}

void ucPicture::Clear() {
  picture_ = {};
  setAccessibleName({});
  update();
}

QSize ucPicture::sizeHint() const {
  return {36 * kRhythm, 36 * kRhythm};
}

void ucPicture::paintEvent(QPaintEvent*) {
  if (picture_.isNull()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QSize room = size() - QSize(2, 2);
  QSize shown = picture_.size() / devicePixelRatioF();
  if (shown.width() > room.width() || shown.height() > room.height()) {
    shown.scale(room, Qt::KeepAspectRatio);
  }
  QRect place(QPoint(0, 0), shown);
  place.moveCenter(rect().center());
  painter.drawPixmap(place, picture_);
  painter.setPen(Hairline(palette()));
  painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

}  // namespace corvanta::inline notes
