#pragma once

#include <QObject>

#include <vector>

class QAction;
class QMenu;
class QPoint;

namespace corvanta::inline controls {
class SortedTable;
}

namespace corvanta::inline app {

// Makes a column as wide as what it shows, of all columns those that are shown.
void FitColumn(SortedTable& table, int column);
void FitColumns(SortedTable& table);

// The menu on the heads of a list's columns: which ones are shown, how wide they are, and the order
// of the rows.
class HeaderMenu : public QObject {
  Q_OBJECT

 public:
  // `choices` are ticks of columns that may be hidden; without them each column has a tick of its
  // own. `commands` work on the list as a whole. The table is the parent.
  HeaderMenu(SortedTable& table, std::vector<QAction*> choices, std::vector<QAction*> commands);

 private:
  void Show(QPoint place);
  void AddTicks(QMenu& menu);

  SortedTable& table_;
  std::vector<QAction*> choices_;
  std::vector<QAction*> commands_;
};

}  // namespace corvanta::inline app
