#include "controls/PickBox.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "reference/FrmAccounts.h"
#include "reference/FrmReferenceTest.h"

#include <QCheckBox>
#include <QLineEdit>

namespace corvanta {
namespace {

using Accounts = FrmReferenceTest;

TEST_F(Accounts, AnAccountIsTypedWithCompletionAndTheLocalesNumbers) {
  FrmAccounts dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  EXPECT_EQ(Find<PickBox>(dialog, "cmbCurrency").currentText(), "British Pound (GBP)");
  EXPECT_EQ(Find<PickBox>(dialog, "cmbBank").currentText(), "none");
  Type(dialog, "txtAccount", "Purse");
  Type(dialog, "cmbAccountType", "cash accounts");
  Type(dialog, "cmbBank", "My bank");
  Type(dialog, "cmbCurrency", "euro (eur)");
  Type(dialog, "txtOpeningBalance", "-1,234.5 x");
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtOpeningBalance").text(), "-1,234.5 ")
      << "letters are no part of numbers";
  Find<QWidget>(dialog, "txtDescription").setFocus();
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtOpeningBalance").text(), "-1,234.50");
  Click(dialog, "cmdAccept");
  const auto account = ledger_.Accounts().ReadAccount(dialog.SavedKey());
  ASSERT_TRUE(account);
  EXPECT_EQ(account->account, "Purse");
  EXPECT_EQ(account->openingBalance, -1234.5);
  EXPECT_EQ(account->accountTypeId, 2) << "found without regard to case";
  EXPECT_EQ(account->currencyId, 43);
  EXPECT_EQ(Count("tblBank Where Bank = 'My bank'"), 1);
  EXPECT_EQ(Find<QLineEdit>(dialog, "txtAccount").text(), "");
}

TEST_F(Accounts, AnAmountThatIsNotTouchedKeepsItsDigits) {
  const std::int64_t key = AnAccount();
  Store().Execute("UPDATE tblAccounts SET OpeningBalance = 0.123456789");
  FrmAccounts dialog(Services(), ledger_, nullptr);
  dialog.Open(key);
  Show(dialog);
  Find<QWidget>(dialog, "txtOpeningBalance").setFocus();
  Find<QCheckBox>(dialog, "chkCloseAccount").setFocus();
  QTest::keyClick(&Find<QCheckBox>(dialog, "chkCloseAccount"), Qt::Key_Space);
  Click(dialog, "cmdAccept");
  EXPECT_EQ(ledger_.Accounts().ReadAccount(key)->openingBalance, 0.123456789);
  EXPECT_TRUE(ledger_.Accounts().ReadAccount(key)->closed);
}

TEST_F(Accounts, TheAccountsWarningsFocusTheirFields) {
  FrmAccounts dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  const std::string before = Everything();
  const auto refused = [&](const char* text, const char* field) {
    Prompt().ExpectTell("Save Warning", text);
    Click(dialog, "cmdAccept");
    EXPECT_EQ(FocusOf(dialog), field) << text;
  };
  Type(dialog, "txtAccount", "Purse");
  EXPECT_EQ(Find<PickBox>(dialog, "cmbAccountType").currentText(), "Bank Accounts");
  Find<PickBox>(dialog, "cmbAccountType").clearEditText();
  refused("You need to enter an Account Group", "cmbAccountType");
  Type(dialog, "cmbAccountType", "Pockets");
  Find<PickBox>(dialog, "cmbCurrency").setEditText("no such money");
  refused("You need to select a Currency", "cmbCurrency");
  Find<PickBox>(dialog, "cmbCurrency").SetKey(17);
  Find<QLineEdit>(dialog, "txtOpeningBalance").setText("1*");
  refused("You need to enter a valid Opening Balance", "txtOpeningBalance");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Accounts, ABankIsAddedFromASavedAccount) {
  FrmAccounts dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  Prompt().ExpectTell("Save Warning",
                      "Account details have not been saved. Please save details before continuing");
  Click(dialog, "cmdAddBank");
  const std::int64_t key = AnAccount();
  dialog.Open(key);
  InNextDialog([](QDialog& bank) {
    EXPECT_EQ(bank.objectName(), "FrmBanks");
    Type(bank, "txtBank", "River Bank");
    QTest::keyClick(bank.focusWidget(), Qt::Key_Return);
  });
  Click(dialog, "cmdAddBank");
  EXPECT_EQ(Find<PickBox>(dialog, "cmbBank").currentText(), "River Bank");
  EXPECT_TRUE(dialog.IsChanged());
  Click(dialog, "cmdAccept");
  EXPECT_EQ(ledger_.Accounts().ReadAccount(key)->bankId,
            ledger_.References().FindOrCreateBank("River Bank"));
}

TEST_F(Accounts, EnterTakesACompletionAndThenSaves) {
  FrmAccounts dialog(Services(), ledger_, nullptr);
  dialog.Open(0);
  Show(dialog);
  Type(dialog, "txtAccount", "Purse");
  auto& groups = Find<PickBox>(dialog, "cmbAccountType");
  groups.setFocus(Qt::TabFocusReason);
  QTest::keyClicks(&groups, "sh acc");
  QWidget* popup = QApplication::activePopupWidget();
  ASSERT_NE(popup, nullptr) << "completes from the middle of a name";
  QTest::keyClick(popup, Qt::Key_Down);
  QTest::keyClick(popup, Qt::Key_Return);
  EXPECT_EQ(groups.currentText(), "Cash Accounts");
  EXPECT_EQ(Count("tblAccounts"), 0);
  QTest::keyClick(&groups, Qt::Key_Return);
  EXPECT_EQ(Count("tblAccounts Where AccountTypeID = 2"), 1);
}

}  // namespace
}  // namespace corvanta
