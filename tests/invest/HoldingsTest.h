#pragma once

#include "invest/holdings/Holdings.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/InvestmentBook.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace corvanta {

inline constexpr std::int64_t kPounds = 17;
inline constexpr std::int64_t kEuros = 43;

// Accounts and investments with their rows and prices, on a data file of their own.
class HoldingsTest : public testing::Test {
 protected:
  static Date Day(const char* iso) { return Date::FromIso(iso).value(); }

  std::int64_t AddAccount(const std::string& name, std::int64_t currency = kPounds) {
    store_.Db().Execute(
        "INSERT INTO tblAccounts ([Account],AccountTypeID,CurrencyId,OpeningBalance) VALUES (" +
        SqlText(name) + ",1," + SqlNumber(currency) + ",0)");
    return store_.Number("Select Max(AccountID) from tblAccounts");
  }
  std::int64_t AddInvestment(const std::string& name) {
    return ledger_.Investments().FindOrCreateInvestment(name, name.substr(0, 3), kPounds);
  }
  void AddPrice(std::int64_t payee, const char* day, double price) {
    store_.Db().Execute("INSERT INTO tblHistory (PayeeID,[Date],Price) VALUES (" +
                        SqlNumber(payee) + "," + SqlDate(Day(day)) + "," + SqlNumber(price) + ")");
  }
  // With the total that the editor would reckon.
  void Add(InvestAction action, std::int64_t account, std::int64_t payee, Date day, double shares,
           double price = 0, double commission = 0, double dividend = 0) {
    InvestmentTransaction row;
    row.accountId = account;
    row.payeeId = payee;
    row.action = action;
    row.date = day;
    row.shares = shares;
    row.price = price;
    row.commission = commission;
    row.dividend = dividend;
    if (action == InvestAction::Buy) row.total = shares * price + commission;
    if (action == InvestAction::Sell) row.total = shares * price - commission;
    if (action == InvestAction::Dividend) row.total = dividend - commission;
    if (action == InvestAction::ReinvestDividend) {
      row.total = dividend - (shares * price + commission);
    }
    ledger_.Investments().SaveInvestmentTransaction(row);
  }
  HoldingsList Read(CostMethod method, bool withSold = false,
                    std::optional<Period> period = std::nullopt) {
    return ReadHoldings(ledger_, {0, method, withSold, period});
  }

  TemporaryStore store_{StoreContent::Default};
  clsCorvanta ledger_{store_.Db(), store_.platform.Get()};
};

}  // namespace corvanta
