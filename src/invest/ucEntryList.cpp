#include "invest/ucEntryList.h"

#include "controls/Style.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QStandardItemModel>

#include <algorithm>

namespace corvanta::inline invest {
namespace {
constexpr auto kNumber = Qt::AlignRight | Qt::AlignVCenter;
}  // namespace

ucEntryList::ucEntryList(const char* name, const QString& accessibleName,
                         const std::vector<Column>& columns, QWidget* parent)
    : ListTable(parent), columns_(columns), model_(new QStandardItemModel(this)) {
  setObjectName(QLatin1String(name));
  setAccessibleName(accessibleName);
  setAlternatingRowColors(true);
  setFrameShape(QFrame::StyledPanel);
  const auto width = [this](const QString& text) {
    return fontMetrics().horizontalAdvance(text) + 4 * kRhythm;
  };
  QStringList titles;
  std::vector<ListTable::Column> wishes;
  for (const Column& column : columns_) {
    titles.append(column.title);
    wishes.push_back({width(QLatin1String(column.example)), column.stretch,
                      column.givesWay ? width(column.title) : 0});
  }
  model_->setHorizontalHeaderLabels(titles);
  for (int i = 0; i < model_->columnCount(); ++i) {
    if (!columns_[static_cast<std::size_t>(i)].isNumber) continue;
    model_->setHeaderData(i, Qt::Horizontal, QVariant(kNumber), Qt::TextAlignmentRole);
  }
  setModel(model_);
  SetColumns(wishes);
  auto* remove = new QAction(this);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  addAction(remove);
  connect(remove, &QAction::triggered, this, &ucEntryList::DeletePressed);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ucEntryList::ChoiceChanged);
}

void ucEntryList::Clear() {
  clearSelection();
  model_->setRowCount(0);
}

void ucEntryList::AddRow(const QStringList& cells) {
  QList<QStandardItem*> items;
  for (const QString& cell : cells) {
    items.append(new QStandardItem(cell));
    const auto column = static_cast<std::size_t>(items.size() - 1);
    if (columns_.at(column).isNumber) items.back()->setTextAlignment(kNumber);
  }
  model_->appendRow(items);
}

int ucEntryList::RowCount() const {
  return model_->rowCount();
}

std::vector<std::size_t> ucEntryList::ChosenRows() const {
  std::vector<std::size_t> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) {
    rows.push_back(static_cast<std::size_t>(index.row()));
  }
  std::ranges::sort(rows);
  return rows;
}

}  // namespace corvanta::inline invest
