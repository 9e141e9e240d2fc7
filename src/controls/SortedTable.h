#pragma once

#include "controls/ListSort.h"
#include "controls/ListTable.h"

#include <optional>

namespace corvanta::inline controls {

// A list that is sorted by a click on the head of a column, and the other way round by the next.
class SortedTable : public ListTable {
  Q_OBJECT

 public:
  explicit SortedTable(QWidget* parent);

  [[nodiscard]] const SortState& Sorted() const { return sort_; }
  // Shows by which column the rows are sorted. Sends SortChosen when that is new; a column that
  // the list has not leaves it as it is.
  void SetSorted(const SortState& sort);
  // Sorts the rows as they were first.
  void ResetSorted();
  // Chooses that row alone, whatever keys are held down, and brings it into view.
  void ChooseRow(int row);
  // As a click on the column's head.
  void ChooseColumn(int column);

 Q_SIGNALS:
  void SortChosen();

 private:
  SortState sort_;
  std::optional<SortState> first_;
};

}  // namespace corvanta::inline controls
