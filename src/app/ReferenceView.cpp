#include "app/ReferenceView.h"

#include "app/TotalsLine.h"
#include "app/ViewHeader.h"
#include "controls/EmptyState.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"

#include <QAction>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta {
namespace {
// What a column of texts keeps where there is little room.
constexpr int kSmallest = 9 * kRhythm;
}  // namespace

ReferenceView::ReferenceView(const char* listName, const QString& title,
                             std::vector<ListColumn> columns, const SortState& sort,
                             QWidget* parent)
    : QWidget(parent),
      title_(title),
      header_(new ViewHeader(this)),
      pages_(new QStackedWidget(this)),
      table_(new SortedTable(this)),
      empty_(new EmptyState(this)),
      totals_(new TotalsLine(this)),
      model_(new ListModel(std::move(columns), this)) {
  table_->setObjectName(QLatin1String(listName));
  table_->setAccessibleName(title);
  table_->setAlternatingRowColors(true);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setModel(model_);
  std::vector<ListTable::Column> widths;
  for (const ListColumn& column : model_->Columns()) {
    const int smallest = column.stretch > 0 ? std::min(column.width, kSmallest) : column.width;
    widths.push_back({column.width, column.stretch, smallest, column.leaves});
  }
  table_->SetColumns(std::move(widths));
  table_->SetSorted(sort);
  model_->Sort(sort);
  pages_->addWidget(table_);
  pages_->addWidget(empty_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(header_);
  column->addWidget(pages_, 1);
  column->addWidget(totals_);
  setFocusProxy(table_);
  connect(table_, &QAbstractItemView::activated, this,
          [this](const QModelIndex& index) { Q_EMIT Opened(model_->Row(index.row()).key); });
  connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ReferenceView::ChoiceChanged);
  connect(table_, &SortedTable::SortChosen, this, [this] {
    const qint64 chosen = ChosenKey();
    model_->Sort(table_->Sorted());
    ChooseKey(chosen);
  });
}

void ReferenceView::SetCommands(const QList<QAction*>& commands) {
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  table_->addActions(commands);
}

qint64 ReferenceView::ChosenKey() const {
  const QModelIndexList chosen = table_->selectionModel()->selectedRows();
  return chosen.isEmpty() ? 0 : model_->Row(chosen.constFirst().row()).key;
}

void ReferenceView::ChooseKey(qint64 key) {
  const int row = model_->RowOf(key);
  if (row < 0) return;
  table_->ChooseRow(row);
}

std::vector<std::int64_t> ReferenceView::ShownKeys() const {
  std::vector<std::int64_t> keys;
  for (int row = 0; row < model_->rowCount(); ++row) keys.push_back(model_->Row(row).key);
  return keys;
}

QString ReferenceView::ChosenText() const {
  QStringList cells;
  const int row = model_->RowOf(ChosenKey());
  for (int column = 0; row >= 0 && column < model_->columnCount(); ++column) {
    cells.append(model_->data(model_->index(row, column), Qt::DisplayRole).toString());
  }
  return cells.join(u'\t') + u'\n';
}

void ReferenceView::Fill(std::vector<ListRow> rows, const QString& details, const QString& count,
                         const QString& figure, const Nothing& nothing) {
  header_->Show(title_, details);
  totals_->Show(count, figure, false);
  totals_->setVisible(!rows.empty());
  if (rows.empty()) empty_->Show(nothing.icon, nothing.title, nothing.text, nothing.command);
  const qint64 chosen = ChosenKey();
  const int place = table_->currentIndex().row();
  model_->SetRows(std::move(rows));
  const int shown = model_->rowCount();
  pages_->setCurrentIndex(shown == 0 ? 1 : 0);
  setFocusProxy(pages_->currentWidget());
  if (shown == 0) return;
  if (chosen != 0 && model_->RowOf(chosen) < 0) table_->ChooseRow(std::min(place, shown - 1));
  if (chosen != 0) return ChooseKey(chosen);
  // The keyboard has a place to start from.
  table_->selectionModel()->setCurrentIndex(model_->index(0, 0), QItemSelectionModel::NoUpdate);
}

QString ReferenceView::Widths() const {
  return table_->Widths();
}
void ReferenceView::SetWidths(const QString& widths) {
  table_->SetWidths(widths);
}

}  // namespace corvanta
