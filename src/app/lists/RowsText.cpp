#include "app/lists/RowsText.h"

#include "controls/ListTable.h"

#include <QHeaderView>
#include <QStringList>
#include <QTableView>

#include <algorithm>

namespace corvanta::inline app {
namespace {

QString Cell(QString text) {
  for (QChar& c : text) {
    if (c == u'\t' || c == u'\n' || c == u'\r') c = u' ';
  }
  return text;
}

}  // namespace

std::vector<int> ChosenRowsOf(const QTableView& list) {
  std::vector<int> rows;
  // By ranges: all rows of a long list are one.
  for (const QItemSelectionRange& range : list.selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::ranges::sort(rows);
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

QString RowsAsText(const ListTable& list, const std::vector<int>& rows) {
  const QAbstractItemModel& model = *list.model();
  std::vector<int> columns;
  QStringList headings;
  for (int place = 0; place < model.columnCount(); ++place) {
    const int column = list.horizontalHeader()->logicalIndex(place);
    if (list.WantedWidth(column) <= 0) continue;
    columns.push_back(column);
    headings.append(Cell(model.headerData(column, Qt::Horizontal).toString()));
  }
  QString text = headings.join(u'\t') + u'\n';
  for (const int row : rows) {
    QStringList cells;
    for (const int column : columns) cells.append(Cell(model.index(row, column).data().toString()));
    text += cells.join(u'\t') + u'\n';
  }
  return text;
}

}  // namespace corvanta::inline app
