#include "ledger/RecordsTest.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "store/sql/StoreError.h"

namespace corvanta {
namespace {

const char* const kNastyNames[] = {
    "O'Brien's \"shop\"",
    "100% [x] _y_ *?#",
    "Käse & Söhne",
    "🎉 party 🎉",
    "מכולת שלום",
    "a--b; DROP TABLE tblPayees",
    "''''",
    "back\\slash",
    "Ночь",
};

class Reference : public RecordsTest {
 protected:
  std::int64_t AddCategory(const std::string& category, const std::string& sub = {}) {
    return ledger_.Categories().FindOrCreateCategory(category, sub, -1);
  }
  std::string NameOf(const std::string& table, const std::string& column,
                     const std::string& keyColumn, std::int64_t key) {
    return Db()
        .QueryValue("SELECT [" + column + "] FROM " + table + " WHERE " + keyColumn + " = " +
                    std::to_string(key))
        .Text();
  }
  bool HasCategory(std::int64_t key) {
    return Count("tblCategory WHERE CategoryID = " + std::to_string(key)) == 1;
  }
};

TEST_F(Reference, NamesOfEveryKindAreMadeOnceAndKeptAsTyped) {
  for (const std::string name : kNastyNames) {
    SCOPED_TRACE(name);
    const std::int64_t payee = ledger_.References().FindOrCreatePayee(" " + name + " ");
    EXPECT_EQ(ledger_.References().FindOrCreatePayee(name), payee);
    EXPECT_EQ(NameOf("tblPayees", "Payee", "PayeeID", payee), name);
    EXPECT_EQ(ledger_.References().OtherPayee(name, 0), payee);
    EXPECT_EQ(ledger_.References().OtherPayee(name, payee), 0);

    const std::int64_t payment = ledger_.References().FindOrCreatePayment(name);
    EXPECT_EQ(ledger_.References().FindOrCreatePayment(name), payment);
    EXPECT_EQ(ledger_.References().OtherPayment(name, 0), payment);

    const std::int64_t bank = ledger_.References().FindOrCreateBank(name);
    EXPECT_EQ(ledger_.References().FindOrCreateBank(name), bank);
    EXPECT_EQ(NameOf("tblBank", "Bank", "BankID", bank), name);

    const std::int64_t group = ledger_.References().FindOrCreateAccountGroup(name);
    EXPECT_EQ(ledger_.References().FindOrCreateAccountGroup(name), group);
    EXPECT_EQ(ledger_.References().OtherAccountGroup(name, 0), group);
    EXPECT_EQ(ledger_.References().OtherAccountGroup(name, group), 0);

    const std::int64_t keyword = ledger_.Notes().FindOrCreateKeyword(name);
    EXPECT_EQ(ledger_.Notes().FindKeyword(name), keyword);
    EXPECT_EQ(ledger_.References().OtherKeyword(name, 0), keyword);

    AccountRecord account;
    account.account = name;
    account.accountTypeId = group;
    account.currencyId = kPounds;
    const std::int64_t key = ledger_.Accounts().FindOrCreateAccount(account);
    EXPECT_EQ(ledger_.Accounts().FindOrCreateAccount(account), key);
    EXPECT_EQ(ledger_.Accounts().OtherAccount(name, 0), key);
    EXPECT_EQ(ledger_.Accounts().ReadAccount(key)->account, name);

    const std::int64_t sub = AddCategory(name, name + "/sub");
    EXPECT_EQ(AddCategory(name, name + "/sub"), sub);
    const std::int64_t main = ledger_.Categories().FindCategory(name, "");
    EXPECT_NE(main, 0);
    EXPECT_EQ(ledger_.Categories().OtherMainCategory(name, 0), main);
    EXPECT_EQ(ledger_.Categories().OtherMainCategory(name, main), 0);
    EXPECT_EQ(ledger_.Categories().OtherSubCategory(name, name + "/sub", main), sub);
    ledger_.Categories().RenameMainCategory(name, name + " 2", 1);
    EXPECT_EQ(ledger_.Categories().FindCategory(name + " 2", name + "/sub"), sub);
    EXPECT_EQ(ledger_.Categories().DeleteCategory(main).deleted, 2);
  }
}

TEST_F(Reference, CaseMakesNoOtherName) {
  EXPECT_EQ(ledger_.References().FindOrCreatePayee("sHOP"), payee_);
  EXPECT_EQ(ledger_.References().FindOrCreatePayment("ÄRGER"),
            ledger_.References().FindOrCreatePayment("ärger"));
  EXPECT_EQ(ledger_.Accounts().OtherAccount("BANK", 0), bank_);
  EXPECT_EQ(ledger_.Categories().FindCategory("bILLS", "gAS"), category_);
}

TEST_F(Reference, ABlankNameMakesNothing) {
  const std::int64_t before = Count("tblPayees");
  EXPECT_EQ(ledger_.References().FindOrCreatePayee("  "), 0);
  EXPECT_EQ(ledger_.References().FindOrCreateBank(""), 0);
  EXPECT_EQ(ledger_.Categories().FindOrCreateCategory(" ", "x", 1), 0);
  EXPECT_EQ(ledger_.Notes().FindOrCreateKeyword(" "), 0);
  EXPECT_EQ(ledger_.Accounts().FindOrCreateAccount({}), 0);
  EXPECT_EQ(Count("tblPayees"), before);
}

TEST_F(Reference, AnInvestmentIsNoPayee) {
  Run("INSERT INTO tblPayees (Payee,[Symbol],Investment) VALUES ('Acme','ACM',1)");
  const std::int64_t investment = Number("SELECT MAX(PayeeID) FROM tblPayees");
  EXPECT_NE(ledger_.References().FindOrCreatePayee("Acme"), investment);
}

TEST_F(Reference, ANewSubCategoryIsOfItsMainCategorysType) {
  AddCategory("Hobby");
  const std::int64_t sub = ledger_.Categories().FindOrCreateCategory("hobby", "Chess", 1);
  EXPECT_EQ(Number("SELECT [Type] FROM tblCategory WHERE CategoryID = " + std::to_string(sub)), -1);
  EXPECT_EQ(NameOf("tblCategory", "Category", "CategoryID", sub), "Hobby");
}

TEST_F(Reference, TextsAreMeasuredInCharacters) {
  std::string fits;
  for (int i = 0; i < 255; ++i) fits += "ß";
  EXPECT_FALSE(ledger_.References().TooLong("tblBank", {{"Bank", fits}}).has_value());
  const auto problem =
      ledger_.References().TooLong("tblBank", {{"Bank", fits}, {"Postcode", fits}});
  ASSERT_TRUE(problem.has_value());
  EXPECT_EQ(problem->column, "Postcode");
  EXPECT_EQ(problem->text, "The text is too long: Postcode holds at most 50 characters.");
  EXPECT_NE(ledger_.References().FindOrCreateBank(fits), 0);
  EXPECT_THROW(ledger_.References().FindOrCreateBank(fits + "ß"), StoreError);
}

TEST_F(Reference, RecordsAreSavedAndListed) {
  BankRecord bank;
  bank.bank = "Örebro's Bank";
  bank.web = "https://bank.example/?a=1&b='2'";
  ledger_.References().SaveBank(bank);
  bank.sortcode = "12-34-56";
  EXPECT_NE(ledger_.References().SaveBank(bank), 0);
  bool isListed = false;
  for (const BankRecord& listed : ledger_.References().Banks()) {
    if (listed.bankId != bank.bankId) continue;
    isListed = true;
    EXPECT_EQ(listed.web, bank.web);
    EXPECT_EQ(listed.sortcode, "12-34-56");
  }
  EXPECT_TRUE(isListed);
  PayeeRecord payee{payee_, "Corner shop", "Round the corner"};
  ledger_.References().SavePayee(payee);
  ASSERT_FALSE(ledger_.References().Payees().empty());
  EXPECT_EQ(ledger_.References().Payees()[0].payee, "Corner shop");
  PaymentRecord unknown{4711, "Nothing", ""};
  EXPECT_EQ(ledger_.References().SavePayment(unknown), 0);
  EXPECT_EQ(ledger_.References().Currencies().size(), 164U);
  EXPECT_EQ(ledger_.References().Periods().at(5).period, "m");
  EXPECT_FALSE(ledger_.References().AccountGroups().empty());
  CategoryRecord food;
  food.category = "Eating";
  food.budget = 120.5;
  food.periodId = 6;
  ledger_.Categories().SaveCategory(food);
  for (const CategoryRecord& listed : ledger_.Categories().Categories()) {
    if (listed.categoryId == food.categoryId) {
      EXPECT_EQ(listed.budget, 120.5);
    }
  }
}

TEST_F(Reference, RenamingAMainCategoryTakesItsSubCategoriesAlong) {
  const std::int64_t main = AddCategory("Food");
  const std::int64_t dining = AddCategory("Food", "Dining");
  const std::int64_t other = AddCategory("Foodstuff");
  ledger_.Categories().RenameMainCategory("fOOD", "Groceries", 1);
  for (const std::int64_t key : {main, dining}) {
    EXPECT_EQ(NameOf("tblCategory", "Category", "CategoryID", key), "Groceries");
    EXPECT_EQ(Number("SELECT [Type] FROM tblCategory WHERE CategoryID = " + std::to_string(key)),
              1);
  }
  EXPECT_EQ(NameOf("tblCategory", "Category", "CategoryID", other), "Foodstuff");
}

TEST_F(Reference, WhatIsInUseIsKept) {
  const std::int64_t bank = ledger_.References().FindOrCreateBank("Mine");
  AccountRecord account = *ledger_.Accounts().ReadAccount(bank_);
  account.bankId = bank;
  ledger_.Accounts().SaveAccount(account);
  Add(bank_, -1);
  EXPECT_FALSE(ledger_.References().DeleteBank(bank));
  EXPECT_FALSE(ledger_.References().DeleteAccountGroup(1));
  EXPECT_FALSE(ledger_.References().DeletePayee(payee_));
  EXPECT_FALSE(ledger_.References().DeletePayment(payment_));
  EXPECT_EQ(ledger_.Categories().DeleteCategory(category_).deleted, 0);
  EXPECT_FALSE(
      ledger_.References().DeletePayment(ledger_.References().FindOrCreatePayment("Import")));
  for (const char* system : {"Credit", "Debit"}) {
    EXPECT_EQ(ledger_.Categories()
                  .DeleteCategory(ledger_.Categories().FindCategory(system, ""))
                  .kept.size(),
              1U);
  }
  EXPECT_TRUE(ledger_.References().DeleteBank(ledger_.References().FindOrCreateBank("Unused")));
  EXPECT_TRUE(ledger_.References().DeleteAccountGroup(
      ledger_.References().FindOrCreateAccountGroup("Unused")));
  EXPECT_TRUE(ledger_.References().DeletePayee(ledger_.References().FindOrCreatePayee("Unused")));
  EXPECT_TRUE(
      ledger_.References().DeletePayment(ledger_.References().FindOrCreatePayment("Unused")));
  EXPECT_FALSE(ledger_.References().DeletePayee(4711));
}

TEST_F(Reference, WhatNamesNothingKeepsNothing) {
  Run("UPDATE tblAccounts SET BankID = NULL");
  Run("INSERT INTO tblHistory ([Date],Price) VALUES (#01/01/2026#,1)");
  ReferenceBook& references = ledger_.References();
  EXPECT_TRUE(references.DeleteBank(references.FindOrCreateBank("Unused")));
  EXPECT_TRUE(references.DeletePayee(references.FindOrCreatePayee("Unused")));
  Run("DELETE FROM tblHistory");
}

TEST_F(Reference, WhatASchedulesOrAPriceNeedsIsKept) {
  const std::int64_t schedule = AddSchedule(bank_, -1);
  EXPECT_FALSE(ledger_.References().DeletePayee(payee_));
  EXPECT_EQ(ledger_.Categories().DeleteCategory(category_).kept.at(0).categoryId, category_);
  ledger_.Schedules().DeleteSchedule(schedule, true);
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + std::to_string(payee_) +
      ",#01/01/2026#,1)");
  EXPECT_FALSE(ledger_.References().DeletePayee(payee_));
  Run("DELETE FROM tblHistory");
  EXPECT_TRUE(ledger_.References().DeletePayee(payee_));
}

TEST_F(Reference, AMainCategoryGoesWithItsUnusedSubCategories) {
  const std::int64_t main = AddCategory("Food");
  const std::int64_t used = AddCategory("Food", "Dining");
  const std::int64_t unused = AddCategory("Food", "Snacks");
  TransactionRecord row = Row(bank_, -1);
  row.categoryId = used;
  ledger_.Transactions().SaveTransaction(row);
  TransactionRecord other = Row(bank_, -1);
  other.categoryId = main;
  ledger_.Transactions().SaveTransaction(other);
  const CategoryDeletion result = ledger_.Categories().DeleteCategory(main);
  EXPECT_EQ(result.deleted, 1);
  ASSERT_EQ(result.kept.size(), 2U);
  EXPECT_EQ(result.kept[0].subCategory, "Dining");
  EXPECT_TRUE(HasCategory(main));
  EXPECT_TRUE(HasCategory(used));
  EXPECT_FALSE(HasCategory(unused));
}

TEST_F(Reference, MergingMovesTransactionsAndSchedules) {
  const std::int64_t key = Add(bank_, -1);
  const std::int64_t line = AddLine(key, -1);
  const std::int64_t schedule = AddSchedule(bank_, -1);
  const std::int64_t payee = ledger_.References().FindOrCreatePayee("Big shop");
  const std::int64_t category = AddCategory("Food");
  ledger_.References().MergePayees(payee_, payee);
  ledger_.Categories().MergeCategories(category_, category);
  EXPECT_EQ(Column("PayeeID", key), payee);
  EXPECT_EQ(Column("CategoryID", line), category);
  EXPECT_EQ(
      Number("SELECT PayeeID FROM tblSchedule WHERE ScheduleID = " + std::to_string(schedule)),
      payee);
  EXPECT_TRUE(ledger_.References().DeletePayee(payee_)) << "nothing uses the source any more";
  ledger_.References().MergePayees(payee, payee);
  ledger_.References().MergePayees(payee, 0);
  EXPECT_EQ(Column("PayeeID", key), payee);
}

TEST_F(Reference, MergingIntoNothingChangesNothing) {
  const std::int64_t row = Add(bank_, -5);
  ledger_.Categories().MergeCategories(category_, 999999);
  ledger_.References().MergePayees(payee_, 999999);
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(row)->categoryId, category_);
  EXPECT_EQ(ledger_.Transactions().ReadTransaction(row)->payeeId, payee_);
}

}  // namespace
}  // namespace corvanta
