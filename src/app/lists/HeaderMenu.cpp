#include "app/lists/HeaderMenu.h"

#include "controls/ListHeader.h"
#include "controls/SortedTable.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>

#include <utility>

namespace corvanta::inline app {
namespace {

// A heading in a menu: an ampersand in it is no mnemonic.
QString Title(const SortedTable& table, int column) {
  return table.model()
      ->headerData(column, Qt::Horizontal)
      .toString()
      .replace(u'&', QStringLiteral("&&"));
}

}  // namespace

void FitColumn(SortedTable& table, int column) {
  if (!table.isColumnHidden(column)) table.resizeColumnToContents(column);
}

void FitColumns(SortedTable& table) {
  for (int column = 0; column < table.model()->columnCount(); ++column) FitColumn(table, column);
}

HeaderMenu::HeaderMenu(SortedTable& table, std::vector<QAction*> choices,
                       std::vector<QAction*> commands)
    : QObject(&table), table_(table), choices_(std::move(choices)), commands_(std::move(commands)) {
  QHeaderView* head = table_.horizontalHeader();
  head->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(head, &QWidget::customContextMenuRequested, this, &HeaderMenu::Show);
}

void HeaderMenu::AddTicks(QMenu& menu) {
  QMenu* columns = menu.addMenu(tr("&Columns"));
  columns->setObjectName(QStringLiteral("mnuColumns"));
  for (int column = 0; column < table_.model()->columnCount(); ++column) {
    if (!table_.IsOffered(column)) continue;
    QAction* tick = columns->addAction(Title(table_, column));
    tick->setCheckable(true);
    // One that there is no room for can be asked for.
    tick->setChecked(!table_.isColumnHidden(column));
    connect(tick, &QAction::toggled, &table_,
            [this, column](bool isShown) { table_.LeaveOut(column, !isShown); });
  }
}

void HeaderMenu::Show(QPoint place) {
  const int column = table_.Head().ColumnAt(place);
  auto* menu = new QMenu(&table_);
  menu->setObjectName(QStringLiteral("mnuHeader"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (choices_.empty()) AddTicks(*menu);
  for (QAction* choice : choices_) menu->addAction(choice);
  menu->addSeparator();
  if (column >= 0) {
    QAction* sort = menu->addAction(tr("&Sort by %1").arg(Title(table_, column)));
    connect(sort, &QAction::triggered, &table_, [this, column] { table_.ChooseColumn(column); });
    QAction* fit = menu->addAction(tr("&Fit %1 to Its Texts").arg(Title(table_, column)));
    connect(fit, &QAction::triggered, &table_, [this, column] { FitColumn(table_, column); });
  }
  for (QAction* command : commands_) menu->addAction(command);
  menu->popup(table_.horizontalHeader()->mapToGlobal(place));
}

}  // namespace corvanta::inline app
