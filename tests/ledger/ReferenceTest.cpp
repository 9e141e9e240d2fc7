#include "ledger/RecordsTest.h"
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
    return ledger_.FindOrCreateCategory(category, sub, -1);
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
    const std::int64_t payee = ledger_.FindOrCreatePayee(" " + name + " ");
    EXPECT_EQ(ledger_.FindOrCreatePayee(name), payee);
    EXPECT_EQ(NameOf("tblPayees", "Payee", "PayeeID", payee), name);
    EXPECT_EQ(ledger_.OtherPayee(name, 0), payee);
    EXPECT_EQ(ledger_.OtherPayee(name, payee), 0);

    const std::int64_t payment = ledger_.FindOrCreatePayment(name);
    EXPECT_EQ(ledger_.FindOrCreatePayment(name), payment);
    EXPECT_EQ(ledger_.OtherPayment(name, 0), payment);

    const std::int64_t bank = ledger_.FindOrCreateBank(name);
    EXPECT_EQ(ledger_.FindOrCreateBank(name), bank);
    EXPECT_EQ(NameOf("tblBank", "Bank", "BankID", bank), name);

    const std::int64_t group = ledger_.FindOrCreateAccountGroup(name);
    EXPECT_EQ(ledger_.FindOrCreateAccountGroup(name), group);
    EXPECT_EQ(ledger_.OtherAccountGroup(name, 0), group);
    EXPECT_EQ(ledger_.OtherAccountGroup(name, group), 0);

    const std::int64_t keyword = ledger_.FindOrCreateKeyword(name);
    EXPECT_EQ(ledger_.FindKeyword(name), keyword);
    EXPECT_EQ(ledger_.OtherKeyword(name, 0), keyword);

    AccountRecord account;
    account.account = name;
    account.accountTypeId = group;
    account.currencyId = kPounds;
    const std::int64_t key = ledger_.FindOrCreateAccount(account);
    EXPECT_EQ(ledger_.FindOrCreateAccount(account), key);
    EXPECT_EQ(ledger_.OtherAccount(name, 0), key);
    EXPECT_EQ(ledger_.ReadAccount(key)->account, name);

    const std::int64_t sub = AddCategory(name, name + "/sub");
    EXPECT_EQ(AddCategory(name, name + "/sub"), sub);
    const std::int64_t main = ledger_.FindCategory(name, "");
    EXPECT_NE(main, 0);
    EXPECT_EQ(ledger_.OtherMainCategory(name, 0), main);
    EXPECT_EQ(ledger_.OtherMainCategory(name, main), 0);
    EXPECT_EQ(ledger_.OtherSubCategory(name, name + "/sub", main), sub);
    ledger_.RenameMainCategory(name, name + " 2", 1);
    EXPECT_EQ(ledger_.FindCategory(name + " 2", name + "/sub"), sub);
    EXPECT_EQ(ledger_.DeleteCategory(main).deleted, 2);
  }
}

TEST_F(Reference, CaseMakesNoOtherName) {
  EXPECT_EQ(ledger_.FindOrCreatePayee("sHOP"), payee_);
  EXPECT_EQ(ledger_.FindOrCreatePayment("ÄRGER"), ledger_.FindOrCreatePayment("ärger"));
  EXPECT_EQ(ledger_.OtherAccount("BANK", 0), bank_);
  EXPECT_EQ(ledger_.FindCategory("bILLS", "gAS"), category_);
}

TEST_F(Reference, ABlankNameMakesNothing) {
  const std::int64_t before = Count("tblPayees");
  EXPECT_EQ(ledger_.FindOrCreatePayee("  "), 0);
  EXPECT_EQ(ledger_.FindOrCreateBank(""), 0);
  EXPECT_EQ(ledger_.FindOrCreateCategory(" ", "x", 1), 0);
  EXPECT_EQ(ledger_.FindOrCreateKeyword(" "), 0);
  EXPECT_EQ(ledger_.FindOrCreateAccount({}), 0);
  EXPECT_EQ(Count("tblPayees"), before);
}

TEST_F(Reference, AnInvestmentIsNoPayee) {
  Run("INSERT INTO tblPayees (Payee,[Symbol],Investment) VALUES ('Acme','ACM',1)");
  const std::int64_t investment = Number("SELECT MAX(PayeeID) FROM tblPayees");
  EXPECT_NE(ledger_.FindOrCreatePayee("Acme"), investment);
}

TEST_F(Reference, ANewSubCategoryIsOfItsMainCategorysType) {
  AddCategory("Hobby");
  const std::int64_t sub = ledger_.FindOrCreateCategory("hobby", "Chess", 1);
  EXPECT_EQ(Number("SELECT [Type] FROM tblCategory WHERE CategoryID = " + std::to_string(sub)), -1);
  EXPECT_EQ(NameOf("tblCategory", "Category", "CategoryID", sub), "Hobby");
}

TEST_F(Reference, TextsAreMeasuredInCharacters) {
  std::string fits;
  for (int i = 0; i < 255; ++i) fits += "ß";
  EXPECT_FALSE(ledger_.TooLong("tblBank", {{"Bank", fits}}).has_value());
  const auto problem = ledger_.TooLong("tblBank", {{"Bank", fits}, {"Postcode", fits}});
  ASSERT_TRUE(problem.has_value());
  EXPECT_EQ(problem->column, "Postcode");
  EXPECT_EQ(problem->text, "The text is too long: Postcode holds at most 50 characters.");
  EXPECT_NE(ledger_.FindOrCreateBank(fits), 0);
  EXPECT_THROW(ledger_.FindOrCreateBank(fits + "ß"), StoreError);
}

TEST_F(Reference, RecordsAreSavedAndListed) {
  BankRecord bank;
  bank.bank = "Örebro's Bank";
  bank.web = "https://bank.example/?a=1&b='2'";
  ledger_.SaveBank(bank);
  bank.sortcode = "12-34-56";
  EXPECT_NE(ledger_.SaveBank(bank), 0);
  bool isListed = false;
  for (const BankRecord& listed : ledger_.Banks()) {
    if (listed.bankId != bank.bankId) continue;
    isListed = true;
    EXPECT_EQ(listed.web, bank.web);
    EXPECT_EQ(listed.sortcode, "12-34-56");
  }
  EXPECT_TRUE(isListed);
  PayeeRecord payee{payee_, "Corner shop", "Round the corner"};
  ledger_.SavePayee(payee);
  ASSERT_FALSE(ledger_.Payees().empty());
  EXPECT_EQ(ledger_.Payees()[0].payee, "Corner shop");
  PaymentRecord unknown{4711, "Nothing", ""};
  EXPECT_EQ(ledger_.SavePayment(unknown), 0);
  EXPECT_EQ(ledger_.Currencies().size(), 164U);
  EXPECT_EQ(ledger_.Periods().at(5).period, "m");
  EXPECT_FALSE(ledger_.AccountGroups().empty());
  CategoryRecord food;
  food.category = "Eating";
  food.budget = 120.5;
  food.periodId = 6;
  ledger_.SaveCategory(food);
  for (const CategoryRecord& listed : ledger_.Categories()) {
    if (listed.categoryId == food.categoryId) {
      EXPECT_EQ(listed.budget, 120.5);
    }
  }
}

TEST_F(Reference, RenamingAMainCategoryTakesItsSubCategoriesAlong) {
  const std::int64_t main = AddCategory("Food");
  const std::int64_t dining = AddCategory("Food", "Dining");
  const std::int64_t other = AddCategory("Foodstuff");
  ledger_.RenameMainCategory("fOOD", "Groceries", 1);
  for (const std::int64_t key : {main, dining}) {
    EXPECT_EQ(NameOf("tblCategory", "Category", "CategoryID", key), "Groceries");
    EXPECT_EQ(Number("SELECT [Type] FROM tblCategory WHERE CategoryID = " + std::to_string(key)),
              1);
  }
  EXPECT_EQ(NameOf("tblCategory", "Category", "CategoryID", other), "Foodstuff");
}

TEST_F(Reference, WhatIsInUseIsKept) {
  const std::int64_t bank = ledger_.FindOrCreateBank("Mine");
  AccountRecord account = *ledger_.ReadAccount(bank_);
  account.bankId = bank;
  ledger_.SaveAccount(account);
  Add(bank_, -1);
  EXPECT_FALSE(ledger_.DeleteBank(bank));
  EXPECT_FALSE(ledger_.DeleteAccountGroup(1));
  EXPECT_FALSE(ledger_.DeletePayee(payee_));
  EXPECT_FALSE(ledger_.DeletePayment(payment_));
  EXPECT_EQ(ledger_.DeleteCategory(category_).deleted, 0);
  EXPECT_FALSE(ledger_.DeletePayment(ledger_.FindOrCreatePayment("Import")));
  for (const char* system : {"Credit", "Debit"}) {
    EXPECT_EQ(ledger_.DeleteCategory(ledger_.FindCategory(system, "")).kept.size(), 1U);
  }
  EXPECT_TRUE(ledger_.DeleteBank(ledger_.FindOrCreateBank("Unused")));
  EXPECT_TRUE(ledger_.DeleteAccountGroup(ledger_.FindOrCreateAccountGroup("Unused")));
  EXPECT_TRUE(ledger_.DeletePayee(ledger_.FindOrCreatePayee("Unused")));
  EXPECT_TRUE(ledger_.DeletePayment(ledger_.FindOrCreatePayment("Unused")));
  EXPECT_FALSE(ledger_.DeletePayee(4711));
}

TEST_F(Reference, WhatASchedulesOrAPriceNeedsIsKept) {
  const std::int64_t schedule = AddSchedule(bank_, -1);
  EXPECT_FALSE(ledger_.DeletePayee(payee_));
  EXPECT_EQ(ledger_.DeleteCategory(category_).kept.at(0).categoryId, category_);
  ledger_.DeleteSchedule(schedule, true);
  Run("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" + std::to_string(payee_) +
      ",#01/01/2026#,1)");
  EXPECT_FALSE(ledger_.DeletePayee(payee_));
  Run("DELETE FROM tblHistory");
  EXPECT_TRUE(ledger_.DeletePayee(payee_));
}

TEST_F(Reference, AMainCategoryGoesWithItsUnusedSubCategories) {
  const std::int64_t main = AddCategory("Food");
  const std::int64_t used = AddCategory("Food", "Dining");
  const std::int64_t unused = AddCategory("Food", "Snacks");
  TransactionRecord row = Row(bank_, -1);
  row.categoryId = used;
  ledger_.SaveTransaction(row);
  TransactionRecord other = Row(bank_, -1);
  other.categoryId = main;
  ledger_.SaveTransaction(other);
  const CategoryDeletion result = ledger_.DeleteCategory(main);
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
  const std::int64_t payee = ledger_.FindOrCreatePayee("Big shop");
  const std::int64_t category = AddCategory("Food");
  ledger_.MergePayees(payee_, payee);
  ledger_.MergeCategories(category_, category);
  EXPECT_EQ(Column("PayeeID", key), payee);
  EXPECT_EQ(Column("CategoryID", line), category);
  EXPECT_EQ(
      Number("SELECT PayeeID FROM tblSchedule WHERE ScheduleID = " + std::to_string(schedule)),
      payee);
  EXPECT_TRUE(ledger_.DeletePayee(payee_)) << "nothing uses the source any more";
  ledger_.MergePayees(payee, payee);
  ledger_.MergePayees(payee, 0);
  EXPECT_EQ(Column("PayeeID", key), payee);
}

TEST_F(Reference, MergingIntoNothingChangesNothing) {
  const std::int64_t row = Add(bank_, -5);
  ledger_.MergeCategories(category_, 999999);
  ledger_.MergePayees(payee_, 999999);
  EXPECT_EQ(ledger_.ReadTransaction(row)->categoryId, category_);
  EXPECT_EQ(ledger_.ReadTransaction(row)->payeeId, payee_);
}

}  // namespace
}  // namespace corvanta
