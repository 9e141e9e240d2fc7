#include "ledger/accounts/AccountBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/KeywordBook.h"
#include "reference/AccountEditor.h"
#include "reference/CategoryEditor.h"
#include "reference/ReferenceEditor.h"
#include "reference/ReferenceTest.h"

namespace corvanta {
namespace {

constexpr const char* kSave = "Save Warning";
constexpr const char* kTwice = "Duplicate Record";

// A row breaks one rule and, where there is one, a later one.
template <typename Form>
struct Broken {
  Form form;
  std::string title;
  std::string text;
  std::string field;
};

class EditorRules : public ReferenceTest {
 protected:
  template <typename Editor, typename Form>
  static void ExpectWarnings(Editor& editor, const std::vector<Broken<Form>>& rows) {
    for (const Broken<Form>& row : rows) {
      const auto warning = editor.Check(row.form);
      ASSERT_TRUE(warning) << row.text;
      EXPECT_EQ(warning->title, row.title) << row.text;
      EXPECT_EQ(warning->text, row.text);
      EXPECT_EQ(warning->field, row.field) << row.text;
    }
  }
};

AccountForm Account(const std::string& name, const std::string& group, const std::string& bank,
                    std::int64_t currency) {
  AccountForm form;
  form.account = name;
  form.accountGroup = group;
  form.bank = bank;
  form.currencyId = currency;
  return form;
}

TEST_F(EditorRules, OfAccountsHoldInTheirOrder) {
  AnAccount("Savings");
  AccountEditor editor(ledger_, Services());
  AccountForm noNumber = Account("Account:x", "g", "none", 17);
  noNumber.account = "Cash";
  noNumber.openingBalance = std::nullopt;
  noNumber.accountNo = Characters(51);
  AccountForm longNumber = Account("savings", "g", "none", 17);
  longNumber.accountNo = Characters(51);
  AccountForm longText = Account("savings", "g", "none", 17);
  longText.description = Characters(256);
  const std::string before = Everything();
  ExpectWarnings<AccountEditor, AccountForm>(
      editor,
      {{Account(" ", "", "", 0), kSave, "You need to enter an Account", "txtAccount"},
       {Account("A", " ", Characters(101), 0), kSave, "You need to enter an Account Group",
        "cmbAccountType"},
       {Account("A", Characters(101), Characters(101), 0), kSave,
        "Account Group must be less than 100 characters long", "cmbAccountType"},
       {Account("A", "g", Characters(101), 0), kSave, "Bank must be less than 100 characters long",
        "cmbBank"},
       {Account("savings", "g", "", 0), kSave, "You need to select a Currency", "cmbCurrency"},
       {Account(Characters(101), "g", "", 17), kSave,
        "Account must be less than 100 characters long", "txtAccount"},
       {Account(" ACCOUNT:Savings", "g", "", 17), kSave, "You can not select this as an Account",
        "txtAccount"},
       {Account("<import all accounts automatically>", "g", "", 17), kSave,
        "You can not select this as an Account", "txtAccount"},
       {noNumber, kSave, "You need to enter a valid Opening Balance", "txtOpeningBalance"},
       {longNumber, kSave, "The text is too long: AccountNo holds at most 50 characters.",
        "txtAccountNo"},
       {longText, kSave, "The text is too long: Description holds at most 255 characters.",
        "txtDescription"},
       {Account(" SAVINGS ", "g", "", 17), kTwice, "Account already exists", "txtAccount"}});
  EXPECT_EQ(Everything(), before);
}

TEST_F(EditorRules, OfCategoriesHoldInTheirOrder) {
  CategoryEditor editor(ledger_, Prompt());
  const std::string longName = Characters(101);
  const std::string before = Everything();
  ExpectWarnings<CategoryEditor, CategoryForm>(
      editor,
      {{{0, " ", longName, 0, 5, 0, {}}, kSave, "You need to enter a Category", "cmbCategory"},
       {{0, longName, longName, 0, 5, 0, {}},
        kSave,
        "Category must be less than 100 characters long",
        "cmbCategory"},
       {{0, "Car", longName, 0, 5, 0, {}},
        kSave,
        "Sub Category must be less than 100 characters long",
        "txtSubCategory"},
       {{0, "Car", "", 0, std::nullopt, 0, {}},
        kSave,
        "You need to enter a valid Budget",
        "txtBudget"},
       {{0, "Car", "", -1, 1e14, 5, {}}, kSave, "You need to enter a valid Budget", "txtBudget"},
       {{0, "Car", "", 0, 5, 0, {}},
        kSave,
        "You need to enter a Budget Type, when setting a budget",
        "cmbType"},
       {{0, "Car", "", -1, 5, 0, {}},
        kSave,
        "You need to select a Budget Period, when setting a budget",
        "cmbPeriod"},
       {{0, "Car", "", 0, 0, 0, Characters(256)},
        kSave,
        "The text is too long: Description holds at most 255 characters.",
        "txtDescription"},
       {{1, "Car", "", 0, 0, 0, {}},
        kSave,
        "The Category 'Credit' is needed by the program and keeps its name",
        "cmbCategory"},
       {{0, "car", "", -1, 5, 6, {}}, kTwice, "Category already exists", "cmbCategory"},
       {{0, "CAR", " petrol", 0, 0, 0, {}},
        kTwice,
        "Sub category already exists",
        "txtSubCategory"}});
  EXPECT_FALSE(editor.Check({CategoryKey("Car"), "CAR", "", -1, 0, 0, {}}))
      << "a row is no duplicate of itself";
  EXPECT_EQ(Everything(), before);
}

TEST_F(EditorRules, OfSingleNamesHoldInTheirOrder) {
  ledger_.References().FindOrCreatePayee("Grocer");
  ledger_.Notes().FindOrCreateKeyword("Holiday");
  ReferenceEditor<AccountGroupRecord> groups(ledger_, Prompt());
  ReferenceEditor<BankRecord> banks(ledger_, Prompt());
  ReferenceEditor<PayeeRecord> payees(ledger_, Prompt());
  ReferenceEditor<PaymentRecord> payments(ledger_, Prompt());
  ReferenceEditor<KeywordRecord> keywords(ledger_, Prompt());
  const std::string longName = Characters(101);
  const std::string longText = Characters(256);
  const std::string tooLong = "The text is too long: Description holds at most 255 characters.";
  const std::string before = Everything();
  ExpectWarnings<ReferenceEditor<AccountGroupRecord>, AccountGroupRecord>(
      groups,
      {{{0, " ", longText}, kSave, "You need to enter an Account Group", "txtAccountType"},
       {{0, longName, longText},
        kSave,
        "Account Group must be less than 100 characters long",
        "txtAccountType"},
       {{0, "cash accounts", longText}, kSave, tooLong, "txtDescription"},
       {{0, "cash accounts", ""}, kTwice, "Account group already exists", "txtAccountType"}});
  ExpectWarnings<ReferenceEditor<PayeeRecord>, PayeeRecord>(
      payees,
      {{{0, "", longText}, kSave, "You need to enter a Payee", "txtPayee"},
       {{0, longName, longText}, kSave, "Payee must be less than 100 characters long", "txtPayee"},
       {{0, "grocer", longText}, kSave, tooLong, "txtDescription"},
       {{0, "grocer", ""}, kTwice, "Payee already exists", "txtPayee"}});
  ExpectWarnings<ReferenceEditor<PaymentRecord>, PaymentRecord>(
      payments, {{{0, "", longText}, kSave, "You need to enter a Payment Type", "txtPayment"},
                 {{0, longName, longText},
                  kSave,
                  "Payment Type must be less than 100 characters long",
                  "txtPayment"},
                 {{1, "Cash", ""},
                  kSave,
                  "The Payment Type 'Import' is needed by the program and keeps its name",
                  "txtPayment"},
                 {{0, "IMPORT", ""}, kTwice, "Payment type already exists", "txtPayment"}});
  ExpectWarnings<ReferenceEditor<KeywordRecord>, KeywordRecord>(
      keywords,
      {{{0, ""}, kSave, "You need to enter a Keyword", "txtKeyword"},
       {{0, longName}, kSave, "Keyword must be less than 100 characters long", "txtKeyword"},
       {{0, "HOLIDAY"}, kTwice, "Keyword already exists", "txtKeyword"}});
  BankRecord bank;
  bank.sortcode = Characters(51);
  ExpectWarnings<ReferenceEditor<BankRecord>, BankRecord>(
      banks, {{bank, kSave, "You need to enter a Bank", "txtBank"}});
  bank.bank = "halifax";
  ExpectWarnings<ReferenceEditor<BankRecord>, BankRecord>(
      banks, {{bank, kSave, "The text is too long: Sortcode holds at most 50 characters.",
               "txtSortcode"}});
  bank.sortcode.clear();
  ExpectWarnings<ReferenceEditor<BankRecord>, BankRecord>(
      banks, {{bank, kTwice, "Bank already exists", "txtBank"}});
  EXPECT_EQ(Everything(), before);
}

TEST_F(EditorRules, AHundredCharactersAreSavedWhateverTheirBytes) {
  std::string name;
  for (int count = 0; count < 100; ++count) name += "🦊";
  ReferenceEditor<PayeeRecord> payees(ledger_, Prompt());
  EXPECT_FALSE(payees.Check({0, name, ""}));
  const std::int64_t key = payees.Save({0, name, ""});
  EXPECT_EQ(payees.Load(key)->payee, name);
  CategoryEditor categories(ledger_, Prompt());
  const CategoryForm form{0, Characters(100), Characters(100), -1, 0, 0, {}};
  EXPECT_FALSE(categories.Check(form));
  EXPECT_EQ(categories.Load(categories.Save(form))->subCategory, Characters(100));
}

TEST_F(EditorRules, NamesAreNeverCode) {
  AccountEditor accounts(ledger_, Services());
  ReferenceEditor<AccountGroupRecord> groups(ledger_, Prompt());
  ReferenceEditor<PayeeRecord> payees(ledger_, Prompt());
  CategoryEditor categories(ledger_, Prompt());
  for (const std::string& name : kNastyNames) {
    SCOPED_TRACE(name);
    AccountForm account = Account(name, name, name, 17);
    ASSERT_FALSE(accounts.Check(account));
    account = *accounts.Load(accounts.Save(account));
    EXPECT_EQ(account.account, name);
    EXPECT_EQ(account.accountGroup, name);
    EXPECT_EQ(account.bank, name);
    EXPECT_FALSE(accounts.Check(account)) << "it is no duplicate of itself";
    EXPECT_EQ(groups.Check({0, name, ""})->title, kTwice);
    ASSERT_FALSE(payees.Check({0, name, name}));
    const std::int64_t payee = payees.Save({0, name, name});
    EXPECT_EQ(payees.Load(payee)->description, name);
    EXPECT_EQ(payees.Check({0, name, ""})->title, kTwice);
    const std::int64_t category = categories.Save({0, name, name, 1, 0, 0, name});
    EXPECT_EQ(categories.Load(category)->subCategory, name);
    EXPECT_EQ(categories.Check({0, name, name, 1, 0, 0, {}})->title, kTwice);
  }
  EXPECT_EQ(Count("tblAccounts"), static_cast<std::int64_t>(kNastyNames.size()));
}

TEST_F(EditorRules, RowsOfOneNameFromAnImportStayEditable) {
  for (int copy = 0; copy < 2; ++copy) {
    Store().Execute("INSERT INTO tblPayees (Payee, Investment) VALUES('Twin',0)");
  }
  ReferenceEditor<PayeeRecord> payees(ledger_, Prompt());
  PayeeRecord row = *payees.Load(ledger_.References().FindOrCreatePayee("Twin"));
  row.description = "the first";
  EXPECT_FALSE(payees.Check(row));

  Store().Execute("INSERT INTO tblAccountType (AccountType) VALUES('Cash Accounts')");
  ReferenceEditor<AccountGroupRecord> groups(ledger_, Prompt());
  EXPECT_EQ(groups.Check(*groups.Load(2))->text, "Account group already exists")
      << "two groups of one name are no use to anyone";
}

TEST_F(EditorRules, AnAccountBringsItsGroupAndBankAndOneUndoTakesAllBack) {
  AccountEditor editor(ledger_, Services());
  const std::string before = Everything();
  EXPECT_EQ(editor.New().currencyId, 17) << "the pound, of a British locale";
  EXPECT_EQ(editor.New().bank, "none");
  EXPECT_EQ(editor.New().accountGroup, "Bank Accounts") << "of the first one";
  AccountForm form = Account("Purse", "Pockets", "My Bank", 17);
  form.openingBalance = -12.5;
  form.closed = true;
  form = *editor.Load(editor.Save(form));
  EXPECT_EQ(form.accountGroup, "Pockets");
  EXPECT_EQ(editor.New().accountGroup, "");
  EXPECT_EQ(form.bank, "My Bank");
  const AccountForm like = editor.New(form.accountId);
  EXPECT_EQ(like.accountGroup + '/' + like.bank, "Pockets/My Bank");
  EXPECT_EQ(like.account + '/' + std::to_string(like.accountId), "/0");
  EXPECT_EQ(*form.openingBalance, -12.5);
  EXPECT_TRUE(form.closed);
  form.bank = "NONE";
  form.accountGroup = "pockets";
  editor.Save(form);
  EXPECT_EQ(ledger_.Accounts().ReadAccount(form.accountId)->bankId, 0);
  EXPECT_EQ(Count("tblAccountType Where AccountType = 'Pockets'"), 1);
  EXPECT_EQ(ledger_.Undo().UndoName(), "Edit Account");
  ledger_.Undo().Undo();
  EXPECT_EQ(ledger_.Undo().UndoName(), "Add Account");
  ledger_.Undo().Undo();
  EXPECT_EQ(Everything(), before);
}

TEST_F(EditorRules, ABankNeedsASavedAccount) {
  EXPECT_FALSE(AccountEditor::CheckAddBank(3));
  const auto warning = AccountEditor::CheckAddBank(0);
  EXPECT_EQ(warning->title, kSave);
  EXPECT_EQ(warning->text,
            "Account details have not been saved. Please save details before continuing");
}

}  // namespace
}  // namespace corvanta
