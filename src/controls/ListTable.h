#pragma once

#include <QTableView>

#include <vector>

namespace corvanta {

// A list of rows: one height, whole rows chosen, no cell frames. Home and End go to the first and
// last row, Tab leaves the list, Enter opens the row. Its columns fill the width: what is over goes
// to the columns that can use it, until the person has set a width by hand.
class ListTable : public QTableView {
  Q_OBJECT

 public:
  explicit ListTable(QWidget* parent = nullptr);

  struct Column {
    int width;    // at least, in pixels
    int stretch;  // share of what is over
  };
  // One entry for each column of the model, which must be set before.
  void SetColumns(std::vector<Column> columns);

  // The widths as one text, the numbers separated by "|", a hidden column with the width that it
  // had; empty while the columns fill the width by themselves.
  [[nodiscard]] QString Widths() const;
  // Sets widths from such a text; one that does not fit the columns is ignored. An empty text lets
  // them fill the width.
  void SetWidths(const QString& widths);
  // Shows or hides a column.
  void ShowColumn(int column, bool show);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void FillWidth();

  std::vector<Column> columns_;
  bool sizedByHand_ = false;
  bool filling_ = false;
};

}  // namespace corvanta
