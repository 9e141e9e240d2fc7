#pragma once

#include "controls/ColumnFit.h"

#include <QTableView>

#include <vector>

class QPainter;

namespace corvanta::inline controls {

class ListHeader;

// A list of rows: one height, whole rows chosen, no cell frames. Home and End go to the first and
// last row, Tab leaves the list, Enter opens the row. Its columns fill the width: what is over goes
// to the columns that can use it, and where there is too little some give way or are hidden. One
// that the person has set by hand keeps its width as long as that can be. Of a list that is wider
// than its window all the same the first column stays at the edge while the others scroll.
class ListTable : public QTableView {
  Q_OBJECT

 public:
  explicit ListTable(QWidget* parent = nullptr);

  struct Column {
    int width;            // as wide as it likes to be, in pixels
    int stretch;          // share of what is over
    int smallest = 0;     // gives way down to this; 0: not at all
    int leaves = 0;       // where there is no room the lowest ones are hidden first; 0: never
    bool isLast = false;  // gives way, and leaves, only where no other column is left to do so
    int least = 0;        // with the figures it gives way down to this; 0: no more
  };
  // One entry for each column of the model, which must be set before.
  void SetColumns(std::vector<Column> columns);
  // The model has one column more at its end, or had one.
  void AddColumn(const Column& column);
  void RemoveLastColumn();
  // What the column shows now wants so much, and needs so much at least.
  void SetNeed(int column, int width, int smallest);

  // How many of the first columns stay at the edge in a list that is wider than its window; 1
  // unless told otherwise.
  void SetNames(int columns);
  [[nodiscard]] ListHeader& Head() const;

  // The widths set by hand as one text, the numbers separated by "|", 0 for a column that was not
  // set and below 0 for one that the person has left out; empty where there is neither.
  [[nodiscard]] QString Widths() const;
  // Sets widths from such a text; one that does not fit the columns, or leaves none of them, is
  // ignored. An empty text brings all of them back and lets them fill the width.
  void SetWidths(const QString& widths);
  // Shows or hides a column.
  void ShowColumn(int column, bool show);
  // The same as the person's own choice, which is kept with the widths: one that is asked for
  // again, or while there is no room for it, leaves no more. The last one that is shown stays.
  void LeaveOut(int column, bool isOut);
  [[nodiscard]] bool IsLeftOut(int column) const;
  // Whether the list would show it at all, were there room.
  [[nodiscard]] bool IsOffered(int column) const;
  // What a column is wide, or would be if there were room for it, in pixels; 0 for one that is not
  // wanted.
  [[nodiscard]] int WantedWidth(int column) const;

  // The columns that stay lie over the others, where they are seen.
  [[nodiscard]] QModelIndex indexAt(const QPoint& place) const override;
  [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
  // The keys work in the first column also while it is hidden; nothing is gone to below the columns
  // that stay.
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 protected Q_SLOTS:
  void updateEditorGeometries() override;

 private:
  struct State {
    Column wish;
    int byHand = 0;
    bool isShown = true;     // as long as there is room
    bool isLeftOut = false;  // by the person
  };
  [[nodiscard]] ColumnNeed NeedOf(const State& column) const;
  [[nodiscard]] ColumnNeed KeptNeedOf(const State& column, int shown) const;
  [[nodiscard]] std::size_t ShownCount() const;
  // Whether it has figures that are to stay in sight.
  [[nodiscard]] bool HasLast() const;
  void FillWidth();
  void ApplyWidth(int column, int before, int width);
  void Arrange(const std::vector<ColumnNeed>& needs);
  void ScrollTo(const QModelIndex& shown, ScrollHint hint);
  void PaintFrozen(QPainter& painter, const QModelIndex& index);
  // What stands in a cell goes below the columns that stay, as the cell does.
  void ClipCellWidgets();

  std::vector<State> columns_;
  bool filling_ = false;
};

}  // namespace corvanta::inline controls
