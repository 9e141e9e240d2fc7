#include "app/MainActions.h"
#include "app/MainView.h"
#include "app/MainViews.h"
#include "app/ViewCommand.h"
#include "app/WindowTest.h"
#include "controls/QuietEnd.h"
#include "controls/SortedTable.h"

#include <QHeaderView>
#include <QStackedWidget>

#include <set>

namespace corvanta {
namespace {

// What each view must be to the window, whichever there are.
class MainViewsTest : public WindowTest {
 protected:
  // All of them, of a second set that is never in front.
  std::vector<MainView*> MakeViews() {
    actions_ = std::make_unique<MainActions>(window_.get());
    parent_ = std::make_unique<QuietEnd<QWidget>>();
    place_ = std::make_unique<ViewPlace>(
        ViewPlace{session_, machine_.Get(), *actions_, *window_, *window_});
    return MakeMainViews(*place_, parent_.get());
  }

 private:
  std::unique_ptr<MainActions> actions_;
  std::unique_ptr<ViewPlace> place_;
  std::unique_ptr<QuietEnd<QWidget>> parent_;
};

TEST_F(MainViewsTest, EachHasAnEntryATitleAListAndSettingsOfItsOwn) {
  OpenData();
  ShowWindow();
  std::set<std::string_view> names;
  std::set<const QAction*> entries;
  std::set<QString> lists;
  std::map<std::string, std::string> kept;
  std::size_t settings = 0;
  const std::vector<MainView*> views = MakeViews();
  for (MainView* view : views) {
    const std::string name(view->Name());
    names.insert(view->Name());
    entries.insert(view->Entry());
    EXPECT_FALSE(view->Widget() == nullptr) << name;
    // The overview has no list, the reports at first not either.
    lists.insert(view->Table() != nullptr ? view->Table()->objectName()
                                          : view->Widget()->objectName());
    view->Keep(kept);
    EXPECT_GT(kept.size(), settings) << name << " shares its settings with another one";
    settings = kept.size();
  }
  EXPECT_EQ(names.size(), views.size());
  EXPECT_EQ(entries.size(), views.size());
  EXPECT_EQ(lists.size(), views.size());
  EXPECT_FALSE(views.front()->IsOfAccount()) << "it stands where there is no account";
}

TEST_F(MainViewsTest, EachIsShownMarkedPrintedAndFoundAgain) {
  OpenData();
  ShowWindow();
  for (const char* entry :
       {"mnuViewAccounts", "mnuViewRegister", "mnuViewCategories", "mnuViewPayees",
        "mnuViewSchedules", "mnuViewInvestments", "mnuViewInvestTrans"}) {
    Trigger(entry);
    const ViewCommand shown = window_->Shown();
    EXPECT_TRUE(Find<QAction>(entry).isChecked()) << entry;
    EXPECT_TRUE(Find<QAction>("mnuFilePrint").isEnabled()) << entry;
    EXPECT_TRUE(Find<QAction>("mnuEditInsert").isEnabled()) << entry;
    window_->close();
    EXPECT_EQ(Setting("View"), shown.name) << entry;
    ShowWindow();
    EXPECT_EQ(window_->Shown(), shown) << entry;
    EXPECT_TRUE(Find<QAction>(entry).isChecked()) << entry;
  }
}

TEST_F(MainViewsTest, CommandsOfAViewRestWhileAnotherOneIsInFront) {
  OpenData();
  ShowWindow();
  const auto isEnabled = [this](const char* name) { return Find<QAction>(name).isEnabled(); };
  Trigger("mnuViewPayees");
  EXPECT_FALSE(isEnabled("mnuPayeeEdit")) << "none is chosen";
  Find<SortedTable>("lvpayee").selectRow(0);
  EXPECT_TRUE(isEnabled("mnuPayeeEdit"));
  EXPECT_TRUE(isEnabled("mnuEditDelete"));
  EXPECT_TRUE(isEnabled("mnuEditCopy")) << "as text";
  EXPECT_FALSE(isEnabled("mnuEditPaste"));
  EXPECT_FALSE(isEnabled("mnuTransEdit"));
  EXPECT_FALSE(isEnabled("mnuFileExport"));
  EXPECT_FALSE(isEnabled("mnuAccountEdit"));
  Trigger("mnuViewRegister");
  EXPECT_FALSE(isEnabled("mnuPayeeEdit"));
  EXPECT_TRUE(isEnabled("mnuFileExport"));
  EXPECT_TRUE(isEnabled("mnuAccountEdit")) << "the account whose register it is";
  EXPECT_TRUE(isEnabled("mnuEditSelect"));
  Find<SortedTable>("lvbank").selectRow(0);
  EXPECT_TRUE(isEnabled("mnuEditCopy"));
  Trigger("mnuViewAccounts");
  EXPECT_FALSE(isEnabled("mnuTransEdit"));
  EXPECT_FALSE(isEnabled("mnuTransChk"));
  EXPECT_FALSE(isEnabled("mnuEditCopy"));
  EXPECT_FALSE(isEnabled("mnuAccountEdit"));
  Find<SortedTable>("lvbalance").selectRow(0);
  EXPECT_TRUE(isEnabled("mnuAccountEdit"));
}

TEST_F(MainViewsTest, ARegisterWhoseAccountIsGoneOffersNothingOfIt) {
  OpenPurse();
  ShowWindow();
  ASSERT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
  Run("DELETE FROM tblAccounts WHERE AccountID = 1");
  Trigger("mnuViewRefresh");
  for (const char* name : {"mnuAccountEdit", "mnuAccountDelete", "mnuFileExport"}) {
    EXPECT_FALSE(Find<QAction>(name).isEnabled()) << name;
  }
}

}  // namespace
}  // namespace corvanta
