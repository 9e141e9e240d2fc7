#pragma once

#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/KeywordBook.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "support/LedgerProblems.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace corvanta {

// A ledger with three accounts of its own, in which every test must leave things consistent.
class RecordsTest : public testing::Test {
 protected:
  static constexpr int kPounds = 17;
  static constexpr int kEuros = 43;

  // Syncing memory costs nothing.
  static void SetUpTestSuite() {
    if (::access("/dev/shm", W_OK) == 0) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  static void TearDownTestSuite() { ::unsetenv("TMPDIR"); }

  RecordsTest() {
    bank_ = AddAccount("Bank", 100, kPounds);
    savings_ = AddAccount("Savings", 0, kPounds);
    euros_ = AddAccount("Euros", 0, kEuros);
    payee_ = ledger_.References().FindOrCreatePayee("Shop");
    payment_ = ledger_.References().FindOrCreatePayment("Card");
    category_ = ledger_.Categories().FindCategory("Bills", "Gas");
  }

  void TearDown() override { EXPECT_EQ(LedgerProblems(Db()), std::vector<std::string>{}); }

  Connection& Db() { return store_.Db(); }
  void Run(const std::string& sql) { Db().Execute(sql); }
  std::int64_t Number(const std::string& sql) { return Db().QueryValue(sql).Int(); }
  std::int64_t Count(const std::string& rows) { return Number("SELECT COUNT(*) FROM " + rows); }
  double Amount(std::int64_t key) {
    return Db()
        .QueryValue("SELECT [Amount] FROM tblTransactions WHERE TransactionID = " +
                    std::to_string(key))
        .Double();
  }
  std::int64_t Column(const std::string& column, std::int64_t key) {
    return Number("SELECT [" + column +
                  "] FROM tblTransactions WHERE TransactionID = " + std::to_string(key));
  }
  bool Exists(std::int64_t key) {
    return Count("tblTransactions WHERE TransactionID = " + std::to_string(key)) == 1;
  }

  int CurrencyKey(const std::string& code) {
    return static_cast<int>(
        Number("SELECT CurrencyID FROM tblCurrency WHERE Currency = '" + code + "'"));
  }
  std::int64_t AddAccount(const std::string& name, double opening, int currency) {
    AccountRecord account;
    account.account = name;
    account.accountTypeId = 1;
    account.openingBalance = opening;
    account.currencyId = currency;
    return ledger_.Accounts().SaveAccount(account);
  }

  void CloseAccount(std::int64_t accountId) {
    AccountRecord account = *ledger_.Accounts().ReadAccount(accountId);
    account.closed = true;
    ledger_.Accounts().SaveAccount(account);
  }

  TransactionRecord Row(std::int64_t account, double amount, const char* day = "2026-11-01") {
    TransactionRecord record;
    record.accountId = account;
    record.categoryId = category_;
    record.paymentId = payment_;
    record.payeeId = payee_;
    record.amount = amount;
    record.date = *Date::FromIso(day);
    return record;
  }
  std::int64_t Add(std::int64_t account, double amount, const char* day = "2026-11-01") {
    TransactionRecord record = Row(account, amount, day);
    return ledger_.Transactions().SaveTransaction(record);
  }
  std::int64_t AddLine(std::int64_t parent, double amount) {
    TransactionRecord line = Row(0, amount);
    line.payeeId = 0;
    line.paymentId = 0;
    line.allocatedItem = parent;
    return ledger_.Transactions().SaveTransaction(line);
  }
  std::pair<std::int64_t, std::int64_t> AddTransfer(std::int64_t from, std::int64_t to,
                                                    double amount) {
    TransactionRecord first = Row(from, -amount);
    TransactionRecord second = Row(to, amount);
    ledger_.Transactions().SaveTransfer(first, second);
    return {first.transactionId, second.transactionId};
  }
  void LinkAndAttach(std::int64_t transaction) {
    ledger_.Notes().LinkKeyword(ledger_.Notes().FindOrCreateKeyword("Holiday"), transaction);
    AttachmentRecord file{0, transaction, "bill.pdf", "/home/me/bill.pdf", ""};
    ledger_.Notes().Files().AddRow(file);
  }
  std::int64_t AddSchedule(std::int64_t account, double amount, std::int64_t other = 0,
                           std::int64_t parent = 0) {
    Run("INSERT INTO tblSchedule (AccountID,CategoryID,PaymentID,PayeeID,AllocatedItem,PeriodID,"
        "TfrAccountID,[Amount],Description,DateFrom,NoTimes,AddToAccount) VALUES (" +
        std::to_string(account) + "," + std::to_string(category_) + "," + std::to_string(payment_) +
        "," + std::to_string(payee_) + "," + std::to_string(parent) + ",6," +
        std::to_string(other) + "," + std::to_string(amount) + ",'Rent',#01/01/2026#,0,1)");
    return Number("SELECT MAX(ScheduleID) FROM tblSchedule");
  }

  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
  std::int64_t bank_ = 0;
  std::int64_t savings_ = 0;
  std::int64_t euros_ = 0;
  std::int64_t payee_ = 0;
  std::int64_t payment_ = 0;
  std::int64_t category_ = 0;
};

}  // namespace corvanta
