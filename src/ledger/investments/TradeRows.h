#pragma once

#include "ledger/investments/InvestmentRecord.h"
#include "ledger/register/RowFilter.h"
#include "ledger/register/StatusFilter.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// An investment transaction without its texts. Amounts in the account's currency.
struct TradeEntry {
  std::int64_t transactionId = 0;
  Date date;
  std::int64_t accountId = 0;
  std::int64_t payeeId = 0;  // the investment
  InvestAction action = InvestAction::Buy;
  double dividend = 0;
  double shares = 0;
  double price = 0;  // of one share
  double commission = 0;
  double amount = 0;  // as the account has it, money out negative
  int bankChk = 0;
  int bankRec = 0;
};

// The investment transactions of all accounts, of any number: what they are sorted by is read at
// once, in one visit without joins, and the rest of a row when it is looked at.
//
// Rows are counted from 0, the newest. Reading throws StoreError.
class TradeRows {
 public:
  struct Account {
    std::string name;
    std::string currency;  // its code; empty for an unknown one
    bool isClosed = false;
  };
  struct Investment {
    std::string name;
    std::string symbol;
  };

  // Those of the statuses, and among them those that `rows` chooses. The connection outlives this
  // object.
  TradeRows(Connection& store, const StatusFilter& filter, const RowFilter& rows = {});

  // Whether the row filter has left some out.
  [[nodiscard]] bool HasHidden() const { return hasHidden_; }
  [[nodiscard]] const std::vector<TradeEntry>& Entries() const { return entries_; }
  [[nodiscard]] const Account& AccountOf(const TradeEntry& entry) const;
  [[nodiscard]] const Investment& InvestmentOf(const TradeEntry& entry) const;
  // The rows whole, in the order given. One that is gone has no description.
  [[nodiscard]] std::vector<InvestmentTransactionRow> Read(
      const std::vector<std::size_t>& rows) const;
  // The descriptions of all rows.
  [[nodiscard]] std::vector<std::string> Descriptions() const;

 private:
  void ReadNames();
  void ReadEntries(const StatusFilter& filter);
  void KeepTo(const RowFilter& rows);
  [[nodiscard]] InvestmentTransactionRow RowFrom(const TradeEntry& entry) const;

  Connection& store_;
  std::unordered_map<std::int64_t, Account> accounts_;
  std::unordered_map<std::int64_t, Investment> investments_;
  std::vector<TradeEntry> entries_;
  bool hasHidden_ = false;
};

}  // namespace corvanta::inline ledger
