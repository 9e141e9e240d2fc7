#pragma once

#include "app/WindowTest.h"
#include "app/options/FrmOptions.h"
#include "app/options/ucColourButton.h"
#include "app/register/RegisterView.h"
#include "controls/EmptyState.h"
#include "controls/OutlinedStyle.h"
#include "controls/SortedTable.h"
#include "support/DialogTest.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QTreeWidget>

namespace corvanta {

// The main window with a register, and its options changed in their dialog as a person does.
class OptionsWindow : public DialogTest<WindowTest> {
 protected:
  // The lines of lists are the style's.
  OptionsWindow() { QApplication::setStyle(new OutlinedStyle); }

  void Start() {
    OpenData();
    Run("UPDATE tblAccounts SET AccountNo = '12345678' WHERE AccountID = 1");
    Run("INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount) "
        "VALUES ('Old',1,17,0,1)");
    Run("UPDATE tblTransactions SET [Amount] = 1, BankChk = 0, BankRec = 0");
    ShowWindow();
    window_->resize(1400, 900);
    window_->Show({kTransactionShow, 1});
    BringForward();
  }
  // Opens the dialog, does that in it and accepts.
  void Change(const std::function<void(QDialog&)>& change) {
    bool isDone = false;
    InNextDialog([&](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Options");
      change(dialog);
      Click(dialog, "cmdAccept");
      isDone = !dialog.isVisible();
    });
    Trigger("mnuFileOptions");
    EXPECT_TRUE(isDone);
    QApplication::processEvents();
  }
  void Tick(const char* name) {
    Change([name](QDialog& dialog) { Find<QCheckBox>(dialog, name).click(); });
  }
  static void Choose(QDialog& dialog, const char* name, const QString& text) {
    auto& box = Find<QComboBox>(dialog, name);
    box.setCurrentIndex(box.findText(text));
    ASSERT_EQ(box.currentText(), text);
    Q_EMIT box.activated(box.currentIndex());
  }
  void Pick(const char* name, const QColor& colour) {
    Change([&](QDialog& dialog) {
      InNextDialog([&](QDialog& picker) {
        static_cast<QColorDialog&>(picker).setCurrentColor(colour);
        picker.accept();
      });
      Find<ucColourButton>(dialog, name).click();
    });
  }

  SortedTable& Register() { return WindowTest::Find<SortedTable>("lvbank"); }
  // The background of a list's row, where no text is, and the lowest line of the row.
  static QColor RowColour(SortedTable& list, int row, bool isLine = false) {
    list.scrollToTop();
    list.clearSelection();
    const QImage image = list.viewport()->grab().toImage();
    const QRect place = list.visualRect(list.model()->index(row, 0));
    return image.pixelColor(1, isLine ? place.bottom() : place.center().y());
  }
  // How many pixels of the register are much more of that part than of the others.
  int Tinted(int (QColor::*part)() const) {
    constexpr int kMuch = 60;
    Register().clearSelection();
    const QImage image = Register().viewport()->grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QColor colour = image.pixelColor(x, y);
        const int all = colour.red() + colour.green() + colour.blue();
        if (2 * (colour.*part)() > all - (colour.*part)() + 2 * kMuch) ++count;
      }
    }
    return count;
  }
  QString TreeText() {
    QStringList texts;
    for (QTreeWidgetItemIterator it(&WindowTest::Find<QTreeWidget>("tvAccounts")); *it; ++it) {
      texts.append((*it)->text(0) + u'=' + (*it)->text(1));
    }
    return texts.join(u'|');
  }
  QString ReminderText() {
    QStringList texts;
    for (QTreeWidgetItemIterator it(&WindowTest::Find<QTreeWidget>("tvReminders")); *it; ++it) {
      texts.append((*it)->text(0));
    }
    return texts.join(u'|');
  }
  // What a right click into the register, which has no rows, opens.
  QString RightClicked() {
    auto& empty = *window_->findChild<RegisterView*>()->findChild<EmptyState*>();
    QString name;
    InNextDialog([&name](QDialog& form) { name = form.objectName(); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20),
                            empty.mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(&empty, &event);
    return name;
  }
  std::int64_t Count(const std::string& sql) {
    return session_.Ledger().Store().QueryValue(sql).Int();
  }
};

}  // namespace corvanta
