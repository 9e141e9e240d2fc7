// How the main window is found again as it was left.
#include "app/AccountsView.h"
#include "app/CategoriesView.h"
#include "app/FrmMain.h"
#include "app/LedgerSession.h"
#include "app/ListColours.h"
#include "app/MainActions.h"
#include "app/PayeesView.h"
#include "app/RegisterView.h"
#include "app/RemindersPanel.h"
#include "app/ScheduleView.h"
#include "app/WindowLayout.h"
#include "controls/CommandEdge.h"
#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

#include <QAction>
#include <QCloseEvent>
#include <QScreen>
#include <QSplitter>
#include <QStackedWidget>

#include <algorithm>

namespace corvanta {

void FrmMain::Restore() {
  WindowLayout layout;
  Guard([&] {
    layout = ReadLayout(platform_.registry);
    ApplySettings();
  });
  setGeometry(PlaceOnScreen(layout, screen()->availableGeometry()));
  if (layout.maximised) setWindowState(windowState() | Qt::WindowMaximized);
  if (layout.columns.size() == columns_->count()) columns_->setSizes(layout.columns);
  if (layout.leftRows.size() == leftRows_->count()) leftRows_->setSizes(layout.leftRows);
  registerView_->SetWidths(layout.registerWidths);
  accountsView_->SetWidths(layout.accountsWidths);
  categoriesView_->SetWidths(layout.categoriesWidths);
  payeesView_->SetWidths(layout.payeesWidths);
  scheduleView_->SetWidths(layout.schedulesWidths);
  actions_->mnuViewReminders->setChecked(layout.showsReminders);
  reminders_->setVisible(layout.showsReminders);
  Guard([this] {
    const DateRange dates = settings_.Dates(platform_.clock.Today());
    registerView_->SetDates(dates);
    if (settings_.IsOn(Setting::SetDate)) registerView_->SetPeriod(dates);
    TakeLedger();
    ReadAccounts();
    ReadReminders();
  });
  const bool known = std::any_of(accounts_.begin(), accounts_.end(), [&](const AccountRow& row) {
    return row.accountId == layout.account;
  });
  account_ = known ? layout.account : 0;
  if (account_ == 0 && !accounts_.empty()) account_ = accounts_.front().accountId;
  std::string_view view = kAccountShow;
  for (const std::string_view one : {kTransactionShow, kCategoryShow, kPayeeShow, kScheduleShow}) {
    if (layout.view == ToQt(one) && (one != kTransactionShow || account_ != 0)) view = one;
  }
  ShowView(view, view == kTransactionShow ? account_ : 0);
  if (SortedTable* table = ShownTable(); table != nullptr && layout.sort.column >= 0) {
    table->SetSorted(layout.sort);
  }
  views_->currentWidget()->setFocus();
  NoticePosted();  // at the start
}

void FrmMain::SaveLayout() {
  WindowLayout layout = ReadLayout(platform_.registry);
  const bool normal = !isMaximized() && !isFullScreen() && !isMinimized();
  layout.place = normal ? geometry() : normalGeometry();
  layout.maximised = isMaximized();
  layout.columns = columns_->sizes();
  layout.leftRows = leftRows_->sizes();
  if (session_.IsOpen()) {
    layout.view = ToQt(shown_.name);
    layout.account = account_;
  }
  layout.registerWidths = registerView_->Widths();
  layout.accountsWidths = accountsView_->Widths();
  layout.categoriesWidths = categoriesView_->Widths();
  layout.payeesWidths = payeesView_->Widths();
  layout.schedulesWidths = scheduleView_->Widths();
  layout.showsReminders = actions_->mnuViewReminders->isChecked();
  layout.dates = registerView_->Dates();
  layout.isDatesInForce = registerView_->Period().has_value();
  if (const SortedTable* table = ShownTable()) layout.sort = table->Sorted();
  WriteLayout(platform_.registry, layout);
}

void FrmMain::closeEvent(QCloseEvent* event) {
  // A layout that cannot be kept must not keep the person from leaving.
  Guard([this] { SaveLayout(); });
  event->accept();
}

void FrmMain::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && registerView_ != nullptr) {
    Guard([this] { registerView_->SetColours(ReadListColours(settings_, palette())); });
  }
}

}  // namespace corvanta
