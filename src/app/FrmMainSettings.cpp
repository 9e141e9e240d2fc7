// What the settings do to the main window.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/help/HelpPages.h"
#include "app/lists/ListColours.h"
#include "app/options/FrmOptions.h"
#include "app/start/WelcomeCommands.h"
#include "app/tree/AccountTree.h"
#include "controls/SortedTable.h"
#include "controls/ucCalendar.h"
#include "platform/Platform.h"

#include <QAction>

namespace corvanta::inline app {

void FrmMain::ConnectSettings() {
  On(actions_->mnuFileOptions, [this] { ChangeOptions(); });
  On(actions_->mnuHelpContents, [this] { ShowHelp("FrmMain", platform_); });
  On(actions_->mnuHelpPage, [this] { ShowHelp("FrmMain", platform_); });
  On(actions_->mnuHelpWelcome, [this] { welcome_->Open(); });
}

void FrmMain::Greet() {
  Guard([this] { welcome_->OpenFirst(); });
}

void FrmMain::ApplySettings() {
  ApplyListColours(settings_);
  tree_->ShowNumbers(settings_.IsOn(Setting::AccountNo));
  calendar_->setVisible(settings_.IsOn(Setting::Calendar));
  for (MainView* view : views_) view->ApplySettings();
}

void FrmMain::ChangeOptions() {
  FrmOptions dialog(platform_, session_.Path(), this);
  const bool isAccepted = dialog.exec() == QDialog::Accepted;
  if (dialog.HasReset()) ForgetColumns();
  if (isAccepted) ApplySettings();
  // Another look-ahead may have something to post.
  if (isAccepted && session_.IsOpen()) ApplySchedules();
}

void FrmMain::ForgetColumns() {
  for (MainView* view : views_) {
    view->Restore(platform_.registry);
    if (session_.IsOpen() && view->Table() != nullptr) view->Table()->ResetSorted();
  }
  if (session_.IsOpen()) ApplyFilter();
}

}  // namespace corvanta::inline app
