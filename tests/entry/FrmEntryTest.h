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
