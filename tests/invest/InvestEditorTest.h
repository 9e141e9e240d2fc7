#pragma once

#include "invest/InvestEditor.h"
#include "invest/InvestTransEditor.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "store/sql/Connection.h"
#include "store/sql/UndoLog.h"
#include "support/LedgerProblems.h"
#include "support/ScriptedRates.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace corvanta {

// A data file with two accounts, in pounds and in euro, and an investment, which must be sound at
// the end.
class InvestEditorTest : public testing::Test {
 protected:
  static constexpr std::int64_t kPounds = 17;
  static constexpr std::int64_t kEuros = 43;
  static constexpr std::int64_t kByHand = 7;  // the source without an address

  InvestEditorTest() {
    ledger_.Undo().Start();
    broker_ = AddAccount("Broker", kPounds);
    euro_ = AddAccount("Euro Broker", kEuros);
    acme_ = AddInvestment("Acme's Works", "ACM");
  }
  void TearDown() override { EXPECT_EQ(LedgerProblems(Store()), std::vector<std::string>()); }

  TestPlatform& Machine() { return store_.platform; }
  Platform& Services() { return store_.platform.Get(); }
  ScriptedPrompts& Prompt() { return store_.platform.prompts; }
  Connection& Store() { return store_.Db(); }
  InvestmentBook& Investments() { return ledger_.Investments(); }

  std::int64_t AddAccount(const std::string& name, std::int64_t currency) {
    AccountRecord record;
    record.account = name;
    record.accountTypeId = 1;
    record.currencyId = currency;
    return ledger_.Accounts().SaveAccount(record);
  }
  void CloseAccount(std::int64_t key) {
    auto record = ledger_.Accounts().ReadAccount(key);
    record->closed = true;
    ledger_.Accounts().SaveAccount(*record);
  }
  [[nodiscard]] static InvestmentRecord Record(const std::string& name, const std::string& symbol) {
    InvestmentRecord record;
    record.investment = name;
    record.symbol = symbol;
    record.currencyId = kPounds;
    record.investCurrencyId = kPounds;
    record.dataId = kByHand;
    return record;
  }
  std::int64_t AddInvestment(const std::string& name, const std::string& symbol) {
    InvestmentRecord record = Record(name, symbol);
    return Investments().SaveInvestment(record);
  }
  void AddPrice(std::int64_t investment, const std::string& day, double price) {
    Store().Execute("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" +
                    std::to_string(investment) + ",#" + day + "#," + std::to_string(price) + ")");
  }
  // Ten shares at 5.00, bought for 52.00.
  std::int64_t Buy(std::int64_t account) {
    InvestmentTransaction row;
    row.accountId = account;
    row.payeeId = acme_;
    row.action = InvestAction::Buy;
    row.shares = 10;
    row.price = 5;
    row.commission = 2;
    row.total = 52;
    row.date = Machine().clock.Today();
    return Investments().SaveInvestmentTransaction(row);
  }
  [[nodiscard]] TransactionDetails Read(std::int64_t key) {
    return ledger_.Transactions().ReadTransaction(key).value_or(TransactionDetails());
  }
  [[nodiscard]] std::int64_t Count(const std::string& from) {
    return store_.Number("Select Count(*) from " + from);
  }
  [[nodiscard]] std::int64_t LastKey() {
    return store_.Number("Select Max(TransactionID) from tblTransactions");
  }

  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
  ScriptedRates rates_{1.25};
  std::int64_t broker_ = 0;
  std::int64_t euro_ = 0;
  std::int64_t acme_ = 0;
};

}  // namespace corvanta
