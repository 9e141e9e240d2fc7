// Deleting and merging through the editors and the list.
#include "ledger/reference/ReferenceBook.h"
#include "ledger/transactions/KeywordBook.h"
#include "reference/AccountEditor.h"
#include "reference/ListEditor.h"
#include "reference/MergeEditor.h"
#include "reference/ReferenceEditor.h"
#include "reference/ReferenceTest.h"

#include <algorithm>

namespace corvanta {
namespace {

constexpr const char* kQuestion = "Do you wish to delete this item?";
constexpr const char* kListQuestion =
    "Do you wish to delete this item? If this item is being used by existing Transactions, then "
    "this item will not be deleted.";

class Deletions : public ReferenceTest {
 protected:
  void Answer(bool yes, const char* question = kQuestion) {
    Prompt().ExpectAsk("Delete Item?", question, yes);
  }
};

TEST_F(Deletions, APayeeGoesUnlessSomethingNamesIt) {
  ReferenceEditor<PayeeRecord> editor(ledger_, Prompt());
  const std::int64_t used = ledger_.References().FindOrCreatePayee("Used");
  const std::int64_t free = ledger_.References().FindOrCreatePayee("Free");
  Use(9, used);
  Answer(false);
  EXPECT_EQ(editor.Delete(free).Notice(), "");
  Answer(true);
  EXPECT_TRUE(editor.Delete(free).isGone);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Delete Payee");
  Answer(true);
  const Deletion deletion = editor.Delete(used);
  EXPECT_FALSE(deletion.isChanged);
  EXPECT_EQ(deletion.Notice(), "“Used” is still needed and was kept.");
  EXPECT_EQ(ledger_.References().Payees().size(), 1U);
}

TEST_F(Deletions, OfTheFourListsKeepWhatIsUsed) {
  const std::int64_t cash = ledger_.References().FindOrCreatePayment("Cash");
  const std::int64_t card = ledger_.References().FindOrCreatePayment("Card");
  const std::int64_t account = AnAccount();
  Use(9, ledger_.References().FindOrCreatePayee("Grocer"), account, card);
  Store().Execute("UPDATE tblAccounts SET BankID = 1");
  const std::int64_t keyword = ledger_.Notes().FindOrCreateKeyword("Holiday");
  ledger_.Notes().LinkKeyword(keyword, 1);
  const struct {
    ListKind kind;
    std::int64_t key;
    bool isGone;
  } rows[] = {{ListKind::Payment, cash, true},  {ListKind::Payment, card, false},
              {ListKind::Payment, 1, false},    {ListKind::Bank, 1, false},
              {ListKind::Bank, 2, true},        {ListKind::AccountType, 1, false},
              {ListKind::AccountType, 2, true}, {ListKind::Keywords, keyword, true}};
  for (const auto& row : rows) {
    ListEditor editor(row.kind, ledger_, Prompt());
    const std::size_t before = editor.Items().size();
    Answer(true, kListQuestion);
    EXPECT_EQ(editor.Delete(row.key).isGone, row.isGone) << editor.Caption() << " " << row.key;
    EXPECT_EQ(editor.Items().size(), before - (row.isGone ? 1 : 0)) << editor.Caption();
  }
  EXPECT_EQ(Count("tblKeywordLink"), 0);
}

TEST_F(Deletions, WhatIsGoneAlreadyIsAChange) {
  ListEditor banks(ListKind::Bank, ledger_, Prompt());
  Answer(true, kListQuestion);
  const Deletion deletion = banks.Delete(999);
  EXPECT_TRUE(deletion.isChanged);
  EXPECT_EQ(deletion.Notice(), "");
}

TEST_F(Deletions, TheListsHaveTheirCaptions) {
  const std::pair<ListKind, const char*> captions[] = {
      {ListKind::Payment, "Payments"},
      {ListKind::Bank, "Banks"},
      {ListKind::AccountType, "Account Groups"},
      {ListKind::Keywords, "Transaction Keywords"}};
  for (const auto& [kind, caption] : captions) {
    EXPECT_EQ(ListEditor(kind, ledger_, Prompt()).Caption(), caption);
  }
}

TEST_F(Deletions, AUsedAccountIsAskedAboutTwice) {
  AccountEditor editor(ledger_, Services());
  const std::int64_t used = AnAccount("Used");
  const std::int64_t empty = AnAccount("Empty");
  Use(9, ledger_.References().FindOrCreatePayee("Grocer"), used);
  Answer(true);
  EXPECT_TRUE(editor.Delete(empty).isGone);
  const char* all = "Do you wish to delete this Account, and all Account Transactions?";
  const char* sure =
      "All Account Transactions for this Account will be deleted, Do you wish to continue?";
  Answer(true, all);
  Prompt().ExpectAsk("Delete Item Confirm", sure, false);
  EXPECT_FALSE(editor.Delete(used).isGone);
  EXPECT_EQ(Count("tblTransactions"), 1);
  Answer(true, all);
  Prompt().ExpectAsk("Delete Item Confirm", sure, true);
  EXPECT_TRUE(editor.Delete(used).isGone);
  EXPECT_EQ(Count("tblTransactions"), 0);
}

TEST_F(Deletions, AMergeNeedsAnotherTarget) {
  MergeEditor payees(MergeKind::Payee, ledger_, Prompt());
  EXPECT_EQ(payees.Check(1, 0)->text, "Please select a Payee to Merge records to");
  EXPECT_EQ(payees.Check(1, 1)->text,
            "Payee to Merge and Payee to Merge into can not be the same.");
  EXPECT_EQ(payees.Check(1, 1)->title, "Merge Record Warning");
  MergeEditor categories(MergeKind::Category, ledger_, Prompt());
  EXPECT_EQ(categories.Check(1, 0)->text, "Please select a Category to Merge records to");
  EXPECT_EQ(categories.Check(1, 1)->text,
            "Category to Merge and Category to Merge into can not be the same.");
  EXPECT_EQ(categories.Caption(), "Merge Category");
  EXPECT_EQ(categories.TargetLabel(), "Category to Merge into");
}

TEST_F(Deletions, AMergeMovesTheRecordsAndLeavesTheSource) {
  const std::int64_t from = ledger_.References().FindOrCreatePayee("Tesco Ltd");
  const std::int64_t into = ledger_.References().FindOrCreatePayee("Tesco");
  Use(9, from);
  MergeEditor editor(MergeKind::Payee, ledger_, Prompt());
  const char* question =
      "All records from PAYEE will be Moved into  the Tesco to Merge. Do you wish to continue?";
  Prompt().ExpectAsk("Proceed to merge records?", question, false);
  EXPECT_FALSE(editor.Merge(from, {into, "Tesco"}));
  EXPECT_EQ(Count("tblTransactions Where PayeeID = " + SqlNumber(from)), 1);
  Prompt().ExpectAsk("Proceed to merge records?", question, true);
  Prompt().ExpectTell("Merge Records", "Merge completed.");
  EXPECT_TRUE(editor.Merge(from, {into, "Tesco"}));
  EXPECT_EQ(Count("tblTransactions Where PayeeID = " + SqlNumber(into)), 1);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Merge Payees");
  Answer(true);
  EXPECT_TRUE(ReferenceEditor<PayeeRecord>(ledger_, Prompt()).Delete(from).isGone);
}

TEST_F(Deletions, CategoriesAreMergedByTheirFullNames) {
  const std::int64_t from = CategoryKey("Car", "Petrol");
  const std::int64_t into = CategoryKey("Car");
  Use(from, ledger_.References().FindOrCreatePayee("Garage"));
  MergeEditor editor(MergeKind::Category, ledger_, Prompt());
  const auto items = editor.Items();
  EXPECT_TRUE(std::any_of(items.begin(), items.end(), [&](const MergeItem& item) {
    return item.key == from && item.name == "Car:Petrol";
  }));
  Prompt().ExpectAsk(
      "Proceed to merge records?",
      "All records from CATEGORY will be Moved into  the Car to Merge. Do you wish to continue?",
      true);
  Prompt().ExpectTell("Merge Records", "Merge completed.");
  EXPECT_TRUE(editor.Merge(from, {into, "Car"}));
  EXPECT_EQ(Count("tblTransactions Where CategoryID = " + SqlNumber(into)), 1);
}

}  // namespace
}  // namespace corvanta
