#include "app/WindowTest.h"
#include "controls/SortedTable.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/Files.h"
#include "support/DialogTest.h"
#include "support/LedgerProblems.h"

#include <QComboBox>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace corvanta {
namespace {

constexpr const char* kStatement =
    "!Type:Bank\nD11/18/2026\nT-12.50\nPCorner Shop\n^\nD11/19/2026\nT100.00\nPAcme\n^\n";

// Files in and out, from the main window.
class ExchangeCommands : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenData(true);
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Purse',2,17,5,0)");
    ShowWindow();
    window_->Show({kTransactionShow, 1});
  }
  void TearDown() override {
    EXPECT_EQ(LedgerProblems(session_.Ledger().Store()), std::vector<std::string>());
  }
  int Rows() { return WindowTest::Find<SortedTable>("lvbank").model()->rowCount(); }
};

TEST_F(ExchangeCommands, AFileThatIsDroppedIsImportedIntoTheRegister) {
  Start();
  const std::string path = machine_.folder.Write("statement.qif", kStatement);
  QMimeData dropped;
  dropped.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
  QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent event(QPointF(9, 9), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &event);
  machine_.prompts.ExpectTell(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText);
  bool opened = false;
  // The window opens once the drop is over.
  QTimer::singleShot(0, qApp, [&opened] {
    InNextDialog([&opened](QDialog& form) {
      opened = true;
      EXPECT_EQ(form.objectName(), QStringLiteral("FrmImport"));
      EXPECT_EQ(Find<QComboBox>(form, "cmbAccount").currentText(), QStringLiteral("Purse"));
      Click(form, "cmdAccept");
    });
  });
  ASSERT_TRUE(QTest::qWaitFor([&] { return opened && Rows() == 2; }, 30000));
  Trigger("mnuEditUndo");
  EXPECT_EQ(Rows(), 0) << "one step";
}

TEST_F(ExchangeCommands, AnImportWaitsForTheRunningOperation) {
  Start();
  progress_.SetStatus("Reading...");
  window_->BeginImport(machine_.folder.Write("statement.qif", kStatement));
  for (int round = 0; round < 3; ++round) (void)progress_.Yield();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  progress_.SetStatus(std::string());
  bool opened = false;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&opened] {
    auto* form = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (form == nullptr) return;
    opened = true;
    form->done(QDialog::Rejected);
  });
  watch.start(1);
  EXPECT_TRUE(QTest::qWaitFor([&opened] { return opened; }, 30000));
}

TEST_F(ExchangeCommands, TheWindowGoesToTheAccountOfTheImportedRows) {
  Start();
  Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
      "VALUES ('Wallet',2,17,0,0)");
  Trigger("mnuViewRefresh");
  const std::string path = machine_.folder.Write("statement.qif", kStatement);
  const auto import = [&](const char* account) {
    InNextDialog([&](QDialog& form) {
      machine_.prompts.ExpectOpenFile("Select File to Import", path);
      machine_.prompts.ExpectTell(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText);
      Click(form, "cmdFile");
      Find<QComboBox>(form, "cmbAccount").setCurrentText(QLatin1String(account));
      Click(form, "cmdAccept");
    });
    Trigger("mnuFileImport");
  };
  // Among the accounts of a filter it is not the one that is shown.
  ViewCommand filtered{kTransactionShow, 2};
  filtered.rows.SetKeys(FilterKind::Account, {1, 2});
  window_->Show(filtered);
  import("Wallet");
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 2}));
  EXPECT_EQ(Rows(), 2);
  window_->Show({kPayeeShow, 0});
  import("Purse");
  EXPECT_EQ(window_->Shown(), (ViewCommand{kTransactionShow, 1}));
  EXPECT_EQ(Rows(), 2);
  EXPECT_EQ(window_->focusWidget()->objectName(), "lvbank");
}

TEST_F(ExchangeCommands, WhatCanBeBrowsedCanBeDropped) {
  Start();
  const auto isTaken = [this](const QList<QUrl>& urls) {
    QMimeData dropped;
    dropped.setUrls(urls);
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window_.get(), &enter);
    return enter.isAccepted();
  };
  const auto file = [](const char* name) { return QUrl::fromLocalFile(QLatin1String(name)); };
  for (const char* name : {"/a/b.qif", "/a/b.ofx", "/a/b.QFX", "/a/b.csv", "/a/b.Txt"}) {
    EXPECT_TRUE(isTaken({file(name)})) << name;
  }
  for (const char* name : {"/a/b.pdf", "/a/qif", "/a/b.txt.gz"}) {
    EXPECT_FALSE(isTaken({file(name)})) << name;
  }
  EXPECT_FALSE(isTaken({file("/a/b.qif"), file("/a/c.qif")})) << "one at a time";
  EXPECT_FALSE(isTaken({QUrl(QStringLiteral("https://bank.example/b.qif"))}));
  InNextDialog([this](QDialog& form) {
    machine_.prompts.ExpectOpenFile("Select File to Import", std::nullopt);
    Click(form, "cmdFile");
    const std::string filter = machine_.prompts.Shown().back().file.filterName;
    for (const char* ending : {"*.qif", "*.ofx", "*.qfx", "*.csv", "*.txt"}) {
      EXPECT_NE(filter.find(ending), std::string::npos) << filter;
    }
  });
  Trigger("mnuFileImport");
}

TEST_F(ExchangeCommands, TheRegisterIsExportedAsItIsShown) {
  Start();
  session_.Ledger().References().FindOrCreatePayee("Corner Shop");
  Run("INSERT INTO tblTransactions (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,[Date],"
      "[Amount],BankChk,BankRec,BankSch,TransferID,[Action]) VALUES "
      "(1,1,1,1,0,#11/01/2026#,-12.5,0,0,0,0,0)");
  Trigger("mnuViewRefresh");
  ASSERT_TRUE(WindowTest::Find<QAction>("mnuFileExport").isEnabled());
  const std::string path = machine_.folder.Path("out.csv");
  machine_.prompts.ExpectSaveFile(ScriptedPrompts::kAnyText, path);
  machine_.prompts.ExpectAsk(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText, true);
  machine_.prompts.ExpectTell(ScriptedPrompts::kAnyText, ScriptedPrompts::kAnyText);
  Trigger("mnuFileExport");
  EXPECT_NE(ReadFile(path).find("12.5"), std::string::npos);
  Trigger("mnuViewPayees");
  EXPECT_FALSE(WindowTest::Find<QAction>("mnuFileExport").isEnabled());
}

}  // namespace
}  // namespace corvanta
