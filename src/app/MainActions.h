#pragma once

#include "app/MainView.h"

#include <QObject>

#include <array>
#include <utility>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace corvanta::inline controls {
class ucRibbon;
}

namespace corvanta::inline app {

// The commands of the main window. Each stands once, in its menu; the pop-up menus and the ribbon
// have the frequent ones again. What a command does is connected by the window.
class MainActions : public QObject {
  Q_OBJECT

 public:
  explicit MainActions(QWidget* window);

  void FillMenus(QMenuBar& menus) const;
  void FillRibbon(ucRibbon& ribbon) const;
  // The register's own menu, which the window's menu of transactions begins with.
  void FillTransactionMenu(QMenu& menu) const;
  // The commands that each view fills.
  [[nodiscard]] std::array<std::pair<QAction*, EditTask>, 6> EditTasks() const;
  // Enables what needs an open data file, or disables it.
  void SetDataOpen(bool open) const;

  QAction* mnuFileNew;
  QAction* mnuFileOpen;
  QMenu* mnuFileRecent;  // filled when it opens
  QAction* mnuFileSaveAs;
  QAction* mnuFileBackup;
  QAction* mnuFileRestore;
  QAction* mnuFileSalvage;
  QAction* mnuFileArchive;
  QAction* mnuFileTransfer;
  QAction* mnuFileValidate;
  QAction* mnuFilePassword;
  QAction* mnuFilePassphrase;
  QAction* mnuFileKey;
  QAction* mnuFileOptions;
  QAction* mnuFileImport;
  QAction* mnuFileExport;
  QAction* mnuFileSpreadsheet;
  QAction* mnuFilePrint;
  QAction* mnuFilePreview;
  QAction* mnuFilePageSetup;
  QAction* mnuFileExit;

  QAction* mnuEditUndo;
  QAction* mnuEditRedo;
  QAction* mnuEditInsert;
  QAction* mnuEditDetails;
  QAction* mnuEditCopy;
  QAction* mnuEditPaste;
  QAction* mnuEditDelete;
  QAction* mnuEditSelect;
  QAction* mnuEditFind;
  QAction* mnuEditGoTo;

  QAction* mnuAccountNew;
  QAction* mnuAccountAdd;
  QAction* mnuAccountEdit;
  QAction* mnuAccountDelete;
  QAction* mnuAccountList;

  QAction* mnuTransAdd;
  QAction* mnuTransEdit;
  QAction* mnuTransAutofill;
  QAction* mnuTransReconcile;
  QAction* mnuTransBreak;
  QAction* mnuTransUChk;
  QAction* mnuTransChk;
  QAction* mnuTranRec;
  QAction* mnuTransBreak1;
  QAction* mnuTransSchedule;
  QAction* mnuTransTransfer;
  QAction* mnuTransDelete;
  QAction* mnuTransCopy;
  QAction* mnuTransPaste;
  QAction* mnuTransKeyword;
  QAction* mnuTransAttachment;
  QAction* mnuTransLines;

  QAction* mnuCategoryAdd;
  QAction* mnuCategoryEdit;
  QAction* mnuCategoryDelete;
  QAction* mnuPayeeNew;
  QAction* mnuPayeeEdit;
  QAction* mnuPayeeDelete;

  QAction* mnuScheduleAdd;
  QAction* mnuScheduleEdit;
  QAction* mnuScheduleDelete;
  QAction* mnuScheduleCopy;
  QAction* mnuSchedulePaste;
  QAction* mnuReminderOpen;
  QAction* mnuReminderPost;
  QAction* mnuReminderSkip;

  QAction* mnuInvestAdd;
  QAction* mnuInvestEdit;
  QAction* mnuInvestDelete;
  QAction* mnuInvestHistory;
  QAction* mnuInvestDownload;
  QAction* mnuInvestTransAdd;
  QAction* mnuInvestTransEdit;
  QAction* mnuInvestTransDelete;
  QAction* mnuInvestTransCopy;
  QAction* mnuInvestTransPaste;

  QAction* mnuHoldingAdd;
  QAction* mnuHoldingEdit;
  QAction* mnuHoldingAction;

  std::vector<QAction*> mnuReports;  // in the order of the catalogue
  QAction* mnuReportCustom;
  QAction* mnuReportSave;
  QAction* mnuReportColumns;
  QAction* mnuReportInto;
  QAction* mnuReportExplain;

  QAction* mnuToolsCalculator;
  QAction* mnuToolsCurrency;
  QAction* mnuToolsKeywords;
  QAction* mnuToolsRates;
  QAction* mnuToolsSources;
  QAction* mnuToolsCurrencies;
  QAction* mnuToolsLoan;
  QAction* mnuToolsMortgage;
  QAction* mnuToolsShares;
  QAction* mnuToolsLookup;

  QAction* mnuViewAccounts;
  QAction* mnuViewRegister;
  QAction* mnuViewCategories;
  QAction* mnuViewPayees;
  QAction* mnuViewSchedules;
  QAction* mnuViewInvestments;
  QAction* mnuViewInvestTrans;
  QAction* mnuViewHoldings;
  QAction* mnuViewReports;
  QAction* mnuViewOverview;
  QAction* mnuViewReminders;
  QAction* mnuViewRibbon;
  QAction* mnuRibbonAdd;  // what the view in front lists
  QAction* mnuViewBack;
  QAction* mnuViewForward;
  QAction* mnuViewUnCleared;
  QAction* mnuViewCleared;
  QAction* mnuViewReconciled;
  QAction* mnuViewAll;
  QAction* mnuFilterAccount;
  QAction* mnuFilterCategory;
  QAction* mnuFilterPayee;
  QAction* mnuFilterInvestment;
  QAction* mnuFilterKeyword;
  QAction* mnuFilterText;
  QAction* mnuFilterNone;
  QAction* mnuViewDescription;
  QAction* mnuViewReference;
  QAction* mnuViewStatus;
  QMenu* mnuViewSort;  // filled when it opens
  QAction* mnuViewFit;
  QAction* mnuViewWidths;
  QAction* mnuViewAccountTypes;
  QAction* mnuViewBanks;
  QAction* mnuViewPayments;
  QAction* mnuViewReconcile;
  QAction* mnuViewRefresh;

  QAction* mnuHelpContents;
  QAction* mnuHelpPage;
  QAction* mnuHelpWelcome;
  QAction* mnuHelpTips;
  QAction* mnuHelpAbout;

 private:
  void MakeFile();
  void MakeSafety();
  void MakeEdit();
  void MakeTransactions();
  void MakeSchedules();
  void MakeReference();
  void MakeInvestments();
  void MakeViews();
  void MakeViewOptions();
  void MakeItems();
  void FillTransactions(QMenu& transactions) const;
  void MakeHelp();
  void MakeFilters();
  void MakeReports();
  QAction* Make(const char* name, const QString& text, const char* icon, const QString& tip,
                const QKeySequence& shortcut = {});
  QAction* MakeTick(const char* name, const QString& text, const QString& tip);
  QAction* MakeBreak(const char* name);
  // The keys of the command work in the views alone, not beside them.
  QAction* InViews(QAction* action) const;
  QMenu* AddMenu(QMenuBar& menus, const char* name, const QString& text) const;
  static QMenu* AddSubmenu(QMenu& menu, const char* name, const QString& text);
  void FillFileMenu(QMenu& file) const;
  void FillEditMenu(QMenu& edit) const;
  void FillAccountMenu(QMenu& accounts) const;
  void FillScheduleMenu(QMenu& schedules) const;
  void FillToolMenu(QMenu& tools) const;
  void FillHelpMenu(QMenu& help) const;
  void FillInvestMenu(QMenu& investments) const;
  void FillViewMenu(QMenu& view) const;
  void FillReportMenu(QMenu& reports) const;

  QWidget* window_;
};

}  // namespace corvanta::inline app
