#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/TransactionBook.h"
#include "reference/FrmAccounts.h"
#include "reference/FrmCategory.h"
#include "reference/FrmReference.h"
#include "reference/FrmReferenceTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>

#include <algorithm>
#include <memory>

namespace corvanta {
namespace {

class Editors : public FrmReferenceTest {
 protected:
  [[nodiscard]] std::vector<std::unique_ptr<EditorDialog>> All() {
    std::vector<std::unique_ptr<EditorDialog>> all;
    all.push_back(std::make_unique<FrmAccounts>(Services(), ledger_, nullptr));
    all.push_back(std::make_unique<FrmAccountTypes>(Services(), ledger_, nullptr));
    all.push_back(std::make_unique<FrmBanks>(Services(), ledger_, nullptr));
    all.push_back(std::make_unique<FrmCategory>(Services(), ledger_, nullptr));
    all.push_back(std::make_unique<FrmPayees>(Services(), ledger_, nullptr));
    all.push_back(std::make_unique<FrmPayments>(Services(), ledger_, nullptr));
    all.push_back(std::make_unique<FrmKeywords>(Services(), ledger_, nullptr));
    return all;
  }
};

TEST_F(Editors, CanBeWorkedByKeyboard) {
  for (const auto& dialog : All()) {
    SCOPED_TRACE(dialog->objectName().toStdString());
    ASSERT_TRUE(dialog->Open(0));
    Show(*dialog);
    QSet<QString> keys;
    QString captions;
    for (const auto* label : dialog->findChildren<QLabel*>()) {
      if (label->buddy() != nullptr) captions += label->text();
    }
    for (const auto* button : dialog->findChildren<QAbstractButton*>()) captions += button->text();
    for (qsizetype at = captions.indexOf(u'&'); at >= 0; at = captions.indexOf(u'&', at + 1)) {
      const QString key = captions.mid(at + 1, 1).toUpper();
      EXPECT_FALSE(keys.contains(key))
          << key.toStdString() << " twice in " << captions.toStdString();
      keys.insert(key);
    }
    EXPECT_TRUE(Find<QPushButton>(*dialog, "cmdAccept").isDefault());
    EXPECT_FALSE(Find<QPushButton>(*dialog, "cmdDelete").isVisible()) << "a new row has none";
    const QString first = FocusOf(*dialog);
    QStringList order;
    do {
      order.append(FocusOf(*dialog));
      QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
    } while (FocusOf(*dialog) != first && order.size() < 30);
    EXPECT_EQ(order.last(), "cmdCancel") << order.join(u' ').toStdString();
    EXPECT_EQ(order.at(order.size() - 2), "cmdAccept") << order.join(u' ').toStdString();
    EXPECT_EQ(order.at(order.size() - 3), "cmdNew") << order.join(u' ').toStdString();
    for (const QString& name : order) {
      const auto& field = Find<QWidget>(*dialog, name.toUtf8().constData());
      const auto* button = qobject_cast<const QAbstractButton*>(&field);
      EXPECT_TRUE(button != nullptr || !field.accessibleName().isEmpty()) << name.toStdString();
    }
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_FALSE(dialog->IsChanged());
  }
}

TEST_F(Editors, AnEmptyFormIsRefusedAndTheFieldIsInFocus) {
  const std::string before = Everything();
  const char* texts[] = {"You need to enter an Account", "You need to enter an Account Group",
                         "You need to enter a Bank",     "You need to enter a Category",
                         "You need to enter a Payee",    "You need to enter a Payment Type",
                         "You need to enter a Keyword"};
  std::size_t index = 0;
  for (const auto& dialog : All()) {
    dialog->Open(0);
    Show(*dialog);
    const QString first = FocusOf(*dialog);
    Find<QPushButton>(*dialog, "cmdCancel").setFocus();
    Prompt().ExpectTell("Save Warning", texts[index++]);
    Click(*dialog, "cmdAccept");
    EXPECT_EQ(Prompt().Shown().back().icon, Icon::Information);
    EXPECT_EQ(FocusOf(*dialog), first);
    EXPECT_TRUE(dialog->isVisible());
  }
  EXPECT_EQ(Everything(), before);
}

TEST_F(Editors, ANewPayeeIsSavedByEnterAndTheFormIsReadyForTheNext) {
  FrmPayees dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Add Payee");
  for (const std::string& name : kNastyNames) {
    // What is right to left or beyond the keyboard is put in as an input method does.
    Find<QLineEdit>(dialog, "txtPayee").setText(QString::fromStdString(name));
    QTest::keyClick(&Find<QLineEdit>(dialog, "txtPayee"), Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(NoteOf(dialog).toStdString(), "“" + name + "” was saved.");
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtPayee").text(), "");
    EXPECT_EQ(FocusOf(dialog), "txtPayee");
    EXPECT_EQ(ledger_.References().FindOrCreatePayee(name), dialog.SavedKey());
  }
  EXPECT_EQ(ledger_.References().Payees().size(), kNastyNames.size());
  Type(dialog, "txtPayee", QString(101, u'x'));
  Prompt().ExpectTell("Save Warning", "Payee must be less than 100 characters long");
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtPayee"), Qt::Key_Return);
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtPayee").selectedText().size(), 101);
  QTest::keyClicks(&Find<QLineEdit>(dialog, "txtPayee"), QString(100, u'x'));
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtPayee"), Qt::Key_Return);
  EXPECT_EQ(ledger_.References().Payees().size(), kNastyNames.size() + 1);
}

TEST_F(Editors, AnExistingPayeeIsSavedAndTheDialogCloses) {
  const std::int64_t key = ledger_.References().FindOrCreatePayee("Grocer");
  FrmPayees dialog(Services(), ledger_, nullptr);
  EXPECT_FALSE(dialog.Open(999));
  ASSERT_TRUE(dialog.Open(key));
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Edit Payee");
  Type(dialog, "txtDescription", "on the corner");
  QTest::keyClick(&Find<QLineEdit>(dialog, "txtDescription"), Qt::Key_Return);
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_TRUE(dialog.IsChanged());
  EXPECT_EQ(dialog.SavedKey(), key);
  EXPECT_EQ(ledger_.References().Payees().front().description, "on the corner");
}

TEST_F(Editors, EveryTextOfABankComesBackInItsField) {
  const std::vector<std::pair<const char*, const char*>> texts = {
      {"txtBank", "Bank d'Or"},  {"txtPostcode", "AB1 2CD"},  {"txtTelephone", "555"},
      {"txtAccount", "K-1"},     {"txtSortcode", "01-02-03"}, {"txtWeb", "or.example"},
      {"txtDescription", "Gold"}};
  FrmBanks dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  for (const auto& [field, text] : texts) Type(dialog, field, text);
  auto& address = Find<QPlainTextEdit>(dialog, "txtAddress");
  address.setPlainText("1 High Street\nLondon");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(address.toPlainText(), "");
  ASSERT_TRUE(dialog.Open(dialog.SavedKey()));
  for (const auto& [field, text] : texts) {
    EXPECT_EQ(Find<QLineEdit>(dialog, field).text(), text) << field;
  }
  EXPECT_EQ(address.toPlainText(), "1 High Street\nLondon");
  const auto banks = ledger_.References().Banks();
  const auto bank = std::find_if(banks.begin(), banks.end(), [&](const BankRecord& row) {
    return row.bankId == dialog.SavedKey();
  });
  ASSERT_NE(bank, banks.end());
  EXPECT_EQ(bank->sortcode, "01-02-03");
  EXPECT_EQ(bank->account, "K-1");
}

TEST_F(Editors, AddNewTurnsAnEditIntoAnAddition) {
  const std::int64_t key = ledger_.References().FindOrCreatePayee("Grocer");
  FrmPayees dialog(Services(), ledger_, nullptr);
  dialog.Open(key);
  Show(dialog);
  EXPECT_TRUE(Find<QPushButton>(dialog, "cmdMerge").isVisible());
  Click(dialog, "cmdNew");
  EXPECT_EQ(dialog.windowTitle(), "Add Payee");
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdDelete").isVisible());
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdMerge").isVisible());
  Type(dialog, "txtPayee", "Baker");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(ledger_.References().Payees().size(), 2U);
  EXPECT_NE(dialog.SavedKey(), key);
}

TEST_F(Editors, DeletingAsksAndSaysWhatWasKept) {
  const std::int64_t key = ledger_.References().FindOrCreatePayee("Grocer");
  const std::int64_t row = Use(9, key);
  FrmPayees dialog(Services(), ledger_, nullptr);
  dialog.Open(key);
  Show(dialog);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(dialog, "cmdDelete");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(NoteOf(dialog), QString::fromUtf8("“Grocer” is still needed and was kept."));
  EXPECT_FALSE(dialog.IsChanged());
  ledger_.Transactions().DeleteTransaction(row);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  Click(dialog, "cmdDelete");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_TRUE(dialog.IsChanged());
  EXPECT_TRUE(ledger_.References().Payees().empty());
}

TEST_F(Editors, WhatTheFileRefusesKeepsWhatWasTyped) {
  FrmKeywords dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  Type(dialog, "txtKeyword", "Holiday");
  Store().Execute("DROP TABLE tblKeywordLink");
  Store().Execute("DROP TABLE tblKeywords");
  Prompt().ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Click(dialog, "cmdAccept");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_FALSE(dialog.IsChanged());
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtKeyword").text(), "Holiday");
  Store().Execute("CREATE TABLE tblKeywords (KeywordID Counter, [Keyword] TEXT(255))");
  Store().Execute("CREATE TABLE tblKeywordLink (LinkID Counter, KeywordID INT, TransactionID INT)");
}

TEST_F(Editors, ACategoryKeepsItsBudget) {
  FrmCategory dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  Type(dialog, "cmbCategory", "Car");
  Type(dialog, "txtSubCategory", "Tyres");
  Type(dialog, "txtBudget", "25");
  Prompt().ExpectTell("Save Warning", "You need to enter a Budget Type, when setting a budget");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(FocusOf(dialog), "cmbType");
  QTest::keyClicks(&Find<QComboBox>(dialog, "cmbType"), "E");
  Prompt().ExpectTell("Save Warning", "You need to select a Budget Period, when setting a budget");
  Click(dialog, "cmdAccept");
  EXPECT_EQ(FocusOf(dialog), "cmbPeriod");
  QTest::keyClicks(&Find<QComboBox>(dialog, "cmbPeriod"), "Mon");
  Click(dialog, "cmdAccept");
  const auto rows = ledger_.Categories().Categories();
  const auto row = std::find_if(rows.begin(), rows.end(), [&](const CategoryRecord& candidate) {
    return candidate.categoryId == dialog.SavedKey();
  });
  ASSERT_NE(row, rows.end());
  EXPECT_EQ(row->subCategory, "Tyres");
  EXPECT_EQ(row->type, -1);
  EXPECT_EQ(row->budget, 25);
  EXPECT_EQ(row->periodId, 6);
}

TEST_F(Editors, ARenamedCategoryAsksInItsWindow) {
  FrmCategory dialog(Services(), ledger_, nullptr);
  dialog.Open(CategoryKey("Gifts"));
  Show(dialog);
  Type(dialog, "cmbCategory", "Presents");
  Prompt().ExpectAsk("Amend Category",
                     "Do you want to amend the name for this category and all sub categories",
                     true);
  Click(dialog, "cmdAccept");
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_NE(CategoryKey("Presents", "Cards"), 0);
}

TEST_F(Editors, ACategoryMayChangeItsCase) {
  const std::int64_t key = CategoryKey("Gifts");
  FrmCategory dialog(Services(), ledger_, nullptr);
  dialog.Open(key);
  Show(dialog);
  Type(dialog, "cmbCategory", "GIFTS");
  Find<QWidget>(dialog, "txtBudget").setFocus();
  Prompt().ExpectAsk("Amend Category", ScriptedPrompts::kAnyText, true);
  Click(dialog, "cmdAccept");
  const auto rows = ledger_.Categories().Categories();
  EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                          [](const CategoryRecord& row) { return row.category == "GIFTS"; }),
            3);
}

TEST_F(Editors, MergingOpensFromTheEditor) {
  const std::int64_t from = ledger_.References().FindOrCreatePayee("Tesco Ltd");
  const std::int64_t into = ledger_.References().FindOrCreatePayee("Tesco");
  Use(9, from);
  FrmPayees dialog(Services(), ledger_, nullptr);
  dialog.Open(from);
  Show(dialog);
  InNextDialog([this](QDialog& merge) {
    EXPECT_EQ(merge.windowTitle(), "Merge Payee");
    EXPECT_EQ(Find<QLabel>(merge, "lblSource").text(), "Tesco Ltd");
    Prompt().ExpectTell("Merge Record Warning", "Please select a Payee to Merge records to");
    Click(merge, "cmdAccept");
    Type(merge, "cmbMerge", "tesco ltd");
    Prompt().ExpectTell("Merge Record Warning",
                        "Payee to Merge and Payee to Merge into can not be the same.");
    Click(merge, "cmdAccept");
    EXPECT_EQ(FocusOf(merge), "cmbMerge");
    Type(merge, "cmbMerge", "tesco");
    Prompt().ExpectAsk("Proceed to merge records?",
                       "All records from PAYEE will be Moved into  the Tesco to Merge. Do you wish "
                       "to continue?",
                       true);
    Prompt().ExpectTell("Merge Records", "Merge completed.");
    Click(merge, "cmdAccept");
    EXPECT_EQ(merge.result(), QDialog::Accepted);
  });
  Click(dialog, "cmdMerge");
  EXPECT_TRUE(dialog.isVisible()) << "the source can be deleted now";
  EXPECT_TRUE(dialog.IsChanged());
  EXPECT_EQ(Count("tblTransactions Where PayeeID = " + SqlNumber(into)), 1);
}

}  // namespace
}  // namespace corvanta
