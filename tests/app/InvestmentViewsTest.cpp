#include "app/ViewCommand.h"
#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "controls/SortedTable.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/Settings.h"
#include "support/LedgerProblems.h"
#include "support/StatementLog.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace corvanta {
namespace {

// The lists of investments and of their transactions, and what the register says of these.
class InvestmentViews : public WindowTest {
 protected:
  void Start(const char* view) {
    OpenData();
    ShowWindow();
    BringForward();
    Trigger(view);
  }
  SortedTable& List() { return Find<SortedTable>("lvinvest"); }
  SortedTable& Trades() { return Find<SortedTable>("lvinvesttrans"); }
  static QString Cell(SortedTable& table, int row, int column) {
    return table.model()->index(row, column).data().toString();
  }
  static QString Row(SortedTable& table, int row) {
    QStringList cells;
    for (int column = 0; column < table.model()->columnCount(); ++column) {
      cells.append(Cell(table, row, column));
    }
    return cells.join(u'|');
  }
  static QString Heads(SortedTable& table) {
    QStringList heads;
    for (int column = 0; column < table.model()->columnCount(); ++column) {
      heads.append(table.model()->headerData(column, Qt::Horizontal).toString());
    }
    return heads.join(u'|');
  }
  // Works in the dialog that opens next, then closes it if it still stands.
  void InNext(const char* name, const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, qApp, [name, act] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr) << name;
      EXPECT_EQ(dialog->objectName(), QLatin1String(name));
      act(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
  }
  static void Put(QDialog& dialog, const char* field, const QString& text) {
    dialog.findChild<QLineEdit*>(QLatin1String(field))->setText(text);
  }
  static void Save(QDialog& dialog) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("cmdAccept")), Qt::LeftButton);
  }
  clsCorvanta& Ledger() { return session_.Ledger(); }
};

TEST_F(InvestmentViews, InvestmentsAreListedAddedEditedAndDeleted) {
  Start("mnuViewInvestments");
  EXPECT_EQ(window_->Shown().name, kInvestmentShow);
  EXPECT_EQ(Heads(List()),
            "Investment|Symbol|Currency|Quoted In|Data Source|Last Price|Price Date|Description");
  ASSERT_EQ(List().model()->rowCount(), 2);
  EXPECT_TRUE(Row(List(), 0).startsWith(
      QStringLiteral("British Telecom|BT-A.L|GBP|GBP|Yahoo UK Stock|3.1800|")));
  EXPECT_EQ(Cell(List(), 1, 5), "") << "none is stored";
  EXPECT_EQ(Cell(List(), 1, 6), "None");
  EXPECT_FALSE(Find<QAction>("mnuInvestEdit").isEnabled());
  List().setFocus();
  InNext("FrmInvest", [](QDialog& dialog) {
    Put(dialog, "txtSymbol", "BLT");
    Put(dialog, "txtInvestment", "Bolt");
    dialog.findChild<QComboBox*>(QStringLiteral("cmbDataSource"))
        ->setEditText(QStringLiteral("Manual Update"));
    Save(dialog);
  });
  QTest::keyClick(&List(), Qt::Key_Insert);
  ASSERT_EQ(List().model()->rowCount(), 3);
  EXPECT_EQ(Cell(List(), List().currentIndex().row(), 0), "Bolt") << "the new one is chosen";
  InNext("FrmInvest", [](QDialog& dialog) {
    Put(dialog, "txtDescription", "shares");
    Save(dialog);
  });
  QTest::keyClick(&List(), Qt::Key_Return);
  EXPECT_EQ(Cell(List(), List().currentIndex().row(), 7), "shares");
  machine_.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, true);
  Trigger("mnuInvestDelete");
  EXPECT_EQ(List().model()->rowCount(), 2);
  Trigger("mnuEditUndo");
  EXPECT_EQ(List().model()->rowCount(), 3);
  List().selectRow(1);
  EXPECT_EQ(Cell(List(), 1, 0), "British Telecom");
  machine_.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, true);
  Trigger("mnuEditDelete");
  EXPECT_EQ(List().model()->rowCount(), 3) << "it is held";
}

TEST_F(InvestmentViews, TransactionsAreListedByDayWithTheirFigures) {
  Start("mnuViewInvestTrans");
  EXPECT_EQ(window_->Shown().name, kInvestmentTransShow);
  EXPECT_EQ(Heads(Trades()),
            "Date|Account|Investment|Symbol|Action|Dividend|Shares|Price|Commission|Amount|Status|"
            "Description");
  ASSERT_EQ(Trades().model()->rowCount(), 1);
  EXPECT_TRUE(
      Row(Trades(), 0)
          .endsWith(QStringLiteral(
              "|Sample Bank Account|British Telecom|BT-A.L|Buy||100.0000|3.1600||-316.00||")))
      << Row(Trades(), 0).toStdString();
  Trigger("mnuViewUnCleared");
  EXPECT_EQ(Trades().model()->rowCount(), 0) << "a status that is not ticked";
  Trigger("mnuViewUnCleared");
  Trades().setFocus();
  InNext("FrmInvestTrans", [](QDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Add Investment Transaction");
    auto* action = dialog.findChild<QComboBox*>(QStringLiteral("cmbAction"));
    action->setCurrentIndex(action->findText(QStringLiteral("Add Shares")));
    Put(dialog, "txtShares", "5");
    Save(dialog);
  });
  Trades().selectRow(0);
  QTest::keyClick(&Trades(), Qt::Key_Insert);
  ASSERT_EQ(Trades().model()->rowCount(), 2);
  EXPECT_EQ(Cell(Trades(), Trades().currentIndex().row(), 4), "Add Shares");
  EXPECT_EQ(Cell(Trades(), Trades().currentIndex().row(), 2), "British Telecom")
      << "like the one that was chosen";
  Trigger("mnuEditUndo");
  EXPECT_EQ(Trades().model()->rowCount(), 1);
}

TEST_F(InvestmentViews, TransactionsAreCopiedPastedAndDeleted) {
  Start("mnuViewInvestTrans");
  EXPECT_FALSE(Find<QAction>("mnuInvestTransCopy").isEnabled());
  Trades().selectRow(0);
  Trigger("mnuInvestTransCopy");
  Trigger("mnuInvestTransPaste");
  ASSERT_EQ(Trades().model()->rowCount(), 2);
  EXPECT_EQ(Cell(Trades(), 1, 6), "100.0000") << "with all its figures";
  Trades().setFocus();
  QTest::keyClick(&Trades(), Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&Trades(), Qt::Key_C, Qt::ControlModifier);
  QTest::keyClick(&Trades(), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Trades().model()->rowCount(), 4);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Trades().model()->rowCount(), 2) << "both at once";
  QTest::keyClick(&Trades(), Qt::Key_A, Qt::ControlModifier);
  machine_.prompts.ExpectAsk("Delete Items?", "Do you wish to delete these 2 items?", true);
  Trigger("mnuInvestTransDelete");
  EXPECT_EQ(Trades().model()->rowCount(), 0);
  Trigger("mnuEditUndo");
  EXPECT_EQ(Trades().model()->rowCount(), 2);
  // What is no investment transaction is not pasted here.
  Trigger("mnuViewRegister");
  window_->findChild<RegisterView*>()->ChooseKey(1);
  Trigger("mnuEditCopy");
  Trigger("mnuViewInvestTrans");
  EXPECT_FALSE(Find<QAction>("mnuInvestTransPaste").isEnabled());
  EXPECT_EQ(LedgerProblems(Ledger().Store()), std::vector<std::string>());
}

class LongListOfTrades : public InvestmentViews {
 protected:
  ~LongListOfTrades() override {
    window_.reset();
    session_.Close();
  }
  StatementLog log_;  // outlives the connection
};

TEST_F(LongListOfTrades, ReadsWhatIsInSightAndSortsByEveryColumn) {
  Start("mnuViewInvestTrans");
  constexpr int kRows = 600;
  Run("INSERT INTO tblPayees (Payee,[Symbol],CurrencyID,Investment) VALUES ('acme','ZZ',17,1)");
  const auto acme = Ledger().Store().QueryValue("Select Max(PayeeID) from tblPayees").Int();
  Transaction all = Ledger().Store().Begin();
  for (int i = 0; i < kRows; ++i) {
    InvestmentTransaction row;
    row.accountId = 1;
    row.payeeId = i % 2 == 0 ? acme : Ledger().Transactions().ReadTransaction(38)->payeeId;
    row.action = kInvestActions[i % 6].action;
    row.shares = i % 7;
    row.price = i % 11;
    row.dividend = i % 3;
    row.commission = i % 5;
    row.total = i * 0.75;
    row.description = i % 13 == 0 ? "" : "trade " + std::to_string(i * 7919 % kRows);
    row.date = *Date::FromYmd(2025, 1, 1 + i % 28);
    row.status = static_cast<TransactionStatus>(i % 3);
    Ledger().Investments().SaveInvestmentTransaction(row);
  }
  all.Commit();
  const auto described = [this] { return log_.With({"visited", "Description"}).size(); };
  const std::size_t before = described();
  Trigger("mnuViewRefresh");
  QApplication::processEvents();
  ASSERT_EQ(Trades().model()->rowCount(), kRows + 1);
  EXPECT_GE(described() - before, 1U);
  EXPECT_LE(described() - before, 3U) << "pages in sight";
  for (int column = 0; column < Trades().model()->columnCount(); ++column) {
    Trades().ChooseColumn(column);
    std::vector<QString> cells;
    for (int row = 0; row <= kRows; ++row) cells.push_back(Cell(Trades(), row, column).toLower());
    const bool isNumber =
        Trades().model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).isValid();
    if (column == 0) continue;  // a day's text has another order
    EXPECT_TRUE(std::ranges::is_sorted(cells, {}, [&](const QString& text) {
      return std::pair(isNumber && !text.isEmpty() ? QString(text).remove(u',').toDouble() : -1e9,
                       isNumber ? QString() : text);
    })) << column;
  }
}

TEST_F(InvestmentViews, TheFileIsClosedWhileSomethingIsLookedFor) {
  Start("mnuViewInvestTrans");
  Trigger("mnuEditFind");
  QTest::keyClicks(QApplication::focusWidget(), "div");
  machine_.prompts.ExpectAsk("Validate Data Files", ScriptedPrompts::kAnyText, true);
  Trigger("mnuFileValidate");
  ASSERT_TRUE(session_.IsOpen());
  EXPECT_EQ(window_->Shown().name, kInvestmentTransShow);
  EXPECT_TRUE(Find<QAction>("mnuInvestTransAdd").isEnabled());
  // While none is open a clipboard that changes has nothing to ask.
  session_.Close();
  EXPECT_EQ(Trades().model()->rowCount(), 0);
  EXPECT_FALSE(Find<QAction>("mnuInvestTransAdd").isEnabled());
  QGuiApplication::clipboard()->setText(QStringLiteral("something else"));
  QApplication::processEvents();
  Trigger("mnuEditUndo");
  EXPECT_FALSE(Find<QAction>("mnuEditPaste").isEnabled());
}

TEST_F(InvestmentViews, AClosedAccountKeepsItsTransactions) {
  Start("mnuViewInvestTrans");
  Run("UPDATE tblAccounts SET CloseAccount = 1");
  Trigger("mnuViewRefresh");
  EXPECT_TRUE(Cell(Trades(), 0, 1).endsWith(QStringLiteral("[Closed] ")));
  Trades().selectRow(0);
  constexpr const char* kClosed = "This Account is closed, Items cannot be amended";
  for (const char* command : {"mnuInvestTransEdit", "mnuInvestTransDelete"}) {
    machine_.prompts.ExpectTell("Amend Item", kClosed);
    Trigger(command);
  }
  Trigger("mnuInvestTransCopy");
  machine_.prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Trigger("mnuInvestTransPaste");
  EXPECT_EQ(Trades().model()->rowCount(), 1);
}

TEST_F(InvestmentViews, WithoutAnyTheViewsSayHowToBegin) {
  OpenData(true);
  ShowWindow();
  Trigger("mnuViewInvestments");
  EXPECT_FALSE(List().isVisible());
  Trigger("mnuViewInvestTrans");
  EXPECT_FALSE(Trades().isVisible());
  machine_.prompts.ExpectTell("Please Add Account", ScriptedPrompts::kAnyText);
  Trigger("mnuInvestTransAdd");
}

TEST_F(InvestmentViews, AllPricesComeInOneGoAndWhatIsMissingLeadsToTheSources) {
  Start("mnuViewInvestments");
  Run("UPDATE tblStockData SET [URL] = 'http://quotes.test/STOCK' WHERE DataID = 3");
  Run("UPDATE tblPayees SET DataID = 3, [Conversion] = 1, InvestCurrencyID = CurrencyID, Symbol = "
      "'S' & PayeeID Where Investment "
      "= 1");
  Run("INSERT INTO tblPayees (Payee,[Symbol],CurrencyID,InvestCurrencyID,DataID,Investment) VALUES "
      "('Without','W',17,17,9,1)");
  Run("UPDATE tblStockData SET [URL] = '' WHERE DataID = 9");
  machine_.download.AnswerAll("\"X\",4.25,\"11/20/2026\",\"5:30pm\",1,2\r\n");
  Trigger("mnuViewHoldings");
  Trigger("mnuInvestDownload");
  EXPECT_EQ(machine_.download.Requested().size(), 2U) << "not of the one without an address";
  EXPECT_EQ(window_->statusBar()->currentMessage(), "2 prices were downloaded");
  Trigger("mnuViewInvestments");
  EXPECT_EQ(Cell(List(), 0, 5), "4.2500");
  Trigger("mnuEditUndo");
  EXPECT_EQ(Cell(List(), 1, 5), "") << "all of them in one step";
  machine_.download.AnswerAll(std::nullopt);
  InNext("FrmSources", [](QDialog& dialog) { dialog.reject(); });
  machine_.prompts.ExpectAsk("Download Prices", ScriptedPrompts::kAnyText, true);
  Trigger("mnuInvestDownload");
  EXPECT_EQ(machine_.download.Requested().size(), 3U) << "a dead service is asked once";
}

TEST_F(InvestmentViews, TheRegisterSaysWhatWasDone) {
  Start("mnuViewRegister");
  auto& view = *window_->findChild<RegisterView*>();
  ASSERT_TRUE(view.ChooseKey(38));
  const auto& model = static_cast<const RegisterModel&>(*view.Table().model());
  const auto cell = [&] { return model.index(model.RowOf(38), RegisterModel::kCategory); };
  EXPECT_EQ(cell().data().toString(), "Buy 100 at 3.16");
  EXPECT_EQ(cell().data(Qt::ToolTipRole).toString(), "Buy 100 at 3.16 (Debit)");
  EXPECT_EQ(model.index(cell().row(), RegisterModel::kPayee).data(Qt::ToolTipRole).toString(),
            "British Telecom (Buy 100 at 3.16)");
  InNext("FrmInvestTrans", [](QDialog& dialog) {
    Put(dialog, "txtShares", "50.25");
    Put(dialog, "txtPrice", "3.12345");
    Put(dialog, "txtTotal", "160");
    Save(dialog);
  });
  Trigger("mnuTransEdit");
  EXPECT_EQ(cell().data().toString(), "Buy 50.25 at 3.1235");
  const auto shows = [&](const char* columns, const char* text) {
    Run(std::string("UPDATE tblTransactions SET ") + columns + " WHERE TransactionID = 38");
    Trigger("mnuViewRefresh");
    EXPECT_EQ(cell().data().toString(), text);
  };
  shows("[Action] = 3, Shares = 0", "Dividend");
  shows("[Action] = 6, Shares = 7, Price = 0", "Remove Shares 7");
  shows("[Action] = 4, Shares = NULL", "Reinvest Dividend");
  shows("[Action] = 0", "Debit");
}

TEST_F(InvestmentViews, ChangesOfSeveralTransactionsLeaveInvestmentsWhole) {
  Start("mnuViewRegister");
  const auto before = *Ledger().Transactions().ReadTransaction(38);
  window_->findChild<SortedTable*>(QStringLiteral("lvbank"))->selectAll();
  InNext("FrmAccountTransMulti", [](QDialog& dialog) {
    auto* type = dialog.findChild<QComboBox*>(QStringLiteral("cmbType"));
    type->setCurrentIndex(type->findText(QStringLiteral("Reverse")));
    dialog.findChild<QComboBox*>(QStringLiteral("cmbPayee"))
        ->setEditText(QStringLiteral("Somebody"));
    Save(dialog);
  });
  Trigger("mnuTransEdit");
  const auto after = *Ledger().Transactions().ReadTransaction(38);
  EXPECT_EQ(after.payee, before.payee);
  EXPECT_EQ(after.amount, before.amount);
  EXPECT_EQ(after.action, before.action);
  EXPECT_EQ(Ledger().Transactions().ReadTransaction(1)->payee, "Somebody");
}

}  // namespace
}  // namespace corvanta
