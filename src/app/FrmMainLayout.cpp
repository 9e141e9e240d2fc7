// How the main window is found again as it was left.
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/SafetyCommands.h"
#include "app/WindowLayout.h"
#include "app/overview/OverviewView.h"
#include "app/reminders/ReminderCommands.h"
#include "app/reminders/RemindersPanel.h"
#include "app/tree/AccountTree.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/ucRibbon.h"
#include "platform/Platform.h"

#include <QAction>
#include <QCloseEvent>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta::inline app {
namespace {
// What the accounts may take of the window for their names.
constexpr double kTreePart = 0.27;
}  // namespace

void FrmMain::Restore() {
  WindowLayout layout;
  Guard([&] {
    layout = ReadLayout(platform_.registry);
    ApplySettings();
  });
  setGeometry(PlaceOnScreen(layout, screen()->availableGeometry()));
  if (layout.maximised) setWindowState(windowState() | Qt::WindowMaximized);
  if (layout.columns.size() == columns_->count()) {
    columns_->setSizes(layout.columns);
    // At that width they stand before anyone moves their edge.
    isTreeByHand_ = layout.columns.front() != kLeftWidth;
  }
  if (layout.leftRows.size() == leftRows_->count()) leftRows_->setSizes(layout.leftRows);
  actions_->mnuViewReminders->setChecked(layout.showsReminders);
  reminders_->setVisible(layout.showsReminders);
  actions_->mnuViewRibbon->setChecked(layout.showsRibbon);
  FoldRibbon(!layout.showsRibbon);
  Guard([this] {
    for (MainView* view : views_) view->Restore(platform_.registry);
    AdoptLedger();
    RememberFile();
    ReadAccounts();
    reminderCommands_->Read();
  });
  const bool known = std::any_of(accounts_.begin(), accounts_.end(), [&](const AccountRow& row) {
    return row.accountId == layout.account;
  });
  account_ = known ? layout.account : 0;
  if (account_ == 0 && !accounts_.empty()) account_ = accounts_.front().accountId;
  const bool isOverview = BeginsWithOverview(platform_.registry);
  const MainView* view = FindView(isOverview ? std::string(kOverviewShow) : FromQt(layout.view));
  if (view == nullptr || (view->IsOfAccount() && account_ == 0)) view = views_.front();
  ShowView(view->Name());
  if (SortedTable* table = ShownTable(); table != nullptr && layout.sort.column >= 0) {
    table->SetSorted(layout.sort);
  }
  FocusView();
  NoticePosted();  // at the start
}

void FrmMain::SaveLayout() {
  WindowLayout layout = ReadLayout(platform_.registry);
  const bool normal = !isMaximized() && !isFullScreen() && !isMinimized();
  layout.place = normal ? geometry() : normalGeometry();
  layout.maximised = isMaximized();
  layout.columns = columns_->sizes();
  if (!isTreeByHand_) layout.columns.front() = kLeftWidth;
  layout.leftRows = leftRows_->sizes();
  if (session_.IsOpen()) {
    layout.view = ToQt(shown_.name);
    layout.account = account_;
  }
  layout.showsReminders = actions_->mnuViewReminders->isChecked();
  layout.showsRibbon = actions_->mnuViewRibbon->isChecked();
  for (const MainView* view : views_) view->Keep(layout.views);
  if (const SortedTable* table = ShownTable()) layout.sort = table->Sorted();
  WriteLayout(platform_.registry, layout);
}

void FrmMain::closeEvent(QCloseEvent* event) {
  // A layout that cannot be kept must not keep the person from leaving.
  Guard([this] { SaveLayout(); });
  // Whoever starts the program now is not sent to a window that goes.
  Q_EMIT FileShown(QString());
  BackUpOnLeaving(session_, platform_);
  event->accept();
}

void FrmMain::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  Guard([this] { ApplySettings(); });
}

void FrmMain::FitTree() {
  QList<int> sizes = columns_->sizes();
  // Folded away, it stays so.
  if (isTreeByHand_ || sizes.front() == 0) return;
  const int most = std::max(kLeftWidth, static_cast<int>(kTreePart * width()));
  const int more = std::clamp(tree_->WantedWidth(), kLeftWidth, most) - sizes.front();
  if (more == 0) return;
  sizes[0] += more;
  sizes[1] -= more;
  columns_->setSizes(sizes);
}

void FrmMain::FoldRibbon(bool fold) {
  ribbon_->SetFolded(fold);
}

void FrmMain::FoldReminders(bool fold) {
  const bool isFree = !isMaximized() && !isFullScreen();
  // The view keeps its width where the screen has room for the panel beside it.
  const int room = screen()->availableGeometry().right() - geometry().right();
  const int wanted = fold ? -remindersRoom_ : std::clamp(room, 0, reminders_->sizeHint().width());
  if (isFree) resize(width() + wanted, height());
  remindersRoom_ = fold || !isFree ? 0 : wanted;
  reminders_->setVisible(!fold);
  if (!fold) reminders_->Enter();
}

}  // namespace corvanta::inline app
