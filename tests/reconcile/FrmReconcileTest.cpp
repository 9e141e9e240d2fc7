#include "controls/QtText.h"
#include "controls/SortedTable.h"
#include "controls/Style.h"
#include "ledger/RecordsTest.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Settings.h"
#include "reconcile/FrmReconcile.h"
#include "reconcile/QtReconcileModel.h"
#include "reconcile/ReconcileDialogs.h"
#include "support/Contents.h"
#include "support/ScriptedRates.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>

#include <stdexcept>

namespace corvanta {
namespace {

class Balancing : public RecordsTest {
 protected:
  template <typename Widget>
  Widget& Find(const char* name) {
    auto* found = form_->findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no ") + name);
    return *found;
  }
  void Click(const char* button) {
    QTest::mouseClick(&Find<QAbstractButton>(button), Qt::LeftButton);
  }
  SortedTable& List() { return Find<SortedTable>("lvBalance"); }

  void Open(std::int64_t account) {
    ReconcileOpeners openers;
    openers.transaction = [this](std::int64_t key, QWidget* parent,
                                 const std::function<void()>& changed) {
      EXPECT_EQ(parent, form_.get());
      opened_.push_back(key);
      return editor_ ? editor_(changed) : false;
    };
    openers.print = [this](const QTableView& list, const std::string& title, QWidget*) {
      printed_ = title + "/" + std::to_string(list.model()->rowCount());
    };
    form_ =
        std::make_unique<FrmReconcile>(account, store_.platform.Get(), ledger_, openers, nullptr);
    isOpen_ = form_->Open();
    if (!isOpen_) return;
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }

  // The cells of a column from the top.
  QStringList Cells(const char* heading) {
    const QAbstractItemModel& model = *List().model();
    int column = 0;
    while (model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString() !=
           QLatin1String(heading)) {
      ++column;
    }
    QStringList cells;
    for (int row = 0; row < model.rowCount(); ++row) {
      cells.append(model.index(row, column).data().toString());
    }
    return cells;
  }
  // "x" for a ticked row and "-" for another.
  std::string Ticks() {
    std::string ticks;
    for (int row = 0; row < List().model()->rowCount(); ++row) {
      const QVariant state = List().model()->index(row, 0).data(Qt::CheckStateRole);
      ticks += state.toInt() == Qt::Checked ? "x" : "-";
    }
    return ticks;
  }
  void ClickBox(int row) {
    const QRect cell = List().visualRect(List().model()->index(row, 0));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                      QPoint(cell.left() + 20, cell.center().y()));
  }
  void DoubleClick(int row, int x) {
    const QRect cell = List().visualRect(List().model()->index(row, 0));
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {},
                       QPoint(cell.left() + x, cell.center().y()));
  }
  void SortBy(int column) {
    const QHeaderView* head = List().horizontalHeader();
    QTest::mouseClick(head->viewport(), Qt::LeftButton, {},
                      QPoint(head->sectionViewportPosition(column) + 12, head->height() / 2));
  }
  std::string Label(const char* name) { return FromQt(Find<QLabel>(name).text()); }
  std::string Everything() { return ContentsOf(Db(), {"tblTransactions"}); }
  // Rows of 40 out, 15.50 in and 9 out, each on a later day.
  void AddThree() {
    out_ = Add(bank_, -40, "2026-11-01");
    in_ = Add(bank_, 15.5, "2026-11-02");
    Add(bank_, -9, "2026-11-10");
  }

  std::unique_ptr<FrmReconcile> form_;
  bool isOpen_ = false;
  std::function<bool(const std::function<void()>&)> editor_;
  std::vector<std::int64_t> opened_;
  std::string printed_;
  std::int64_t out_ = 0;
  std::int64_t in_ = 0;
};

TEST_F(Balancing, WhatCannotBeBalancedIsTold) {
  store_.platform.prompts.ExpectTell("Please Select Account",
                                     "Please select an Account to continue.");
  Open(0);
  EXPECT_FALSE(isOpen_);
  Run("UPDATE tblAccounts SET CloseAccount = 1 WHERE AccountID = " + std::to_string(bank_));
  store_.platform.prompts.ExpectTell("Balance Account",
                                     "This Account is closed, Items cannot be amended");
  Open(bank_);
  EXPECT_FALSE(isOpen_);
}

TEST_F(Balancing, TheControlsAreCaptionedAndReachedByTab) {
  AddThree();
  Open(bank_);
  EXPECT_EQ(form_->windowTitle(), "Balance Account");
  const std::vector<std::array<const char*, 3>> buttons = {
      {"cmdAddTransaction", "Add &Transaction", "Add Transaction"},
      {"cmdShowAll", "&Show All", "Show All Transactions"},
      {"cmdUnReconciled", "&Show Unreconciled", "Show Unreconciled Transactions"},
      {"cmdSelect", "&Select All", "Select All"},
      {"cmdDSelect", "Clea&r All", "Clear All"},
      {"cmdInvert", "&Invert", "Invert Selected"},
      {"cmdPrint", "&Print", "Print"},
      {"cmdAccept", "&Apply", "Apply"},
      {"cmdCancel", "&Close", "Close"},
      {"cmdHelp", "&Help", "Help"}};
  for (const auto& [name, caption, toolTip] : buttons) {
    EXPECT_EQ(Find<QPushButton>(name).text(), caption);
    EXPECT_EQ(Find<QPushButton>(name).toolTip(), toolTip);
  }
  EXPECT_EQ(form_->focusWidget()->objectName(), "lvBalance");
  QStringList order;
  for (int i = 0; i < 13; ++i) {
    QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
    order.append(form_->focusWidget()->objectName());
  }
  EXPECT_EQ(FromQt(order.join(u' ')),
            "cmdStatement cmdHelp cmdAccept cmdCancel cmdAddTransaction cmdShowAll cmdUnReconciled "
            "cmdSelect cmdDSelect cmdInvert cmdPrint lvBalance cmdStatement");
}

TEST_F(Balancing, SpaceAndTheMouseTickAndTheLabelsFollow) {
  AddThree();
  Open(bank_);
  EXPECT_EQ(Cells("Paid Out"), QStringList({"40.00", "", "9.00"})) << "without sign";
  EXPECT_EQ(Cells("Paid In"), QStringList({"", "15.50", ""}));
  EXPECT_EQ(Label("lblBalInitial"), "Initial Balance: 100.00");
  QTest::keyClick(&List(), Qt::Key_Space);
  EXPECT_EQ(Ticks(), "x--");
  EXPECT_EQ(Label("lblBalNow"), "Current Balance: 60.00");
  EXPECT_EQ(Label("lblNoPayOut"), "Paid Out: 1 (40.00)");
  EXPECT_EQ(Label("lblBalRemaining"), "Outstanding: 6.50");
  QTest::keyClick(&List(), Qt::Key_Down);
  QTest::keyClick(&List(), Qt::Key_Space);
  EXPECT_EQ(Ticks(), "xx-");
  EXPECT_EQ(Label("lblNoPayIn"), "Paid In: 1 (15.50)");
  ClickBox(2);
  EXPECT_EQ(Ticks(), "xxx");
  ClickBox(0);
  EXPECT_EQ(Ticks(), "-xx");
  EXPECT_EQ(List().currentIndex().row(), 0);
  DoubleClick(0, 20);
  EXPECT_TRUE(opened_.empty()) << "two quick clicks on a box tick and untick";
  QTest::mouseClick(List().viewport(), Qt::LeftButton, {},
                    List().visualRect(List().model()->index(1, 2)).center());
  EXPECT_EQ(Ticks().substr(1), "xx") << "a click beside the box chooses";
  Click("cmdSelect");
  EXPECT_EQ(Ticks(), "xxx");
  Click("cmdDSelect");
  EXPECT_EQ(Ticks(), "---");
  ClickBox(1);
  Click("cmdInvert");
  EXPECT_EQ(Ticks(), "x-x");
  EXPECT_EQ(Label("lblBalNow"), "Current Balance: 51.00");
}

TEST_F(Balancing, SortingIsByValueAndKeepsTheTicks) {
  AddThree();
  Add(bank_, -100, "2026-02-11");
  Open(bank_);
  EXPECT_EQ(Cells("Date"), QStringList({"11/02/2026", "01/11/2026", "02/11/2026", "10/11/2026"}));
  ClickBox(1);
  SortBy(6);
  EXPECT_EQ(Cells("Paid Out"), QStringList({"", "9.00", "40.00", "100.00"}));
  EXPECT_EQ(Ticks(), "--x-");
  EXPECT_EQ(List().currentIndex().row(), 2) << "the row in use stays so";
  SortBy(6);
  EXPECT_EQ(Cells("Paid Out"), QStringList({"100.00", "40.00", "9.00", ""}));
  SortBy(0);
  SortBy(0);
  EXPECT_EQ(Cells("Date"), QStringList({"10/11/2026", "02/11/2026", "01/11/2026", "11/02/2026"}));
  EXPECT_EQ(Ticks(), "--x-");
  EXPECT_EQ(Label("lblBalNow"), "Current Balance: 60.00");
}

TEST_F(Balancing, AddingAndEditingKeepTheTicks) {
  AddThree();
  Open(bank_);
  ClickBox(0);
  editor_ = [this](const std::function<void()>& changed) {
    Add(bank_, -3, "2026-01-01");
    changed();
    EXPECT_EQ(Ticks(), "-x--") << "seen behind the editor already";
    Add(bank_, -4, "2026-01-02");
    return true;
  };
  Click("cmdAddTransaction");
  EXPECT_EQ(opened_, std::vector<std::int64_t>{0});
  EXPECT_EQ(Ticks(), "--x--");
  EXPECT_TRUE(form_->IsChanged());
  editor_ = [this](const auto&) {
    TransactionRecord row = Row(bank_, -41, "2026-12-01");
    row.transactionId = out_;
    ledger_.Transactions().SaveTransaction(row);
    return true;
  };
  DoubleClick(2, 90);
  EXPECT_EQ(opened_.back(), out_);
  EXPECT_EQ(Ticks(), "----x");
  EXPECT_EQ(Label("lblBalNow"), "Current Balance: 59.00");
  editor_ = nullptr;
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(opened_.size(), 3U);
  EXPECT_EQ(opened_.back(), out_) << "the row in use is the same one";
}

TEST_F(Balancing, WithoutAnyAccountNothingIsAdded) {
  Open(bank_);
  Run("DELETE FROM tblAccounts");
  store_.platform.prompts.ExpectTell(
      "Please Add Account", "There are no Accounts set up. Please add an Account to start");
  Click("cmdAddTransaction");
  EXPECT_TRUE(opened_.empty());
}

TEST_F(Balancing, ApplyWritesAndClosesAndCloseWritesNothing) {
  AddThree();
  const std::string before = Everything();
  Open(bank_);
  Click("cmdSelect");
  Click("cmdCancel");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_FALSE(form_->IsChanged());
  EXPECT_EQ(Everything(), before);
  Open(bank_);
  ClickBox(0);
  ClickBox(1);
  Find<QPushButton>("cmdAccept").setFocus();
  QTest::keyClick(form_->focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_TRUE(form_->IsChanged());
  EXPECT_EQ(Column("BankRec", out_), 1);
  EXPECT_EQ(Column("BankChk", out_), 1);
  Open(bank_);
  EXPECT_EQ(Cells("Paid Out"), QStringList({"9.00"}));
  EXPECT_EQ(Label("lblBalInitial"), "Initial Balance: 75.50");
  Click("cmdShowAll");
  EXPECT_TRUE(Find<QPushButton>("cmdShowAll").isChecked());
  EXPECT_FALSE(Find<QPushButton>("cmdUnReconciled").isChecked());
  EXPECT_EQ(Ticks(), "xx-");
  EXPECT_EQ(Cells("Status"), QStringList({"R", "R", ""}));
  EXPECT_EQ(Label("lblBalInitial"), "Initial Balance: 100.00");
  EXPECT_EQ(Label("lblBalNow"), "Current Balance: 75.50");
  ClickBox(1);
  Click("cmdAccept");
  EXPECT_EQ(Column("BankRec", in_), 0);
  EXPECT_EQ(Column("BankChk", in_), 0);
  EXPECT_EQ(Column("BankRec", out_), 1);
  Open(bank_);
  Click("cmdShowAll");
  Click("cmdUnReconciled");
  EXPECT_EQ(Ticks(), "--");
}

TEST_F(Balancing, ApplyingShowsThatItRunsAndCanBeStopped) {
  Add(bank_, -1);
  while (Count("tblTransactions") < 8192) {
    Run("INSERT INTO tblTransactions (AccountID, CategoryID, PaymentID, PayeeID, [Amount], [Date], "
        "AllocatedItem) SELECT AccountID, CategoryID, PaymentID, PayeeID, [Amount], [Date], 0 FROM "
        "tblTransactions");
  }
  Open(bank_);
  Click("cmdSelect");
  // Looks in between two rows, and closes once there is a progress to be seen.
  QTimer watch;
  bool wasSeen = false;
  QObject::connect(&watch, &QTimer::timeout, form_.get(), [&] {
    if (wasSeen || !Find<QProgressBar>("pbStatus").isVisible()) return;
    wasSeen = true;
    EXPECT_EQ(Find<QStatusBar>("StatusBar1").currentMessage(), "Please wait processing records...");
    for (const char* name : {"cmdCancel", "cmdDSelect", "cmdSelect", "cmdAccept"}) {
      EXPECT_FALSE(Find<QPushButton>(name).isEnabled()) << name;
    }
    EXPECT_FALSE(form_->close()) << "it stays until all is taken back";
  });
  watch.start(5);
  Click("cmdAccept");
  ASSERT_TRUE(wasSeen);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(Count("tblTransactions WHERE BankRec = 1"), 0) << "all of the statement or nothing";
  EXPECT_EQ(Ticks().size(), 8192U);
  EXPECT_EQ(Ticks().find('-'), std::string::npos) << "all is still ticked";
  EXPECT_EQ(Find<QStatusBar>("StatusBar1").currentMessage(), "");
  EXPECT_TRUE(Find<QPushButton>("cmdAccept").isEnabled());
}

TEST_F(Balancing, EscapeAsksBeforeTicksGo) {
  AddThree();
  Open(bank_);
  Click("cmdSelect");
  store_.platform.prompts.ExpectAsk("Balance Account",
                                    "The ticks are not applied. Do you wish to drop them?", false);
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_TRUE(form_->isVisible());
  Click("cmdDSelect");
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible()) << "nothing would be lost";
}

TEST_F(Balancing, AStatementThatIsNoAmountIsRefused) {
  AddThree();
  Open(bank_);
  Click("cmdStatement");
  auto& field = Find<QLineEdit>("txtStatement");
  QTest::keyClicks(&field, "1/0");
  store_.platform.prompts.ExpectTell("Balance Account", ScriptedPrompts::kAnyText);
  Click("cmdAccept");
  EXPECT_TRUE(form_->isVisible());
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(field.selectedText(), "1/0");
  QTest::keyClicks(&field, "60");
  Click("cmdStatement");
  Click("cmdStatement");
  EXPECT_EQ(field.selectedText(), "60.00") << "ready to be typed over";
  field.clear();
  Find<QWidget>("lvBalance").setFocus();
  EXPECT_EQ(field.text(), "") << "nothing was said";
}

TEST_F(Balancing, TheStatementLineUnfoldsAndShowsTheDifference) {
  AddThree();
  Open(bank_);
  auto& field = Find<QLineEdit>("txtStatement");
  EXPECT_FALSE(field.isVisible());
  Click("cmdStatement");
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(Label("lblDifference"), "");
  QTest::keyClicks(&field, "60");
  EXPECT_EQ(Label("lblDifference"), "Difference: -40.00");
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_TRUE(form_->isVisible()) << "a typed balance is no wish to write";
  EXPECT_EQ(form_->focusWidget(), &List());
  EXPECT_EQ(field.text(), "60.00");
  QTest::keyClick(&List(), Qt::Key_Space);
  EXPECT_EQ(Label("lblDifference"), "Difference: 0.00, balanced");
  field.setText("1,2x");
  EXPECT_EQ(Label("lblDifference"), "This is no amount");
  Click("cmdStatement");
  EXPECT_FALSE(field.isVisible());
}

TEST_F(Balancing, TheSizeAndTheColumnsAreKept) {
  Settings settings(store_.platform.registry);
  Open(bank_);
  form_->resize(form_->minimumSizeHint() + QSize(37, 41));
  const QSize size = form_->size();
  const int former = List().columnWidth(0);
  List().horizontalHeader()->resizeSection(0, former - 7);
  EXPECT_EQ(List().columnWidth(0), former - 7);
  QTest::keyClick(form_.get(), Qt::Key_Escape);
  EXPECT_EQ(settings.Number(Setting::bHeight), size.height());
  EXPECT_EQ(settings.Number(Setting::bWidth), size.width());
  Open(bank_);
  EXPECT_EQ(form_->size(), size);
  EXPECT_EQ(List().columnWidth(0), former - 7);
}

TEST_F(Balancing, ACategoryWithItsSubCategoryHasRoom) {
  AddThree();
  Open(bank_);
  EXPECT_LE(List().horizontalHeader()->length(), List().viewport()->width());
  form_->resize(920, 600);
  const int text =
      List().fontMetrics().horizontalAdvance(QStringLiteral("Bills:Mortgage Repayment"));
  EXPECT_GT(List().columnWidth(QtReconcileModel::kCategory), text + 2 * kRhythm);
  EXPECT_LE(List().horizontalHeader()->length(), List().viewport()->width());
}

TEST_F(Balancing, PrintGetsTheListAndHelpTells) {
  AddThree();
  Open(bank_);
  Click("cmdPrint");
  EXPECT_EQ(printed_, "Balance Account: Bank (GBP)/3");
  store_.platform.prompts.ExpectTell("Balance Account", ScriptedPrompts::kAnyText);
  Click("cmdHelp");
}

TEST_F(Balancing, WhatTheFileRefusesIsToldAndTheDialogStays) {
  AddThree();
  Open(bank_);
  Click("cmdSelect");
  Run("ALTER TABLE tblTransactions DROP COLUMN BankRec");
  store_.platform.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Click("cmdAccept");
  EXPECT_TRUE(form_->isVisible());
  EXPECT_TRUE(Find<QPushButton>("cmdAccept").isEnabled());
  EXPECT_EQ(Ticks(), "xxx");
  Run("ALTER TABLE tblTransactions ADD COLUMN BankRec INT DEFAULT 0");
}

// Does something in the dialog that opens next, and closes it.
void InNextDialog(const std::function<void(QDialog&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    act(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
}

TEST_F(Balancing, ThePrintPreviewAndTheEditorOpenOverIt) {
  AddThree();
  QStringList seen;
  const auto press = [](const QDialog& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
  };
  const auto look = [&](const QDialog& dialog) { seen.append(dialog.objectName()); };
  InNextDialog([&](QDialog& balancing) {
    look(balancing);
    InNextDialog(look);
    press(balancing, "cmdPrint");
    InNextDialog(look);
    press(balancing, "cmdAddTransaction");
    InNextDialog(look);
    QTest::keyClick(balancing.findChild<QTableView*>(), Qt::Key_Return);
  });
  ScriptedRates rates;
  EXPECT_FALSE(OpenReconcile(bank_, {store_.platform.Get(), ledger_, rates, nullptr}).isChanged);
  EXPECT_EQ(FromQt(seen.join(u' ')), "FrmReconcile FrmPreview FrmAccountTrans FrmAccountTrans");
}

TEST_F(Balancing, AScheduleMadeFromARowIsReported) {
  AddThree();
  const auto press = [](const QDialog& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
  };
  InNextDialog([&](QDialog& balancing) {
    InNextDialog([&](QDialog& row) {
      InNextDialog([&](QDialog& schedule) { press(schedule, "cmdAccept"); });
      press(row, "cmdAddSchedule");
    });
    QTest::keyClick(balancing.findChild<QTableView*>(), Qt::Key_Return);
  });
  ScriptedRates rates;
  EXPECT_TRUE(
      OpenReconcile(bank_, {store_.platform.Get(), ledger_, rates, nullptr}).isScheduleChanged);
}

}  // namespace
}  // namespace corvanta
