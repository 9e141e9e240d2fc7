// What the commands of the main window do.
#include "app/CommandEdge.h"
#include "app/FrmAbout.h"
#include "app/FrmMain.h"
#include "app/FrmRecoveryKey.h"
#include "app/FrmTips.h"
#include "app/LedgerSession.h"
#include "app/ListColours.h"
#include "app/MainActions.h"
#include "app/QtText.h"
#include "app/RegisterView.h"
#include "controls/ucCalendar.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/Registry.h"

#include <QAction>

namespace corvanta {
namespace {
constexpr std::string_view kReindex = "Reindex";
}

void FrmMain::Guard(const std::function<void()>& command) {
  RunCommand(platform_.prompts, command);
}

void FrmMain::ConnectCommands() {
  const auto on = [this](QAction* action, void (FrmMain::*command)()) {
    connect(action, &QAction::triggered, this,
            [this, command] { Guard([this, command] { (this->*command)(); }); });
  };
  on(actions_->mnuFileOpen, &FrmMain::OpenDataFile);
  on(actions_->mnuFileValidate, &FrmMain::ValidateDataFile);
  on(actions_->mnuFileKey, &FrmMain::ShowRecoveryKey);
  on(actions_->mnuViewRefresh, &FrmMain::Reload);
  on(actions_->mnuViewDescription, &FrmMain::KeepColumns);
  on(actions_->mnuViewReference, &FrmMain::KeepColumns);
  on(actions_->mnuViewStatus, &FrmMain::KeepColumns);
  on(actions_->mnuHelpTips, &FrmMain::ShowTips);
  on(actions_->mnuHelpAbout, &FrmMain::ShowAbout);
  connect(actions_->mnuFileExit, &QAction::triggered, this, &QWidget::close);
  connect(actions_->mnuViewAccounts, &QAction::triggered, this, [this] {
    Show({kAccountShow, 0});
  });
  connect(actions_->mnuViewRegister, &QAction::triggered, this, [this] {
    Show({kTransactionShow, account_});
  });
  const auto step = [this](QAction* action, std::optional<ViewCommand> (ViewHistory::*turn)()) {
    connect(action, &QAction::triggered, this, [this, turn] {
      Guard([this, turn] {
        if (const auto command = (history_.*turn)()) ShowAgain(*command);
        MarkCommands();
      });
    });
  };
  step(actions_->mnuViewBack, &ViewHistory::Back);
  step(actions_->mnuViewForward, &ViewHistory::Forward);
}

void FrmMain::ApplySettings() {
  const bool description = settings_.IsOn(Setting::ShowDesc);
  const bool reference = settings_.IsOn(Setting::ShowRef);
  const bool status = settings_.IsOn(Setting::ShowStatus);
  actions_->mnuViewDescription->setChecked(description);
  actions_->mnuViewReference->setChecked(reference);
  actions_->mnuViewStatus->setChecked(status);
  registerView_->ShowOptionalColumns(description, reference, status);
  registerView_->SetColours(ReadListColours(settings_, palette()));
  calendar_->setVisible(settings_.IsOn(Setting::Calendar));
}

void FrmMain::KeepColumns() {
  settings_.SetOn(Setting::ShowDesc, actions_->mnuViewDescription->isChecked());
  settings_.SetOn(Setting::ShowRef, actions_->mnuViewReference->isChecked());
  settings_.SetOn(Setting::ShowStatus, actions_->mnuViewStatus->isChecked());
  ApplySettings();
}

bool FrmMain::Reopen(bool quiet) {
  const bool opened = session_.Open(quiet);
  history_.Clear();
  account_ = 0;
  ReadAccounts();
  if (!accounts_.empty()) account_ = accounts_.front().accountId;
  Show({account_ == 0 ? kAccountShow : kTransactionShow, account_});
  return opened;
}

void FrmMain::OpenDataFile() {
  const auto path = platform_.prompts.OpenFile(
      {"Select File to Open", "Data Files", "*.dat", "dat", std::string()});
  if (!path) return;
  session_.Choose(*path);
  if (Reopen(true)) return;
  // The file that cannot be used must not be what the next start begins with.
  session_.Unchoose();
  Reopen(true);
}

void FrmMain::ValidateDataFile() {
  const bool wanted =
      platform_.prompts.Ask("Validate Data Files",
                            "This option will validate and fix any problems with the data file.\n"
                            " Do you wish to continue?");
  if (!wanted) return;
  platform_.registry.Write(Hive::CurrentUser, kSettingsKey, kReindex, "1");
  const ViewCommand before = shown_;
  if (Reopen(false)) Show(before);
}

void FrmMain::ShowRecoveryKey() {
  FrmRecoveryKey dialog(platform_, this);
  dialog.exec();
}

void FrmMain::ShowTips() {
  FrmTips dialog(platform_, this);
  dialog.exec();
}

void FrmMain::ShowAbout() {
  FrmAbout dialog(this);
  dialog.exec();
}

}  // namespace corvanta
