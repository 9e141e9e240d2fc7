// Which rows of the register are chosen, and finding rows in it.
#include "app/ViewHeader.h"
#include "app/lists/ChosenTotals.h"
#include "app/lists/RowsText.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"

#include <QApplication>
#include <QItemSelection>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta::inline app {

std::vector<int> RegisterView::ChosenRows() const {
  // What is not to be seen must not be changed.
  return covers_ ? std::vector<int>() : ChosenRowsOf(*table_);
}

ChosenTotals RegisterView::Totals() const {
  ChosenTotals totals;
  const std::vector<int> rows = ChosenRows();
  // Of one account all of them need not be read for it.
  if (static_cast<int>(rows.size()) == model_->rowCount() && currencies_.size() == 1) {
    totals.Add(model_->Sum(), currencies_.begin()->second, rows.size());
    return totals;
  }
  for (const int row : rows) {
    const RegisterEntry& entry = model_->Entry(row);
    const auto currency = currencies_.find(entry.accountId);
    if (currency != currencies_.end()) totals.Add(entry.amount, currency->second);
  }
  return totals;
}

SearchBox& RegisterView::Search() const {
  return header_->Search();
}

void RegisterView::SetCover(QWidget* cover) {
  cover_ = cover;
  pages_->addWidget(cover);
}

void RegisterView::Cover(bool covers) {
  if (covers_ == covers) return;
  covers_ = covers;
  // The keys stay in the view.
  const bool hasKeys = pages_->isAncestorOf(QApplication::focusWidget());
  ShowPage();
  if (hasKeys) setFocus();
  Q_EMIT ChoiceChanged();
}

bool RegisterView::IsCovered() const {
  return covers_;
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
  if (covers_) return 0;
  const QItemSelectionModel* chosen = table_->selectionModel();
  const QModelIndex current = table_->currentIndex();
  if (current.isValid() && chosen->isSelected(current)) return model_->Key(current.row());
  if (!chosen->hasSelection()) return 0;
  const std::vector<int> rows = ChosenRows();
  return rows.empty() ? 0 : model_->Key(rows.front());
}

bool RegisterView::IsSplit(std::int64_t transactionId) const {
  // It is asked of the row in use, which is found without a search.
  int row = table_->currentIndex().row();
  if (transactionId == 0 || row < 0) return false;
  if (model_->Key(row) != transactionId) row = model_->RowOf(transactionId);
  return row >= 0 && model_->Row(row).isSplit;
}

bool RegisterView::ChooseKey(std::int64_t transactionId) {
  const int row = transactionId == 0 ? -1 : model_->RowOf(transactionId);
  if (row < 0) return false;
  table_->ChooseRow(row);
  return true;
}

QString RegisterView::ChosenText() const {
  return RowsAsText(*table_, ChosenRows());
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
