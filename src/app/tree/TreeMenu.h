#pragma once

#include <QObject>

class QPoint;

namespace corvanta::inline app {

class AccountTree;
class MainActions;

// The menu of the account tree: on an account what is done with it, anywhere what concerns them
// all.
class TreeMenu : public QObject {
  Q_OBJECT

 public:
  // The tree is the parent; the actions outlive it.
  TreeMenu(AccountTree& tree, const MainActions& actions);

 private:
  void Show(QPoint place);

  AccountTree& tree_;
  const MainActions& actions_;
};

}  // namespace corvanta::inline app
