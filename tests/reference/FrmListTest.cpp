#include "controls/ListTable.h"
#include "ledger/investments/RateBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/KeywordBook.h"
#include "reference/FrmList.h"
#include "reference/FrmReferenceTest.h"
#include "reference/ReferenceDialogs.h"

#include <QLineEdit>

namespace corvanta {
namespace {

class Lists : public FrmReferenceTest {
 protected:
  static QString Chosen(const QWidget& dialog) {
    return Find<ListTable>(dialog, "lvList").currentIndex().siblingAtColumn(0).data().toString();
  }
};

TEST_F(Lists, AnEmptyListOffersTheFirstItem) {
  FrmList dialog(ListKind::Keywords, Services(), ledger_, nullptr);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Transaction Keywords");
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdEdit").isEnabled());
  EXPECT_FALSE(Find<QPushButton>(dialog, "cmdDelete").isEnabled());
  InNextDialog([](QDialog& editor) {
    EXPECT_EQ(editor.objectName(), "FrmKeywords");
    Type(editor, "txtKeyword", "Holiday");
    Click(editor, "cmdAccept");
    Type(editor, "txtKeyword", "Garden");
    Click(editor, "cmdAccept");
  });
  Click(dialog, "cmdEmptyState");
  EXPECT_TRUE(dialog.IsChanged());
  EXPECT_EQ(Chosen(dialog), "Garden") << "the one saved last";
  EXPECT_TRUE(Find<QPushButton>(dialog, "cmdDelete").isEnabled());
  EXPECT_EQ(ledger_.Notes().Keywords().size(), 2U);
}

TEST_F(Lists, ACurrencyIsAddedAndOneThatIsUsedIsKept) {
  AnAccount();
  FrmList dialog(ListKind::Currency, Services(), ledger_, nullptr);
  Show(dialog);
  EXPECT_EQ(dialog.windowTitle(), "Currencies");
  InNextDialog([this](QDialog& editor) {
    EXPECT_EQ(editor.objectName(), "FrmCurrencies");
    Type(editor, "txtCurrency", "gbp");
    Machine().prompts.ExpectTell("Duplicate Record", "Currency already exists");
    Click(editor, "cmdAccept");
    Type(editor, "txtCurrency", "ZWG");
    Type(editor, "txtDescription", "Zimbabwe Gold");
    Click(editor, "cmdAccept");
  });
  Click(dialog, "cmdNew");
  EXPECT_EQ(Chosen(dialog), "ZWG");
  constexpr const char* kQuestion =
      "Do you wish to delete this item? If this item is being used by existing Accounts or "
      "Investments, then this item will not be deleted.";
  Machine().prompts.ExpectAsk("Delete Item?", kQuestion, true);
  Click(dialog, "cmdDelete");
  EXPECT_NE(Chosen(dialog), "ZWG");
  // Rates follow a code that is changed.
  ledger_.Rates().Keep({0, "EUR", "JPY", *Date::FromIso("2026-11-20"), 160.5, "A service"});
  InNextDialog([](QDialog& editor) {
    Type(editor, "txtCurrency", "EUX");
    Click(editor, "cmdAccept");
  });
  const auto euro = ledger_.References().Of<CurrencyRecord>().Find("EUR");
  EXPECT_TRUE(
      OpenReferenceEditor(ReferenceKind::Currency, euro, {Services(), ledger_, &dialog}).isChanged);
  EXPECT_TRUE(ledger_.Rates().Latest("EUX", "JPY", Machine().clock.Today()));
  // The one of the account, and the one that an investment is quoted in.
  Store().Execute(
      "INSERT INTO tblPayees (Payee,CurrencyID,InvestCurrencyID,Investment) VALUES "
      "('Fund',17,18,1)");
  for (const std::int64_t key : {17, 18}) {
    EXPECT_FALSE(ledger_.References().Of<CurrencyRecord>().Delete(key)) << key;
  }
  EXPECT_TRUE(ledger_.References().Of<CurrencyRecord>().Delete(19));
}

TEST_F(Lists, EnterEditsTheChosenRow) {
  FrmList dialog(ListKind::AccountType, Services(), ledger_, nullptr);
  Show(dialog);
  auto& list = Find<ListTable>(dialog, "lvList");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(Chosen(dialog), "Cash Accounts");
  InNextDialog([](QDialog& editor) {
    EXPECT_EQ(editor.windowTitle(), "Edit Account Group");
    Type(editor, "txtAccountType", "Money in hand");
    QTest::keyClick(editor.focusWidget(), Qt::Key_Return);
  });
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(Chosen(dialog), "Money in hand");
  QTest::keyClick(&list, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Lists, DeletingAsksTheLongerQuestion) {
  AnAccount();
  FrmList dialog(ListKind::AccountType, Services(), ledger_, nullptr);
  Show(dialog);
  auto& list = Find<ListTable>(dialog, "lvList");
  list.setFocus();
  const char* question =
      "Do you wish to delete this item? If this item is being used by existing Transactions, then "
      "this item will not be deleted.";
  Prompt().ExpectAsk("Delete Item?", question, true);
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(NoteOf(dialog), QString::fromUtf8("“Bank Accounts” is still needed and was kept."));
  EXPECT_FALSE(dialog.IsChanged());
  QTest::keyClick(&list, Qt::Key_Down);
  Prompt().ExpectAsk("Delete Item?", question, true);
  Click(dialog, "cmdDelete");
  EXPECT_EQ(NoteOf(dialog), "");
  EXPECT_EQ(Chosen(dialog), "Credit Accounts") << "the row that took its place";
  EXPECT_TRUE(dialog.IsChanged());
  EXPECT_EQ(ledger_.References().AccountGroups().size(), 4U);
}

TEST_F(Lists, TheDialogsReportWhetherAnythingChanged) {
  const DialogPlace place{Services(), ledger_, nullptr};
  InNextDialog([](QDialog& editor) { EXPECT_EQ(editor.objectName(), "FrmPayments"); });
  EXPECT_FALSE(OpenReferenceEditor(ReferenceKind::Payment, 1, place).isChanged);
  InNextDialog([](QDialog& editor) {
    Type(editor, "txtPayment", "Cash");
    Click(editor, "cmdAccept");
  });
  const DialogResult result = OpenReferenceEditor(ReferenceKind::Payment, 0, place);
  EXPECT_TRUE(result.isChanged);
  EXPECT_EQ(result.savedKey, ledger_.References().FindOrCreatePayment("Cash"));
  EXPECT_TRUE(OpenReferenceEditor(ReferenceKind::Payment, 999, place).isChanged)
      << "a row that is gone";
  InNextDialog([](QDialog& list) { EXPECT_EQ(list.windowTitle(), "Payments"); });
  EXPECT_FALSE(OpenReferenceList(ListKind::Payment, place));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_TRUE(DeleteReference(ReferenceKind::Payment, result.savedKey, place).isGone);
}

}  // namespace
}  // namespace corvanta
