#include "controls/HairSplitter.h"

#include "controls/Style.h"

#include <QPainter>

namespace corvanta::inline controls {
namespace {

class HairHandle : public QSplitterHandle {
 public:
  using QSplitterHandle::QSplitterHandle;

 protected:
  // The handle is wider than what it shows, so that it can be taken hold of.
  void paintEvent(QPaintEvent*) override {
    QPainter(this).fillRect(contentsRect(), Hairline(palette()));
  }
};

}  // namespace

HairSplitter::HairSplitter(Qt::Orientation orientation, QWidget* parent)
    : QSplitter(orientation, parent) {
  setHandleWidth(1);
}

QSplitterHandle* HairSplitter::createHandle() {
  return new HairHandle(orientation(), this);
}

}  // namespace corvanta::inline controls
