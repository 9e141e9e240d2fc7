#include "app/lists/ListModel.h"

#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "controls/TableHead.h"
#include "platform/TextCase.h"
#include "store/sql/StoreError.h"

#include <QFont>
#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace corvanta::inline app {
namespace {

constexpr int kPage = 64;

class MadeRows : public ListRows {
 public:
  explicit MadeRows(std::vector<ListRow> rows) : rows_(std::move(rows)) {}

  [[nodiscard]] std::size_t Count() const override { return rows_.size(); }
  [[nodiscard]] qint64 Key(std::size_t row) const override { return rows_.at(row).key; }
  [[nodiscard]] std::vector<SortKey> SortKeys(std::size_t column) const override {
    std::vector<SortKey> keys;
    keys.reserve(rows_.size());
    for (const ListRow& row : rows_) {
      const ListCell& cell = row.cells.at(column);
      keys.push_back(cell.number ? SortKey(*cell.number) : SortKey(FoldCase(FromQt(cell.text))));
    }
    return keys;
  }
  [[nodiscard]] std::vector<ListRow> Make(const std::vector<std::size_t>& rows) const override {
    std::vector<ListRow> made;
    made.reserve(rows.size());
    for (const std::size_t row : rows) made.push_back(rows_.at(row));
    return made;
  }

 private:
  std::vector<ListRow> rows_;
};

}  // namespace

std::unique_ptr<ListRows> ReadyRows(std::vector<ListRow> rows) {
  return std::make_unique<MadeRows>(std::move(rows));
}

ListModel::ListModel(std::vector<ListColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void ListModel::SetColumns(std::vector<ListColumn> columns) {
  beginResetModel();
  columns_ = std::move(columns);
  rows_ = nullptr;
  sort_ = {};
  PutInOrder();
  endResetModel();
}

void ListModel::SetRows(std::unique_ptr<ListRows> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  hasFailed_ = false;
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
  pages_ = {};
  const std::size_t count = rows_ ? rows_->Count() : 0;
  std::vector<SortKey> keys;
  if (count > 0 && sort_.column >= 0) {
    keys = rows_->SortKeys(static_cast<std::size_t>(sort_.column));
  }
  order_ = SortedRows(count, sort_, [&keys](std::size_t row) { return std::move(keys[row]); });
  if (rows_ && sort_.column >= 0) {
    std::ranges::stable_partition(order_,
                                  [this](std::size_t row) { return !rows_->StaysBelow(row); });
  }
  if (rows_ && !query_.IsEmpty()) KeepFitting();
}

void ListModel::KeepFitting() {
  std::vector<std::size_t> fitting;
  const std::vector<ListRow> rows = Read(0, static_cast<int>(order_.size()));
  for (std::size_t place = 0; place < rows.size(); ++place) {
    std::vector<SearchQuery::Cell> cells;
    for (const ListCell& cell : rows[place].cells) {
      cells.push_back({FoldForSearch(FromQt(cell.text)), cell.number});
    }
    if (query_.FitsCells(cells)) fitting.push_back(order_[place]);
  }
  order_ = std::move(fitting);
}

void ListModel::Narrow(const SearchQuery& query) {
  beginResetModel();
  query_ = query;
  PutInOrder();
  endResetModel();
}

int ListModel::Whole() const {
  return rows_ ? static_cast<int>(rows_->Count()) : 0;
}

qint64 ListModel::Key(int row) const {
  return rows_->Key(order_.at(static_cast<std::size_t>(row)));
}

int ListModel::RowOf(qint64 key) const {
  for (int row = 0; row < rowCount(); ++row) {
    if (Key(row) == key) return row;
  }
  return -1;
}

const ListRow& ListModel::Row(int row) const {
  const int first = row - row % kPage;
  const auto place = static_cast<std::size_t>(row - first);
  for (const Page& page : pages_) {
    if (page.first == first) return page.rows.at(place);
  }
  Page& page = pages_.at(nextPage_);
  nextPage_ = (nextPage_ + 1) % pages_.size();
  page.rows = Read(first, std::min(first + kPage, rowCount()));
  page.first = first;
  return page.rows.at(place);
}

std::vector<ListRow> ListModel::Read(int first, int last) const {
  const std::vector<std::size_t> places(order_.begin() + first, order_.begin() + last);
  try {
    if (!hasFailed_) return rows_->Make(places);
  } catch (const StoreError& error) {
    // Reading is asked for while the list is drawn, where nothing can be told.
    auto* self = const_cast<ListModel*>(this);
    QMetaObject::invokeMethod(
        self, [self, text = ToQt(error.what())] { Q_EMIT self->Failed(text); },
        Qt::QueuedConnection);
    hasFailed_ = true;
  }
  return std::vector<ListRow>(places.size());
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
  if (row.cells.empty()) return {};
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
    case Qt::DecorationRole:
      if (column == 0 && row.icon != nullptr) return SvgIcon(QLatin1String(row.icon));
      return {};
    case Qt::ToolTipRole:
      return row.toolTip.isEmpty() ? cell.text : row.toolTip;
    default:
      return {};
  }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const ListColumn& column = columns_.at(static_cast<std::size_t>(section));
  return HeadData(orientation, role, column.isNumber, column.title);
}

}  // namespace corvanta::inline app
