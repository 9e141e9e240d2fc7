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
  QMenu* file = AddMenu(menus, "mnuFile", tr("&File"));
  file->addActions({mnuFileOpen, mnuFileValidate, mnuFilePassword, mnuFileKey});
  file->addSeparator();
  file->addActions({mnuFileImport, mnuFileExport});
  file->addSeparator();
  file->addActions({mnuFilePrint, mnuFilePreview});
  file->addSeparator();
  file->addAction(mnuFileExit);
  QMenu* edit = AddMenu(menus, "mnuEdit", tr("&Edit"));
  edit->addActions({mnuEditUndo, mnuEditRedo});
  edit->addSeparator();
  edit->addActions({mnuEditInsert, mnuEditDetails});
  edit->addSeparator();
  edit->addActions({mnuEditCopy, mnuEditPaste, mnuEditDelete, mnuEditSelect});
  QMenu* accounts = AddMenu(menus, "mnuAccounts", tr("&Accounts"));
  accounts->addActions({mnuAccountAdd, mnuAccountEdit, mnuAccountDelete});
  accounts->addSeparator();
  accounts->addAction(mnuAccountList);
  QMenu* transactions = AddMenu(menus, "mnuTransactions", tr("&Transactions"));
  transactions->addActions({mnuTransAdd, mnuTransEdit, mnuTransAutofill});
  transactions->addSeparator();
  FillTransactionMenu(*transactions);
  transactions->addSeparator();
  transactions->addAction(mnuTransReconcile);
  QMenu* schedules = AddMenu(menus, "mnuSchedule", tr("&Schedule"));
  schedules->addActions({mnuScheduleAdd, mnuScheduleEdit, mnuScheduleDelete});
  schedules->addSeparator();
  schedules->addActions({mnuScheduleCopy, mnuSchedulePaste});
  QMenu* categories = AddMenu(menus, "mnuCategories", tr("&Categories"));
  categories->addActions({mnuCategoryAdd, mnuCategoryEdit, mnuCategoryDelete});
  QMenu* payees = AddMenu(menus, "mnuPayees", tr("&Payees"));
  payees->addActions({mnuPayeeNew, mnuPayeeEdit, mnuPayeeDelete});
  FillInvestMenu(*AddMenu(menus, "mnuInvestments", tr("&Investments")));
  QMenu* tools = AddMenu(menus, "mnuTools", tr("T&ools"));
  tools->addActions({mnuToolsCurrency, mnuToolsRates, mnuToolsShares, mnuToolsLookup,
                     mnuToolsSources, mnuToolsKeywords});
  tools->addSeparator();
  tools->addActions({mnuToolsLoan, mnuToolsMortgage});
  FillViewMenu(*AddMenu(menus, "mnuView", tr("&View")));
  QMenu* help = AddMenu(menus, "mnuHelp", tr("&Help"));
  help->addActions({mnuHelpTips, mnuHelpAbout});
}

void MainActions::FillTransactionMenu(QMenu& menu) const {
  menu.addActions({mnuEditCopy, mnuEditPaste, mnuEditDelete, mnuTransBreak, mnuTransUChk,
                   mnuTransChk, mnuTranRec, mnuTransBreak1, mnuTransSchedule, mnuTransTransfer});
}

void MainActions::FillInvestMenu(QMenu& investments) const {
  investments.addActions({mnuInvestAdd, mnuInvestEdit, mnuInvestDelete, mnuInvestHistory});
  investments.addSeparator();
  QMenu* transactions = AddSubmenu(investments, "mnuInvestTrans", tr("Investment &Transactions"));
  transactions->addActions({mnuInvestTransAdd, mnuInvestTransEdit, mnuInvestTransDelete});
  transactions->addSeparator();
  transactions->addActions({mnuInvestTransCopy, mnuInvestTransPaste});
  investments.addSeparator();
  investments.addAction(mnuHoldingAction);
}

void MainActions::FillViewMenu(QMenu& view) const {
  view.addActions({mnuViewAccounts, mnuViewRegister, mnuViewCategories, mnuViewPayees,
                   mnuViewSchedules, mnuViewInvestments, mnuViewInvestTrans, mnuViewHoldings,
                   mnuViewReminders});
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
  columns->addAction(mnuViewWidths);
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
  ribbon.AddSeparator();
  ribbon.AddButton(mnuTransAdd);
  ribbon.AddButton(mnuTransAutofill);
  ribbon.AddButton(mnuTransReconcile);
  ribbon.AddSeparator();
  ribbon.AddButton(mnuFilePreview);
  ribbon.AddButton(mnuViewRefresh);
  ribbon.AddButton(mnuViewReminders);
}

}  // namespace corvanta::inline app
