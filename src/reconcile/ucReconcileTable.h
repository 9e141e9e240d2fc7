#pragma once

#include "controls/SortedTable.h"

namespace corvanta::inline reconcile {

// The list of transactions with boxes to tick: by a click on the box, or by Space. A double click
// beside the box, or Enter, opens the row.
class ucReconcileTable : public SortedTable {
  Q_OBJECT

 public:
  explicit ucReconcileTable(QWidget* parent);

 Q_SIGNALS:
  void TickChosen(int row);
  void RowOpened(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  // The row whose box is there; -1 for none.
  [[nodiscard]] int BoxAt(const QMouseEvent& event) const;
};

}  // namespace corvanta::inline reconcile
