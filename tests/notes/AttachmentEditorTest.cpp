#include "ledger/transactions/TransactionBook.h"
#include "notes/AttachmentEditor.h"
#include "notes/NotesTest.h"
#include "platform/Files.h"
#include "platform/PlatformError.h"
#include "store/sql/StoreError.h"

#include <filesystem>

namespace corvanta {
namespace {

constexpr const char* kClosed = "This Account is closed, Items cannot be amended";

class Attachments : public NotesTest {
 protected:
  AttachmentEditor editor_{ledger_, Services(), 1};
  AttachmentRecord First() { return editor_.Attachments().at(0); }
};

TEST_F(Attachments, TheSettingSaysHowAFileIsKept) {
  EXPECT_EQ(editor_.Keeping(), AttachmentMode::Folder);
  Settings settings(store_.platform.registry);
  settings.SetOn(Setting::LocalFS, false);
  EXPECT_EQ(editor_.Keeping(), AttachmentMode::Path);
  for (const auto mode : {AttachmentMode::Inside, AttachmentMode::Path, AttachmentMode::Folder}) {
    editor_.Keep(mode);
    EXPECT_EQ(editor_.Keeping(), mode);
  }
  EXPECT_TRUE(settings.IsOn(Setting::LocalFS));
}

TEST_F(Attachments, AFileIsAskedForAndKeptInTheWayChosen) {
  const std::string path = PutFile("l'été 50%.pdf", std::string("a\0b", 3));
  Prompt().ExpectOpenFile("Select File to Attach", std::nullopt);
  EXPECT_FALSE(editor_.Add());
  for (const auto mode : {AttachmentMode::Folder, AttachmentMode::Path, AttachmentMode::Inside}) {
    editor_.Keep(mode);
    Prompt().ExpectOpenFile("Select File to Attach", path);
    ASSERT_TRUE(editor_.Add());
    EXPECT_EQ(Prompt().Shown().back().file.filterName, "All Supported Files");
    EXPECT_EQ(Prompt().Shown().back().file.filterPattern, "*.*");
    const AttachmentRecord row = First();
    EXPECT_EQ(ModeOf(row), mode);
    EXPECT_EQ(row.file, "l'été 50%.pdf");
    EXPECT_EQ(row.path, path);
    EXPECT_EQ(ledger_.Notes().Files().Content(row), std::string("a\0b", 3));
    ledger_.Undo().Undo();
    EXPECT_TRUE(editor_.Attachments().empty());
    ledger_.Undo().Redo();
    EXPECT_EQ(ledger_.Notes().Files().Content(First()), std::string("a\0b", 3));
    ledger_.Notes().DeleteAttachments(1);
  }
  EXPECT_EQ(Count("own_AttachedFiles"), 0);
  EXPECT_TRUE(FileExists(ledger_.Notes().Files().Folder() + "/l'été 50%.pdf"));
}

TEST_F(Attachments, OneFileBesideTheDataFileAndAnyNumberInside) {
  const std::string path = PutFile("a.txt", "a");
  ASSERT_TRUE(editor_.AddFile(path));
  for (const auto mode : {AttachmentMode::Folder, AttachmentMode::Path}) {
    editor_.Keep(mode);
    Prompt().ExpectTell("Attachment",
                        "\"a.txt\" is attached to this transaction. Remove it first, or keep the "
                        "new file in the data file, where a transaction may have several.");
    EXPECT_FALSE(editor_.AddFile(path));
  }
  editor_.Keep(AttachmentMode::Inside);
  EXPECT_TRUE(editor_.AddFile(path));
  EXPECT_TRUE(editor_.AddFile(path));
  EXPECT_EQ(editor_.Attachments().size(), 3U);
  EXPECT_EQ(ledger_.Notes().Files().All(AttachmentMode::Inside).size(), 2U);
  EXPECT_EQ(ledger_.Notes().Files().All(AttachmentMode::Path).size(), 0U);
}

TEST_F(Attachments, WhatCannotBeAttachedIsRefused) {
  const std::string gone = store_.platform.folder.Path("gone.txt");
  Prompt().ExpectTell("Attachment", "There is no file \"" + gone + "\".");
  EXPECT_FALSE(editor_.AddFile(gone));
  editor_.Keep(AttachmentMode::Inside);
  EXPECT_THROW(editor_.AddFile(PutFile("big", std::string(kMaxInside + 1, 'x'))), std::exception);
  EXPECT_EQ(Count("tblAttachments"), 0);
  EXPECT_EQ(Count("own_AttachedFiles"), 0);
}

TEST_F(Attachments, AClosedAccountIsLookedAtButNotChanged) {
  ASSERT_TRUE(editor_.AddFile(PutFile("a.txt", "a")));
  CloseAccounts();
  const AttachmentRecord row = First();
  for (const auto& change : {std::function<void()>([&] { editor_.Add(); }),
                             std::function<void()>([&] { editor_.AddFile(row.path); }),
                             std::function<void()>([&] { editor_.Edit(row); }),
                             std::function<void()>([&] { editor_.Remove(row); })}) {
    Prompt().ExpectTell("Amend Item", kClosed);
    change();
  }
  editor_.Open(row);
  EXPECT_EQ(store_.platform.opener.Opened().size(), 1U);
  EXPECT_EQ(editor_.Attachments().size(), 1U);
}

TEST_F(Attachments, OpeningSaysWhyItCannot) {
  ASSERT_TRUE(editor_.AddFile(PutFile("a.txt", "a")));
  const std::string stored = ledger_.Notes().Files().PathOf(First());
  editor_.Open(First());
  EXPECT_EQ(store_.platform.opener.Opened().back(), stored);
  store_.platform.opener.SetResult(false);
  Prompt().ExpectTell("Attachment", "There is no associated application with the selected file");
  editor_.Edit(First());
  std::filesystem::remove(stored);
  for (int way = 0; way < 3; ++way) Prompt().ExpectTell("Attachment", "Can not display Attachment");
  editor_.Open(First());
  editor_.Edit(First());
  EXPECT_FALSE(editor_.SaveAs(First()));
  EXPECT_EQ(store_.platform.opener.Opened().size(), 2U);
}

TEST_F(Attachments, APrivateCopyIsOpenedAndWiped) {
  editor_.Keep(AttachmentMode::Inside);
  ASSERT_TRUE(editor_.AddFile(PutFile("secret.txt", "secret")));
  std::string copy;
  {
    clsCorvanta other(store_.Db(), Services());
    AttachmentEditor(other, Services(), 1).Open(First());
    copy = store_.platform.opener.Opened().back();
    EXPECT_EQ(ReadFile(copy), "secret");
    EXPECT_EQ(std::filesystem::path(copy).filename(), "secret.txt");
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(copy).permissions(), perms::owner_read);
    const auto folder = std::filesystem::path(copy).parent_path();
    EXPECT_EQ(std::filesystem::status(folder).permissions(), perms::owner_all);
  }
  EXPECT_FALSE(FileExists(copy)) << "gone with the data file";
  store_.Db().Execute("DELETE FROM own_AttachedFiles");
  Prompt().ExpectTell("Attachment", "Can not display Attachment");
  editor_.Open(First());
  ledger_.Notes().DeleteAttachments(1);
}

TEST_F(Attachments, WhatIsChangedInACopyIsTakenBack) {
  editor_.Keep(AttachmentMode::Inside);
  ASSERT_TRUE(editor_.AddFile(PutFile("a.txt", "before")));
  editor_.Edit(First());
  const std::string copy = store_.platform.opener.Opened().back();
  EXPECT_FALSE(editor_.TakeBack()) << "nothing was changed";
  store_.platform.files.WriteAtomically(copy, "after");
  editor_.Edit(First());
  EXPECT_EQ(store_.platform.opener.Opened().back(), copy) << "no second copy";
  EXPECT_TRUE(editor_.TakeBack());
  EXPECT_FALSE(editor_.TakeBack());
  EXPECT_EQ(ledger_.Notes().Files().Content(First()), "after");
  EXPECT_EQ(Count("own_AttachedFiles"), 1);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Edit Attachment");
  ledger_.Undo().Undo();
  EXPECT_EQ(ledger_.Notes().Files().Content(First()), "before");
}

TEST_F(Attachments, WhatCannotBeTakenBackIsKeptAndToldOnce) {
  editor_.Keep(AttachmentMode::Inside);
  ASSERT_TRUE(editor_.AddFile(PutFile("a.txt", "before")));
  editor_.Edit(First());
  const std::string copy = store_.platform.opener.Opened().back();
  store_.platform.files.WriteAtomically(copy, "after");
  CloseAccounts();
  std::string told;
  try {
    editor_.TakeBack();
  } catch (const PlatformError& error) {
    told = error.what();
  }
  EXPECT_NE(told.find(copy), std::string::npos) << told;
  EXPECT_FALSE(editor_.TakeBack());
  EXPECT_EQ(ReadFile(copy), "after");
  EXPECT_EQ(ledger_.Notes().Files().Content(First()), "before");
}

TEST_F(Attachments, SavingWritesTheFileWhereThePersonSays) {
  editor_.Keep(AttachmentMode::Inside);
  ASSERT_TRUE(editor_.AddFile(PutFile("a.txt", "text")));
  const std::string target = store_.platform.folder.Path("saved.txt");
  Prompt().ExpectSaveFile("Save Attachment", std::nullopt);
  EXPECT_FALSE(editor_.SaveAs(First()));
  Prompt().ExpectSaveFile("Save Attachment", target);
  EXPECT_TRUE(editor_.SaveAs(First()));
  EXPECT_EQ(ReadFile(target), "text");
}

TEST_F(Attachments, RemovingAsksAndCanBeUndone) {
  editor_.Keep(AttachmentMode::Inside);
  ASSERT_TRUE(editor_.AddFile(PutFile("a.txt", "text")));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  EXPECT_FALSE(editor_.Remove(First()));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_TRUE(editor_.Remove(First()));
  EXPECT_EQ(Count("own_AttachedFiles"), 0);
  ledger_.Undo().Undo();
  EXPECT_EQ(ledger_.Notes().Files().Content(First()), "text");
}

TEST_F(Attachments, AChangeThatAKilledProgramHasLeftIsTold) {
  const std::string left = Services().profileFolder + "/opened/999999999-1";
  store_.platform.files.CreateFolder(left);
  store_.platform.files.WriteNew(left + "/a.txt", "changed");
  ASSERT_TRUE(editor_.AddFile(PutFile("b.txt", "b")));
  Prompt().ExpectTell("Attachment", ScriptedPrompts::kAnyText);
  editor_.Open(First());
  const std::string kept = Services().profileFolder + "/opened/kept-999999999-1/a.txt";
  EXPECT_NE(Prompt().Shown().back().text.find(kept), std::string::npos);
  EXPECT_EQ(ReadFile(kept), "changed");
  editor_.Open(First());
  EXPECT_TRUE(Prompt().AllMet()) << "told once";
}

}  // namespace
}  // namespace corvanta
