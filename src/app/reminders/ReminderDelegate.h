#pragma once

#include <QStyledItemDelegate>

namespace corvanta::inline app {

// Draws a reminder in two lines: who and how much, below it when and where, muted. An item without
// an amount is the head of a group.
class ReminderDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  static constexpr int kAmountRole = Qt::UserRole + 1;     // the amount as it is shown
  static constexpr int kIsOutRole = Qt::UserRole + 2;      // whether it is money out
  static constexpr int kDetailsRole = Qt::UserRole + 3;    // the second line
  static constexpr int kIsOverdueRole = Qt::UserRole + 4;  // whether the day has passed

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                               const QModelIndex& index) const override;
};

}  // namespace corvanta::inline app
