#include "ledger/RecordsTest.h"
#include "ledger/transactions/AttachedFiles.h"
#include "ledger/transactions/TransactionPaste.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "store/datafile/upgrade/OrphanCleanup.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"

#include <filesystem>

namespace corvanta {
namespace {

using enum AttachmentMode;

class Files : public RecordsTest {
 protected:
  std::string Put(const std::string& name, const std::string& bytes) {
    const std::string path = store_.platform.folder.Path(name);
    store_.platform.files.WriteAtomically(path, bytes);
    return path;
  }
  AttachedFiles Attached() { return ledger_.Notes().Files(); }
  std::int64_t Contents() { return Count("own_AttachedFiles"); }
};

TEST_F(Files, BytesOfAllKindsAndLengthsComeBack) {
  const std::int64_t row = Add(bank_, -1);
  std::string bytes;
  for (int size : {0, 1, 2, 3, 4, 300}) {
    bytes.clear();
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(i * 7);
    const auto key = Attached().Attach(row, Put("b", bytes), Inside);
    EXPECT_EQ(Attached().Content(*Attached().Find(key)), bytes) << size;
    EXPECT_EQ(Attached().SizeOf(*Attached().Find(key)), bytes.size());
  }
}

TEST_F(Files, CopiesOfOneNameStandSideBySide) {
  const std::int64_t row = Add(bank_, -1);
  const std::string path = Put("bill.pdf", "one");
  const auto first = Attached().Find(Attached().Attach(row, path, Folder));
  Put("bill.pdf", "two");
  const auto second = Attached().Find(Attached().Attach(row, path, Folder));
  EXPECT_EQ(first->store, "FileStore/bill.pdf");
  EXPECT_EQ(second->store, "FileStore/bill (2).pdf");
  EXPECT_EQ(Attached().Content(*first), "one");
  EXPECT_EQ(Attached().Content(*second), "two");
  ledger_.Notes().DeleteAttachment(second->attachmentId);
  EXPECT_EQ(Attached().Unused(), std::vector<std::string>{"bill (2).pdf"});
}

TEST_F(Files, ARowThatCannotBeWrittenLeavesNoCopy) {
  const std::int64_t row = Add(bank_, -1);
  const std::string path = Put("bill.pdf", "one");
  Run("DROP TABLE tblAttachments");
  EXPECT_THROW(Attached().Attach(row, path, Folder), StoreError);
  EXPECT_THROW(Attached().Attach(row, path, Inside), StoreError);
  EXPECT_FALSE(FileExists(Attached().Folder() + "/bill.pdf"));
  EXPECT_EQ(Contents(), 0);
  Run("CREATE TABLE tblAttachments (AttachmentID Counter, TransactionID INT, AttachmentFile "
      "TEXT(255), "
      "AttachmentPath TEXT(255), AttachmentStore TEXT(255))");
}

TEST_F(Files, WhatIsNoFileIsRefused) {
  const std::int64_t row = Add(bank_, -1);
  for (const AttachmentMode mode : {Path, Folder, Inside}) {
    EXPECT_THROW(Attached().Attach(row, store_.platform.folder.Path("none"), mode), PlatformError);
    EXPECT_THROW(Attached().Attach(row, store_.platform.folder.Path(""), mode), PlatformError);
  }
  EXPECT_TRUE(Attached().All().empty());
  // A row of somebody else's making leads nowhere but into the folder.
  const AttachmentRecord hostile{0, row, "x", "", "FileStore/../../etc/passwd"};
  EXPECT_EQ(Attached().PathOf(hostile), Attached().Folder() + "/passwd");
}

TEST_F(Files, APastedRowSharesTheContentUntilItIsChanged) {
  ledger_.Undo().Start();
  const std::int64_t row = Add(bank_, -1);
  Attached().Attach(row, Put("a", "old"), Inside);
  const std::int64_t copy = ledger_.Copies().PasteTransaction(row, savings_);
  EXPECT_EQ(Contents(), 1);
  const AttachmentRecord changed = Attached().Of(copy).at(0);
  Attached().Replace(changed.attachmentId, "new");
  EXPECT_EQ(Attached().Content(Attached().Of(row).at(0)), "old");
  EXPECT_EQ(Attached().Content(Attached().Of(copy).at(0)), "new");
  ledger_.Undo().Undo();
  EXPECT_EQ(Attached().Content(Attached().Of(copy).at(0)), "old");
  EXPECT_EQ(Contents(), 1);
  ledger_.Transactions().DeleteTransaction(row);
  EXPECT_EQ(Attached().Content(Attached().Of(copy).at(0)), "old") << "still named";
  ledger_.Transactions().DeleteTransaction(copy);
  EXPECT_EQ(Contents(), 0);
  ledger_.Undo().Undo();
  EXPECT_EQ(Attached().Content(Attached().Of(copy).at(0)), "old");
}

TEST_F(Files, WhatBelongsToNothingIsClearedAway) {
  const std::int64_t row = Add(bank_, -1);
  Attached().Attach(row, Put("a", "a"), Inside);
  const auto lost = Attached().Attach(row, Put("b", "b"), Inside);
  Attached().Attach(row, Put("c", "c"), Folder);
  Run("INSERT INTO tblAttachments (TransactionID,AttachmentFile) VALUES (4711,'gone')");
  Run("DELETE FROM tblAttachments WHERE AttachmentID = " + std::to_string(lost));
  CleanUpOrphans(Db());
  EXPECT_EQ(Contents(), 1);
  EXPECT_EQ(Attached().All().size(), 2U);
  EXPECT_EQ(Attached().Content(Attached().Of(row).at(0)), "a");
}

}  // namespace
}  // namespace corvanta
