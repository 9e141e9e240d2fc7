#include "app/FrmMain.h"

#include "app/AccountTree.h"
#include "app/AccountsView.h"
#include "app/CategoriesView.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/PayeesView.h"
#include "app/QtProgress.h"
#include "app/ReadAhead.h"
#include "app/RegisterView.h"
#include "app/RemindersPanel.h"
#include "app/ScheduleView.h"
#include "controls/EmptyState.h"
#include "controls/HairSplitter.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "controls/ucCalendar.h"
#include "controls/ucRibbon.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include <initializer_list>

namespace corvanta {
namespace {
constexpr int kLeftWidth = 34 * kRhythm;
constexpr int kSmallest = 80 * kRhythm;
// The columns beside the view give way before it has less than this part of the window.
constexpr double kCentrePart = 0.55;
}  // namespace

FrmMain::FrmMain(LedgerSession& session, Platform& platform, QtProgress& progress)
    : session_(session),
      platform_(platform),
      settings_(platform.registry),
      progress_(progress),
      ahead_(new ReadAhead(shelf_, this)),
      day_(platform.clock.Today()),
      actions_(new MainActions(this)) {
  setObjectName(QStringLiteral("FrmMain"));
  setWindowTitle(QStringLiteral("Corvanta Personal Finance"));
  setWindowIcon(ProgramIcon());
  setMinimumSize(kSmallest, kSmallest * 3 / 4);
  setCentralWidget(MakeCentre());
  MakeMenus();
  MakeStatusBar();
  Connect();
  ConnectCommands();
  setTabOrder(tree_, calendar_);
  setTabOrder(calendar_, views_);
  setTabOrder(views_, reminders_);
}

QWidget* FrmMain::MakeCentre() {
  auto* page = new QWidget(this);
  ribbon_ = new ucRibbon(page);
  ribbon_->setObjectName(QStringLiteral("ucRibbon"));
  actions_->FillRibbon(*ribbon_);
  columns_ = new HairSplitter(Qt::Horizontal, page);
  columns_->setObjectName(QStringLiteral("spColumns"));
  MakeViews();
  columns_->addWidget(MakeLeftColumn());
  columns_->addWidget(views_);
  reminders_ = new RemindersPanel(
      platform_.locale,
      {actions_->mnuReminderOpen, actions_->mnuReminderPost, actions_->mnuReminderSkip}, columns_);
  columns_->addWidget(reminders_);
  columns_->setStretchFactor(0, 0);
  columns_->setStretchFactor(1, 1);
  columns_->setStretchFactor(2, 0);
  columns_->setCollapsible(1, false);
  columns_->setCollapsible(2, false);
  columns_->setSizes({kLeftWidth, 3 * kLeftWidth, kLeftWidth});
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(ribbon_);
  rows->addWidget(columns_, 1);
  return page;
}

void FrmMain::resizeEvent(QResizeEvent* event) {
  views_->setMinimumWidth(static_cast<int>(kCentrePart * width()));
  QMainWindow::resizeEvent(event);
}

void FrmMain::MakeViews() {
  views_ = new QStackedWidget(columns_);
  accountsView_ = new AccountsView(platform_.locale, actions_->mnuAccountAdd, views_);
  registerView_ = new RegisterView(
      platform_.locale, {actions_->mnuTransAdd, actions_->mnuViewAccounts, actions_->mnuViewAll},
      views_);
  registerView_->SetToday(day_);
  categoriesView_ = new CategoriesView(platform_.locale, actions_->mnuCategoryAdd, views_);
  payeesView_ = new PayeesView(actions_->mnuPayeeNew, views_);
  scheduleView_ = new ScheduleView(platform_.locale, actions_->mnuScheduleAdd, views_);
  closedView_ = new EmptyState(views_);
  for (QWidget* view :
       std::initializer_list<QWidget*>{accountsView_, registerView_, categoriesView_, payeesView_,
                                       scheduleView_, closedView_}) {
    views_->addWidget(view);
  }
  accountsView_->SetCommands(
      {actions_->mnuAccountAdd, actions_->mnuAccountEdit, actions_->mnuAccountDelete});
  categoriesView_->SetCommands(
      {actions_->mnuCategoryAdd, actions_->mnuCategoryEdit, actions_->mnuCategoryDelete});
  payeesView_->SetCommands(
      {actions_->mnuPayeeNew, actions_->mnuPayeeEdit, actions_->mnuPayeeDelete});
  scheduleView_->SetCommands({actions_->mnuScheduleAdd, actions_->mnuScheduleEdit,
                              actions_->mnuScheduleDelete, actions_->mnuScheduleCopy,
                              actions_->mnuSchedulePaste});
  // Their keys work while a view has the focus.
  views_->addActions({actions_->mnuEditInsert, actions_->mnuEditDetails, actions_->mnuEditCopy,
                      actions_->mnuEditPaste, actions_->mnuEditDelete, actions_->mnuEditSelect});
}

QWidget* FrmMain::MakeLeftColumn() {
  leftRows_ = new HairSplitter(Qt::Vertical, columns_);
  leftRows_->setObjectName(QStringLiteral("spLeft"));
  leftRows_->setMinimumWidth(22 * kRhythm);
  tree_ = new AccountTree(platform_.locale, leftRows_);
  calendar_ = new ucCalendar(leftRows_);
  calendar_->setObjectName(QStringLiteral("ucCalendar"));
  calendar_->SetToday(ToQt(day_));
  leftRows_->addWidget(tree_);
  leftRows_->addWidget(calendar_);
  leftRows_->setStretchFactor(0, 1);
  leftRows_->setStretchFactor(1, 0);
  return leftRows_;
}

void FrmMain::MakeMenus() {
  actions_->FillMenus(*menuBar());
  transactionMenu_ = new QMenu(this);
  transactionMenu_->setObjectName(QStringLiteral("mnuTransaction"));
  transactionMenu_->addActions({actions_->mnuTransAdd, actions_->mnuTransEdit});
  transactionMenu_->addSeparator();
  actions_->FillTransactionMenu(*transactionMenu_);
}

void FrmMain::MakeStatusBar() {
  progress_.ShowIn(statusBar());
  uncleared_ = new QLabel(statusBar());
  uncleared_->setObjectName(QStringLiteral("lblUncleared"));
  uncleared_->setContentsMargins(kRhythm, 0, kRhythm, 0);
  statusBar()->addPermanentWidget(uncleared_);
  fileName_ = new QLabel(statusBar());
  fileName_->setObjectName(QStringLiteral("lblFile"));
  fileName_->setContentsMargins(kRhythm, 0, kRhythm, 0);
  statusBar()->addPermanentWidget(fileName_);
}

void FrmMain::Connect() {
  connect(tree_, &AccountTree::AccountChosen, this,
          [this](qint64 account) { ShowView(kTransactionShow, account); });
  connect(tree_, &AccountTree::AccountOpened, this, &FrmMain::OpenAccount);
  connect(accountsView_, &ReferenceView::Opened, this, &FrmMain::OpenAccount);
  connect(categoriesView_, &ReferenceView::Opened, this,
          [this](qint64 key) { Guard([this, key] { EditItem(ReferenceKind::Category, key); }); });
  connect(payeesView_, &ReferenceView::Opened, this,
          [this](qint64 key) { Guard([this, key] { EditItem(ReferenceKind::Payee, key); }); });
  connect(scheduleView_, &ReferenceView::Opened, this,
          [this](qint64 key) { Guard([this, key] { EditSchedule(key); }); });
  const auto mark = [this] { Guard([this] { MarkChoice(); }); };
  for (ReferenceView* view : std::initializer_list<ReferenceView*>{accountsView_, categoriesView_,
                                                                   payeesView_, scheduleView_}) {
    connect(view, &ReferenceView::ChoiceChanged, this, mark);
  }
  connect(registerView_, &RegisterView::ChoiceChanged, this, mark);
  connect(registerView_, &RegisterView::Opened, this,
          [this](std::int64_t key) { Guard([this, key] { OpenTransactions(key); }); });
  connect(registerView_, &RegisterView::PeriodChanged, this, &FrmMain::TakeFilter);
  session_.OnClose([window = QPointer<FrmMain>(this)] {
    if (!window) return;
    window->ahead_->Stop();
    window->shelf_.Clear();
    window->registerView_->LetGo();
  });
  connect(registerView_, &RegisterView::DaysRead, this, [this] {
    if (shown_.name == kTransactionShow) calendar_->SetMarkedDays(registerView_->Days());
  });
  connect(registerView_, &RegisterView::Outdated, this, &FrmMain::Reload);
  connect(registerView_, &RegisterView::Failed, this, [this](const QString& reason) {
    platform_.prompts.Tell("Data File", FromQt(reason), Icon::Warning);
  });
  connect(registerView_, &RegisterView::MenuRequested, this,
          [this](QPoint place) { Guard([this, place] { ShowTransactionMenu(place); }); });
  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, mark);
  connect(calendar_, &ucCalendar::DateSelected, this, [this](QDate day) {
    if (shown_.name == kTransactionShow) registerView_->ChooseDay(FromQt(day));
  });
  connect(calendar_, &ucCalendar::DateActivated, this, [this](QDate day) {
    Guard([this, day] {
      if (session_.IsOpen()) AddTransaction(FromQt(day));
    });
  });
}

}  // namespace corvanta
