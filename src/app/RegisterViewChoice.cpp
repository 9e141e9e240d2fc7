// Which rows of the register are chosen, and finding rows in it.
#include "app/RegisterModel.h"
#include "app/RegisterView.h"
#include "app/ViewHeader.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"

#include <QItemSelection>

#include <algorithm>

namespace corvanta::inline app {

std::vector<int> RegisterView::ChosenRows() const {
  std::vector<int> rows;
  for (const QModelIndex& index : table_->selectionModel()->selectedRows()) {
    rows.push_back(index.row());
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

std::vector<std::int64_t> RegisterView::ShownKeys() const {
  std::vector<std::int64_t> keys;
  for (int row = 0; row < model_->rowCount(); ++row) keys.push_back(model_->Key(row));
  std::erase(keys, 0);
  return keys;
}

std::vector<std::int64_t> RegisterView::ChosenKeys() const {
  std::vector<std::int64_t> keys;
  for (const int row : ChosenRows()) keys.push_back(model_->Key(row));
  std::erase(keys, 0);
  return keys;
}

std::int64_t RegisterView::FocusedKey() const {
  const QItemSelectionModel* chosen = table_->selectionModel();
  const QModelIndex current = table_->currentIndex();
  if (current.isValid() && chosen->isSelected(current)) return model_->Key(current.row());
  if (!chosen->hasSelection()) return 0;
  const std::vector<int> rows = ChosenRows();
  return rows.empty() ? 0 : model_->Key(rows.front());
}

bool RegisterView::ChooseKey(std::int64_t transactionId) {
  const int row = transactionId == 0 ? -1 : model_->RowOf(transactionId);
  if (row < 0) return false;
  table_->ChooseRow(row);
  return true;
}

QString RegisterView::ChosenText() const {
  QString text;
  for (const int row : ChosenRows()) {
    QStringList cells;
    for (int column = 0; column < model_->columnCount(); ++column) {
      if (table_->isColumnHidden(column)) continue;
      cells.append(model_->data(model_->index(row, column), Qt::DisplayRole).toString());
    }
    text += cells.join(u'\t') + u'\n';
  }
  return text;
}

QString RegisterView::Title() const {
  return header_->Title();
}
bool RegisterView::IsEmpty() const {
  return model_->rowCount() == 0;
}

void RegisterView::ChooseDay(Date day) {
  table_->clearSelection();
  const int near = model_->RowNear(day);
  if (near < 0) return;
  table_->scrollTo(model_->index(near, 0), QAbstractItemView::PositionAtCenter);
  QItemSelection rows;
  for (const int row : model_->RowsOf(day)) {
    rows.select(model_->index(row, 0), model_->index(row, 0));
  }
  if (rows.isEmpty()) return;
  table_->selectionModel()->setCurrentIndex(model_->index(near, 0), QItemSelectionModel::NoUpdate);
  table_->selectionModel()->select(rows,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QSet<QDate> RegisterView::Days() const {
  return model_->Days();
}

bool RegisterView::IsReading() const {
  return model_->IsReading();
}

}  // namespace corvanta::inline app
