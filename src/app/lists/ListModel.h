#pragma once

#include "controls/ListSort.h"
#include "ledger/search/SearchQuery.h"

#include <QAbstractTableModel>

#include <array>
#include <cstddef>
#include <memory>
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
  const char* icon = nullptr;                   // before its first cell
};

// The rows of a list, counted from 0 in their own order. A long list makes them as they come into
// sight. Any of it may throw StoreError.
class ListRows {
 public:
  virtual ~ListRows() = default;
  [[nodiscard]] virtual std::size_t Count() const = 0;
  [[nodiscard]] virtual qint64 Key(std::size_t row) const = 0;
  // What each row is sorted by in that column.
  [[nodiscard]] virtual std::vector<SortKey> SortKeys(std::size_t column) const = 0;
  // Whether the row stands below all others in whatever order, as totals do.
  [[nodiscard]] virtual bool StaysBelow(std::size_t /*row*/) const { return false; }
  // These rows, in the order given.
  [[nodiscard]] virtual std::vector<ListRow> Make(const std::vector<std::size_t>& rows) const = 0;
};
// Rows that are made already.
[[nodiscard]] std::unique_ptr<ListRows> ReadyRows(std::vector<ListRow> rows);

// The rows of a list of named things, whose columns sort by text or by number.
class ListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  ListModel(std::vector<ListColumn> columns, QObject* parent);

  // Other columns, without rows.
  void SetColumns(std::vector<ListColumn> columns);
  // The rows are shown in the order that was last asked for; null for none.
  void SetRows(std::unique_ptr<ListRows> rows);
  void Sort(const SortState& sort);
  // Shows the rows alone that have all words of the query; all of them for an empty one.
  void Narrow(const SearchQuery& query);
  // How many rows there are, shown or not.
  [[nodiscard]] int Whole() const;
  [[nodiscard]] const std::vector<ListColumn>& Columns() const { return columns_; }
  [[nodiscard]] qint64 Key(int row) const;
  // Valid until another one is asked for; without cells when it cannot be read.
  [[nodiscard]] const ListRow& Row(int row) const;
  // -1 when there is none.
  [[nodiscard]] int RowOf(qint64 key) const;

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                    int role) const override;

 Q_SIGNALS:
  void Failed(const QString& reason);  // the data file refuses to be read; told once

 private:
  void PutInOrder();
  // Leaves out what the query does not fit.
  void KeepFitting();
  [[nodiscard]] std::vector<ListRow> Read(int first, int last) const;

  struct Page {
    int first = -1;
    std::vector<ListRow> rows;
  };

  std::vector<ListColumn> columns_;
  std::unique_ptr<ListRows> rows_;
  std::vector<std::size_t> order_;
  mutable std::array<Page, 4> pages_;  // made last
  mutable std::size_t nextPage_ = 0;
  mutable bool hasFailed_ = false;
  SortState sort_;
  SearchQuery query_;
};

}  // namespace corvanta::inline app
