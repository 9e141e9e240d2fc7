#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "controls/SortedTable.h"
#include "controls/ucRibbon.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "platform/Files.h"
#include "support/DialogTest.h"
#include "support/LedgerProblems.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

namespace corvanta {
namespace {

constexpr const char* kClosed = "This Account is closed, Items cannot be amended";

// Keywords and attachments of the rows of the register, and the ribbon above it.
class ItemCommands : public DialogTest<WindowTest> {
 protected:
  void Start() {
    OpenData();
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    Table().ChooseRow(0);
  }
  void TearDown() override {
    EXPECT_EQ(LedgerProblems(session_.Ledger().Store()), std::vector<std::string>());
  }
  SortedTable& Table() { return WindowTest::Find<SortedTable>("lvbank"); }
  const RegisterModel& Model() { return static_cast<const RegisterModel&>(*Table().model()); }
  QString Tip(int row) {
    return Model().index(row, RegisterModel::kPayee).data(Qt::ToolTipRole).toString();
  }
  // Drops the files as a file manager does.
  void Drop(const std::vector<std::string>& paths, const QPoint& place) {
    QMimeData data;
    QList<QUrl> urls;
    for (const std::string& path : paths) urls.append(QUrl::fromLocalFile(path.c_str()));
    data.setUrls(urls);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Table().viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Table().viewport(), &drop);
    QApplication::processEvents();
  }
  QPoint Middle(int row) { return Table().visualRect(Model().index(row, 1)).center(); }
};

TEST_F(ItemCommands, KeywordsOfTheChosenRowsAreMarkedInTheRegister) {
  Start();
  Table().selectAll();
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmKeywordChoice");
    QTest::keyClicks(&Find<QLineEdit>(dialog, "txtKeyword"), "Tax");
    QTest::keyClick(&Find<QLineEdit>(dialog, "txtKeyword"), Qt::Key_Return);
    Click(dialog, "cmdAccept");
  });
  Trigger("mnuTransKeyword");
  EXPECT_TRUE(Tip(0).contains("keywords: Tax")) << Tip(0).toStdString();
  EXPECT_TRUE(Tip(1).contains("keywords: Tax"));
  Trigger("mnuEditUndo");
  EXPECT_FALSE(Tip(0).contains("keywords"));
}

TEST_F(ItemCommands, AFileDroppedOnARowIsAttachedToIt) {
  Start();
  const std::string bill = machine_.folder.Write("bill.pdf", "bill");
  Drop({bill}, Middle(1));
  EXPECT_TRUE(Model().Row(1).hasAttachment);
  EXPECT_FALSE(Model().Row(0).hasAttachment);
  EXPECT_TRUE(Tip(1).contains("file attached"));
  EXPECT_EQ(ReadFile(DataFolder() + "/FileStore/bill.pdf"), "bill");
  machine_.prompts.ExpectTell("Attachment", ScriptedPrompts::kAnyText);
  Drop({bill}, Middle(1));
  // A file that could be imported may be meant for either.
  const std::string csv = machine_.folder.Write("list.csv", "a,b\n");
  machine_.prompts.ExpectChoose("Attachment", ScriptedPrompts::kAnyText, 0);
  Drop({csv}, Middle(0));
  EXPECT_TRUE(Model().Row(0).hasAttachment);
  Run("UPDATE tblAccounts SET CloseAccount = 1");
  machine_.prompts.ExpectTell("Amend Item", kClosed);
  Drop({bill}, Middle(0));
}

TEST_F(ItemCommands, AttachmentsAreOpenedFromTheMenuAndTakenBack) {
  Start();
  const std::int64_t key = Model().Key(0);
  machine_.registry.Write(Hive::CurrentUser, kSettingsKey, "AttachInside", "1");
  session_.Ledger().Notes().Files().Attach(key, machine_.folder.Write("a.txt", "before"),
                                           AttachmentMode::Inside);
  InNextDialog([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmAttachments");
    Click(dialog, "cmdEdit");
  });
  Trigger("mnuTransAttachment");
  machine_.files.WriteAtomically(machine_.opener.Opened().back(), "after");
  // The person comes back from the other program: first while something is being written.
  QEvent activated(QEvent::WindowActivate);
  {
    Transaction all = session_.Ledger().Store().Begin();
    QApplication::sendEvent(window_.get(), &activated);
  }
  const auto before = session_.Ledger().Notes().AttachmentsOf(key).at(0);
  EXPECT_EQ(session_.Ledger().Notes().Files().Content(before), "before");
  QApplication::sendEvent(window_.get(), &activated);
  const auto row = session_.Ledger().Notes().AttachmentsOf(key).at(0);
  EXPECT_EQ(session_.Ledger().Notes().Files().Content(row), "after");
}

TEST_F(ItemCommands, TheMenuOfTransactionsIsOfTheRegisterAlone) {
  Start();
  for (const char* name :
       {"mnuTransDelete", "mnuTransCopy", "mnuTransKeyword", "mnuTransAttachment"}) {
    EXPECT_TRUE(WindowTest::Find<QAction>(name).isEnabled()) << name;
  }
  const int rows = Model().rowCount();
  Trigger("mnuTransCopy");
  Trigger("mnuTransPaste");
  EXPECT_EQ(Model().rowCount(), rows + 1);
  machine_.prompts.ExpectAsk("Delete Item?", ScriptedPrompts::kAnyText, true);
  Trigger("mnuTransDelete");
  EXPECT_EQ(Model().rowCount(), rows);
  window_->Show({kPayeeShow});
  for (const char* name : {"mnuTransDelete", "mnuTransCopy", "mnuTransPaste", "mnuTransKeyword",
                           "mnuTransAttachment"}) {
    EXPECT_FALSE(WindowTest::Find<QAction>(name).isEnabled()) << name;
  }
}

TEST_F(ItemCommands, TheRibbonAddsWhatTheViewLists) {
  Start();
  for (const auto& [view, form] :
       std::vector<std::pair<std::string_view, const char*>>{{kTransactionShow, "FrmAccountTrans"},
                                                             {kPayeeShow, "FrmPayees"},
                                                             {kCategoryShow, "FrmCategory"},
                                                             {kAccountShow, "FrmAccounts"},
                                                             {kScheduleShow, "FrmSchedule"}}) {
    window_->Show({view, view == kTransactionShow ? 1 : 0});
    std::string opened = "none";
    InNextDialog([&](QDialog& dialog) { opened = dialog.objectName().toStdString(); });
    QTest::mouseClick(&WindowTest::Find<QAbstractButton>("rbmnuRibbonAdd"), Qt::LeftButton);
    EXPECT_EQ(opened, form);
  }
}

TEST_F(ItemCommands, TheRibbonIsOneStopAndFoldsForTheNextStart) {
  Start();
  auto& ribbon = WindowTest::Find<ucRibbon>("ucRibbon");
  const auto stops = [&] {
    QStringList names;
    for (const auto* button : ribbon.findChildren<QAbstractButton*>()) {
      if (button->focusPolicy() != Qt::NoFocus) names.append(button->objectName());
    }
    return names.join(u' ').toStdString();
  };
  BringForward();
  auto& first = WindowTest::Find<QAbstractButton>("rbmnuViewAccounts");
  first.setFocus();
  EXPECT_EQ(stops(), "rbmnuViewAccounts");
  QTest::keyClick(&first, Qt::Key_Right);
  EXPECT_EQ(stops(), "rbmnuViewRegister");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
  EXPECT_EQ(stops(), "rbFold");
  const int high = ribbon.height();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  QApplication::processEvents();
  EXPECT_TRUE(ribbon.IsFolded());
  EXPECT_LT(ribbon.height(), high / 2);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&ribbon)->role(), QAccessible::ToolBar);
  window_->close();
  EXPECT_EQ(Setting("WindowRibbon"), "0");
  EXPECT_TRUE(ShowWindow().findChild<ucRibbon*>()->IsFolded());
  Trigger("mnuViewRibbon");
  EXPECT_FALSE(WindowTest::Find<ucRibbon>("ucRibbon").IsFolded());
}

}  // namespace
}  // namespace corvanta
