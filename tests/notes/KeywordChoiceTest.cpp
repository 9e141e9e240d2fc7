#include "notes/KeywordChoice.h"
#include "notes/NotesTest.h"

namespace corvanta {
namespace {

class Keywords : public NotesTest {
 protected:
  KeywordChoice Of(const std::vector<std::int64_t>& keys) { return {ledger_, Services(), keys}; }
  std::string Marks(KeywordChoice choice) {
    std::string text;
    for (const KeywordMark& mark : choice.Marks()) {
      text += mark.keyword + '=' + "-~x"[static_cast<int>(mark.use)] + ' ';
    }
    return text;
  }
};

TEST_F(Keywords, SeveralTransactionsAreMarkedAtOnce) {
  EXPECT_TRUE(Of({1}).Save({{"Tax", KeywordUse::All}, {"Holiday", KeywordUse::All}}));
  EXPECT_EQ(Marks(Of({1})), "Holiday=x Tax=x ");
  EXPECT_EQ(Marks(Of({1, 2})), "Holiday=~ Tax=~ ");
  EXPECT_FALSE(Of({1, 2}).Save({{"Tax", KeywordUse::Some}, {"Holiday", KeywordUse::Some}}));
  EXPECT_TRUE(Of({1, 2}).Save({{"Tax", KeywordUse::All}, {"Holiday", KeywordUse::None}}));
  EXPECT_EQ(Marks(Of({1, 2})), "Holiday=- Tax=x ");
  EXPECT_EQ(ledger_.Undo().UndoName(), "Edit Keywords");
  ledger_.Undo().Undo();
  EXPECT_EQ(Marks(Of({1})), "Holiday=x Tax=x ");
  ledger_.Undo().Undo();
  EXPECT_EQ(Marks(Of({1})), "") << "what was made on the way is gone with it";
}

TEST_F(Keywords, ANewOneKeepsToTheRulesOfItsEditor) {
  KeywordChoice choice = Of({1});
  EXPECT_EQ(choice.CheckNew("  ")->text, "You need to enter a Keyword");
  EXPECT_TRUE(choice.CheckNew(std::string(101, 'x')));
  EXPECT_FALSE(choice.CheckNew(std::string(100, 'x')));
  EXPECT_FALSE(choice.CheckOpen());
  CloseAccounts();
  EXPECT_EQ(choice.CheckOpen()->title, "Amend Item");
}

}  // namespace
}  // namespace corvanta
