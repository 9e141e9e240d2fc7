#include "ledger/reference/ReferenceBook.h"
#include "reference/CategoryEditor.h"
#include "reference/ReferenceTest.h"

namespace corvanta {
namespace {

constexpr const char* kAmend =
    "Do you want to amend the name for this category and all sub categories";

class Categories : public ReferenceTest {
 protected:
  Categories() {
    food_ = editor_.Save({0, "Food", "", -1, 0, 0, {}});
    dining_ = editor_.Save({0, "food", "Dining", 0, 0, 0, {}});
  }
  [[nodiscard]] std::string Name(std::int64_t key) {
    const auto row = editor_.Load(key);
    return row ? row->category + ":" + row->subCategory : "(gone)";
  }

  CategoryEditor editor_{ledger_, Prompt()};
  std::int64_t food_ = 0;
  std::int64_t dining_ = 0;
};

TEST_F(Categories, AMainCategoryIsRenamedWithItsSubCategories) {
  const std::string before = Everything();
  Prompt().ExpectAsk("Amend Category", kAmend, true);
  EXPECT_EQ(editor_.Save({food_, "Groceries", "", 1, 25, 3, "weekly"}), food_);
  EXPECT_EQ(Name(food_), "Groceries:");
  EXPECT_EQ(Name(dining_), "Groceries:Dining");
  EXPECT_EQ(editor_.Load(dining_)->type, 1);
  EXPECT_EQ(*editor_.Load(food_)->budget, 25);
  EXPECT_EQ(editor_.Load(food_)->periodId, 3);
  EXPECT_EQ(Count("tblCategory Where Category = 'Food'"), 0);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Edit Category");
  ledger_.Undo().Undo();
  EXPECT_EQ(Everything(), before);
}

TEST_F(Categories, WithNoOnlyTheEditedRowChanges) {
  Prompt().ExpectAsk("Amend Category", kAmend, false);
  editor_.Save({food_, "Groceries", "", 1, 0, 0, {}});
  EXPECT_EQ(Name(food_), "Groceries:");
  EXPECT_EQ(Name(dining_), "Food:Dining") << "in its main category's spelling";
  EXPECT_EQ(editor_.Load(dining_)->type, -1);
  EXPECT_EQ(Count("tblCategory Where Category = 'Food'"), 1);
}

TEST_F(Categories, OnlyAMainCategoryThatIsRenamedIsAskedAbout) {
  editor_.Save({food_, "Food", "", 1, 0, 0, "other words"});
  editor_.Save({dining_, "Food", "Restaurants", -1, 0, 0, {}});
  editor_.Save({dining_, "Treats", "Restaurants", -1, 0, 0, {}});
  EXPECT_EQ(Name(dining_), "Treats:Restaurants");
  EXPECT_NE(CategoryKey("Treats"), 0) << "the main category that it moved to";
}

TEST_F(Categories, ARenameThatWouldMakeTwoOfOneNameWritesNothing) {
  editor_.Save({0, "Groceries", "Dining", -1, 0, 0, {}});
  Store().Execute("Delete from tblCategory Where CategoryID = " +
                  SqlNumber(CategoryKey("Groceries")));
  const std::string before = Everything();
  Prompt().ExpectAsk("Amend Category", kAmend, true);
  Prompt().ExpectTell("Duplicate Record", "Sub category already exists");
  EXPECT_EQ(editor_.Save({food_, "Groceries", "", -1, 0, 0, {}}), 0);
  EXPECT_EQ(Everything(), before);
}

TEST_F(Categories, ASubCategoryTakesTheTypeOfItsMainOne) {
  EXPECT_EQ(editor_.Load(dining_)->type, -1);
  const auto bonus = editor_.Save({0, "Wages and Salary", "Thirteenth month", 0, 0, 0, {}});
  EXPECT_EQ(editor_.Load(bonus)->type, 1);
  editor_.Save({0, "Hobby", "Model trains", 1, 0, 0, {}});
  EXPECT_EQ(editor_.Load(CategoryKey("Hobby"))->type, 1);
}

TEST_F(Categories, ANewOneMayBeTypedAsListsShowIt) {
  const CategoryForm twice{0, "food:dining", "", 0, 0, 0, {}};
  EXPECT_EQ(editor_.Check(twice)->text, "Sub category already exists");
  EXPECT_EQ(Name(editor_.Save({0, "food: Picnics", "", 0, 0, 0, {}})), "Food:Picnics");
  EXPECT_EQ(Count("tblCategory Where Category LIKE '%:%'"), 0);
}

TEST_F(Categories, AMainCategoryThatBecomesASubCategoryLeavesOneBehind) {
  editor_.Save({food_, "Food", "Staples", -1, 0, 0, {}});
  EXPECT_EQ(Name(food_), "Food:Staples");
  EXPECT_NE(CategoryKey("Food"), food_);
  EXPECT_NE(CategoryKey("Food"), 0);
}

TEST_F(Categories, SystemCategoriesDoNotBecomeSubCategories) {
  const auto warning = editor_.Check({1, "Credit", "Other", 1, 0, 0, {}});
  ASSERT_TRUE(warning.has_value());
  EXPECT_EQ(warning->field, "cmbCategory");
}

TEST_F(Categories, SubCategoriesLeftBehindKeepAMainCategory) {
  editor_.Save({food_, "Car", "Snacks", -1, 0, 0, {}});
  EXPECT_EQ(Name(food_), "Car:Snacks");
  EXPECT_NE(CategoryKey("Food"), 0);
}

TEST_F(Categories, AreDeletedWithWhatNothingUses) {
  const auto takeaway = editor_.Save({0, "Food", "Takeaway", 0, 0, 0, {}});
  Use(dining_, ledger_.References().FindOrCreatePayee("Bistro"));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", false);
  EXPECT_FALSE(editor_.Delete(food_).isChanged);
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  const Deletion deletion = editor_.Delete(food_);
  EXPECT_TRUE(deletion.isGone);
  EXPECT_EQ(deletion.kept, std::vector<std::string>{"Food:Dining"});
  EXPECT_EQ(Name(food_), "(gone)");
  EXPECT_EQ(Name(takeaway), "(gone)");
  EXPECT_EQ(Name(dining_), "Food:Dining") << "in its main category's spelling";
}

TEST_F(Categories, InUseOrOfTheProgramAreKept) {
  Use(food_, ledger_.References().FindOrCreatePayee("Grocer"));
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  const Deletion used = editor_.Delete(food_);
  EXPECT_FALSE(used.isGone);
  EXPECT_TRUE(used.isChanged) << "its sub-category went";
  EXPECT_EQ(used.Notice(), "“Food” is still needed and was kept.");
  Prompt().ExpectAsk("Delete Item?", "Do you wish to delete this item?", true);
  EXPECT_FALSE(editor_.Delete(1).isChanged);
  EXPECT_EQ(Name(1), "Credit:");
}

}  // namespace
}  // namespace corvanta
