#include "app/search/ListSearch.h"

#include "app/lists/ListModel.h"
#include "app/search/SearchBox.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "ledger/search/SearchQuery.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace corvanta::inline app {

ListSearch::ListSearch(const Locale& locale, SearchBox& box, SortedTable& table, ListModel& model,
                       QObject* parent)
    : QObject(parent), locale_(locale), box_(box), table_(table), model_(model) {
  box_.ServeList(&table_);
  connect(&box_, &SearchBox::Typed, this, &ListSearch::Narrow);
  connect(&box_, &SearchBox::Next, this, [this] { Step(1); });
  connect(&box_, &SearchBox::Previous, this, [this] { Step(-1); });
  connect(&box_, &SearchBox::Moved, this, [this](int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&table_, &press);
  });
  connect(&box_, &SearchBox::Left, this, [this] {
    Leave();
    table_.setFocus();
  });
}

qint64 ListSearch::ChosenKey() const {
  const QModelIndexList chosen = table_.selectionModel()->selectedRows();
  return chosen.isEmpty() ? 0 : model_.Row(chosen.constFirst().row()).key;
}

void ListSearch::Choose(qint64 key) {
  const int row = key == 0 ? -1 : model_.RowOf(key);
  if (row >= 0) table_.ChooseRow(row);
}

void ListSearch::Narrow() {
  const qint64 chosen = ChosenKey();
  model_.Narrow(SearchQuery(FromQt(box_.Text()), locale_));
  Choose(chosen);
  if (!box_.IsEmpty() && ChosenKey() == 0 && model_.rowCount() > 0) table_.ChooseRow(0);
  ShowFound();
  Q_EMIT Narrowed();
}

void ListSearch::ShowFound() {
  if (box_.IsEmpty()) return;
  const int count = model_.rowCount();
  const QString shown = table_.locale().toString(count);
  box_.ShowFound(count == 0 ? tr("Nothing found")
                            : tr("%1 of %2").arg(shown, table_.locale().toString(model_.Whole())));
}

void ListSearch::Leave() {
  const qint64 chosen = ChosenKey();
  box_.Clear();
  model_.Narrow({});
  Choose(chosen);
  Q_EMIT Narrowed();
}

void ListSearch::Step(int by) {
  const int count = model_.rowCount();
  if (count == 0) return;
  const int row = ChosenKey() == 0 ? -1 : table_.currentIndex().row();
  table_.ChooseRow(row < 0 ? 0 : (row + by + count) % count);
}

}  // namespace corvanta::inline app
