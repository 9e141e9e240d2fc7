#pragma once

#include "controls/ListSort.h"
#include "ledger/search/SearchQuery.h"

#include <QAbstractTableModel>

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline app {

struct ListColumn {
  QString title;
  int width = 0;    // at least, in pixels
  int stretch = 0;  // share of what is over
  bool isNumber = false;
  int leaves = 0;    // where there is no room the lowest one is hidden first; 0: never
  int smallest = 0;  // gives way down to this; 0: as far as texts do
};

struct ListCell {
  QString text;
  std::optional<double> number = std::nullopt;  // what a number's cell is sorted by
  bool isStrong = false;
  bool isMuted = false;
};

struct ListRow {
  qint64 key = 0;
  std::vector<ListCell> cells;  // one to a column
  QString toolTip;
  std::optional<double> amount = std::nullopt;  // that the row comes to, signed
  std::string currency = {};                    // of the amount: its code
};

// The rows of a list of named things, whose columns sort by text or by number.
class ListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  ListModel(std::vector<ListColumn> columns, QObject* parent);

  // The rows in their own order; they are shown in the order that was last asked for.
  void SetRows(std::vector<ListRow> rows);
  void Sort(const SortState& sort);
  // Shows the rows alone that have all words of the query; all of them for an empty one.
  void Narrow(const SearchQuery& query);
  // How many rows there are, shown or not.
  [[nodiscard]] int Whole() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] const std::vector<ListColumn>& Columns() const { return columns_; }
  [[nodiscard]] const ListRow& Row(int row) const {
    return rows_.at(order_.at(static_cast<std::size_t>(row)));
  }
  // -1 when there is none.
  [[nodiscard]] int RowOf(qint64 key) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 private:
  void PutInOrder();

  std::vector<ListColumn> columns_;
  std::vector<ListRow> rows_;
  std::vector<std::size_t> order_;
  SortState sort_;
  SearchQuery query_;
};

}  // namespace corvanta::inline app
