#pragma once

#include <QHeaderView>

#include <vector>

namespace corvanta::inline controls {

// The head of a list: quiet column names that stand above the text of their cells. In a list that
// is wider than its window the first columns stay at the edge, over those that scroll: they say
// what the rows are. They are clicked, and their widths dragged, where they are seen.
class ListHeader : public QHeaderView {
  Q_OBJECT

 public:
  explicit ListHeader(QWidget* parent);
  [[nodiscard]] QSize sizeHint() const override;

  // How many of the first columns stay; 1 unless told otherwise.
  void SetNames(int columns);
  // The place of those that stay, as they are shown; empty where all columns have room, and where
  // the names would leave hardly any to the others.
  [[nodiscard]] QRect FrozenPlace() const;
  [[nodiscard]] bool IsFrozen(int column) const;
  // How far they stand from where they would have been scrolled to, in pixels to the right.
  [[nodiscard]] int FrozenShift() const;
  // The column whose head is seen at that place; -1 for none.
  [[nodiscard]] int ColumnAt(const QPoint& place) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  // The columns that stay, in their order.
  [[nodiscard]] std::vector<int> Frozen() const;
  // Of those that stay the column whose edge is taken hold of there; -1 for none.
  [[nodiscard]] int FrozenGripAt(const QPoint& place) const;

  int names_ = 1;
  int shift_ = 0;    // of what is pressed
  int pulled_ = -1;  // one that stays, while its edge is dragged: from where, and its width then
  int pulledFrom_ = 0;
  int pulledSize_ = 0;
};

}  // namespace corvanta::inline controls
