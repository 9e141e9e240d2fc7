#include "controls/ListTable.h"
#include "notes/AttachmentEditor.h"
#include "notes/NoteDialogs.h"
#include "notes/NotesTest.h"
#include "notes/ucPicture.h"
#include "support/DialogTest.h"

#include <QBuffer>
#include <QComboBox>
#include <QDropEvent>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>

namespace corvanta {
namespace {

class NoteDialogs : public DialogTest<NotesTest> {
 protected:
  [[nodiscard]] NotePlace Place() { return {Services(), ledger_, nullptr}; }
  static std::string Picture() {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray bytes;
    QBuffer out(&bytes);
    image.save(&out, "PNG");
    return bytes.toStdString();
  }
  static QString Cell(const QDialog& dialog, int row, int column) {
    return Find<ListTable>(dialog, "lvAttachments").model()->index(row, column).data().toString();
  }
};

TEST_F(NoteDialogs, FilesAreAttachedLookedAtAndRemoved) {
  const std::string picture = PutFile("bill.png", Picture());
  InNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmAttachments");
    for (const char* button : {"cmdOpen", "cmdEdit", "cmdSave", "cmdDelete"}) {
      EXPECT_FALSE(Find<QPushButton>(dialog, button).isEnabled()) << button;
    }
    auto& keep = Find<QComboBox>(dialog, "cmbKeep");
    EXPECT_EQ(keep.currentText(), "in the folder FileStore");
    keep.setFocus();
    QTest::keyClick(&keep, Qt::Key_End);
    EXPECT_EQ(keep.currentText(), "in the data file");
    Prompt().ExpectOpenFile("Select File to Attach", picture);
    Click(dialog, "cmdEmptyState");
    EXPECT_EQ(Cell(dialog, 0, 0), "bill.png");
    EXPECT_EQ(Cell(dialog, 0, 1), "in the data file");
    auto& shown = Find<ucPicture>(dialog, "picAttachment");
    EXPECT_TRUE(shown.isVisible());
    EXPECT_EQ(shown.accessibleName(), "Picture of bill.png");
    auto& list = Find<ListTable>(dialog, "lvAttachments");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(store_.platform.opener.Opened().size(), 1U);
    Prompt().ExpectOpenFile("Select File to Attach", PutFile("notes.txt", "text"));
    Click(dialog, "cmdAdd");
    EXPECT_EQ(Cell(dialog, 1, 0), "notes.txt");
    EXPECT_FALSE(shown.isVisible()) << "no picture";
    Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(list.model()->rowCount(), 1);
    EXPECT_TRUE(shown.isVisible()) << "of the row that is left";
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_TRUE(OpenAttachments(1, Place()));
}

TEST_F(NoteDialogs, ADroppedFileIsAttached) {
  InNextDialog([&](QDialog& dialog) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(PutFile("a.txt", "a")))});
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&dialog, &enter);
    ASSERT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&dialog, &drop);
    QApplication::processEvents();
    EXPECT_EQ(Cell(dialog, 0, 0), "a.txt");
  });
  EXPECT_TRUE(OpenAttachments(1, Place()));
}

TEST_F(NoteDialogs, KeywordsAreTickedFoundAndMade) {
  ledger_.Notes().FindOrCreateKeyword("Garden");
  ledger_.Notes().FindOrCreateKeyword("Holiday");
  const std::vector<std::int64_t> keys{1, 2};
  InNextDialog([&](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "FrmKeywordChoice");
    EXPECT_EQ(FocusOf(dialog), "txtKeyword");
    auto& list = Find<QListWidget>(dialog, "lvKeywords");
    auto& line = Find<QLineEdit>(dialog, "txtKeyword");
    QTest::keyClicks(&line, "gard");
    EXPECT_TRUE(list.item(1)->isHidden());
    line.clear();
    QTest::keyClicks(&line, "holiday");
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(list.item(1)->checkState(), Qt::Checked) << "found whatever its case";
    QTest::keyClicks(&line, "Tax");
    QTest::keyClick(&line, Qt::Key_Return);
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(Count("tblKeywords"), 2) << "made when it is saved";
    list.setFocus();
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_Space);
    Prompt().ExpectAsk("Keywords of 2 Transactions",
                       "What you have ticked is not saved. Do you wish to drop it?", false);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_TRUE(OpenKeywords(keys, Place()));
  EXPECT_EQ(ledger_.Notes().KeywordsOf(2).size(), 3U);
  CloseAccounts();
  Prompt().ExpectTell("Amend Item", "This Account is closed, Items cannot be amended");
  EXPECT_FALSE(OpenKeywords(keys, Place()));
}

}  // namespace
}  // namespace corvanta
