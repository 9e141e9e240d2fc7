// Attached files, kept in each of the three ways, through everything that makes a data file.
#include "ledger/clsCorvanta.h"
#include "ledger/transactions/KeywordBook.h"
#include "platform/Files.h"
#include "safety/ArchiveWriter.h"
#include "safety/SafetyTest.h"
#include "safety/SalvageEditor.h"
#include "safety/SaveAs.h"
#include "store/datafile/FilePasswords.h"

namespace corvanta {
namespace {

class AttachedModes : public SafetyTest {
 protected:
  using Contents = std::vector<std::string>;

  AttachedModes() {
    clsCorvanta ledger(store_.Db(), platform_);
    platform_.files.CreateFolder(store_.platform.folder.Path("bills"));
    std::int64_t transaction = 0;
    for (const AttachmentMode mode :
         {AttachmentMode::Path, AttachmentMode::Folder, AttachmentMode::Inside}) {
      const std::string name = "bill " + std::to_string(++transaction) + ".txt";
      const std::string bytes = "paid " + std::to_string(transaction);
      (void)ledger.Notes().Files().Attach(
          transaction, store_.platform.folder.Write("bills/" + name, bytes), mode);
    }
    // Only where it was is this one kept; the copies must do without.
    std::filesystem::remove(store_.platform.folder.Path("bills/bill 2.txt"));
    std::filesystem::remove(store_.platform.folder.Path("bills/bill 3.txt"));
  }
  // What the data file gives of its attached files; those that are not there are missing.
  Contents In(const std::string& path) {
    const auto file = Connect(path);
    clsCorvanta ledger(*file, platform_);
    AttachedFiles attached = ledger.Notes().Files();
    Contents contents;
    for (const AttachmentRecord& row : attached.All()) {
      if (attached.IsThere(row)) contents.push_back(attached.Content(row));
    }
    return contents;
  }
  std::string Elsewhere(const std::string& folder) {
    platform_.files.CreateFolder(store_.platform.folder.Path(folder));
    return store_.platform.folder.Path(folder + "/Corvanta.dat");
  }

  Platform& platform_ = store_.platform.Get();
  const Contents all_{"paid 1", "paid 2", "paid 3"};
};

TEST_F(AttachedModes, AreInABackupAsTheSettingSaysAndInACopy) {
  EXPECT_EQ(In(store_.Path()), all_);
  const std::string whole = Elsewhere("whole");
  backup_.MakeAt(File(), whole, {true, false});
  EXPECT_EQ(In(whole), all_);
  const std::string bare = Elsewhere("bare");
  backup_.MakeAt(File(), bare, {false, false});
  EXPECT_EQ(In(bare), (Contents{"paid 1", "paid 3"})) << "without the folder's";
  const std::string copy = Elsewhere("copy");
  SaveDataFileAs(File(), copy, platform_, writer_);
  EXPECT_EQ(In(copy), all_);
}

TEST_F(AttachedModes, GoIntoAnArchiveWithTheirTransactions) {
  const std::string old = Elsewhere("old");
  clsCorvanta ledger(store_.Db(), platform_);
  const ArchiveForm form{old, platform_.clock.Today().AddDays(1), {1}, false};
  const ArchivePlan plan = PlanArchive(form, ledger, platform_);
  for (std::int64_t key = 1; key <= 3; ++key) {
    ASSERT_TRUE(std::ranges::binary_search(plan.keys, key)) << key;
  }
  ArchiveWriter(ledger, File(), platform_, writer_).Write(plan, old);
  EXPECT_EQ(In(old), all_);
  EXPECT_EQ(In(store_.Path()), Contents{});
}

TEST_F(AttachedModes, AreSalvagedAndValidated) {
  FilePasswords passwords(platform_);
  SalvageEditor editor(
      passwords, [](Connection&) { return true; }, platform_, writer_);
  const std::string salvaged = Elsewhere("salvaged");
  ASSERT_TRUE(editor.Salvage({store_.Path(), salvaged}).has_value());
  EXPECT_EQ(In(salvaged), all_);
  store_.Close();
  DataFileOpener opener(platform_, "a test");
  opener.SetDataPath(store_.Path());
  const DataFile validated = opener.Validate();
  clsCorvanta ledger(*validated.connection, platform_);
  EXPECT_EQ(ledger.Notes().Files().CountMissing(), 0U);
  std::filesystem::remove(store_.platform.folder.Path("bills/bill 1.txt"));
  std::filesystem::remove_all(ledger.Notes().Files().Folder());
  EXPECT_EQ(ledger.Notes().Files().CountMissing(), 2U);
}

}  // namespace
}  // namespace corvanta
