#include "controls/SortedTable.h"

#include <QHeaderView>

namespace corvanta::inline controls {

SortedTable::SortedTable(QWidget* parent) : ListTable(parent) {
  horizontalHeader()->setSectionsClickable(true);
  connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &SortedTable::ChooseColumn);
}

void SortedTable::ChooseRow(int row) {
  const QModelIndex index = model()->index(row, 0);
  selectionModel()->setCurrentIndex(
      index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(index);
}

void SortedTable::ChooseColumn(int column) {
  SetSorted({column, column == sort_.column && !sort_.isDescending});
}

void SortedTable::ResetSorted() {
  SetSorted(first_.value_or(SortState()));
}

void SortedTable::SetSorted(const SortState& sort) {
  if (sort == sort_ || model() == nullptr || sort.column >= model()->columnCount()) return;
  sort_ = sort;
  if (!first_) first_ = sort;
  horizontalHeader()->setSortIndicatorShown(sort.column >= 0);
  horizontalHeader()->setSortIndicator(
      sort.column, sort.isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
  Q_EMIT SortChosen();
}

}  // namespace corvanta::inline controls
