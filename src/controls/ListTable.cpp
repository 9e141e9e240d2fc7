#include "controls/ListTable.h"

#include "controls/ListDelegate.h"
#include "controls/ListHeader.h"
#include "controls/Style.h"

#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace corvanta {

ListTable::ListTable(QWidget* parent) : QTableView(parent) {
  setHorizontalHeader(new ListHeader(this));
  setItemDelegate(new ListDelegate(this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setFrameShape(QFrame::NoFrame);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollMode(ScrollPerPixel);
  setTextElideMode(Qt::ElideRight);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRhythm + 2);
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int, int before, int now) {
    if (!filling_ && before > 0 && now > 0) sizedByHand_ = true;
  });
}

void ListTable::SetColumns(std::vector<Column> columns) {
  columns_ = std::move(columns);
  FillWidth();
}

QString ListTable::Widths() const {
  if (!sizedByHand_) return {};
  QStringList widths;
  for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
    const int width = isColumnHidden(column) ? columns_[static_cast<std::size_t>(column)].width
                                             : columnWidth(column);
    widths.append(QString::number(width));
  }
  return widths.join(u'|');
}

void ListTable::SetWidths(const QString& widths) {
  const QStringList parts = widths.split(u'|');
  std::vector<int> sizes;
  for (const QString& part : parts) sizes.push_back(part.toInt());
  const bool fits =
      sizes.size() == columns_.size() &&
      std::all_of(sizes.begin(), sizes.end(), [](int size) { return size > 0 && size < 10000; });
  sizedByHand_ = fits;
  if (!fits) return FillWidth();
  filling_ = true;
  for (std::size_t column = 0; column < sizes.size(); ++column) {
    columns_[column].width = sizes[column];
    const int index = static_cast<int>(column);
    if (!isColumnHidden(index)) setColumnWidth(index, sizes[column]);
  }
  filling_ = false;
}

void ListTable::ShowColumn(int column, bool show) {
  if (isColumnHidden(column) != show) return;
  Column& known = columns_.at(static_cast<std::size_t>(column));
  filling_ = true;
  if (!show && sizedByHand_) known.width = columnWidth(column);
  setColumnHidden(column, !show);
  if (show) setColumnWidth(column, known.width);
  filling_ = false;
  FillWidth();
}

void ListTable::FillWidth() {
  if (sizedByHand_ || columns_.empty()) return;
  int used = 0;
  int shares = 0;
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (isColumnHidden(static_cast<int>(column))) continue;
    used += columns_[column].width;
    shares += columns_[column].stretch;
  }
  int over = std::max(0, viewport()->width() - used);
  filling_ = true;
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (isColumnHidden(static_cast<int>(column))) continue;
    const int stretch = columns_[column].stretch;
    const int extra = shares == 0 ? 0 : over * stretch / shares;
    over -= extra;
    shares -= stretch;
    setColumnWidth(static_cast<int>(column), columns_[column].width + extra);
  }
  filling_ = false;
}

void ListTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FillWidth();
}

void ListTable::keyPressEvent(QKeyEvent* event) {
  const bool plain = event->modifiers() == Qt::NoModifier;
  const int rows = model() != nullptr ? model()->rowCount() : 0;
  if (plain && rows > 0 && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End)) {
    selectRow(event->key() == Qt::Key_Home ? 0 : rows - 1);
    return;
  }
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    if (currentIndex().isValid()) Q_EMIT activated(currentIndex());
    return;
  }
  QTableView::keyPressEvent(event);
}

}  // namespace corvanta
