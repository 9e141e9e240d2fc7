#pragma once

#include "controls/ListDelegate.h"

namespace corvanta::inline app {

// Draws the rows of a report: those that can be looked into have their sign before the first cell,
// and the figure that the keys are on has a frame.
class ReportDelegate : public ListDelegate {
  Q_OBJECT

 public:
  using ListDelegate::ListDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace corvanta::inline app
