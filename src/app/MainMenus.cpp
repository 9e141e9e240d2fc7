// Where the commands of the main window stand.
#include "app/MainActions.h"
#include "controls/ucRibbon.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace corvanta::inline app {

QMenu* MainActions::AddMenu(QMenuBar& menus, const char* name, const QString& text) const {
  QMenu* menu = menus.addMenu(text);
  menu->setObjectName(QLatin1String(name));
  return menu;
}

QMenu* MainActions::AddSubmenu(QMenu& menu, const char* name, const QString& text) {
  QMenu* submenu = menu.addMenu(text);
  submenu->menuAction()->setObjectName(QLatin1String(name));
  return submenu;
}

void MainActions::FillMenus(QMenuBar& menus) const {
  FillFileMenu(*AddMenu(menus, "mnuFile", tr("&File")));
  FillEditMenu(*AddMenu(menus, "mnuEdit", tr("&Edit")));
  FillAccountMenu(*AddMenu(menus, "mnuAccounts", tr("&Accounts")));
  FillTransactions(*AddMenu(menus, "mnuTransactions", tr("&Transactions")));
  FillScheduleMenu(*AddMenu(menus, "mnuSchedule", tr("&Schedule")));
  AddMenu(menus, "mnuCategories", tr("&Categories"))
      ->addActions({mnuCategoryAdd, mnuCategoryEdit, mnuCategoryDelete});
  AddMenu(menus, "mnuPayees", tr("&Payees"))
      ->addActions({mnuPayeeNew, mnuPayeeEdit, mnuPayeeDelete});
  FillInvestMenu(*AddMenu(menus, "mnuInvestments", tr("&Investments")));
  FillReportMenu(*AddMenu(menus, "mnuReports", tr("&Reports")));
  FillToolMenu(*AddMenu(menus, "mnuTools", tr("T&ools")));
  FillViewMenu(*AddMenu(menus, "mnuView", tr("&View")));
  FillHelpMenu(*AddMenu(menus, "mnuHelp", tr("&Help")));
}

void MainActions::FillFileMenu(QMenu& file) const {
  file.addActions({mnuFileNew, mnuFileOpen});
  file.addMenu(mnuFileRecent);
  file.addAction(mnuFileSaveAs);
  file.addSeparator();
  file.addActions({mnuFileBackup, mnuFileRestore, mnuFileSalvage, mnuFileArchive, mnuFileTransfer});
  file.addSeparator();
  file.addActions({mnuFileValidate, mnuFilePassword, mnuFilePassphrase, mnuFileKey});
  file.addSeparator();
  file.addActions({mnuFileImport, mnuFileExport, mnuFileSpreadsheet});
  file.addSeparator();
  file.addActions({mnuFilePrint, mnuFilePreview, mnuFilePageSetup});
  file.addSeparator();
  file.addAction(mnuFileOptions);
  file.addSeparator();
  file.addAction(mnuFileExit);
}

void MainActions::FillEditMenu(QMenu& edit) const {
  edit.addActions({mnuEditUndo, mnuEditRedo});
  edit.addSeparator();
  edit.addActions({mnuEditInsert, mnuEditDetails});
  edit.addSeparator();
  edit.addActions({mnuEditCopy, mnuEditPaste, mnuEditDelete, mnuEditSelect});
  edit.addSeparator();
  edit.addActions({mnuEditFind, mnuEditGoTo});
}

void MainActions::FillAccountMenu(QMenu& accounts) const {
  accounts.addActions({mnuAccountNew, mnuAccountAdd, mnuAccountEdit, mnuAccountDelete});
  accounts.addSeparator();
  accounts.addAction(mnuAccountList);
}

void MainActions::FillScheduleMenu(QMenu& schedules) const {
  schedules.addActions({mnuScheduleAdd, mnuScheduleEdit, mnuScheduleDelete});
  schedules.addSeparator();
  schedules.addActions({mnuScheduleCopy, mnuSchedulePaste});
}

void MainActions::FillToolMenu(QMenu& tools) const {
  tools.addActions({mnuToolsCalculator, mnuToolsCurrency, mnuToolsKeywords});
  tools.addSeparator();
  tools.addActions({mnuToolsLoan, mnuToolsMortgage});
  tools.addSeparator();
  tools.addActions(
      {mnuToolsShares, mnuToolsLookup, mnuToolsRates, mnuToolsSources, mnuToolsCurrencies});
}

void MainActions::FillHelpMenu(QMenu& help) const {
  help.addActions({mnuHelpContents, mnuHelpPage});
  help.addSeparator();
  help.addActions({mnuHelpWelcome, mnuHelpTips});
  help.addSeparator();
  help.addAction(mnuHelpAbout);
}

void MainActions::FillTransactions(QMenu& transactions) const {
  transactions.addActions({mnuTransAdd, mnuTransEdit, mnuTransDelete, mnuTransCopy, mnuTransPaste});
  transactions.addSeparator();
  transactions.addActions({mnuTransTransfer, mnuTransSchedule, mnuTransLines, mnuTransAutofill});
  transactions.addSeparator();
  transactions.addActions({mnuTransUChk, mnuTransChk, mnuTranRec, mnuTransReconcile});
  transactions.addSeparator();
  transactions.addActions({mnuTransKeyword, mnuTransAttachment});
}

void MainActions::FillTransactionMenu(QMenu& menu) const {
  menu.addActions({mnuEditCopy, mnuEditPaste, mnuEditDelete, mnuTransBreak, mnuTransUChk,
                   mnuTransChk, mnuTranRec});
  menu.addSeparator();
  menu.addActions({mnuTransKeyword, mnuTransAttachment, mnuTransBreak1, mnuTransSchedule,
                   mnuTransTransfer, mnuTransLines});
}

void MainActions::FillInvestMenu(QMenu& investments) const {
  investments.addActions(
      {mnuInvestAdd, mnuInvestEdit, mnuInvestDelete, mnuInvestHistory, mnuInvestDownload});
  investments.addSeparator();
  QMenu* transactions = AddSubmenu(investments, "mnuInvestTrans", tr("Investment &Transactions"));
  transactions->addActions({mnuInvestTransAdd, mnuInvestTransEdit, mnuInvestTransDelete});
  transactions->addSeparator();
  transactions->addActions({mnuInvestTransCopy, mnuInvestTransPaste});
  investments.addSeparator();
  investments.addAction(mnuHoldingAction);
}

void MainActions::FillViewMenu(QMenu& view) const {
  view.addActions({mnuViewOverview, mnuViewAccounts, mnuViewRegister, mnuViewCategories,
                   mnuViewPayees, mnuViewSchedules, mnuViewInvestments, mnuViewInvestTrans,
                   mnuViewHoldings, mnuViewReminders, mnuViewRibbon});
  view.addSeparator();
  view.addActions({mnuViewBack, mnuViewForward});
  view.addSeparator();
  view.addActions({mnuViewUnCleared, mnuViewCleared, mnuViewReconciled, mnuViewAll});
  QMenu* filters = AddSubmenu(view, "mnuViewFilters", tr("Filter Ro&ws"));
  filters->addActions({mnuFilterAccount, mnuFilterCategory, mnuFilterPayee, mnuFilterInvestment,
                       mnuFilterKeyword, mnuFilterText});
  filters->addSeparator();
  filters->addAction(mnuFilterNone);
  view.addSeparator();
  QMenu* columns = AddSubmenu(view, "mnuViewColumns", tr("Co&lumns"));
  columns->addActions({mnuViewDescription, mnuViewReference, mnuViewStatus});
  columns->addSeparator();
  columns->addMenu(mnuViewSort);
  columns->addActions({mnuViewFit, mnuViewWidths});
  view.addSeparator();
  view.addActions({mnuViewAccountTypes, mnuViewBanks, mnuViewPayments});
  view.addSeparator();
  view.addActions({mnuViewReconcile, mnuViewRefresh});
}

void MainActions::FillRibbon(ucRibbon& ribbon) const {
  ribbon.AddButton(mnuViewBack);
  ribbon.AddButton(mnuViewForward);
  ribbon.AddSeparator();
  ribbon.AddButton(mnuViewAccounts);
  ribbon.AddButton(mnuViewRegister);
  ribbon.AddButton(mnuViewCategories);
  ribbon.AddButton(mnuViewPayees);
  ribbon.AddButton(mnuViewSchedules);
  ribbon.AddButton(mnuViewInvestments);
  ribbon.AddButton(mnuViewReports);
  ribbon.AddSeparator();
  ribbon.AddButton(mnuRibbonAdd);
  ribbon.AddButton(mnuTransAutofill);
  ribbon.AddButton(mnuTransReconcile);
  ribbon.AddButton(mnuFileImport);
  ribbon.AddButton(mnuEditFind);
  ribbon.AddButton(mnuEditUndo);
  ribbon.AddSeparator();
  ribbon.AddButton(mnuFilePreview);
  ribbon.AddButton(mnuViewRefresh);
  ribbon.AddButton(mnuViewReminders);
}

}  // namespace corvanta::inline app
