#include "controls/ListTable.h"
#include "controls/QtText.h"
#include "reports/print/ReportDialogs.h"

#include <QAbstractItemModel>
#include <QFont>
#include <QFontInfo>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace corvanta::inline reports {
namespace {

// What fits on upright paper in letters that are not much smaller than the list's own.
constexpr int kWidestPortrait = 800;

PrintAlignment AlignmentOf(const QAbstractItemModel& model, int column) {
  const QVariant own =
      model.rowCount() > 0 ? model.index(0, column).data(Qt::TextAlignmentRole) : QVariant();
  const QVariant stated =
      own.isValid() ? own : model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
  const int alignment = stated.toInt();
  if ((alignment & (Qt::AlignRight | Qt::AlignTrailing)) != 0) return PrintAlignment::Right;
  return (alignment & Qt::AlignHCenter) != 0 ? PrintAlignment::Centre : PrintAlignment::Left;
}

std::string CellText(const QAbstractItemModel& model, int row, int column) {
  return FromQt(model.index(row, column).data(Qt::DisplayRole).toString());
}

bool IsTotal(const QAbstractItemModel& model, int row, const std::vector<int>& columns) {
  bool hasText = false;
  for (const int column : columns) {
    const QModelIndex cell = model.index(row, column);
    if (cell.data(Qt::DisplayRole).toString().isEmpty()) continue;
    const QVariant font = cell.data(Qt::FontRole);
    if (!font.isValid() || !font.value<QFont>().bold()) return false;
    hasText = true;
  }
  return hasText;
}

// A column of pictures alone has nothing to print.
bool HasText(const QAbstractItemModel& model, int column) {
  if (!model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty()) return true;
  for (int row = 0; row < model.rowCount(); ++row) {
    if (!CellText(model, row, column).empty()) return true;
  }
  return false;
}

// Paper has room for columns that the window has none for.
int WidthOf(const QTableView& list, int column) {
  const auto* fitted = qobject_cast<const ListTable*>(&list);
  return fitted != nullptr ? fitted->WantedWidth(column)
                           : list.horizontalHeader()->sectionSize(column);
}

// As they stand from left to right.
std::vector<int> ShownColumns(const QTableView& list) {
  std::vector<int> columns;
  const QHeaderView& header = *list.horizontalHeader();
  for (int position = 0; position < header.count(); ++position) {
    const int column = header.logicalIndex(position);
    if (WidthOf(list, column) <= 0) continue;
    if (HasText(*list.model(), column)) columns.push_back(column);
  }
  return columns;
}

PrintFont FontOf(const QTableView& list) {
  const QFontInfo info(list.font());
  PrintFont font;
  font.name = FromQt(info.family());
  font.size = info.pointSizeF();
  font.isItalic = info.italic();
  font.isUnderlined = list.font().underline();
  font.isStruckOut = list.font().strikeOut();
  return font;
}

}  // namespace

PrintTable PrintTableOf(const QTableView& list, const std::string& title) {
  PrintTable table;
  if (!title.empty()) table.title = title;
  table.font = FontOf(list);
  const QAbstractItemModel* model = list.model();
  if (model == nullptr) return table;
  const std::vector<int> columns = ShownColumns(list);
  int width = 0;
  for (const int column : columns) {
    const int size = WidthOf(list, column);
    width += size;
    table.columns.push_back(
        {FromQt(model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString()), size,
         AlignmentOf(*model, column)});
  }
  if (width > kWidestPortrait) table.orientation = PrintOrientation::Landscape;
  for (int row = 0; row < model->rowCount(); ++row) {
    if (list.isRowHidden(row)) continue;
    if (IsTotal(*model, row, columns)) table.totals.insert(table.rows.size());
    std::vector<std::string> cells;
    cells.reserve(columns.size());
    for (const int column : columns) cells.push_back(CellText(*model, row, column));
    table.rows.push_back(std::move(cells));
  }
  return table;
}

}  // namespace corvanta::inline reports
