#pragma once

#include <QObject>

class QAction;
class QMenuBar;
class QWidget;

namespace corvanta {

class ucRibbon;

// The commands of the main window. Each stands once, in its menu; the ribbon has the frequent ones.
// What a command does is connected by the window.
class MainActions : public QObject {
  Q_OBJECT

 public:
  explicit MainActions(QWidget* window);

  void FillMenus(QMenuBar& menus) const;
  void FillRibbon(ucRibbon& ribbon) const;
  // Enables what needs an open data file, or disables it.
  void SetDataOpen(bool open) const;

  QAction* mnuFileOpen;
  QAction* mnuFileValidate;
  QAction* mnuFileKey;
  QAction* mnuFileExit;
  QAction* mnuViewAccounts;
  QAction* mnuViewRegister;
  QAction* mnuViewBack;
  QAction* mnuViewForward;
  QAction* mnuViewDescription;
  QAction* mnuViewReference;
  QAction* mnuViewStatus;
  QAction* mnuViewRefresh;
  QAction* mnuHelpTips;
  QAction* mnuHelpAbout;

 private:
  QAction* Make(const char* name, const QString& text, const char* icon, const QString& tip,
                const QKeySequence& shortcut = {});
  QAction* MakeTick(const char* name, const QString& text, const QString& tip);

  QWidget* window_;
};

}  // namespace corvanta
