#pragma once

#include <QObject>

namespace corvanta::inline controls {
class SortedTable;
}

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

class ListModel;
class SearchBox;

// Narrows a list to the rows that have what is typed in the box above it.
class ListSearch : public QObject {
  Q_OBJECT

 public:
  // All live as long as the parent.
  ListSearch(const Locale& locale, SearchBox& box, SortedTable& table, ListModel& model,
             QObject* parent);

  // Shows the whole list again, with the same row chosen.
  void Leave();
  // The list has been filled anew.
  void ShowFound();

 Q_SIGNALS:
  void Narrowed();  // the list shows other rows

 private:
  void Narrow();
  // Chooses the row that lies so many ahead, past the end from the beginning again.
  void Step(int by);
  [[nodiscard]] qint64 ChosenKey() const;
  void Choose(qint64 key);

  const Locale& locale_;
  SearchBox& box_;
  SortedTable& table_;
  ListModel& model_;
};

}  // namespace corvanta::inline app
