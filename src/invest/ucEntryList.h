#pragma once

#include "controls/ListTable.h"

#include <QStringList>

#include <vector>

class QStandardItemModel;

namespace corvanta::inline invest {

// A list of texts in the order in which they are given, over the fields of a dialog.
class ucEntryList : public ListTable {
  Q_OBJECT

 public:
  struct Column {
    QString title;
    const char* example;    // as wide as it likes to be
    int stretch;            // share of what is over
    bool isNumber = false;  // at the right
    bool givesWay = false;  // down to its title
  };
  ucEntryList(const char* name, const QString& accessibleName, const std::vector<Column>& columns,
              QWidget* parent);

  void Clear();
  // One text to a column.
  void AddRow(const QStringList& cells);
  [[nodiscard]] int RowCount() const;
  // From the top.
  [[nodiscard]] std::vector<std::size_t> ChosenRows() const;

 Q_SIGNALS:
  void ChoiceChanged();
  void DeletePressed();  // the key

 private:
  std::vector<Column> columns_;
  QStandardItemModel* model_;
};

}  // namespace corvanta::inline invest
