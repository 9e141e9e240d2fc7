// Nothing is cramped: on a small screen, or one of 1080 lines at 200 %, with usual and large
// letters, every window has room for what it says.
#include "app/WindowTest.h"
#include "app/register/RegisterModel.h"
#include "app/register/RegisterView.h"
#include "app/secrets/FrmPassphrase.h"
#include "app/secrets/FrmPassword.h"
#include "app/secrets/FrmRecoveryKey.h"
#include "controls/FormDialog.h"
#include "controls/SortedTable.h"
#include "store/datafile/InstallationKey.h"
#include "support/DialogTest.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QTreeWidget>

namespace corvanta {
namespace {

// Of 960 by 540, without a frame and a bar of the system.
constexpr QSize kRoom(960, 500);

constexpr const char* kStatement =
    "OFXHEADER:100\n\n<OFX><BANKMSGSRSV1><STMTTRNRS><STMTRS><CURDEF>GBP<BANKACCTFROM><BANKID>1"
    "<ACCTID>99887766<ACCTTYPE>CHECKING</BANKACCTFROM><BANKTRANLIST><STMTTRN><TRNTYPE>DEBIT"
    "<DTPOSTED>20261101<TRNAMT>-10.50<FITID>1<NAME>Shop</STMTTRN></BANKTRANLIST></STMTRS>"
    "</STMTTRNRS></BANKMSGSRSV1></OFX>\n";

bool IsCut(const QLabel& label) {
  return !label.wordWrap() && label.width() < label.sizeHint().width();
}

bool IsCut(const QAbstractButton& button) {
  const QString text = QString(button.text()).remove(u'&');
  return button.width() < button.fontMetrics().horizontalAdvance(text);
}

// The texts that have not room enough.
QStringList CutIn(const QWidget& window) {
  QStringList cut;
  for (const auto* label : window.findChildren<QLabel*>()) {
    if (label->isVisibleTo(&window) && IsCut(*label)) cut.append(label->text());
  }
  for (const auto* button : window.findChildren<QAbstractButton*>()) {
    if (button->isVisibleTo(&window) && IsCut(*button)) cut.append(button->text());
  }
  return cut;
}

class Looks : public DialogTest<WindowTest>, public testing::WithParamInterface<double> {
 protected:
  Looks() {
    QFont font = font_;
    font.setPointSizeF(GetParam());
    QApplication::setFont(font);
  }
  ~Looks() override {
    window_.reset();
    QApplication::setFont(font_);
  }
  void Start() {
    OpenData();
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Yen Account in Tokyo',1,77,1000000,0)");
    Run("UPDATE tblTransactions SET [Amount] = 123456.78 WHERE TransactionID = 1");
    ShowWindow();
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  void Check(QDialog& dialog) {
    ++checked_;
    if (auto* form = qobject_cast<FormDialog*>(&dialog)) form->FitInto(kRoom);
    const QSize smallest = dialog.minimumSizeHint();
    EXPECT_LE(smallest.width(), kRoom.width()) << qPrintable(dialog.objectName());
    EXPECT_LE(smallest.height(), kRoom.height()) << qPrintable(dialog.objectName());
    dialog.resize(smallest);
    QApplication::processEvents();
    EXPECT_EQ(CutIn(dialog).join(u'|').toStdString(), "") << qPrintable(dialog.objectName());
  }
  void Open(const char* action, const std::function<void(QDialog&)>& more = {}) {
    InNextDialog([&](QDialog& dialog) {
      Check(dialog);
      if (more) more(dialog);
    });
    Trigger(action);
  }
  // Whether the column is shown, whole.
  bool Sees(const SortedTable& table, int column) {
    const QHeaderView& head = *table.horizontalHeader();
    const int left = head.sectionViewportPosition(column);
    return !table.isColumnHidden(column) && left >= 0 &&
           left + table.columnWidth(column) <= table.viewport()->width();
  }

  QFont font_ = QApplication::font();
  int checked_ = 0;
};

TEST_P(Looks, EveryDialogHasRoomOnASmallScreen) {
  Start();
  const auto opensEditor = [this](QDialog& list) {
    InNextDialog([this](QDialog& editor) { Check(editor); });
    Click(list, "cmdNew");
  };
  for (const char* list : {"mnuViewAccountTypes", "mnuViewBanks", "mnuViewPayments",
                           "mnuToolsKeywords", "mnuToolsSources"}) {
    Open(list, opensEditor);
  }
  for (const char* command :
       {"mnuScheduleAdd", "mnuTransAutofill", "mnuTransReconcile", "mnuAccountAdd",
        "mnuCategoryAdd", "mnuPayeeNew", "mnuToolsCurrency", "mnuToolsRates", "mnuToolsLoan",
        "mnuToolsMortgage", "mnuHelpTips", "mnuHelpAbout", "mnuHelpWelcome", "mnuFileOptions",
        "mnuFilePreview", "mnuFileImport"}) {
    Open(command);
  }
  WindowTest::Find<SortedTable>("lvbank").selectAll();
  Open("mnuTransEdit");
  EXPECT_EQ(checked_, 27);
}

TEST_P(Looks, TheEntryOfATransferAndOfASplitHasRoom) {
  Start();
  Open("mnuTransAdd", [this](QDialog& form) {
    auto& type = Find<QComboBox>(form, "cmbType");
    type.setCurrentIndex(2);
    Find<QComboBox>(form, "cmbAccountTo").setEditText(QStringLiteral("Yen Account in Tokyo"));
    Type(form, "txtAmount", QStringLiteral("1234567.89"));
    Check(form);
    type.setCurrentIndex(0);
    for (const char* box : {"cmbPayee", "cmbCategory", "cmbPayment"}) {
      auto& field = Find<QComboBox>(form, box);
      field.setEditText(field.itemText(1));
    }
    Type(form, "txtAmount", QStringLiteral("1234567.89"));
    InNextDialog([this](QDialog& split) {
      Check(split);
      const auto& list = Find<QTableView>(split, "lvAllocated");
      EXPECT_LE(list.horizontalHeader()->length(), list.viewport()->width());
    });
    Click(form, "cmdAllocate");
  });
  EXPECT_EQ(checked_, 3);
}

TEST_P(Looks, TheColumnsOfAFileHaveRoom) {
  Start();
  const std::string path = machine_.folder.Write(
      "statement.csv", "Date,Name,Amount\n11/01/2026,Corner Shop,-12.50\n11/02/2026,Acme,9.00\n");
  Open("mnuFileImport", [&](QDialog& form) {
    machine_.prompts.ExpectOpenFile(ScriptedPrompts::kAnyText, path);
    Click(form, "cmdFile");
    Check(form);
    Click(form, "cmdAccept");
    Check(form);
  });
  EXPECT_EQ(checked_, 3);
}

// Names of one word, which no line can break.
TEST_P(Looks, LongNamesWidenNoDialog) {
  Start();
  const std::string name(90, 'W');
  Run("UPDATE tblAccounts SET [Account] = '" + name + "' WHERE AccountID = 1");
  Run("UPDATE tblPayees SET [Payee] = '" + name + "' WHERE PayeeID = 1");
  Run("UPDATE tblCategory SET [Category] = '" + name + "' WHERE CategoryID = 1");
  Trigger("mnuViewRefresh");
  EXPECT_LE(window_->minimumSizeHint().width(), kRoom.width());
  const std::string statement = machine_.folder.Write("statement.ofx", kStatement);
  for (const char* command :
       {"mnuScheduleAdd", "mnuTransAutofill", "mnuTransReconcile", "mnuAccountEdit"}) {
    Open(command);
  }
  Open("mnuTransAdd", [&](QDialog& form) {
    Find<QComboBox>(form, "cmbPayee").setEditText(QString::fromStdString(name));
    for (const char* box : {"cmbCategory", "cmbPayment"}) {
      auto& field = Find<QComboBox>(form, box);
      field.setEditText(field.itemText(1));
    }
    Type(form, "txtAmount", QStringLiteral("3"));
    Click(form, "cmdAccept");
    EXPECT_FALSE(NoteOf(form).isEmpty());
    Check(form);
  });
  Open("mnuFileImport", [&](QDialog& form) {
    machine_.prompts.ExpectOpenFile(ScriptedPrompts::kAnyText, statement);
    Click(form, "cmdFile");
    EXPECT_TRUE(Find<QComboBox>(form, "cmbOwner").isVisible());
    Check(form);
  });
  EXPECT_EQ(checked_, 8);
}

TEST_P(Looks, InvestmentsHaveRoomAlsoWithLongNames) {
  Start();
  Run("UPDATE tblPayees SET [Payee] = '" + std::string(90, 'W') + "' WHERE Investment = 1");
  for (const char* command : {"mnuToolsShares", "mnuToolsLookup", "mnuHoldingAction",
                              "mnuInvestAdd", "mnuInvestTransAdd"}) {
    Open(command);
  }
  Trigger("mnuViewInvestTrans");
  WindowTest::Find<SortedTable>("lvinvesttrans").selectRow(0);
  Open("mnuInvestTransEdit");
  Trigger("mnuViewInvestments");
  WindowTest::Find<SortedTable>("lvinvest").selectRow(0);
  Open("mnuInvestHistory", [this](QDialog& history) {
    machine_.prompts.ExpectOpenFile(
        ScriptedPrompts::kAnyText,
        machine_.folder.Write("prices.csv", "Day,Close\n2026-11-18,3.5\n"));
    InNextDialog([this](QDialog& form) { Check(form); });
    Click(history, "cmdImport");
  });
  EXPECT_EQ(checked_, 8);
}

TEST_P(Looks, TheHoldingsKeepNameAndValueInSight) {
  Start();
  Trigger("mnuViewHoldings");
  const auto& table = WindowTest::Find<SortedTable>("lvholding");
  ASSERT_GT(table.model()->rowCount(), 0);
  for (const QSize size : {QSize(800, 560), QSize(960, 500), QSize(1366, 700)}) {
    window_->resize(size);
    QApplication::processEvents();
    EXPECT_EQ(window_->size(), size);
    EXPECT_LE(table.horizontalHeader()->length(), table.viewport()->width()) << size.width();
    for (const int column : {1, 3, 7}) {
      EXPECT_TRUE(Sees(table, column)) << column << " at " << size.width();
    }
    EXPECT_GE(table.viewport()->height(), 3 * table.rowHeight(0)) << size.height();
    EXPECT_EQ(CutIn(*table.parentWidget()->parentWidget()).join(u'|').toStdString(), "");
  }
}

TEST_P(Looks, KeywordsFilesAndSumsHaveRoom) {
  Start();
  WindowTest::Find<SortedTable>("lvbank").ChooseRow(0);
  Open("mnuTransKeyword");
  Open("mnuTransAttachment");
  Open("mnuToolsCalculator");
  EXPECT_EQ(checked_, 3);
}

TEST_P(Looks, FiltersBackupsAndArchivesHaveRoomAlsoWithLongNames) {
  Start();
  const std::string name(90, 'W');
  Run("UPDATE tblAccounts SET [Account] = '" + name + "' WHERE AccountID = 1");
  Run("UPDATE tblPayees SET [Payee] = '" + name + "' WHERE PayeeID = 1");
  Run("UPDATE tblCategory SET [Category] = '" + name + "' WHERE CategoryID = 1");
  for (const char* command :
       {"mnuFilterAccount", "mnuFilterCategory", "mnuFilterPayee", "mnuFilterInvestment",
        "mnuFilterKeyword", "mnuFilterText", "mnuEditGoTo", "mnuFileBackup", "mnuFileRestore",
        "mnuFileSalvage", "mnuFileArchive", "mnuToolsCurrencies"}) {
    Open(command);
  }
  EXPECT_EQ(checked_, 12);
}

TEST_P(Looks, PasswordsAndTheKeyHaveRoom) {
  using Mode = FrmPassword::Mode;
  for (const auto& [mode, isNew] :
       std::initializer_list<std::pair<Mode, bool>>{{Mode::Login, false},
                                                    {Mode::Login, true},
                                                    {Mode::Change, false},
                                                    {Mode::Change, true},
                                                    {Mode::Delete, false},
                                                    {Mode::Reveal, false}}) {
    FrmPassword dialog(mode, isNew, machine_.Get(), {}, nullptr);
    dialog.show();
    Check(dialog);
  }
  for (const bool isSet : {false, true}) {
    FrmPassphrase dialog(isSet, machine_.Get(), nullptr);
    dialog.show();
    Check(dialog);
  }
  FrmRecoveryKey key(machine_.Get(), InstallationPassword(machine_.Get()), nullptr);
  key.show();
  Check(key);
}

TEST_P(Looks, DatePayeeAndBalanceStayInSight) {
  Start();
  Trigger("mnuViewReminders");
  const auto& table = WindowTest::Find<SortedTable>("lvbank");
  const QWidget& view = *window_->findChild<RegisterView*>();
  for (const QSize size : {QSize(800, 560), QSize(960, 500), QSize(1366, 700)}) {
    window_->resize(size);
    QApplication::processEvents();
    EXPECT_EQ(window_->size(), size);
    for (const int column :
         {RegisterModel::kDate, RegisterModel::kPayee, RegisterModel::kBalance}) {
      EXPECT_TRUE(Sees(table, column)) << column << " at " << size.width();
    }
    EXPECT_LE(table.horizontalHeader()->length(), table.viewport()->width()) << size.width();
    EXPECT_EQ(table.isColumnHidden(RegisterModel::kPaidIn),
              table.isColumnHidden(RegisterModel::kPaidOut));
    // What stands above the list and under it is not cut either.
    EXPECT_TRUE(DialogTest::Find<QLabel>(view, "lblTitle").text().startsWith("Sample Ba"));
    for (const char* day : {"dtpFrom", "dtpTo"}) {
      const auto& field = WindowTest::Find<QDateEdit>(day);
      EXPECT_GE(field.width(), field.fontMetrics().horizontalAdvance(field.text())) << size.width();
    }
    for (const char* name : {"lblPaidIn", "lblPaidOut", "lblThisPeriod", "lblBalance"}) {
      const auto& figure = DialogTest::Find<QLabel>(view, name);
      EXPECT_TRUE(!figure.isVisible() || !IsCut(figure)) << name << " at " << size.width();
    }
    EXPECT_TRUE(DialogTest::Find<QLabel>(view, "lblBalance").text().endsWith("123,971.27"));
    auto& tree = WindowTest::Find<QTreeWidget>("tvAccounts");
    EXPECT_GT(tree.columnWidth(0), 2 * tree.indentation() + 30) << "a name before its balance";
    EXPECT_LE(tree.columnWidth(0) + tree.columnWidth(1), tree.viewport()->width());
  }
}

TEST_P(Looks, ListsHideWhatMattersLeastBeforeTheyScroll) {
  Start();
  Trigger("mnuViewReminders");
  window_->resize(960, 500);
  for (const auto& [view, list] : std::initializer_list<std::pair<const char*, const char*>>{
           {"mnuViewAccounts", "lvbalance"},
           {"mnuViewCategories", "lvcategory"},
           {"mnuViewPayees", "lvpayee"},
           {"mnuViewSchedules", "lvschedule"},
           {"mnuViewInvestments", "lvinvest"},
           {"mnuViewInvestTrans", "lvinvesttrans"}}) {
    Trigger(view);
    QApplication::processEvents();
    const auto& table = WindowTest::Find<SortedTable>(list);
    EXPECT_LE(table.horizontalHeader()->length(), table.viewport()->width()) << list;
    EXPECT_TRUE(Sees(table, 0)) << list;
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, Looks, testing::Values(9.0, 11.0, 13.0));

}  // namespace
}  // namespace corvanta
