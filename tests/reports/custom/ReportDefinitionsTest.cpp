#include "ledger/clsCorvanta.h"
#include "platform/PlatformError.h"
#include "platform/SettingsTable.h"
#include "reports/custom/DefinitionKeys.h"
#include "reports/custom/ReportColumns.h"
#include "reports/custom/ReportDefinitions.h"
#include "reports/custom/ReportEditor.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

ReportDefinition Food() {
  ReportDefinition food;
  food.name = "Food";
  food.report = 5;
  food.filter.SetKeys(FilterKind::Account, {1, 2});
  food.filter.SetKeys(FilterKind::Category, {3, 4});
  food.filter.SetKeys(FilterKind::Payee, {5});
  food.filter.SetKeys(FilterKind::Investment, {6});
  food.filter.SetKeys(FilterKind::Keyword, {7, 8});
  food.filter.SetSearch({"bread, milk"});
  food.wholeCategories = {3};
  food.actions = {"Buy", "Reinvest Dividend"};
  food.columns = {"Category", "Total"};
  food.widths = {120, 80};
  food.range = Period{*Date::FromIso("2026-01-01"), *Date::FromIso("2026-12-31")};
  food.currency = "EUR";
  return food;
}

class ReportDefinitionsTest : public testing::Test {
 protected:
  std::string Value(const std::string& item, const std::string& name) {
    return machine_.registry.Read(Hive::CurrentUser, std::string(kReportsKey) + '\\' + item, name)
        .value_or("(none)");
  }
  void Write(const std::string& item, const std::string& name, const std::string& value) {
    machine_.registry.Write(Hive::CurrentUser, std::string(kReportsKey) + '\\' + item, name, value);
  }
  std::vector<std::string> Items() {
    return machine_.registry.SubKeys(Hive::CurrentUser, kReportsKey);
  }
  static ReportDefinition Named(const std::string& name, int report = 1) {
    ReportDefinition made;
    made.name = name;
    made.report = report;
    return made;
  }

  TestPlatform machine_;
  ReportDefinitions definitions_{machine_.registry};
};

TEST_F(ReportDefinitionsTest, ThirteenValuesHoldAReportAndGiveItBack) {
  definitions_.Save(Food());
  const std::map<std::string, std::string> wanted = {{"Report", "Food#5"},
                                                     {"Account", "1,2"},
                                                     {"Category", "3,4"},
                                                     {"CategoryP", "3"},
                                                     {"Payee", "5"},
                                                     {"Invest", "6"},
                                                     {"InvestAction", "Buy,Reinvest Dividend"},
                                                     {"Keyword", "7,8"},
                                                     {"Text", "bread, milk"},
                                                     {"Columns", "Category,Total"},
                                                     {"Widths", "120,80"},
                                                     {"Date", "#2026-01-01#2026-12-31"},
                                                     {"Currency", "EUR"}};
  EXPECT_EQ(wanted.size(), 13U);
  for (const auto& [name, value] : wanted) EXPECT_EQ(Value("Item1", name), value) << name;
  const auto names =
      machine_.registry.ValueNames(Hive::CurrentUser, std::string(kReportsKey) + "\\Item1");
  EXPECT_EQ(names.size(), 13U);
  const auto read = definitions_.Find("food");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->definition, Food());
  EXPECT_TRUE(read->troubles.empty());
  // One that keeps to nothing.
  definitions_.Save(Named("Plain", 2));
  EXPECT_EQ(Value("Item2", "Date"), "");
  EXPECT_EQ(Value("Item2", "Account"), "");
  EXPECT_EQ(definitions_.Find("Plain")->definition, Named("Plain", 2));
}

TEST_F(ReportDefinitionsTest, AFurtherValueHoldsWhatTheOthersHaveNoPlaceFor) {
  ReportDefinition rich = Food();
  rich.otherRange = Period{*Date::FromIso("2025-01-01"), *Date::FromIso("2025-12-31")};
  rich.paymentTypes = {1, 3};
  rich.withoutTransfers = true;
  rich.foldsSubCategories = true;
  rich.filter.SetSearch({"bread; milk=2", true});
  definitions_.Save(rich);
  EXPECT_EQ(Value("Item1", "Further"),
            "Compare=#2025-01-01#2025-12-31;Payment=1,3;Transfers=0;SubCategories=0;TextOnly=1");
  EXPECT_EQ(definitions_.Find("Food")->definition, rich);
  // The thirteen are what they were, and nothing of the former stays.
  definitions_.Save(Food());
  EXPECT_EQ(Value("Item1", "Further"), "");
  EXPECT_EQ(definitions_.Find("Food")->definition, Food());
  Write("Item1", "Further", "Transfers=maybe; Colour=red;; Payment=1,x,1;SubCategories=0");
  const ReadDefinition read = *definitions_.Find("Food");
  ASSERT_EQ(read.troubles.size(), 3U);
  EXPECT_EQ(read.troubles[0],
            "What it says in \"Transfers=maybe\" cannot be read. It was left out.");
  EXPECT_NE(read.troubles[1].find("\"Colour=red\""), std::string::npos);
  EXPECT_NE(read.troubles[2].find("\"x\", which is no identifier"), std::string::npos);
  EXPECT_EQ(read.definition.paymentTypes, std::vector<std::int64_t>{1});
  EXPECT_TRUE(read.definition.foldsSubCategories);
  // Days that end before they begin are none.
  Write("Item1", "Further", "Compare=#2026-12-31#2026-01-01");
  EXPECT_EQ(definitions_.Find("Food")->troubles.size(), 1U);
  EXPECT_FALSE(definitions_.Find("Food")->definition.otherRange);
}

// Each value missing, empty, and of a kind that it cannot be: the report opens all the same.
TEST_F(ReportDefinitionsTest, NoValueCanKeepAReportFromBeingRead) {
  const std::string nonsense[] = {"",
                                  ",",
                                  ",,,",
                                  "#",
                                  "##",
                                  "#1#",
                                  "-1",
                                  "1;2",
                                  "'",
                                  "%",
                                  "|",
                                  std::string(10000, '9'),
                                  std::string(10000, ','),
                                  "\xD7\x90",
                                  "a\nb",
                                  "((((",
                                  "(",
                                  "1e300",
                                  "0x10",
                                  "NULL"};
  for (const std::string& name : DefinitionValueNames()) {
    std::map<std::string, std::string> values = ValuesOf(Food());
    values.erase(name);
    EXPECT_EQ(DefinitionOf(values).definition.report, name == "Report" ? 0 : 5) << name;
    for (const std::string& value : nonsense) {
      values[name] = value;
      const ReadDefinition read = DefinitionOf(values);
      const auto& made = read.definition;
      EXPECT_EQ(made.columns.size(), made.widths.size());
      for (const int width : made.widths) EXPECT_TRUE(width >= 0 && width < 10000) << value;
      EXPECT_TRUE(name == "Report" || made.report == 5) << name << ' ' << value;
      // What was read is what is saved again.
      EXPECT_EQ(DefinitionOf(ValuesOf(made)).definition.filter, made.filter);
    }
  }
}

TEST_F(ReportDefinitionsTest, ANameIsWrittenOverInItsPlaceAndNumbersOnlyRise) {
  definitions_.Save(Named("One"));
  definitions_.Save(Named("Two"));
  definitions_.Save(Named("Three"));
  definitions_.Save(Named("Two", 7));
  EXPECT_EQ(Items().size(), 3U);
  EXPECT_EQ(Value("Item2", "Report"), "Two#7");
  EXPECT_TRUE(definitions_.Delete("Two"));
  EXPECT_FALSE(definitions_.Delete("Two"));
  definitions_.Save(Named("Four"));
  EXPECT_EQ(Value("Item4", "Report"), "Four#1");
  EXPECT_EQ(Value("Item2", "Report"), "(none)");
  Write("Other", "Report", "Five#3");
  Write("ItemX", "Report", "Six#3");
  definitions_.Save(Named("Seven"));
  EXPECT_EQ(Value("Item5", "Report"), "Seven#1");
  const auto all = definitions_.All();
  ASSERT_EQ(all.size(), 6U);
  EXPECT_EQ(all.front().name, "Five");
  EXPECT_EQ(all.front().report, 3);
  // Higher than anybody saves reports.
  Write("Item2147483647", "Report", "Last#3");
  definitions_.Save(Named("Eight"));
  definitions_.Save(Named("Nine"));
  EXPECT_EQ(Value("Item2147483648", "Report"), "Eight#1");
  EXPECT_EQ(Value("Item2147483649", "Report"), "Nine#1");
  Write("Item9223372036854775807", "Report", "End#3");
  definitions_.Save(Named("Ten"));
  definitions_.Save(Named("Eleven"));
  EXPECT_EQ(Value("Item2147483650", "Report"), "Ten#1");
  EXPECT_EQ(Value("Item2147483651", "Report"), "Eleven#1");
  // What cannot be written leaves what is there.
  machine_.registry.RefuseWrites(true);
  EXPECT_THROW(definitions_.Save(Named("One", 9)), PlatformError);
  EXPECT_EQ(Value("Item1", "Report"), "One#1");
}

TEST_F(ReportDefinitionsTest, HandEditedValuesAreReadAsFarAsTheyCanBe) {
  struct Case {
    const char* name;
    const char* value;
    const char* trouble;
  };
  const Case cases[] = {{"Account", "1, x ,2", "\"x\", which is no identifier"},
                        {"Account", "1,99999999999999999999", "which is no identifier"},
                        {"InvestAction", "buy,Steal", "called \"Steal\""},
                        {"Columns", "Total,Nonsense", "column \"Nonsense\""},
                        {"Date", "2026-01-01 to 2026-12-31", "cannot be read"},
                        {"Date", "#2026-02-30#2026-03-01", "cannot be read"},
                        {"Date", "#2026-03-01#2026-02-28", "end before they begin"},
                        {"Currency", "Pound (", "cannot be read"}};
  for (const Case& one : cases) {
    std::map<std::string, std::string> values = ValuesOf(Food());
    values[one.name] = one.value;
    const ReadDefinition read = DefinitionOf(values);
    ASSERT_EQ(read.troubles.size(), 1U) << one.value;
    EXPECT_NE(read.troubles.front().find(one.trouble), std::string::npos) << read.troubles.front();
    EXPECT_EQ(read.definition.report, 5);
  }
  std::map<std::string, std::string> values = ValuesOf(Food());
  values["InvestAction"] = "buy";
  values["Currency"] = "Pound sterling (GBP)";
  values["Widths"] = "120";
  const ReadDefinition read = DefinitionOf(values);
  EXPECT_EQ(read.definition.actions, std::vector<std::string>{"Buy"});
  EXPECT_EQ(read.definition.currency, "GBP");
  EXPECT_EQ(read.definition.widths, (std::vector<int>{120, 0}));
  EXPECT_TRUE(read.troubles.empty());
}

TEST_F(ReportDefinitionsTest, TheReportIsKnownByNumberNameOrColumns) {
  const auto report = [](const std::string& label, const std::string& columns) {
    return DefinitionOf({{"Report", label}, {"Columns", columns}}).definition;
  };
  EXPECT_EQ(report("Mine#11", "").report, 11);
  EXPECT_EQ(report("No. #2#11", "").name, "No. #2");
  EXPECT_EQ(report("monthly cash flow", "").report, 2);
  EXPECT_EQ(report("Mine", "Commission,Dividend").report, 11);
  EXPECT_EQ(report("Mine", "Currency,Total").report, 0) << "several have these";
  EXPECT_EQ(report("Mine#999", "").report, 0);
  EXPECT_EQ(report("Mine#999", "").name, "Mine#999");
  // It is listed, and opening it says what is wrong.
  Write("Item1", "Report", "Mine#999");
  ReportEditor editor(machine_.registry, machine_.prompts);
  ASSERT_EQ(editor.Items().size(), 1U);
  EXPECT_EQ(editor.Items().front().report, "");
  machine_.prompts.ExpectTell("Open Custom Report", ScriptedPrompts::kAnyText);
  EXPECT_FALSE(editor.Open("Mine#999"));
  machine_.prompts.ExpectTell("Open Custom Report", ScriptedPrompts::kAnyText);
  EXPECT_FALSE(editor.Open("Nobody"));
}

TEST_F(ReportDefinitionsTest, AnotherReportOfTheNameIsReplacedOnlyWhenThePersonSaysSo) {
  ReportEditor editor(machine_.registry, machine_.prompts);
  EXPECT_TRUE(editor.Save(Named("Mine", 1), ""));
  EXPECT_TRUE(editor.Save(Named("Mine", 2), "Mine")) << "it is the one that is open";
  machine_.prompts.ExpectAsk("Save Custom Report", ScriptedPrompts::kAnyText, false);
  EXPECT_FALSE(editor.Save(Named("mine", 3), ""));
  EXPECT_EQ(Value("Item1", "Report"), "Mine#2");
  machine_.prompts.ExpectAsk("Delete Custom Report?", "Do you want to delete the selected report?",
                             false);
  EXPECT_FALSE(editor.Delete("Mine"));
  machine_.prompts.ExpectAsk("Delete Custom Report?", "Do you want to delete the selected report?",
                             true);
  EXPECT_TRUE(editor.Delete("Mine"));
  EXPECT_TRUE(Items().empty());
  EXPECT_EQ(ReportEditor::CheckName("  ")->text, "You need to enter a Name for the Report");
  EXPECT_FALSE(ReportEditor::CheckName(std::string(100, 'a')));
  EXPECT_EQ(ReportEditor::CheckName(std::string(101, 'a'))->text,
            "Name must be less than 100 characters long");
}

TEST(ReportColumns, ThePickerTicksExactNamesAndGivesThemInItsOrder) {
  EXPECT_EQ(JoinItems(AllReportColumns()),
            "Account,Action,Actual,April,August,Balance,Budget,Category,Commission,Currency,Date,"
            "December,Description,Difference,Dividend,Expense,February,Gain,Income,January,July,"
            "June,Last Price,March,May,Name,November,October,Payee,Payment,Payment Type,Price,"
            "Quantity,Records,Ref,September,Shares,Status,Sub Category,Symbol,Total,Year/Month");
  ColumnPicker picker({"Total", "Category", "payee"});
  EXPECT_EQ(picker.Columns(), (std::vector<std::string>{"Category", "Total"}));
  for (std::size_t i = 0; i < picker.Count(); ++i) picker.Tick(i, false);
  ASSERT_TRUE(picker.Check());
  EXPECT_EQ(picker.Check()->title, "Pick Columns");
  EXPECT_EQ(picker.Check()->text, "Please select at least one column for the report");
}

class DefinitionKeysTest : public testing::Test {
 protected:
  OpenedDefinition Open(const ReportDefinition& definition) {
    return OpenDefinition({definition, {}}, store_.Db(), store_.platform.locale);
  }
  std::int64_t AddCategory(const std::string& category, const std::string& sub) {
    store_.Db().Execute("INSERT INTO tblCategory (Category,SubCategory,[Type]) VALUES ('" +
                        category + "','" + sub + "',-1)");
    return store_.Number("Select Max(CategoryID) from tblCategory");
  }
  TemporaryStore store_;
};

TEST_F(DefinitionKeysTest, WhatIsGoneIsToldAndLeftOutOfThisRunAlone) {
  ReportDefinition some;
  some.name = "Some";
  some.report = 5;
  some.filter.SetKeys(FilterKind::Account, {1, 998, 999});
  some.filter.SetKeys(FilterKind::Keyword, {997});
  const OpenedDefinition opened = Open(some);
  EXPECT_EQ(opened.definition.filter.Keys(FilterKind::Account), std::vector<std::int64_t>{1});
  EXPECT_EQ(opened.emptied, std::vector<FilterKind>{FilterKind::Keyword});
  ASSERT_EQ(opened.troubles.size(), 2U);
  EXPECT_EQ(opened.troubles[0], "2 accounts that it names are not in this data file any more.");
  EXPECT_EQ(opened.troubles[1],
            "One keyword that it names is not in this data file any more. It names no other "
            "keyword, so nothing is shown.");
  some.currency = "GBP";
  EXPECT_EQ(Open(some).definition.currency, "GBP");
  some.currency = "QQQ";
  EXPECT_EQ(Open(some).definition.currency, "");
  EXPECT_EQ(Open(some).troubles.back(),
            "There is no currency \"QQQ\" in this data file. Amounts are not converted.");
  some.paymentTypes = {1, 999};
  EXPECT_EQ(Open(some).troubles.back(),
            "One payment type that it names is not in this data file any more.");
  EXPECT_EQ(Open(some).definition.paymentTypes.size(), 2U) << "of the other no row is";
  EXPECT_NE(TroubleText(opened).find("stays as it is until you save it again"), std::string::npos);
}

TEST_F(DefinitionKeysTest, AWholeCategoryBringsItsPresentSubCategories) {
  const std::int64_t own = AddCategory("Zoo", "");
  const std::int64_t visit = AddCategory("Zoo", "Visit");
  ReportDefinition zoo;
  zoo.name = "Zoo";
  zoo.report = 5;
  zoo.filter.SetKeys(FilterKind::Category, {own, visit});
  zoo.wholeCategories = WholeCategoriesOf(zoo.filter, store_.Db());
  ASSERT_EQ(zoo.wholeCategories.size(), 1U);
  const std::int64_t food = AddCategory("Zoo", "Food");
  const RowFilter filter = Open(zoo).definition.filter;
  EXPECT_EQ(filter.Keys(FilterKind::Category).size(), 3U);
  EXPECT_TRUE(Open(zoo).troubles.empty());
  // Chosen one by one they stay those.
  zoo.wholeCategories.clear();
  EXPECT_EQ(Open(zoo).definition.filter.Keys(FilterKind::Category).size(), 2U);
  zoo.filter.SetKeys(FilterKind::Category, {food});
  EXPECT_TRUE(WholeCategoriesOf(zoo.filter, store_.Db()).empty());
}

}  // namespace
}  // namespace corvanta
