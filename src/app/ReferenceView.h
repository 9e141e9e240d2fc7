#pragma once

#include "app/ListModel.h"

#include <QWidget>

#include <cstdint>
#include <vector>

class QAction;
class QStackedWidget;

namespace corvanta {

class EmptyState;
class SortedTable;
class TotalsLine;
class ViewHeader;

// What the views of accounts, categories and payees have in common: a head, a list of one row each,
// a line below it, and what stands in its place while it is empty.
class ReferenceView : public QWidget {
  Q_OBJECT

 public:
  // `listName` is the list's name ("lvpayee"), `title` the view's, `sort` the order of its rows as
  // they are given.
  ReferenceView(const char* listName, const QString& title, std::vector<ListColumn> columns,
                const SortState& sort, QWidget* parent);

  // The commands of the list's own menu.
  void SetCommands(const QList<QAction*>& commands);

  // All rows from the first to the last.
  [[nodiscard]] std::vector<std::int64_t> ShownKeys() const;
  // 0 while no row is chosen.
  [[nodiscard]] qint64 ChosenKey() const;
  // Chooses the row and brings it into view; one that is not there leaves the choice as it is.
  void ChooseKey(qint64 key);

  // The chosen row as a line of cells with tabs between them.
  [[nodiscard]] QString ChosenText() const;

  [[nodiscard]] SortedTable& Table() const { return *table_; }
  [[nodiscard]] QString Widths() const;
  void SetWidths(const QString& widths);

 Q_SIGNALS:
  void Opened(qint64 key);  // a double click, or Enter
  void ChoiceChanged();

 protected:
  struct Nothing {
    QString icon;
    QString title;
    QString text;
    QAction* command;
  };
  // The row that was chosen stays so, or the one that took its place. `count` says how many there
  // are, `figure` what they come to.
  void Fill(std::vector<ListRow> rows, const QString& details, const QString& count,
            const QString& figure, const Nothing& nothing);

 private:
  QString title_;
  ViewHeader* header_;
  QStackedWidget* pages_;
  SortedTable* table_;
  EmptyState* empty_;
  TotalsLine* totals_;
  ListModel* model_;
};

}  // namespace corvanta
