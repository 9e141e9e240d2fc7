#include "app/tree/TreeMenu.h"

#include "app/MainActions.h"
#include "app/tree/AccountTree.h"

#include <QAction>
#include <QMenu>

namespace corvanta::inline app {

TreeMenu::TreeMenu(AccountTree& tree, const MainActions& actions)
    : QObject(&tree), tree_(tree), actions_(actions) {
  tree_.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&tree_, &QWidget::customContextMenuRequested, this, &TreeMenu::Show);
}

void TreeMenu::Show(QPoint place) {
  auto* menu = new QMenu(&tree_);
  menu->setObjectName(QStringLiteral("mnuTree"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  if (const qint64 account = AccountTree::AccountOf(tree_.itemAt(place)); account != 0) {
    QAction* open = menu->addAction(tr("&Open Register"));
    connect(open, &QAction::triggered, &tree_,
            [this, account] { Q_EMIT tree_.AccountOpened(account); });
    menu->addActions({actions_.mnuTransAdd, actions_.mnuTransReconcile});
    menu->addSeparator();
    menu->addActions({actions_.mnuAccountEdit, actions_.mnuAccountDelete});
    menu->addSeparator();
  }
  menu->addActions({actions_.mnuAccountAdd, actions_.mnuAccountList});
  menu->addSeparator();
  connect(menu->addAction(tr("&Unfold All Groups")), &QAction::triggered, &tree_,
          &QTreeWidget::expandAll);
  connect(menu->addAction(tr("Fold All &Groups")), &QAction::triggered, &tree_,
          &QTreeWidget::collapseAll);
  menu->popup(tree_.viewport()->mapToGlobal(place));
}

}  // namespace corvanta::inline app
