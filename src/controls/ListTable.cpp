#include "controls/ListTable.h"

#include "controls/ListDelegate.h"
#include "controls/ListHeader.h"
#include "controls/Style.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace corvanta::inline controls {
namespace {
constexpr int kWidest = 10000;
}

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
  connect(horizontalHeader(), &QHeaderView::sectionResized, this,
          [this](int column, int before, int now) {
            if (!filling_ && before > 0 && now > 0) ApplyWidth(column, before, now);
          });
  // Where there is no room for all that can neither give way nor leave, figures at the end stay in
  // sight.
  connect(horizontalScrollBar(), &QScrollBar::rangeChanged, this, [this](int, int most) {
    if (HasLast()) horizontalScrollBar()->setValue(most);
  });
}

void ListTable::SetColumns(std::vector<Column> columns) {
  columns_.clear();
  for (const Column& column : columns) columns_.push_back({column});
  FillWidth();
}

void ListTable::AddColumn(const Column& column) {
  columns_.push_back({column});
  FillWidth();
}

void ListTable::RemoveLastColumn() {
  columns_.pop_back();
}

void ListTable::SetNeed(int column, int width, int smallest) {
  Column& wish = columns_.at(static_cast<std::size_t>(column)).wish;
  if (wish.width == width && wish.smallest == smallest) return;
  wish.width = width;
  wish.smallest = smallest;
  FillWidth();
}

QString ListTable::Widths() const {
  QStringList widths;
  bool isAny = false;
  for (const State& column : columns_) {
    isAny = isAny || column.byHand > 0 || column.isLeftOut;
    widths.append(QString::number(column.isLeftOut ? -std::max(1, column.byHand) : column.byHand));
  }
  return isAny ? widths.join(u'|') : QString();
}

void ListTable::SetWidths(const QString& widths) {
  const QStringList parts = widths.split(u'|');
  std::vector<int> sizes;
  for (const QString& part : parts) {
    bool isNumber = false;
    const int size = part.toInt(&isNumber);
    sizes.push_back(isNumber ? size : kWidest);
  }
  const auto isWidth = [](int size) { return std::abs(size) < kWidest; };
  const bool fits = sizes.size() == columns_.size() && std::ranges::all_of(sizes, isWidth) &&
                    std::ranges::any_of(sizes, [](int size) { return size >= 0; });
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const int size = fits ? sizes[i] : 0;
    columns_[i].isLeftOut = size < 0;
    columns_[i].byHand = size < -1 ? -size : std::max(0, size);
  }
  FillWidth();
}

void ListTable::LeaveOut(int column, bool isOut) {
  State& known = columns_.at(static_cast<std::size_t>(column));
  const bool isLast = isOut && known.isShown && ShownCount() == 1;
  if ((isOut && known.isLeftOut) || isLast) return;
  if (!isOut && !known.isLeftOut && !isColumnHidden(column)) return;
  known.isLeftOut = isOut;
  // A width of its own keeps it from leaving again.
  if (!isOut && known.byHand == 0 && known.wish.leaves > 0) known.byHand = known.wish.width;
  FillWidth();
}

bool ListTable::IsLeftOut(int column) const {
  return columns_.at(static_cast<std::size_t>(column)).isLeftOut;
}

bool ListTable::IsOffered(int column) const {
  return columns_.at(static_cast<std::size_t>(column)).isShown;
}

int ListTable::WantedWidth(int column) const {
  if (!isColumnHidden(column)) return columnWidth(column);
  const auto place = static_cast<std::size_t>(column);
  return place < columns_.size() ? NeedOf(columns_[place]).width : 0;
}

std::size_t ListTable::ShownCount() const {
  return static_cast<std::size_t>(std::ranges::count_if(
      columns_, [](const State& column) { return column.isShown && !column.isLeftOut; }));
}

void ListTable::ShowColumn(int column, bool show) {
  State& known = columns_.at(static_cast<std::size_t>(column));
  if (known.isShown == show) return;
  known.isShown = show;
  FillWidth();
}

bool ListTable::HasLast() const {
  return std::ranges::any_of(columns_, [](const State& column) { return column.wish.isLast; });
}

ColumnNeed ListTable::NeedOf(const State& column) const {
  if (!column.isShown || column.isLeftOut) return {};
  const Column& wish = column.wish;
  const int width = std::max(column.byHand > 0 ? column.byHand : wish.width, wish.smallest);
  // What the person has given a width is meant to be seen.
  const int leaves = column.byHand > 0 ? 0 : wish.leaves;
  return {width, wish.stretch, wish.smallest, leaves, wish.isLast, column.byHand > 0, wish.least};
}

// Of a column that makes room while another one is dragged. It gives no more than it will have once
// the list fills its width anew: columns would leave for the rest.
ColumnNeed ListTable::KeptNeedOf(const State& column, int shown) const {
  ColumnNeed need = NeedOf(column);
  need.leaves = 0;
  need.least = 0;
  if (need.smallest > 0) need.smallest = std::min(need.isLast ? need.width : need.smallest, shown);
  return need;
}

void ListTable::FillWidth() {
  std::vector<ColumnNeed> needs;
  for (const State& column : columns_) needs.push_back(NeedOf(column));
  Arrange(needs);
}

// A column is being dragged: those before it stay as they are, so that its edge follows the mouse,
// and those behind it make room as far as they can, but none comes or leaves under the mouse. In a
// list that scrolls they need not; but where figures are to stay in sight it gets no wider.
void ListTable::ApplyWidth(int column, int before, int width) {
  const auto taken = static_cast<std::size_t>(column);
  if (taken >= columns_.size()) return;
  const int former = horizontalHeader()->length() - width + before;
  const bool scrolls = former > viewport()->width() && !HasLast();
  std::vector<ColumnNeed> needs;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const int place = static_cast<int>(i);
    const int shown = isColumnHidden(place) ? 0 : columnWidth(place);
    const bool gives = i >= taken && shown > 0 && !scrolls;
    needs.push_back(gives ? KeptNeedOf(columns_[i], shown) : ColumnNeed{shown});
    needs[i].isByHand = needs[i].isByHand || !gives;
  }
  const int own = NeedOf(columns_[taken]).smallest;
  const int smallest = std::max(own, horizontalHeader()->minimumSectionSize());
  needs[taken] = {std::max(width, smallest)};
  needs[taken].isByHand = true;
  const std::vector<int> widths = FitColumns(needs, viewport()->width());
  const int allowed = scrolls ? kWidest : std::max(former, viewport()->width());
  const int excess = std::accumulate(widths.begin(), widths.end(), -allowed);
  needs[taken].width = std::max(needs[taken].width - std::max(0, excess), smallest);
  columns_[taken].byHand = needs[taken].width;
  Arrange(needs);
  if (scrolls && horizontalHeader()->length() < viewport()->width()) return FillWidth();
  for (std::size_t i = taken + 1; i < columns_.size(); ++i) {
    const int place = static_cast<int>(i);
    if (!isColumnHidden(place))
      columns_[i].byHand = std::min(columns_[i].byHand, columnWidth(place));
  }
}

void ListTable::Arrange(const std::vector<ColumnNeed>& needs) {
  if (needs.empty()) return;
  const std::vector<int> widths = FitColumns(needs, viewport()->width());
  filling_ = true;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const int column = static_cast<int>(i);
    if (isColumnHidden(column) != (widths[i] == 0)) setColumnHidden(column, widths[i] == 0);
    if (widths[i] > 0) setColumnWidth(column, widths[i]);
  }
  filling_ = false;
}

void ListTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FillWidth();
}

void ListTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QModelIndex shown = index;
  for (int column = 0; index.isValid() && isColumnHidden(shown.column()); ++column) {
    if (column == model()->columnCount()) return;
    shown = index.siblingAtColumn(column);
  }
  ScrollTo(shown, hint);
}

void ListTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  // What is hidden has no place, and would not be gone to.
  if (isVisible() && current.isValid() && isColumnHidden(current.column())) scrollTo(current);
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

}  // namespace corvanta::inline controls
