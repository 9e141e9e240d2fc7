#pragma once

#include "ledger/Warning.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "support/Contents.h"
#include "support/LedgerProblems.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace corvanta {

// A data file with the reference rows alone and a ledger on it, which must be sound at the end.
class ReferenceTest : public testing::Test {
 protected:
  ReferenceTest() { ledger_.Undo().Start(); }
  void TearDown() override { EXPECT_EQ(LedgerProblems(Store()), std::vector<std::string>()); }

  TestPlatform& Machine() { return store_.platform; }
  Platform& Services() { return store_.platform.Get(); }
  ScriptedPrompts& Prompt() { return store_.platform.prompts; }
  Connection& Store() { return store_.Db(); }

  [[nodiscard]] std::int64_t Count(const std::string& from) {
    return store_.Number("Select Count(*) from " + from);
  }
  [[nodiscard]] std::int64_t CategoryKey(const std::string& name, const std::string& sub = {}) {
    return ledger_.Categories().FindCategory(name, sub);
  }
  // A transaction that uses these rows.
  std::int64_t Use(std::int64_t category, std::int64_t payee, std::int64_t account = 0,
                   std::int64_t payment = 1) {
    TransactionRecord record;
    record.accountId = account != 0 ? account : AnAccount();
    record.categoryId = category;
    record.payeeId = payee;
    record.paymentId = payment;
    record.amount = -10;
    record.date = Machine().clock.Today();
    return ledger_.Transactions().SaveTransaction(record);
  }
  std::int64_t AnAccount(const std::string& name = "Current") {
    AccountRecord record;
    record.account = name;
    record.accountTypeId = 1;
    record.currencyId = 17;
    return ledger_.Accounts().FindOrCreateAccount(record);
  }
  // All that the editors can write, as one text.
  [[nodiscard]] std::string Everything() {
    return ContentsOf(Store(), {"tblAccounts", "tblAccountType", "tblBank", "tblCategory",
                                "tblPayees", "tblPayments", "tblKeywords", "tblTransactions"});
  }

  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
};

inline std::string Characters(std::size_t count) {
  return std::string(count, 'x');
}

// Names that would be code, or would be cut, if anything were careless.
inline const std::vector<std::string> kNastyNames = {
    "O'Brien & \"Sons\"", "100% [sale] _*?#", "'; DROP TABLE tblPayees; --",
    "🦊 Fuchs",         "מכולת השכונה",     "&Ampersand:colon"};

}  // namespace corvanta
