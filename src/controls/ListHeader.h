#pragma once

#include <QHeaderView>

namespace corvanta::inline controls {

// The head of a list: quiet column names that stand above the text of their cells.
class ListHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit ListHeader(QWidget* parent);
  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
};

}  // namespace corvanta::inline controls
