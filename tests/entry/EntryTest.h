#pragma once

#include "ledger/Warning.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/schedules/ScheduleBook.h"
#include "ledger/schedules/ScheduleRecord.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "support/Contents.h"
#include "support/LedgerProblems.h"
#include "support/ScriptedRates.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace corvanta {

// A data file with two accounts in pounds and one in euro, and a ledger on it, which must be sound
// at the end.
class EntryTest : public testing::Test {
 protected:
  EntryTest() {
    ledger_.Undo().Start();
    bank_ = AddAccount("Bank", "GBP");
    cash_ = AddAccount("Cash", "GBP");
    euro_ = AddAccount("Euro", "EUR");
  }
  void TearDown() override { EXPECT_EQ(LedgerProblems(store_.Db()), std::vector<std::string>()); }

  [[nodiscard]] Platform& Services() { return store_.platform.Get(); }
  [[nodiscard]] ScriptedPrompts& Prompt() { return store_.platform.prompts; }
  [[nodiscard]] Date Today() { return store_.platform.clock.Today(); }

  std::int64_t AddAccount(const std::string& name, const std::string& currency) {
    AccountRecord record;
    record.account = name;
    record.accountTypeId = 1;
    for (const CurrencyRecord& row : ledger_.References().Currencies()) {
      if (row.currency == currency) record.currencyId = row.currencyId;
    }
    return ledger_.Accounts().SaveAccount(record);
  }
  void CloseAccount(std::int64_t key) {
    auto record = ledger_.Accounts().ReadAccount(key);
    record->closed = true;
    ledger_.Accounts().SaveAccount(*record);
  }
  // A row of the payee "Grocer", paid by "Card", of the category "Shopping:Food".
  std::int64_t AddRow(std::int64_t account, double amount, std::int64_t parent = 0) {
    TransactionRecord record;
    record.accountId = account;
    record.categoryId = ledger_.Categories().FindCategory("Shopping", "Food");
    record.payeeId = ledger_.References().FindOrCreatePayee("Grocer");
    record.paymentId = ledger_.References().FindOrCreatePayment("Card");
    record.amount = amount;
    record.date = Today();
    record.allocatedItem = parent;
    return ledger_.Transactions().SaveTransaction(record);
  }
  std::int64_t AddSchedule(double amount) {
    ScheduleRecord record;
    record.accountId = bank_;
    record.categoryId = ledger_.Categories().FindCategory("Shopping", "Food");
    record.payeeId = ledger_.References().FindOrCreatePayee("Grocer");
    record.paymentId = ledger_.References().FindOrCreatePayment("Card");
    record.periodId = 6;
    record.amount = amount;
    record.dateFrom = Today();
    return ledger_.Schedules().SaveSchedule(record);
  }
  [[nodiscard]] TransactionDetails Row(std::int64_t key) {
    auto row = ledger_.Transactions().ReadTransaction(key);
    EXPECT_TRUE(row) << key;
    return row.value_or(TransactionDetails());
  }
  [[nodiscard]] std::int64_t Count(const std::string& from) {
    return store_.Number("Select Count(*) from " + from);
  }
  // All that entries can write, as one text.
  [[nodiscard]] std::string Everything() {
    return ContentsOf(
        store_.Db(), {"tblTransactions", "tblSchedule", "tblCategory", "tblPayees", "tblPayments"});
  }
  // One rule after the other: a row breaks its own and some that come later.
  struct Broken {
    std::optional<Warning> warning;
    std::string text;
    std::string field;
    std::string title = "Save Warning";
  };
  static void ExpectWarnings(const std::vector<Broken>& rows) {
    for (const Broken& row : rows) {
      ASSERT_TRUE(row.warning) << row.text;
      EXPECT_EQ(row.warning->text, row.text);
      EXPECT_EQ(row.warning->field, row.field) << row.text;
      EXPECT_EQ(row.warning->title, row.title) << row.text;
    }
  }

  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
  ScriptedRates rates_;
  std::int64_t bank_ = 0;
  std::int64_t cash_ = 0;
  std::int64_t euro_ = 0;
};

// In characters, not bytes.
inline std::string Umlauts(std::size_t count) {
  std::string text;
  while (count-- > 0) text += "ü";
  return text;
}

}  // namespace corvanta
