#include "app/FrmMain.h"

#include "app/ChangeFollower.h"
#include "app/EntryCommands.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/MainViews.h"
#include "app/QtProgress.h"
#include "app/TabStops.h"
#include "app/WindowLayout.h"
#include "app/filter/FilterCommands.h"
#include "app/reminders/ReminderCommands.h"
#include "app/reminders/RemindersPanel.h"
#include "app/start/WelcomeCommands.h"
#include "app/tree/AccountTree.h"
#include "controls/EmptyState.h"
#include "controls/HairSplitter.h"
#include "controls/QtText.h"
#include "controls/Style.h"
#include "controls/SvgIcon.h"
#include "controls/ucCalendar.h"
#include "controls/ucRibbon.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

namespace corvanta::inline app {
namespace {
constexpr int kSmallest = 80 * kRhythm;
// The columns beside the view give way before it has less than this part of the window.
constexpr double kCentrePart = 0.55;
constexpr std::chrono::minutes kDayCheck(1);
}  // namespace

FrmMain::FrmMain(LedgerSession& session, Platform& platform, QtProgress& progress)
    : session_(session),
      platform_(platform),
      settings_(platform.registry),
      progress_(progress),
      day_(platform.clock.Today()),
      actions_(new MainActions(this)),
      place_{session, platform, *actions_, *this, *this},
      welcome_(std::make_unique<WelcomeCommands>(
          place_, [this] { return Reopen(true); },
          [this](const std::string& path) { return SwitchTo(path); })) {
  setObjectName(QStringLiteral("FrmMain"));
  setWindowTitle(QStringLiteral("Corvanta Personal Finance"));
  setWindowIcon(ProgramIcon());
  // A small screen at twice the size is no higher.
  setMinimumSize(kSmallest, kSmallest / 2);
  setCentralWidget(MakeCentre());
  actions_->FillMenus(*menuBar());
  MakeStatusBar();
  Connect();
  ConnectFiles();
  ConnectSafety();
  ConnectEdit();
  ConnectViews();
  ConnectDialogs();
  ConnectSettings();
  ConnectSearch();
  new ChangeFollower(*this, [this] {
    if (view_ == nullptr || view_->FollowsDialogs()) Reload();
  });
  setTabOrder(tree_, calendar_);
  setTabOrder(calendar_, pages_);
  setTabOrder(pages_, reminders_);
}

FrmMain::~FrmMain() = default;

QWidget* FrmMain::MakeCentre() {
  auto* page = new QWidget(this);
  ribbon_ = new ucRibbon(page);
  ribbon_->setObjectName(QStringLiteral("ucRibbon"));
  actions_->FillRibbon(*ribbon_);
  columns_ = new HairSplitter(Qt::Horizontal, page);
  columns_->setObjectName(QStringLiteral("spColumns"));
  MakeViews();
  columns_->addWidget(MakeLeftColumn());
  columns_->addWidget(pages_);
  reminders_ = new RemindersPanel(
      platform_.locale,
      {actions_->mnuReminderOpen, actions_->mnuReminderPost, actions_->mnuReminderSkip}, columns_);
  columns_->addWidget(reminders_);
  reminderCommands_ = new ReminderCommands(place_, *reminders_, *calendar_);
  columns_->setStretchFactor(0, 0);
  columns_->setStretchFactor(1, 1);
  columns_->setStretchFactor(2, 0);
  columns_->setCollapsible(1, false);
  columns_->setCollapsible(2, false);
  connect(columns_, &QSplitter::splitterMoved, this, [this](int, int edge) {
    if (edge == 1) isTreeByHand_ = true;
  });
  columns_->setSizes({kLeftWidth, 3 * kLeftWidth, kLeftWidth});
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(ribbon_);
  rows->addWidget(columns_, 1);
  return page;
}

bool FrmMain::focusNextPrevChild(bool next) {
  return GoToStop(*this, next);
}

void FrmMain::resizeEvent(QResizeEvent* event) {
  pages_->setMinimumWidth(static_cast<int>(kCentrePart * width()));
  QMainWindow::resizeEvent(event);
  FitTree();
}

void FrmMain::MakeViews() {
  pages_ = new QStackedWidget(columns_);
  views_ = MakeMainViews(place_, pages_);
  for (MainView* view : views_) pages_->addWidget(view->Widget());
  filters_ = new FilterCommands(place_, views_, this);
  closedView_ = new EmptyState(pages_);
  pages_->addWidget(closedView_);
  // Their keys work while a view has the focus.
  pages_->addActions({actions_->mnuEditInsert, actions_->mnuEditDetails, actions_->mnuEditCopy,
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

void FrmMain::MakeStatusBar() {
  progress_.ShowIn(statusBar());
  chosen_ = new QLabel(statusBar());
  chosen_->setObjectName(QStringLiteral("lblChosen"));
  chosen_->setContentsMargins(kRhythm, 0, kRhythm, 0);
  statusBar()->addPermanentWidget(chosen_);
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
  connect(tree_, &AccountTree::AccountChosen, this, &FrmMain::ShowAccount);
  connect(tree_, &AccountTree::AccountOpened, this, &FrmMain::OpenAccount);
  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &FrmMain::MarkChoice);
  connect(calendar_, &ucCalendar::DateSelected, this, [this](QDate day) {
    if (view_ != nullptr) view_->ChooseDay(FromQt(day));
  });
  connect(calendar_, &ucCalendar::DateActivated, this, [this](QDate day) {
    Guard([this, day] {
      if (session_.IsOpen()) AddTransaction(place_, FromQt(day));
    });
  });
  session_.OnClose([window = QPointer<FrmMain>(this)] {
    if (!window) return;
    for (MainView* view : window->views_) view->LetGo();
    // Until the next file is shown a signal that comes in finds no view to ask.
    window->view_ = nullptr;
    window->actions_->SetDataOpen(false);
  });
  auto* dayCheck = new QTimer(this);
  dayCheck->setObjectName(QStringLiteral("tmrDay"));
  connect(dayCheck, &QTimer::timeout, this, [this] { Guard([this] { ApplyDay(); }); });
  dayCheck->start(kDayCheck);
}

}  // namespace corvanta::inline app
