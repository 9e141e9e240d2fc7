#include "entry/AllocationEditor.h"
#include "entry/EntryTest.h"
#include "ledger/schedules/ScheduleBook.h"

namespace corvanta {
namespace {

class Allocating : public EntryTest {
 protected:
  [[nodiscard]] AllocationEditor Editor(std::int64_t key, double amount, int sign = -1) {
    return {ledger_, Services(), {key, AllocationSource::Transaction, amount, sign, "GBP"}};
  }
  [[nodiscard]] static AllocationForm LineOf(double amount, const std::string& category = "Gifts") {
    AllocationForm form;
    form.category = category;
    form.amount = amount;
    return form;
  }
  static std::int64_t Save(AllocationEditor& editor, const AllocationForm& form) {
    EXPECT_FALSE(editor.Check(form));
    const std::int64_t key = editor.Save(form);
    EXPECT_NE(key, 0);
    return key;
  }
  void ExpectClosingQuestion(bool answer) {
    Prompt().ExpectAsk(
        "Exit Allocate Items?",
        "Allocated items do not match total amount. Do you want to update the total amount?",
        answer);
  }
};

TEST_F(Allocating, RulesHoldInTheirOrder) {
  AllocationEditor editor = Editor(AddRow(bank_, -100), 100);
  AllocationForm noNumber = LineOf(1);
  noNumber.amount = std::nullopt;
  noNumber.reference = Umlauts(256);
  AllocationForm longSub = LineOf(0);
  longSub.subCategory = Umlauts(101);
  AllocationForm noCategory = longSub;
  noCategory.category = " ";
  AllocationForm longCategory = longSub;
  longCategory.category = Umlauts(101);
  AllocationForm longReference = LineOf(1);
  longReference.reference = Umlauts(51);
  longReference.description = Umlauts(256);
  AllocationForm longText = LineOf(1);
  longText.description = Umlauts(256);
  const std::string before = Everything();
  ExpectWarnings({
      {editor.Check(noCategory), "You need to enter a Category", "cmbCategory"},
      {editor.Check(longCategory), "Category must be less than 100 characters long", "cmbCategory"},
      {editor.Check(longSub), "Sub Category must be less than 100 characters long",
       "cmbSubCategory"},
      {editor.Check(LineOf(0)), "Please enter a valid value for Amount", "txtAmount"},
      {editor.Check(noNumber), "Please enter a valid value for Amount", "txtAmount"},
      {editor.Check(longReference), "The text is too long: Reference holds at most 50 characters.",
       "txtReference"},
      {editor.Check(longText), "The text is too long: Description holds at most 255 characters.",
       "txtDescription"},
  });
  CloseAccount(bank_);
  EXPECT_EQ(editor.Check(LineOf(1))->text, "This Account is closed, Items cannot be amended");
  EXPECT_EQ(Everything(), before);
}

TEST_F(Allocating, WhatRemainsIsOfferedAndAskedAbout) {
  const std::int64_t parent = AddRow(bank_, -100);
  AllocationEditor editor = Editor(parent, 100);
  EXPECT_EQ(editor.AmountHeading(), "Amount (GBP)");
  EXPECT_EQ(editor.New().amount, -100);
  AllocationForm line = LineOf(-60);
  line.subCategory = "Cards";
  line.description = "for \"O'Brien\"";
  line.reference = "7";
  const std::int64_t first = Save(editor, line);
  EXPECT_EQ(editor.New().amount, -40);
  EXPECT_EQ(Row(parent).amount, -60) << "the parent is worth its lines at any time";
  ExpectClosingQuestion(false);
  EXPECT_FALSE(editor.MayClose());
  ExpectClosingQuestion(true);
  EXPECT_TRUE(editor.MayClose());

  const std::int64_t second = Save(editor, LineOf(-40));
  EXPECT_TRUE(editor.MayClose()) << "without a question";
  const auto lines = editor.Lines();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(AllocationEditor::CategoryText(lines[0]), "Gifts:Cards");
  EXPECT_EQ(AllocationEditor::CategoryText(lines[1]), "Gifts");
  EXPECT_EQ(lines[0].description + lines[0].reference, "for \"O'Brien\"7");

  AllocationForm changed = lines[0];
  changed.amount = -50;
  EXPECT_EQ(Save(editor, changed), first);
  EXPECT_EQ(editor.Remaining(), -10);
  EXPECT_EQ(Row(parent).amount, -90);
  editor.Delete(second);
  EXPECT_EQ(editor.Remaining(), -50);
  editor.Delete(first);
  EXPECT_EQ(Row(parent).amount, -100) << "unsplit again";
}

TEST_F(Allocating, AddingLeavesNoNoise) {
  const std::int64_t parent = AddRow(bank_, -0.3);
  AllocationEditor editor = Editor(parent, 0.3);
  for (int part = 0; part < 3; ++part) Save(editor, LineOf(-0.1));
  EXPECT_EQ(editor.Remaining(), 0);
  EXPECT_TRUE(editor.MayClose());
  // What shows as nothing is nothing; what shows as a penny is asked about.
  EXPECT_EQ(editor.Settled(-0.004), 0);
  EXPECT_EQ(editor.Settled(-0.006), -0.006);
}

TEST_F(Allocating, ALineTakesFromItsParentWhatTheDialogDoesNotShow) {
  const std::int64_t parent = AddRow(bank_, 100);
  AllocationEditor editor = Editor(parent, 100, 1);
  const auto line = Row(Save(editor, LineOf(100)));
  EXPECT_EQ(line.allocatedItem, parent);
  EXPECT_EQ(line.accountId, bank_);
  EXPECT_EQ(line.payee + line.payment, "GrocerCard");
  EXPECT_EQ(line.date, Today());
  EXPECT_EQ(ledger_.Undo().UndoName(), "Allocate Item");
  ledger_.Undo().Undo();
  EXPECT_TRUE(editor.Lines().empty());
}

TEST_F(Allocating, ANewCategoryIsMadeWhenThePersonAgrees) {
  AllocationEditor editor = Editor(AddRow(bank_, -100), 100);
  const std::string before = Everything();
  const char* question =
      "The category 'Toys' does not exist. Do you wish to add it as an expense category?";
  Prompt().ExpectAsk("Add Category?", question, false);
  EXPECT_EQ(editor.Save(LineOf(-60, "Toys")), 0);
  EXPECT_EQ(Everything(), before);
  Prompt().ExpectAsk("Add Category?", question, true);
  Save(editor, LineOf(-60, "Toys"));
  EXPECT_EQ(Count("tblCategory Where Category = 'Toys'"), 1);

  AllocationEditor gone = Editor(99999, 100);
  Prompt().ExpectAsk("Add Category?", ScriptedPrompts::kAnyText, true);
  EXPECT_EQ(gone.Save(LineOf(-60, "Lost toys")), 0);
  EXPECT_EQ(Count("tblCategory Where Category = 'Lost toys'"), 0);
}

TEST_F(Allocating, LinesOfAScheduleAreRowsOfItsTable) {
  const std::int64_t parent = AddSchedule(-100);
  AllocationEditor editor(ledger_, Services(),
                          {parent, AllocationSource::Schedule, 100, -1, "GBP"});
  const std::int64_t first = Save(editor, LineOf(-60));
  EXPECT_EQ(editor.Remaining(), -40);
  EXPECT_EQ(Count("tblTransactions"), 0);
  EXPECT_EQ(Count("tblSchedule Where AllocatedItem <> 0"), 1);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(parent)->amount, -60);
  AllocationForm changed = editor.Lines().front();
  changed.amount = -70;
  EXPECT_EQ(Save(editor, changed), first);
  EXPECT_EQ(editor.Remaining(), -30);
  editor.Delete(first);
  EXPECT_EQ(editor.Remaining(), -100);
  EXPECT_EQ(ledger_.Schedules().ReadSchedule(parent)->amount, -100);
}

}  // namespace
}  // namespace corvanta
