#include "invest/holdings/Holdings.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/investments/RateSource.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/SchedulePosting.h"
#include "ledger/transactions/KeywordBook.h"
#include "platform/Files.h"
#include "safety/ArchiveEditor.h"
#include "safety/SafetyTest.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"
#include "store/sql/UndoLog.h"
#include "support/LedgerProblems.h"
#include "support/ScriptedRates.h"

namespace corvanta {
namespace {

class Archives : public SafetyTest {
 protected:
  Archives() {
    Connection& db = store_.Db();
    for (const char* table : {"tblTransactions", "tblSchedule", "tblKeywordLink"}) {
      db.Execute("Delete from " + std::string(table));
    }
    savings_ = AddAccount("Savings");
    broker_ = AddAccount("Broker");
    AddInvestments();
  }
  ~Archives() override { EXPECT_EQ(LedgerProblems(store_.Db()), std::vector<std::string>{}); }

  std::int64_t AddAccount(const char* name) {
    AccountRecord record;
    record.account = name;
    record.accountTypeId = 2;
    record.currencyId = 17;
    record.openingBalance = 10;
    return ledger_.Accounts().SaveAccount(record);
  }
  void AddInvestments() { acme_ = ledger_.Investments().FindOrCreateInvestment("Acme", "AC", 17); }
  // `others` are columns and values that follow.
  std::int64_t Add(std::int64_t account, double amount, const char* day,
                   const std::string& columns = {}, const std::string& values = {}) {
    store_.Db().Execute(
        "INSERT INTO tblTransactions (AccountID,[Amount],[Date],CategoryID,PaymentID,PayeeID" +
        columns + ") VALUES (" + SqlNumber(account) + "," + SqlNumber(amount) + "," +
        SqlDate(*Date::FromIso(day)) + ",2,1,1" + values + ")");
    return store_.Number("Select Max(TransactionID) from tblTransactions");
  }
  void Trade(InvestAction action, const char* day, double shares, double price) {
    InvestmentTransaction row;
    row.accountId = broker_;
    row.payeeId = acme_;
    row.action = action;
    row.shares = shares;
    row.price = price;
    row.total = action == InvestAction::AddShares ? 0 : shares * price;
    row.date = *Date::FromIso(day);
    ledger_.Investments().SaveInvestmentTransaction(row);
  }
  // Files that are kept in the data file, by the transactions that they are attached to.
  void KeepInside(const std::vector<std::pair<std::int64_t, int>>& files) {
    Connection& db = store_.Db();
    if (db.Table("own_AttachedFiles") == nullptr) {
      db.Execute(
          "CREATE TABLE own_AttachedFiles (FileID Counter, Bytes INT DEFAULT 0, Content MEMO, "
          "CONSTRAINT PK_AttachedFiles PRIMARY KEY(FileID))");
    }
    for (const auto& [transaction, file] : files) {
      db.Execute("INSERT INTO own_AttachedFiles (FileID,Content) VALUES (" + std::to_string(file) +
                 ",'bytes')");
      AttachmentRecord row{0, transaction, "a.pdf", "", "inside:" + std::to_string(file)};
      ledger_.Notes().Files().AddRow(row);
    }
  }
  std::pair<std::int64_t, std::int64_t> AddTransfer(const char* day) {
    const std::int64_t from = Add(1, -50, day);
    const std::int64_t to = Add(savings_, 50, day, ",TransferID", "," + SqlNumber(from));
    store_.Db().Execute("UPDATE tblTransactions SET TransferID = " + SqlNumber(to) +
                        " WHERE TransactionID = " + SqlNumber(from));
    return {from, to};
  }
  ArchiveForm Form(std::vector<std::int64_t> accounts) {
    return {path_, Date::FromYmd(2026, 1, 1), std::move(accounts), false};
  }
  ArchivePlan Plan(const ArchiveForm& form) {
    return PlanArchive(form, ledger_, store_.platform.Get());
  }
  ArchivePlan Archive(const ArchiveForm& form) {
    const auto before = AccountBalances(store_.Db());
    const ArchivePlan plan = Plan(form);
    ArchiveWriter(ledger_, File(), store_.platform.Get(), writer_).Write(plan, path_);
    EXPECT_TRUE(SameBalances(before, AccountBalances(store_.Db())));
    const auto old = Connect(path_);
    EXPECT_EQ(LedgerProblems(*old), std::vector<std::string>{});
    return plan;
  }
  std::int64_t InArchive(const std::string& sql) { return NumberIn(path_, sql); }

  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
  std::string path_ = store_.platform.folder.Path("data/Old.dat");
  std::int64_t savings_ = 0;
  std::int64_t broker_ = 0;
  std::int64_t acme_ = 0;
};

TEST_F(Archives, RowsMoveWithAllThatBelongsToThemAndBalancesStay) {
  const std::int64_t split = Add(1, -30, "2025-03-01", ",BankChk,BankRec", ",1,1");
  for (const double part : {-10.0, -20.0}) {
    Add(1, part, "2025-03-01", ",AllocatedItem", "," + SqlNumber(split));
  }
  const std::int64_t late = Add(1, -5, "2026-01-01");
  Add(savings_, 99, "2025-01-01");
  KeywordRecord word{0, "Holiday"};
  ledger_.Notes().SaveKeyword(word);
  AttachmentRecord bill{0, split, "bill.pdf", "/bills/bill.pdf", ""};
  ledger_.Notes().Files().AddRow(bill);
  for (const std::int64_t key : {split, late}) ledger_.Notes().LinkKeyword(word.keywordId, key);
  KeepInside({{split, 1}, {late, 2}});
  const double opening = ledger_.Accounts().ReadAccount(1)->openingBalance;

  const ArchivePlan plan = Archive(Form({1}));
  ASSERT_EQ(plan.accounts.size(), 1U);
  EXPECT_EQ(plan.accounts[0].rows, 1U);
  EXPECT_EQ(plan.accounts[0].newOpening, opening - 30);
  EXPECT_EQ(ledger_.Accounts().ReadAccount(1)->openingBalance, opening - 30);
  EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions"), 2);
  EXPECT_EQ(store_.Number("Select Count(*) from tblKeywordLink"), 1);
  EXPECT_EQ(store_.Number("Select Count(*) from tblAttachments"), 1);
  EXPECT_EQ(store_.Number("Select FileID from own_AttachedFiles"), 2);
  EXPECT_EQ(store_.Number("Select Count(*) from own_AttachedFiles"), 1);
  EXPECT_EQ(InArchive("Select FileID from own_AttachedFiles"), 1);
  EXPECT_EQ(InArchive("Select Count(*) from own_AttachedFiles"), 1);
  EXPECT_EQ(InArchive("Select Count(*) from tblTransactions WHERE BankRec = 1"), 1);
  EXPECT_EQ(
      InArchive("Select Count(*) from tblTransactions WHERE AllocatedItem = " + SqlNumber(split)),
      2);
  EXPECT_EQ(InArchive("Select Count(*) from tblKeywordLink"), 1);
  EXPECT_EQ(InArchive("Select Count(*) from tblAttachments"), 2);
  EXPECT_EQ(InArchive("Select Count(*) from tblAccounts"), 1) << "the chosen ones";
  EXPECT_EQ(InArchive("Select Count(*) from tblKeywords"), 1);
  DataFileOpener opener(store_.platform.Get(), "a test");
  opener.SetDataPath(path_);
  EXPECT_NE(opener.OpenExisting(true).connection, nullptr) << "it opens like any other";
}

TEST_F(Archives, ATransferGoesWithBothHalvesOrStays) {
  AddTransfer("2025-05-05");
  Add(1, -1, "2025-05-06");
  const ArchivePlan one = Plan(Form({1}));
  EXPECT_EQ(one.keys.size(), 1U);
  EXPECT_EQ(one.transfers, 1U);
  EXPECT_EQ(one.accounts[0].stay, 1U);
  Archive(Form({1, savings_}));
  EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions"), 0);
  EXPECT_EQ(InArchive("Select Count(*) from tblTransactions WHERE TransferID <> 0"), 2);
}

TEST_F(Archives, HoldingsKeepTheirUnitsAndCost) {
  for (const char* method : {"Average", "First In First Out"}) {
    SCOPED_TRACE(method);
    store_.Db().Execute("Delete from tblTransactions");
    std::filesystem::remove(path_);
    Set("CostMethod", method);
    Trade(InvestAction::Buy, "2025-01-05", 10, 3);
    Trade(InvestAction::Buy, "2025-02-05", 10, 5);
    Trade(InvestAction::AddShares, "2025-02-06", 4, 0);
    Trade(InvestAction::Sell, "2025-03-05", 6, 7);
    Trade(InvestAction::Sell, "2026-03-05", 3, 8);
    const HoldingsScope scope{broker_, ChosenCostMethod(store_.platform.registry), true, {}};
    const Holding before = ReadHoldings(ledger_, scope).holdings.at(0);
    const ArchivePlan plan = Archive(Form({broker_}));
    EXPECT_EQ(plan.keys.size(), 4U);
    const Holding after = ReadHoldings(ledger_, scope).holdings.at(0);
    EXPECT_NEAR(after.units, before.units, 1e-9);
    EXPECT_NEAR(after.cost, before.cost, 0.005);
    EXPECT_NEAR(after.value, before.value, 0.005);
    EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions WHERE Action = 2"), 1);
    EXPECT_EQ(InArchive("Select Count(*) from tblTransactions"), 4);
  }
}

TEST_F(Archives, WhatCannotBeCarriedOverStays) {
  Trade(InvestAction::Sell, "2025-01-05", 10, 3);
  EXPECT_EQ(Plan(Form({broker_})).held, 1U);
  Trade(InvestAction::Buy, "2025-02-05", 30, 3);
  EXPECT_EQ(Plan(Form({broker_})).keys.size(), 2U);
  store_.Db().Execute("UPDATE tblAccounts SET CloseAccount = 1 WHERE Account = 'Broker'");
  EXPECT_EQ(Plan(Form({broker_})).held, 2U);
}

TEST_F(Archives, PaymentsOfASchedulePostNoSecondTime) {
  ScheduleRecord record;
  record.accountId = 1;
  record.categoryId = 2;
  record.paymentId = 1;
  record.payeeId = 1;
  for (const PeriodRecord& period : ledger_.References().Periods()) {
    if (period.period == "m") record.periodId = period.periodId;
  }
  record.amount = -7;
  record.dateFrom = *Date::FromYmd(2025, 10, 3);
  record.addToAccount = AddToAccount::WhenDue;
  const std::int64_t rent = ledger_.Schedules().SaveSchedule(record);
  SetToday(2026, 2, 10);
  ScriptedRates rates;
  SchedulePosting posting(ledger_, store_.platform.Get(), rates);
  const std::int64_t rows = [&] {
    posting.PostSchedules();
    return store_.Number("Select Count(*) from tblTransactions");
  }();
  if (rows == 0) GTEST_SKIP() << "nothing is due";
  const ArchivePlan plan = Archive(Form({1}));
  EXPECT_EQ(plan.scheduled, 0U);
  EXPECT_EQ(posting.PostSchedules().occurrences, 0U);
  EXPECT_EQ(InArchive("Select Count(*) from tblSchedule"), 0) << "an archive does not pay";
  // Where a payment before it is not made, the row stays.
  std::filesystem::remove(path_);
  store_.Db().Execute("Delete from tblTransactions");
  store_.Db().Execute("UPDATE tblSchedule SET DateFrom = #10/03/2025#, NoTimes = 0");
  Add(1, -7, "2025-11-03", ",BankSch,[ScheduleDate]",
      "," + SqlNumber(rent) + "," + SqlDate(*Date::FromYmd(2025, 11, 3)));
  EXPECT_EQ(Plan(Form({1})).scheduled, 1U);
}

TEST_F(Archives, AreOneStepThatCanBeTakenBack) {
  ledger_.Undo().Start();
  Add(1, -30, "2025-03-01");
  const double opening = ledger_.Accounts().ReadAccount(1)->openingBalance;
  Archive(Form({1}));
  EXPECT_EQ(ledger_.Undo().UndoName(), "Archive");
  ledger_.Undo().Undo();
  EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions"), 1);
  EXPECT_EQ(ledger_.Accounts().ReadAccount(1)->openingBalance, opening);
}

TEST_F(Archives, TheEditorRefusesAsksAndTells) {
  SetToday(2026, 11, 22);
  ArchiveEditor editor(ledger_, File(), store_.platform.Get(), writer_);
  ArchiveForm form = editor.Load();
  EXPECT_EQ(form.before, Date::FromYmd(2025, 1, 1));
  EXPECT_EQ(form.path, store_.platform.folder.Path("data/Corvanta until 2024.dat"));
  EXPECT_EQ(editor.Check(form), std::nullopt);
  form.before = Date::FromYmd(2026, 11, 23);
  EXPECT_EQ(editor.Check(form)->field, "dtBefore");
  form = Form({});
  EXPECT_EQ(editor.Check(form)->field, "lvAccounts");
  form = Form({1});
  form.path = store_.Path();
  EXPECT_EQ(editor.Check(form)->field, "txtArchive") << "the data file itself, or any other";
  auto& prompts = store_.platform.prompts;
  prompts.ExpectTell("Archive", "There are no transactions before that day to archive.\n");
  EXPECT_FALSE(editor.Save(Form({1})));
  Add(1, -30, "2025-03-01");
  Add(1, -3, "2025-03-02", ",BankChk,BankRec", ",1,1");
  form = Form({1});
  form.onlyReconciled = true;
  prompts.ExpectAsk("Archive", ScriptedPrompts::kAnyText, false);
  EXPECT_FALSE(editor.Save(form));
  EXPECT_FALSE(FileExists(path_));
  prompts.ExpectAsk("Archive",
                    "1 row of transactions before 01/01/2026 moves into " + path_ +
                        ". Every balance stays as it is.\n1 row of transactions stays: no balanced "
                        "statement holds them.\nDo you wish to continue?",
                    true);
  prompts.ExpectTell("Archive", ScriptedPrompts::kAnyText);
  EXPECT_TRUE(editor.Save(form));
  EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions"), 1);
}

// A balance that would not be as it was must not come about.
TEST_F(Archives, NothingIsArchivedWhereABalanceWouldChange) {
  Add(1, -30, "2025-03-01");
  ArchivePlan plan = Plan(Form({1}));
  plan.accounts[0].newOpening += 1;
  ArchiveWriter writer(ledger_, File(), store_.platform.Get(), writer_);
  EXPECT_THROW(writer.Write(plan, path_), StoreError);
  EXPECT_FALSE(FileExists(path_));
  EXPECT_EQ(store_.Number("Select Count(*) from tblTransactions"), 1);
}

}  // namespace
}  // namespace corvanta
