#include "app/FrmMain.h"

#include "app/AccountTree.h"
#include "app/AccountsView.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/QtProgress.h"
#include "app/QtText.h"
#include "app/RegisterView.h"
#include "controls/EmptyState.h"
#include "controls/HairSplitter.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "controls/ucCalendar.h"
#include "controls/ucRibbon.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace corvanta {
namespace {
constexpr int kLeftWidth = 34 * kRhythm;
constexpr int kSmallest = 80 * kRhythm;
}  // namespace

FrmMain::FrmMain(LedgerSession& session, Platform& platform, QtProgress& progress)
    : session_(session),
      platform_(platform),
      settings_(platform.registry),
      progress_(progress),
      actions_(new MainActions(this)) {
  setObjectName(QStringLiteral("FrmMain"));
  setWindowTitle(QStringLiteral("Corvanta Personal Finance"));
  setWindowIcon(ProgramIcon());
  setMinimumSize(kSmallest, kSmallest * 3 / 4);
  actions_->FillMenus(*menuBar());
  setCentralWidget(MakeCentre());
  MakeStatusBar();
  Connect();
  ConnectCommands();
  setTabOrder(tree_, calendar_);
  setTabOrder(calendar_, views_);
}

QWidget* FrmMain::MakeCentre() {
  auto* page = new QWidget(this);
  ribbon_ = new ucRibbon(page);
  ribbon_->setObjectName(QStringLiteral("ucRibbon"));
  actions_->FillRibbon(*ribbon_);
  columns_ = new HairSplitter(Qt::Horizontal, page);
  columns_->setObjectName(QStringLiteral("spColumns"));
  views_ = new QStackedWidget(columns_);
  accountsView_ = new AccountsView(platform_.locale, actions_->mnuFileOpen, views_);
  registerView_ = new RegisterView(platform_.locale, actions_->mnuViewAccounts, views_);
  closedView_ = new EmptyState(views_);
  for (QWidget* view : {static_cast<QWidget*>(accountsView_), static_cast<QWidget*>(registerView_),
                        static_cast<QWidget*>(closedView_)}) {
    views_->addWidget(view);
  }
  columns_->addWidget(MakeLeftColumn());
  columns_->addWidget(views_);
  columns_->addWidget(MakeReminders());
  columns_->setStretchFactor(0, 0);
  columns_->setStretchFactor(1, 1);
  columns_->setStretchFactor(2, 0);
  columns_->setCollapsible(1, false);
  columns_->setSizes({kLeftWidth, 3 * kLeftWidth, kLeftWidth});
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(ribbon_);
  rows->addWidget(columns_, 1);
  return page;
}

QWidget* FrmMain::MakeLeftColumn() {
  leftRows_ = new HairSplitter(Qt::Vertical, columns_);
  leftRows_->setObjectName(QStringLiteral("spLeft"));
  leftRows_->setMinimumWidth(22 * kRhythm);
  tree_ = new AccountTree(platform_.locale, leftRows_);
  calendar_ = new ucCalendar(leftRows_);
  calendar_->setObjectName(QStringLiteral("ucCalendar"));
  calendar_->SetToday(ToQt(platform_.clock.Today()));
  leftRows_->addWidget(tree_);
  leftRows_->addWidget(calendar_);
  leftRows_->setStretchFactor(0, 1);
  leftRows_->setStretchFactor(1, 0);
  return leftRows_;
}

// The right column, which stays folded as long as there is nothing to be reminded of.
QWidget* FrmMain::MakeReminders() {
  reminders_ = new QWidget(columns_);
  reminders_->setObjectName(QStringLiteral("pnlReminders"));
  auto* title = new QLabel(tr("Reminders"), reminders_);
  title->setFont(ScaledFont(1, QFont::DemiBold));
  auto* column = new QVBoxLayout(reminders_);
  column->setContentsMargins(2 * kRhythm, 2 * kRhythm, 2 * kRhythm, kRhythm);
  column->addWidget(title);
  column->addStretch();
  reminders_->hide();
  return reminders_;
}

void FrmMain::MakeStatusBar() {
  progress_.ShowIn(statusBar());
  fileName_ = new QLabel(statusBar());
  fileName_->setObjectName(QStringLiteral("lblFile"));
  fileName_->setContentsMargins(kRhythm, 0, kRhythm, 0);
  statusBar()->addPermanentWidget(fileName_);
}

void FrmMain::Connect() {
  connect(tree_, &AccountTree::AccountChosen, this, [this](qint64 account) {
    Show({kTransactionShow, account});
  });
  connect(accountsView_, &AccountsView::AccountOpened, this, [this](qint64 account) {
    Show({kTransactionShow, account});
  });
  connect(calendar_, &ucCalendar::DateSelected, this, [this](QDate day) {
    if (shown_.name == kTransactionShow) registerView_->ChooseDay(FromQt(day));
  });
}

void FrmMain::Show(const ViewCommand& command) {
  Guard([&] {
    ShowAgain(command);
    history_.Push(shown_);
    MarkCommands();
  });
}

void FrmMain::Reload() {
  Guard([this] {
    ReadAccounts();
    ShowAgain(shown_);
    MarkCommands();
  });
}

void FrmMain::ReadAccounts() {
  accounts_.clear();
  if (session_.IsOpen()) {
    accounts_ = session_.Ledger().Accounts({}, settings_.IsOn(Setting::Closed));
  }
  tree_->SetAccounts(accounts_);
  const QString path = ToQt(session_.Path());
  QString shown = path;
  if (path.startsWith(QDir::homePath() + u'/')) shown.replace(0, QDir::homePath().size(), u'~');
  // A long path must not make the window wide.
  fileName_->setText(fontMetrics().elidedText(shown, Qt::ElideMiddle, kLeftWidth));
  fileName_->setToolTip(path);
  actions_->SetDataOpen(session_.IsOpen());
}

void FrmMain::ShowAgain(const ViewCommand& command) {
  shown_ = command;
  if (!session_.IsOpen()) return ShowClosed();
  if (command.name == kTransactionShow) return ShowRegister(command.accountId);
  ShowAccounts();
}

void FrmMain::ShowAccounts() {
  accountsView_->ShowAccounts(accounts_);
  tree_->Choose(0);
  calendar_->SetMarkedDays({});
  views_->setCurrentWidget(accountsView_);
}

void FrmMain::ShowRegister(std::int64_t accountId) {
  const auto found =
      std::find_if(accounts_.begin(), accounts_.end(),
                   [accountId](const AccountRow& row) { return row.accountId == accountId; });
  if (found == accounts_.end()) {
    registerView_->ShowNoAccount();
    tree_->Choose(0);
    calendar_->SetMarkedDays({});
  } else {
    registerView_->ShowAccount(*found, session_.Ledger().Register(accountId, {}, std::nullopt));
    tree_->Choose(accountId);
    calendar_->SetMarkedDays(registerView_->Days());
    account_ = accountId;
  }
  views_->setCurrentWidget(registerView_);
}

void FrmMain::ShowClosed() {
  closedView_->Show(QStringLiteral("open"), tr("No data file is open"),
                    tr("Open the file that holds your accounts. It is usually called "
                       "Corvanta.dat."),
                    actions_->mnuFileOpen);
  calendar_->SetMarkedDays({});
  views_->setCurrentWidget(closedView_);
}

void FrmMain::MarkCommands() {
  const bool isRegister = shown_.name == kTransactionShow;
  actions_->mnuViewAccounts->setChecked(!isRegister);
  actions_->mnuViewRegister->setChecked(isRegister);
  actions_->mnuViewBack->setEnabled(session_.IsOpen() && history_.CanGoBack());
  actions_->mnuViewForward->setEnabled(session_.IsOpen() && history_.CanGoForward());
}

}  // namespace corvanta
