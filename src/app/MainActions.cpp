#include "app/MainActions.h"

#include "controls/SvgIcon.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

namespace corvanta::inline app {

MainActions::MainActions(QWidget* window) : QObject(window), window_(window) {
  MakeFile();
  MakeSafety();
  MakeEdit();
  MakeTransactions();
  MakeSchedules();
  MakeReference();
  MakeInvestments();
  MakeReports();
  MakeViews();
  MakeViewOptions();
  MakeItems();
  MakeFilters();
  MakeHelp();
}

void MainActions::MakeEdit() {
  mnuEditUndo = Make("mnuEditUndo", tr("&Undo"), "undo", tr("Take the last change back"),
                     QKeySequence(Qt::CTRL | Qt::Key_Z));
  mnuEditRedo =
      Make("mnuEditRedo", tr("&Redo"), "redo", tr("Make the change again that was taken back"),
           QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
  mnuEditRedo->setShortcuts({mnuEditRedo->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Y)});
  mnuEditInsert = InViews(Make("mnuEditInsert", tr("&Insert..."), "", tr("Add an item to the list"),
                               QKeySequence(Qt::Key_Insert)));
  mnuEditDetails = InViews(Make("mnuEditDetails", tr("De&tails..."), "", tr("Edit the chosen item"),
                                QKeySequence(Qt::Key_F2)));
  mnuEditCopy = InViews(Make("mnuEditCopy", tr("Cop&y"), "copy", tr("Copy the chosen rows"),
                             QKeySequence(Qt::CTRL | Qt::Key_C)));
  mnuEditPaste = InViews(Make("mnuEditPaste", tr("&Paste"), "paste",
                              tr("Put the copied transactions into the account shown"),
                              QKeySequence(Qt::CTRL | Qt::Key_V)));
  mnuEditDelete = InViews(Make("mnuEditDelete", tr("&Delete"), "delete",
                               tr("Delete the chosen items"), QKeySequence(Qt::Key_Delete)));
  mnuEditSelect = InViews(Make("mnuEditSelect", tr("Select &All"), "", tr("Choose all items"),
                               QKeySequence(Qt::CTRL | Qt::Key_A)));
  mnuEditFind = Make("mnuEditFind", tr("&Find..."), "find",
                     tr("Look for words and amounts in the list"), QKeySequence::Find);
  mnuEditGoTo =
      Make("mnuEditGoTo", tr("&Go To..."), "",
           tr("Go to an account, a payee, a category, an amount, a day, or run a command"),
           QKeySequence(Qt::CTRL | Qt::Key_K));
}

void MainActions::MakeTransactions() {
  mnuTransAdd = Make("mnuTransAdd", tr("&Add..."), "add", tr("Add a transaction to the account"),
                     QKeySequence::New);
  mnuTransEdit = Make("mnuTransEdit", tr("&Edit..."), "edit",
                      tr("Edit the chosen transaction, or several at once"));
  mnuTransAutofill =
      Make("mnuTransAutofill", tr("Auto&fill..."), "autofill",
           tr("Add a transaction like an earlier one of the same payee and category"),
           QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N));
  mnuTransReconcile =
      Make("mnuTransReconcile", tr("&Balance Account..."), "reconcile",
           tr("Balance the account against a statement"), QKeySequence(Qt::CTRL | Qt::Key_B));
  mnuTransBreak = MakeBreak("mnuTransBreak");
  mnuTransUChk = MakeTick("mnuTransUChk", tr("&Uncleared"), tr("No statement shows it"));
  mnuTransChk = MakeTick("mnuTransChk", tr("&Cleared"), tr("A statement shows it"));
  mnuTranRec = MakeTick("mnuTranRec", tr("&Reconciled"), tr("It is part of a balanced statement"));
  mnuTransBreak1 = MakeBreak("mnuTransBreak1");
  mnuTransSchedule = Make("mnuTransSchedule", tr("&Schedule Item"), "schedule",
                          tr("Tell of the schedule that the transaction was made from"));
  mnuTransTransfer = Make("mnuTransTransfer", tr("&Transfer Item"), "transfer",
                          tr("Show the other half of the transfer in its account"));
  mnuTransLines = MakeTick("mnuTransLines", tr("Split &Lines"),
                           tr("Show what a split transaction was spent on below it (Right, Left)"));
}

void MainActions::MakeSchedules() {
  mnuScheduleAdd = Make("mnuScheduleAdd", tr("&Add..."), "add", tr("Add a schedule"));
  mnuScheduleEdit = Make("mnuScheduleEdit", tr("&Edit..."), "edit", tr("Edit the chosen schedule"));
  mnuScheduleDelete =
      Make("mnuScheduleDelete", tr("&Delete"), "delete", tr("Delete the chosen schedule"));
  mnuScheduleCopy = Make("mnuScheduleCopy", tr("&Copy"), "copy", tr("Copy the chosen schedule"));
  mnuSchedulePaste =
      Make("mnuSchedulePaste", tr("&Paste"), "paste", tr("Add the copied schedule once more"));
  mnuReminderOpen = Make("mnuReminderOpen", tr("&Open..."), "",
                         tr("Show the schedule, or the transaction once it is posted"));
  mnuReminderPost =
      Make("mnuReminderPost", tr("&Post"), "", tr("Put the payment that is due into its account"),
           QKeySequence(Qt::Key_P));
  mnuReminderSkip = Make("mnuReminderSkip", tr("&Skip"), "", tr("Leave this one payment out"),
                         QKeySequence(Qt::Key_S));
  InViews(mnuReminderPost);
  InViews(mnuReminderSkip);
}

void MainActions::MakeReference() {
  mnuAccountNew = Make("mnuAccountNew", tr("&New..."), "add", tr("Add an account"));
  mnuAccountAdd = Make("mnuAccountAdd", tr("&Add..."), "",
                       tr("Add an account like the chosen one, of its group, bank and currency"));
  mnuAccountEdit = Make("mnuAccountEdit", tr("&Edit..."), "", tr("Edit the account"));
  mnuAccountDelete = Make("mnuAccountDelete", tr("&Delete"), "", tr("Delete the account"));
  mnuAccountList = Make("mnuAccountList", tr("&List"), "accounts", tr("Show the list of accounts"));
  mnuCategoryAdd = Make("mnuCategoryAdd", tr("&Add..."), "", tr("Add a category"));
  mnuCategoryEdit = Make("mnuCategoryEdit", tr("&Edit..."), "", tr("Edit the chosen category"));
  mnuCategoryDelete =
      Make("mnuCategoryDelete", tr("&Delete"), "", tr("Delete the chosen category"));
  mnuPayeeNew = Make("mnuPayeeNew", tr("&New..."), "", tr("Add a payee"));
  mnuPayeeEdit = Make("mnuPayeeEdit", tr("&Edit..."), "", tr("Edit the chosen payee"));
  mnuPayeeDelete = Make("mnuPayeeDelete", tr("&Delete"), "", tr("Delete the chosen payee"));
  mnuToolsCurrency = Make("mnuToolsCurrency", tr("&Currency Converter..."), "currency",
                          tr("Convert an amount with today's exchange rate"));
  mnuToolsKeywords =
      Make("mnuToolsKeywords", tr("&Keywords..."), "", tr("Show the keywords of transactions"));
  mnuToolsRates = Make("mnuToolsRates", tr("&Exchange Rates..."), "",
                       tr("Show the exchange rates that are known, with their days"));
  mnuToolsSources = Make("mnuToolsSources", tr("&Data Sources..."), "",
                         tr("Show where prices and exchange rates come from"));
  mnuToolsLoan = Make("mnuToolsLoan", tr("&Loan Calculator..."), "",
                      tr("Work out the payments of a loan and what it costs"));
  mnuToolsMortgage = Make("mnuToolsMortgage", tr("&Mortgage Calculator..."), "",
                          tr("Work out the payments of a mortgage and what it costs"));
  mnuToolsShares =
      Make("mnuToolsShares", tr("&Shares..."), "", tr("Fetch the latest quotes of the watch list"));
  mnuToolsLookup = Make("mnuToolsLookup", tr("C&urrency Lookup..."), "",
                        tr("Fetch the latest rates of the watch list"));
  mnuViewAccountTypes =
      Make("mnuViewAccountTypes", tr("Account T&ypes..."), "", tr("Show the groups of accounts"));
  mnuViewBanks = Make("mnuViewBanks", tr("Ban&ks..."), "", tr("Show the banks"));
  mnuViewPayments =
      Make("mnuViewPayments", tr("Pay&ment Types..."), "", tr("Show the payment types"));
  mnuToolsCurrencies =
      Make("mnuToolsCurrencies", tr("Cu&rrencies..."), "", tr("Show the currencies of accounts"));
}

void MainActions::MakeInvestments() {
  mnuInvestAdd = Make("mnuInvestAdd", tr("&Add..."), "add", tr("Add an investment"));
  mnuInvestEdit = Make("mnuInvestEdit", tr("&Edit..."), "edit", tr("Edit the chosen investment"));
  mnuInvestDelete =
      Make("mnuInvestDelete", tr("&Delete"), "delete", tr("Delete the chosen investment"));
  mnuInvestHistory =
      Make("mnuInvestHistory", tr("Price &History..."), "",
           tr("Show the prices of the chosen investment; of a new one while none is chosen"));
  mnuInvestDownload = Make("mnuInvestDownload", tr("Do&wnload Prices"), "import",
                           tr("Fetch today's prices of all investments"));
  mnuInvestTransAdd = Make("mnuInvestTransAdd", tr("&Add..."), "add",
                           tr("Enter what was bought, sold or paid out"));
  mnuInvestTransEdit = Make("mnuInvestTransEdit", tr("&Edit..."), "edit",
                            tr("Edit the chosen investment transaction"));
  mnuInvestTransDelete = Make("mnuInvestTransDelete", tr("&Delete"), "delete",
                              tr("Delete the chosen investment transactions"));
  mnuInvestTransCopy = Make("mnuInvestTransCopy", tr("&Copy"), "copy",
                            tr("Copy the chosen investment transactions"));
  mnuInvestTransPaste = Make("mnuInvestTransPaste", tr("&Paste"), "paste",
                             tr("Enter the copied investment transactions once more"));
  mnuHoldingAdd = Make("mnuHoldingAdd", tr("Add &Transaction..."), "add",
                       tr("Enter what was bought, sold or paid out of the holding"));
  mnuHoldingEdit = Make("mnuHoldingEdit", tr("&Edit Investment..."), "edit",
                        tr("Edit the investment that is held"));
  mnuHoldingAction = Make("mnuHoldingAction", tr("&Corporate Action..."), "split",
                          tr("Enter a split of shares, a merger or a spin-off"));
}

void MainActions::MakeViews() {
  mnuViewAccounts = Make("mnuViewAccounts", tr("&Accounts"), "accounts",
                         tr("Show the list of accounts"), QKeySequence(Qt::CTRL | Qt::Key_1));
  mnuViewRegister =
      Make("mnuViewRegister", tr("Re&gister"), "register",
           tr("Show the transactions of the chosen account"), QKeySequence(Qt::CTRL | Qt::Key_2));
  mnuViewCategories = Make("mnuViewCategories", tr("Categ&ories"), "categories",
                           tr("Show the list of categories"), QKeySequence(Qt::CTRL | Qt::Key_3));
  mnuViewPayees = Make("mnuViewPayees", tr("&Payees"), "payees", tr("Show the list of payees"),
                       QKeySequence(Qt::CTRL | Qt::Key_4));
  mnuViewSchedules =
      Make("mnuViewSchedules", tr("Sc&hedules"), "schedule",
           tr("Show what is paid again and again"), QKeySequence(Qt::CTRL | Qt::Key_5));
  mnuViewInvestments =
      Make("mnuViewInvestments", tr("Inves&tments"), "investments",
           tr("Show what can be held, with its price"), QKeySequence(Qt::CTRL | Qt::Key_6));
  mnuViewInvestTrans =
      Make("mnuViewInvestTrans", tr("Investment T&ransactions"), "trades",
           tr("Show what was bought, sold and paid out"), QKeySequence(Qt::CTRL | Qt::Key_7));
  mnuViewHoldings =
      Make("mnuViewHoldings", tr("Hol&dings"), "investments",
           tr("Show what is held and what it has earned"), QKeySequence(Qt::CTRL | Qt::Key_8));
  mnuViewReminders = Make("mnuViewReminders", tr("Rem&inders"), "reminder",
                          tr("Show or fold what is due"), QKeySequence(Qt::Key_F9));
  mnuViewReminders->setCheckable(true);
  auto* views = new QActionGroup(this);
  for (QAction* view :
       {mnuViewAccounts, mnuViewRegister, mnuViewCategories, mnuViewPayees, mnuViewSchedules,
        mnuViewInvestments, mnuViewInvestTrans, mnuViewHoldings, mnuViewReports, mnuViewOverview}) {
    view->setCheckable(true);
    views->addAction(view);
  }
  mnuViewBack = Make("mnuViewBack", tr("&Back"), "back", tr("Show the former view again"),
                     QKeySequence(Qt::ALT | Qt::Key_Left));
  mnuViewForward = Make("mnuViewForward", tr("&Forward"), "forward", tr("Show the next view again"),
                        QKeySequence(Qt::ALT | Qt::Key_Right));
  mnuViewReconcile = Make("mnuViewReconcile", tr("Balance Accou&nt..."), "reconcile",
                          tr("Balance the account against a statement"));
  mnuViewRefresh = Make("mnuViewRefresh", tr("Refre&sh"), "refresh",
                        tr("Read the accounts and the list again"), QKeySequence(Qt::Key_F5));
}

void MainActions::MakeViewOptions() {
  mnuViewUnCleared = MakeTick("mnuViewUnCleared", tr("Show &Uncleared Funds"),
                              tr("Show and count what no statement shows yet"));
  mnuViewCleared = MakeTick("mnuViewCleared", tr("Show &Cleared Funds"),
                            tr("Show and count what a statement shows"));
  mnuViewReconciled = MakeTick("mnuViewReconciled", tr("Show R&econciled Funds"),
                               tr("Show and count what balanced statements hold"));
  for (QAction* tick : {mnuViewUnCleared, mnuViewCleared, mnuViewReconciled}) {
    tick->setChecked(true);
  }
  mnuViewAll = Make("mnuViewAll", tr("Show E&verything"), "",
                    tr("Show all transactions, of every day and status"));
  mnuViewDescription = MakeTick("mnuViewDescription", tr("Show &Description"),
                                tr("Show the description in the register"));
  mnuViewReference =
      MakeTick("mnuViewReference", tr("Show &Reference"), tr("Show the reference in the register"));
  mnuViewStatus =
      MakeTick("mnuViewStatus", tr("Show S&tatus"), tr("Show the status in the register"));
  mnuViewSort = new QMenu(tr("Sort by &Column"), window_);
  mnuViewSort->menuAction()->setObjectName(QStringLiteral("mnuViewSort"));
  mnuViewFit = Make("mnuViewFit", tr("&Fit Column Widths"), "",
                    tr("Make each column of the list as wide as what it shows"));
  mnuViewWidths = Make("mnuViewWidths", tr("Reset Column &Widths"), "",
                       tr("Let the columns of the list fill its width again"));
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

QAction* MainActions::MakeBreak(const char* name) {
  auto* line = new QAction(window_);
  line->setObjectName(QLatin1String(name));
  line->setSeparator(true);
  return line;
}

QAction* MainActions::InViews(QAction* action) const {
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  return action;
}

std::array<std::pair<QAction*, EditTask>, 6> MainActions::EditTasks() const {
  return {{{mnuEditInsert, EditTask::Insert},
           {mnuEditDetails, EditTask::Details},
           {mnuEditCopy, EditTask::Copy},
           {mnuEditPaste, EditTask::Paste},
           {mnuEditDelete, EditTask::Delete},
           {mnuEditSelect, EditTask::SelectAll}}};
}

void MainActions::SetDataOpen(bool open) const {
  for (QAction* action :
       {mnuHoldingAdd,      mnuHoldingAction,   mnuViewHoldings,     mnuFileImport,
        mnuViewSchedules,   mnuScheduleAdd,     mnuInvestAdd,        mnuInvestHistory,
        mnuInvestTransAdd,  mnuViewInvestments, mnuViewInvestTrans,  mnuViewAccounts,
        mnuViewRegister,    mnuViewCategories,  mnuViewPayees,       mnuViewRefresh,
        mnuViewDescription, mnuViewReference,   mnuViewStatus,       mnuViewUnCleared,
        mnuViewCleared,     mnuViewReconciled,  mnuViewAccountTypes, mnuViewBanks,
        mnuViewPayments,    mnuToolsKeywords,   mnuAccountAdd,       mnuAccountList,
        mnuCategoryAdd,     mnuPayeeNew,        mnuToolsCurrency,    mnuToolsRates,
        mnuToolsSources,    mnuTransAdd,        mnuTransAutofill,    mnuTransReconcile,
        mnuViewReconcile,   mnuFilePassword,    mnuFileKey,          mnuToolsShares,
        mnuToolsLookup,     mnuInvestDownload,  mnuFilePassphrase,   mnuAccountNew,
        mnuToolsCurrencies, mnuFileSaveAs,      mnuFileBackup,       mnuFileArchive,
        mnuFileTransfer,    mnuHelpWelcome,     mnuViewReports,      mnuViewOverview}) {
    action->setEnabled(open);
  }
}

}  // namespace corvanta::inline app
