// What the one box for everything offers, and what it does.
#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/search/FrmPalette.h"
#include "app/search/Palette.h"
#include "controls/ListTable.h"
#include "controls/SortedTable.h"
#include "platform/IcuLocale.h"
#include "support/DialogTest.h"

#include <QLineEdit>
#include <QTimer>

namespace corvanta {
namespace {

class PaletteRules : public testing::Test {
 protected:
  std::vector<std::string> Names(const std::string& text, std::size_t most = 40) {
    std::vector<std::string> names;
    for (const PaletteItem& item : palette_.Find(text, most)) {
      // The way out is always there.
      if (item.kind != PaletteKind::Text) names.push_back(item.name);
    }
    return names;
  }
  std::vector<PaletteKind> Kinds(const std::string& text) {
    std::vector<PaletteKind> kinds;
    for (const PaletteItem& item : palette_.Find(text)) kinds.push_back(item.kind);
    return kinds;
  }

  IcuLocale british_{"en_GB"};
  Palette palette_{{{PaletteKind::Payee, "Food", "", 1},
                    {PaletteKind::Category, "Shopping:Food", "", 2},
                    {PaletteKind::Payee, "Foodie's Corner", "", 3},
                    {PaletteKind::Category, "Food", "", 4},
                    {PaletteKind::Account, "Seafood Account", "Bank", 5},
                    {PaletteKind::Command, "Accounts: Add", "Add an account", 6},
                    {PaletteKind::Command, "Transactions: Add", "Add a transaction", 7},
                    {PaletteKind::Payee, "Crédit Agricole", "our bank", 8},
                    {PaletteKind::Command, "Tools: Loan Calculator", "Work out payments", 9}},
                   british_,
                   *Date::FromYmd(2026, 11, 22)};
};

using Names = std::vector<std::string>;

TEST_F(PaletteRules, PutsTheNameItselfFirstThenBeginningsThenWordsThenTheRest) {
  EXPECT_EQ(Names("FOOD"), (::corvanta::Names{"Food", "Food", "Foodie's Corner", "Shopping:Food",
                                              "Seafood Account"}));
  EXPECT_EQ(palette_.Find("food").front().kind, PaletteKind::Payee);
  EXPECT_EQ(Names("add tr"), ::corvanta::Names{"Transactions: Add"});
  EXPECT_EQ(Names("credit"), ::corvanta::Names{"Crédit Agricole"});
  // In the detail only, and letters in their order.
  EXPECT_EQ(Names("our ban"), ::corvanta::Names{"Crédit Agricole"});
  EXPECT_EQ(Names("lncal"), ::corvanta::Names{"Tools: Loan Calculator"});
  EXPECT_EQ(Names("food", 2).size(), 2U);
  EXPECT_TRUE(Names("xyzzy").empty());
  EXPECT_EQ(Kinds("xyzzy"), std::vector<PaletteKind>{PaletteKind::Text});
}

TEST_F(PaletteRules, WhatWasChosenBeforeComesFirstAmongItsEquals) {
  EXPECT_EQ(Names("").size(), 9U);
  palette_.SetRecent(
      {{PaletteKind::Command, "Transactions: Add", "", 0}, {PaletteKind::Category, "Food", "", 0}});
  EXPECT_EQ(palette_.Find("food").front().kind, PaletteKind::Category);
  EXPECT_EQ(Names("")[0], "Transactions: Add");
  EXPECT_EQ(Names("add")[0], "Transactions: Add");
  // A better fit is better all the same.
  palette_.SetRecent({{PaletteKind::Category, "Shopping:Food", "", 0}});
  EXPECT_EQ(Names("food")[0], "Food");
}

TEST_F(PaletteRules, ReadsDaysAndAmounts) {
  const auto first = [&](const char* text) { return palette_.Find(text).front(); };
  for (const char* text : {"22/11/2026", "2026-11-22", "today", "22 Nov 2026"}) {
    EXPECT_EQ(first(text).kind, PaletteKind::Day) << text;
    EXPECT_EQ(Date::FromSerial(static_cast<std::int32_t>(first(text).key)),
              *Date::FromYmd(2026, 11, 22))
        << text;
  }
  EXPECT_EQ(first("yesterday").key, first("today").key - 1);
  EXPECT_EQ(first("tomorrow").key, first("today").key + 1);
  for (const char* text : {"12.50", "12,50", "-12.50", "1.234,50"}) {
    EXPECT_EQ(first(text).kind, PaletteKind::Amount) << text;
    EXPECT_EQ(first(text).name, text);
  }
  EXPECT_EQ(first("-12.50").detail, "-12.50");
}

class PaletteInWindow : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenData();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,17,5,0)");
    for (int i = 0; i < 2; ++i) {
      Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,"
          "[Amount],[Date]) SELECT 2,CategoryID,PaymentID,PayeeID,0,-1,[Date] FROM tblTransactions "
          "WHERE TransactionID = 3");
    }
    ShowWindow();
    window_->ShowView(kPayeeShow);
    BringForward();
  }
  // Opens the box, types, moves and presses Enter.
  void GoTo(const QString& text, int down = 0) {
    BringForward();
    QWidget* focus = window_->focusWidget();
    ASSERT_NE(focus, nullptr);
    InNextDialog([&](QDialog& dialog) {
      auto& box = DialogTest::Find<QLineEdit>(dialog, "txtGoTo");
      ASSERT_TRUE(box.hasFocus());
      QTest::keyClicks(&box, text);
      auto& list = DialogTest::Find<ListTable>(dialog, "lvGoTo");
      for (int i = 0; i < down; ++i) QTest::keyClick(&box, Qt::Key_Down);
      EXPECT_EQ(list.currentIndex().row(), down);
      chosen_ = list.model()->index(down, 0).data().toString().toStdString();
      QTest::keyClick(&box, Qt::Key_Return);
    });
    QTest::keyClick(focus, Qt::Key_K, Qt::ControlModifier);
    auto& timer = WindowTest::Find<QTimer>("tmrFind");
    ASSERT_TRUE(QTest::qWaitFor([&] { return !timer.isActive(); }, 60000));
  }
  QAbstractItemModel& Everywhere() { return *WindowTest::Find<ListTable>("lvfound").model(); }

  std::string chosen_;
};

TEST_F(PaletteInWindow, GoesToEachKindOfThing) {
  Start();
  GoTo("purs");
  EXPECT_EQ(chosen_, "Purse");
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 2}));
  GoTo("good groc");
  EXPECT_EQ(chosen_, "The Good Grocer");
  EXPECT_TRUE(WindowTest::Find<ListTable>("lvfound").isVisible());
  EXPECT_EQ(Everywhere().rowCount(), 3);
  // The rows of a category, and of those below it.
  window_->ShowView(kAccountShow);
  GoTo("shopping");
  EXPECT_EQ(chosen_, "Shopping");
  EXPECT_EQ(window_->Shown().name, kTransactionShow);
  const int shopping = Everywhere().rowCount();
  EXPECT_GE(shopping, 3);
  GoTo("shopping:foo");
  EXPECT_EQ(chosen_, "Shopping:Food");
  EXPECT_LE(Everywhere().rowCount(), shopping);
  GoTo("45,46");
  EXPECT_EQ(chosen_, "Find the amount 45.46");
  EXPECT_EQ(Everywhere().rowCount(), 1);
  GoTo("grocer", 1);
  EXPECT_EQ(chosen_, "Find \"grocer\" in all accounts");
  EXPECT_EQ(Everywhere().rowCount(), 3);
}

TEST_F(PaletteInWindow, GoesToADayAndRunsCommands) {
  Start();
  window_->Show({kTransactionShow, 1});
  window_->ShowView(kPayeeShow);
  GoTo("13/11/2026");
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
  auto& table = WindowTest::Find<SortedTable>("lvbank");
  const auto& model = static_cast<const RegisterModel&>(*table.model());
  const QModelIndexList rows = table.selectionModel()->selectedRows();
  ASSERT_FALSE(rows.isEmpty());
  for (const QModelIndex& row : rows) {
    EXPECT_EQ(model.Row(row.row()).date, *Date::FromYmd(2026, 11, 13));
  }
  GoTo("view: cat");
  EXPECT_EQ(chosen_, "View: Categories");
  EXPECT_EQ(window_->Shown().name, kCategoryShow);
  // What is looked for as it is typed has the whole line, as often as something else is typed.
  InNextDialog([](QDialog& dialog) {
    auto& box = DialogTest::Find<QLineEdit>(dialog, "txtGoTo");
    auto& list = DialogTest::Find<ListTable>(dialog, "lvGoTo");
    for (const char* text : {"nothing has these words", "purse"}) {
      box.setText(QLatin1String(text));
      const int last = list.model()->rowCount() - 1;
      EXPECT_TRUE(list.model()->index(last, 0).data().toString().contains(QLatin1String(text)));
      EXPECT_EQ(list.columnSpan(last, 0), 2) << text;
    }
    EXPECT_EQ(list.columnSpan(0, 0), 1) << "an account has something beside it";
  });
  Trigger("mnuEditGoTo");
  // Escape does nothing, and the box can be left that way.
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmPalette");
    // What was chosen last is offered first.
    EXPECT_EQ(DialogTest::Find<ListTable>(dialog, "lvGoTo").model()->index(0, 0).data(),
              "View: Categories");
    QTest::keyClick(&DialogTest::Find<QLineEdit>(dialog, "txtGoTo"), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  Trigger("mnuEditGoTo");
  EXPECT_EQ(window_->Shown().name, kCategoryShow);
}

}  // namespace
}  // namespace corvanta
