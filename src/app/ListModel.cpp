#include "app/ListModel.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "platform/TextCase.h"

#include <QFont>
#include <QGuiApplication>

namespace corvanta::inline app {

ListModel::ListModel(std::vector<ListColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void ListModel::SetRows(std::vector<ListRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  PutInOrder();
  endResetModel();
}

void ListModel::Sort(const SortState& sort) {
  beginResetModel();
  sort_ = sort;
  PutInOrder();
  endResetModel();
}

void ListModel::PutInOrder() {
  order_ = SortedRows(rows_.size(), sort_, [this](std::size_t row) {
    const ListCell& cell = rows_[row].cells.at(static_cast<std::size_t>(sort_.column));
    return cell.number ? SortKey(*cell.number) : SortKey(FoldCase(FromQt(cell.text)));
  });
  if (query_.IsEmpty()) return;
  std::erase_if(order_, [this](std::size_t row) {
    std::vector<SearchQuery::Cell> cells;
    for (const ListCell& cell : rows_[row].cells) {
      cells.push_back({FoldForSearch(FromQt(cell.text)), cell.number});
    }
    return !query_.FitsCells(cells);
  });
}

void ListModel::Narrow(const SearchQuery& query) {
  beginResetModel();
  query_ = query;
  PutInOrder();
  endResetModel();
}

int ListModel::RowOf(qint64 key) const {
  for (int row = 0; row < rowCount(); ++row) {
    if (Row(row).key == key) return row;
  }
  return -1;
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto column = static_cast<std::size_t>(index.column());
  const ListRow& row = Row(index.row());
  const ListCell& cell = row.cells.at(column);
  switch (role) {
    case Qt::DisplayRole:
      return cell.text;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::AlignVCenter |
                                 (columns_[column].isNumber ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ForegroundRole:
      if (cell.number.value_or(0) < 0) return MoneyOutColour(QGuiApplication::palette());
      if (cell.isMuted) return MutedText(QGuiApplication::palette());
      return {};
    case Qt::FontRole:
      if (cell.isStrong) return ScaledFont(0, QFont::DemiBold);
      return {};
    case Qt::ToolTipRole:
      return row.toolTip.isEmpty() ? cell.text : row.toolTip;
    default:
      return {};
  }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  const ListColumn& column = columns_.at(static_cast<std::size_t>(section));
  if (role == Qt::TextAlignmentRole && column.isNumber) {
    return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
  }
  if (role != Qt::DisplayRole) return {};
  return column.title;
}

}  // namespace corvanta::inline app
