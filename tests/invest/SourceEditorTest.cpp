#include "invest/InvestTest.h"
#include "invest/prices/SourceEditor.h"
#include "invest/prices/SourcePresets.h"
#include "ledger/investments/RateBook.h"

namespace corvanta {
namespace {

class SourceEditorTest : public InvestTest {
 protected:
  static SourceRow Json(const std::string& name, std::string_view type) {
    SourceRow row = SourceEditor::New(type);
    row.name = name;
    row.url = "https://a.test/?base=FROM&symbols=TO&key=APIKEY";
    row.kind = AnswerKind::Pointer;
    row.field = "/rates/TO";
    row.ownKey = "s3cret";
    return row;
  }
  std::string Field(const SourceRow& row) {
    const auto warning = editor_.Check(row);
    return warning ? warning->field : "";
  }

  clsCorvanta ledger_{Store(), Services()};
  SourceEditor editor_{ledger_, Services()};
};

TEST_F(SourceEditorTest, AnOwnSourceIsKeptWholeBehindThoseOfTheProgram) {
  Store().Execute("DELETE FROM tblStockData WHERE DataID > 5");
  const SourceRow row = Json("  My service ", kCurrencySource);
  ASSERT_EQ(Field(row), "");
  const std::int64_t key = editor_.Save(row);
  EXPECT_EQ(key, 10) << "no key that validating would write over";
  auto kept = editor_.Load(key);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->name, "My service");
  EXPECT_EQ(kept->kind, AnswerKind::Pointer);
  EXPECT_EQ(kept->field, "/rates/TO");
  EXPECT_EQ(kept->ownKey, "s3cret");
  kept->kind = AnswerKind::Page;
  kept->start = " class=\" price\"";
  kept->occur = 2;
  kept->ownKey.clear();
  EXPECT_EQ(editor_.Save(*kept), key);
  kept = editor_.Load(key);
  EXPECT_EQ(kept->kind, AnswerKind::Page);
  EXPECT_EQ(kept->start, " class=\" price\"") << "blanks of a marker are part of it";
  EXPECT_EQ(kept->occur, 2);
  EXPECT_EQ(kept->ownKey, "");
  EXPECT_EQ(store_.Number("SELECT COUNT(*) FROM own_Sources"), 0);
}

TEST_F(SourceEditorTest, WhatCannotServeIsRefused) {
  const auto with = [](auto change) {
    SourceRow row = Json("My service", kCurrencySource);
    change(row);
    return row;
  };
  EXPECT_EQ(Field(with([](SourceRow& row) { row.name = " "; })), "txtName");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.name = "yahoo currency"; })), "txtName");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.name = std::string(51, 'x'); })), "txtName");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.url = ""; })), "txtURL");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.url = "file:///etc/passwd"; })), "txtURL");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.url += std::string(255, 'x'); })), "txtURL");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.lookUpUrl = "a.test"; })), "txtLookUpURL");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.field = "rates/TO"; })), "txtField");
  EXPECT_EQ(Field(with([](SourceRow& row) { row.kind = AnswerKind::Page; })), "txtStart");
  EXPECT_EQ(Field(with([](SourceRow& row) {
              row.kind = AnswerKind::Column;
              row.field = "";
            })),
            "txtField");
  EXPECT_EQ(Field(with([](SourceRow& row) {
              row.type = kStockSource;
              row.kind = AnswerKind::Line;
              row.url = "";
            })),
            "")
      << "prices may be entered by hand";
}

TEST_F(SourceEditorTest, ASourceOfRatesIsPutFirstByItsName) {
  EXPECT_EQ(editor_.AskedForRates(), 1);
  const std::int64_t zebra = editor_.Save(Json("Zebra", kCurrencySource));
  const std::int64_t zoo = editor_.Save(Json(std::string(50, 'Z'), kCurrencySource));
  EXPECT_EQ(editor_.AskedForRates(), 1);
  EXPECT_EQ(editor_.PutFirst(zebra), "1. Zebra");
  EXPECT_EQ(editor_.AskedForRates(), zebra);
  EXPECT_EQ(editor_.PutFirst(zoo).substr(0, 4), "1. Z");
  EXPECT_EQ(editor_.AskedForRates(), zoo);
  EXPECT_EQ(editor_.Load(zebra)->name, "Zebra") << "only one name says so";
  EXPECT_EQ(editor_.PutFirst(1), "Yahoo Currency") << "which is the first by name now";
  EXPECT_EQ(editor_.AskedForRates(), 1);
}

TEST_F(SourceEditorTest, ASourceInUseIsKept) {
  Store().Execute(
      "INSERT INTO tblPayees (Payee,[Symbol],DataID,Investment) VALUES ('Share','X',2,1)");
  Machine().prompts.ExpectTell("Delete Item?",
                               "An investment takes its prices from \"Yahoo Stock\". Give them "
                               "another source first.");
  EXPECT_FALSE(editor_.Delete(2));
  Machine().prompts.ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  EXPECT_FALSE(editor_.Delete(3));
  Machine().prompts.ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_TRUE(editor_.Delete(3));
  EXPECT_FALSE(editor_.Load(3));
  EXPECT_TRUE(editor_.Delete(99)) << "gone already";
}

TEST_F(SourceEditorTest, ATestShowsTheAnswerAndTheValueOrWhyThereIsNone) {
  SourceRow row = Json("My service", kCurrencySource);
  EXPECT_FALSE(SourceEditor::QuestionOf(kCurrencySource, "EUR"));
  EXPECT_FALSE(SourceEditor::QuestionOf(kStockSource, " "));
  EXPECT_EQ(SourceEditor::QuestionOf(kStockSource, " BT-A.L ")->symbol, "BT-A.L");
  const auto question = SourceEditor::QuestionOf(kCurrencySource, "eur / usd");
  ASSERT_TRUE(question);
  const std::string url = "https://a.test/?base=EUR&symbols=USD&key=s3cret";
  Machine().download.Answer(url, R"({"rates":{"USD":1.0834}})");
  MarketData::Trial trial = editor_.Test(row, *question);
  EXPECT_EQ(trial.answer, R"({"rates":{"USD":1.0834}})");
  EXPECT_EQ(editor_.Result(trial), "The value is 1.0834.");
  row.field = "/rate/TO";
  trial = editor_.Test(row, *question);
  EXPECT_EQ(editor_.Result(trial), "My service: There is nothing at /rate/USD in the answer.");
  EXPECT_TRUE(ledger_.Rates().All().empty()) << "a test keeps nothing";
  Machine().download.AnswerAll(std::nullopt);
  row.url = "https://b.test/APIKEY";
  trial = editor_.Test(row, *question);
  EXPECT_EQ(editor_.Result(trial), "My service: no network.");
}

TEST_F(SourceEditorTest, WhatIsReadyMadeCanBeSavedAsItIs) {
  bool hasRatesWithoutKey = false;
  for (const SourcePreset& preset : SourcePresets()) {
    EXPECT_EQ(Field(preset.Row()), "") << preset.name;
    hasRatesWithoutKey |= preset.type == kCurrencySource && !preset.WantsKey();
  }
  EXPECT_TRUE(hasRatesWithoutKey);
  const SourceRow bank = SourcePresets().front().Row();
  EXPECT_EQ(AddressOf(bank, SourceQuestion::OfRate("EUR", "USD")),
            "https://api.frankfurter.dev/v1/latest?base=EUR&symbols=USD");
  editor_.Save(bank);
  EXPECT_EQ(editor_.AskedForRates(), 10) << "before the one that came with the program";
}

}  // namespace
}  // namespace corvanta
