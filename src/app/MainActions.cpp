#include "app/MainActions.h"

#include "controls/SvgIcon.h"
#include "controls/ucRibbon.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>
#include <QMenuBar>

namespace corvanta {

MainActions::MainActions(QWidget* window) : QObject(window), window_(window) {
  mnuFileOpen =
      Make("mnuFileOpen", tr("&Open..."), "open", tr("Open another data file"), QKeySequence::Open);
  mnuFileValidate =
      Make("mnuFileValidate", tr("&Validate"), "validate", tr("Check and repair the data file"));
  mnuFileKey = Make("mnuFileKey", tr("Recovery &Key..."), "key",
                    tr("Show and save the key that opens the data file on another machine"));
  mnuFileExit = Make("mnuFileExit", tr("E&xit"), "exit", tr("Close the program"),
                     QKeySequence(Qt::CTRL | Qt::Key_Q));
  mnuFileExit->setMenuRole(QAction::QuitRole);
  mnuViewAccounts = Make("mnuViewAccounts", tr("&Accounts"), "accounts",
                         tr("Show the list of accounts"), QKeySequence(Qt::CTRL | Qt::Key_1));
  mnuViewRegister =
      Make("mnuViewRegister", tr("Re&gister"), "register",
           tr("Show the transactions of the chosen account"), QKeySequence(Qt::CTRL | Qt::Key_2));
  auto* views = new QActionGroup(this);
  for (QAction* view : {mnuViewAccounts, mnuViewRegister}) {
    view->setCheckable(true);
    views->addAction(view);
  }
  mnuViewBack = Make("mnuViewBack", tr("&Back"), "back", tr("Show the former view again"),
                     QKeySequence(Qt::ALT | Qt::Key_Left));
  mnuViewForward = Make("mnuViewForward", tr("&Forward"), "forward", tr("Show the next view again"),
                        QKeySequence(Qt::ALT | Qt::Key_Right));
  mnuViewDescription = MakeTick("mnuViewDescription", tr("Show &Description"),
                                tr("Show the description in the register"));
  mnuViewReference =
      MakeTick("mnuViewReference", tr("Show &Reference"), tr("Show the reference in the register"));
  mnuViewStatus =
      MakeTick("mnuViewStatus", tr("Show S&tatus"), tr("Show the status in the register"));
  mnuViewRefresh = Make("mnuViewRefresh", tr("Refre&sh"), "refresh",
                        tr("Read the accounts and the list again"), QKeySequence(Qt::Key_F5));
  mnuHelpTips = Make("mnuHelpTips", tr("&Tip of the Day..."), "tips", tr("Show a tip"));
  mnuHelpAbout = Make("mnuHelpAbout", tr("&About..."), "about", tr("About this program"));
  mnuHelpAbout->setMenuRole(QAction::AboutRole);
}

QAction* MainActions::Make(const char* name, const QString& text, const char* icon,
                           const QString& tip, const QKeySequence& shortcut) {
  auto* action = new QAction(SvgIcon(QLatin1String(icon)), text, window_);
  action->setObjectName(QLatin1String(name));
  action->setShortcut(shortcut);
  action->setStatusTip(tip);
  const QString keys = shortcut.toString(QKeySequence::NativeText);
  action->setToolTip(keys.isEmpty() ? tip : tip + QStringLiteral(" (") + keys + u')');
  return action;
}

QAction* MainActions::MakeTick(const char* name, const QString& text, const QString& tip) {
  QAction* action = Make(name, text, "", tip);
  action->setCheckable(true);
  return action;
}

void MainActions::FillMenus(QMenuBar& menus) const {
  QMenu* file = menus.addMenu(tr("&File"));
  file->setObjectName(QStringLiteral("mnuFile"));
  file->addActions({mnuFileOpen, mnuFileValidate, mnuFileKey});
  file->addSeparator();
  file->addAction(mnuFileExit);
  QMenu* view = menus.addMenu(tr("&View"));
  view->setObjectName(QStringLiteral("mnuView"));
  view->addActions({mnuViewAccounts, mnuViewRegister});
  view->addSeparator();
  view->addActions({mnuViewBack, mnuViewForward});
  view->addSeparator();
  view->addActions({mnuViewDescription, mnuViewReference, mnuViewStatus});
  view->addSeparator();
  view->addAction(mnuViewRefresh);
  QMenu* help = menus.addMenu(tr("&Help"));
  help->setObjectName(QStringLiteral("mnuHelp"));
  help->addActions({mnuHelpTips, mnuHelpAbout});
}

void MainActions::FillRibbon(ucRibbon& ribbon) const {
  ribbon.AddButton(mnuViewBack);
  ribbon.AddButton(mnuViewForward);
  ribbon.AddSeparator();
  ribbon.AddButton(mnuViewAccounts);
  ribbon.AddButton(mnuViewRegister);
  ribbon.AddButton(mnuViewRefresh);
  ribbon.AddSeparator();
  ribbon.AddButton(mnuFileOpen);
  ribbon.AddButton(mnuFileValidate);
  ribbon.AddButton(mnuFileKey);
}

void MainActions::SetDataOpen(bool open) const {
  for (QAction* action : {mnuViewAccounts, mnuViewRegister, mnuViewRefresh, mnuViewDescription,
                          mnuViewReference, mnuViewStatus}) {
    action->setEnabled(open);
  }
}

}  // namespace corvanta
