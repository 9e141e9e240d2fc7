#pragma once

#include "controls/PickBox.h"
#include "entry/EntryDialogs.h"
#include "entry/EntryTest.h"
#include "support/DialogTest.h"

#include <QComboBox>
#include <QLineEdit>

namespace corvanta {

// Dialogs of transaction entry on a data file of their own.
class FrmEntryTest : public DialogTest<EntryTest> {
 protected:
  [[nodiscard]] EntryPlace Place() { return {Services(), ledger_, rates_, nullptr}; }

  static QString TextOfField(const QWidget& dialog, const char* name) {
    const auto& field = Find<QWidget>(dialog, name);
    if (const auto* box = qobject_cast<const QComboBox*>(&field)) return box->currentText();
    return dynamic_cast<const QLineEdit&>(field).text();
  }
  // As input methods do, with texts that a keyboard has no keys for.
  static void Put(const QWidget& dialog, const char* name, const QString& text) {
    auto& field = Find<QWidget>(dialog, name);
    if (auto* box = qobject_cast<QComboBox*>(&field)) return box->setEditText(text);
    dynamic_cast<QLineEdit&>(field).setText(text);
  }
  static void Pick(const QWidget& dialog, const char* name, const QString& text) {
    auto& box = Find<QComboBox>(dialog, name);
    box.setCurrentIndex(box.findText(text));
  }
  static void FillExpense(const QWidget& dialog, const QString& payee = QStringLiteral("Grocer")) {
    Put(dialog, "cmbPayee", payee);
    Put(dialog, "cmbPayment", "Card");
    Put(dialog, "cmbCategory", "Shopping");
    Put(dialog, "cmbSubCategory", "Food");
    Put(dialog, "txtAmount", "25");
  }
  // The button's command is refused with that text, and the field is where to go on.
  void ExpectRefused(const QDialog& dialog, const char* text, const char* field,
                     const char* title = "Save Warning", const char* button = "cmdAccept") {
    Find<QWidget>(dialog, "cmdHelp").setFocus();
    Prompt().ExpectTell(title, text);
    Click(dialog, button);
    EXPECT_EQ(Prompt().Shown().back().icon, Icon::Information) << text;
    EXPECT_EQ(FocusOf(dialog), field) << text;
    EXPECT_TRUE(dialog.isVisible()) << text;
  }
  // The rules on payment types, payees and categories, in their order, of a form without any;
  // `account` stands between the first two, which the caller fills in and tests there.
  template <typename Account>
  void ExpectNamesNeeded(const QDialog& form, const Account& account) {
    const QString tooLong(101, u'x');
    ExpectRefused(form, "You need to enter a Payment Type", "cmbPayment");
    Put(form, "cmbPayment", tooLong);
    ExpectRefused(form, "Payment Type must be less than 100 characters long", "cmbPayment");
    Put(form, "cmbPayment", "Card");
    account();
    ExpectRefused(form, "You need to select a Payee", "cmbPayee");
    Put(form, "cmbPayee", tooLong);
    ExpectRefused(form, "Payee must be less than 100 characters long", "cmbPayee");
    Put(form, "cmbPayee", "Baker");
    ExpectRefused(form, "You need to enter a Category", "cmbCategory");
    Put(form, "cmbCategory", tooLong);
    ExpectRefused(form, "Category must be less than 100 characters long", "cmbCategory");
    Put(form, "cmbCategory", "Shopping");
    Put(form, "cmbSubCategory", tooLong);
    ExpectRefused(form, "Sub Category must be less than 100 characters long", "cmbSubCategory");
    Put(form, "cmbSubCategory", {});
  }
  // In the field that has the focus, followed by the key that leaves it.
  static void Keys(QDialog& dialog, const QString& text, Qt::Key then = Qt::Key_Tab) {
    QTest::keyClicks(dialog.focusWidget(), text);
    if (QWidget* completions = QApplication::activePopupWidget()) {
      completions->hide();
      ComeForward(dialog);
    }
    QTest::keyClick(dialog.focusWidget(), then);
  }
  [[nodiscard]] std::int64_t LastKey() {
    return store_.Number("Select Max(TransactionID) from tblTransactions");
  }
};

}  // namespace corvanta
