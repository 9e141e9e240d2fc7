#include "invest/ucEntryList.h"
#include "platform/Files.h"
#include "safety/FrmSalvage.h"
#include "safety/SafetyTest.h"
#include "store/datafile/FilePasswords.h"
#include "support/DialogTest.h"

#include <QLineEdit>

namespace corvanta {
namespace {

class SalvageWindow : public DialogTest<SafetyTest> {
 protected:
  FilePasswords passwords_{store_.platform.Get()};
  bool admits_ = true;
  SalvageEditor editor_{passwords_, [this](Connection&) { return admits_; }, store_.platform.Get(),
                        writer_};
  SafetyPlace place_{store_.platform.Get(), writer_, nullptr};
};

TEST_F(SalvageWindow, ReadsAFileIntoANewOneAndGoesOnWithIt) {
  store_.platform.folder.Write("data/Corvanta salvaged.dat", "another");
  const std::string path = store_.platform.folder.Path("data/Corvanta salvaged 2.dat");
  FrmSalvage form(editor_, store_.Path(), place_);
  Show(form);
  EXPECT_EQ(Find<QLineEdit>(form, "txtSalvaged").text().toStdString(), path);
  EXPECT_FALSE(Find<QPushButton>(form, "cmdOpen").isEnabled());
  admits_ = false;
  Click(form, "cmdAccept");
  EXPECT_FALSE(FileExists(path)) << "a password was asked for and not given";
  admits_ = true;
  Click(form, "cmdAccept");
  auto& tables = Find<ucEntryList>(form, "lvTables");
  EXPECT_GT(tables.RowCount(), 10);
  EXPECT_TRUE(NoteOf(form).endsWith("nothing is lost.")) << NoteOf(form).toStdString();
  EXPECT_FALSE(form.Wanted().has_value());
  Click(form, "cmdOpen");
  EXPECT_EQ(form.Wanted(), path);
  EXPECT_GT(NumberIn(path, "Select Count(*) from tblTransactions"), 0);
}

TEST_F(SalvageWindow, SaysWhatIsMissingAndWritesOverNothing) {
  FrmSalvage form(editor_, {}, place_);
  Show(form);
  auto& prompts = store_.platform.prompts;
  const auto refuses = [&](const char* text) {
    prompts.ExpectTell("Salvage", text);
    Click(form, "cmdAccept");
  };
  refuses("You need to select the damaged Data file");
  Find<QLineEdit>(form, "txtDamaged").setText(QString::fromStdString(store_.Path()));
  refuses("You need to enter a name for the new Data file");
  Find<QLineEdit>(form, "txtSalvaged").setText("Mine.dat");
  refuses("You need to enter the whole path of the new Data file, or select it with Browse");
  Find<QLineEdit>(form, "txtSalvaged").setText(QString::fromStdString(store_.Path()));
  refuses(ScriptedPrompts::kAnyText);
  EXPECT_GT(store_.Number("Select Count(*) from tblTransactions"), 0);
  // What is no data file at all is told, and nothing is left behind.
  const std::string letter = store_.platform.folder.Write("data/letter.dat", "Dear bank");
  prompts.ExpectOpenFile("Select Damaged Data File", letter);
  Click(form, "cmdBrowse");
  prompts.ExpectTell("Data File", ScriptedPrompts::kAnyText);
  Click(form, "cmdAccept");
  EXPECT_FALSE(FileExists(store_.platform.folder.Path("data/letter salvaged.dat")));
  EXPECT_FALSE(Find<QPushButton>(form, "cmdOpen").isEnabled());
}

TEST(SalvagedText, NamesRowsAndLosses) {
  TestPlatform machine;
  const std::vector<LostKeys> lost{{35, 35}, {40, 47}};
  EXPECT_EQ(LostText(lost), "35, 40-47");
  EXPECT_EQ(LostText({}), "");
  EXPECT_EQ(SalvagedText({{"tblBank", 1, {}}}, machine.Get()), "1 row was read; nothing is lost.");
  EXPECT_EQ(SalvagedText({{"tblBank", 1000, {}}, {"tblPayees", 200, lost}}, machine.Get()),
            "1,200 rows were read; up to 9 are lost.");
}

}  // namespace
}  // namespace corvanta
