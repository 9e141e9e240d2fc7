#include "ledger/investments/TradeRows.h"

#include "ledger/KeyLists.h"
#include "ledger/register/RegisterReader.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <tuple>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kIsTrade = "T.[Action] Between 1 AND 6 AND T.AllocatedItem = 0";

bool IsNewer(const TradeEntry& first, const TradeEntry& second) {
  return std::tie(second.date, second.transactionId) < std::tie(first.date, first.transactionId);
}

}  // namespace

TradeRows::TradeRows(Connection& store, const StatusFilter& filter, const RowFilter& rows)
    : store_(store) {
  ReadNames();
  ReadEntries(filter);
  if (!rows.IsEmpty()) KeepTo(rows);
}

void TradeRows::ReadNames() {
  Recordset::Visit(store_,
                   "Select A.AccountID, A.Account, C.Currency, A.CloseAccount from tblAccounts A "
                   "LEFT JOIN tblCurrency C ON C.CurrencyID = A.CurrencyId",
                   [this](const VisitedRow& row) {
                     accounts_[row.Int(0)] = {std::string(row.Text(1)), std::string(row.Text(2)),
                                              row.Int(3) != 0};
                   });
  Recordset::Visit(
      store_, "Select PayeeID, Payee, Symbol from tblPayees Where Investment = 1",
      [this](const VisitedRow& row) {
        investments_[row.Int(0)] = {std::string(row.Text(1)), std::string(row.Text(2))};
      });
}

void TradeRows::ReadEntries(const StatusFilter& filter) {
  const std::string sql =
      "Select T.TransactionID, T.[Date], T.AccountID, T.PayeeID, T.[Action], T.Dividend, T.Shares, "
      "T.Price, T.Commission, T.[Amount], T.BankChk, T.BankRec from tblTransactions T WHERE " +
      filter.Clause() + kIsTrade;
  Recordset::Visit(store_, sql, [this](const VisitedRow& row) {
    if (!accounts_.contains(row.Int(2)) || !investments_.contains(row.Int(3))) return;
    entries_.push_back({row.Int(0), Date::FromIso(row.Text(1).substr(0, 10)).value_or(Date()),
                        row.Int(2), row.Int(3), static_cast<InvestAction>(row.Int(4)),
                        row.Double(5), row.Double(6), row.Double(7), row.Double(8), row.Double(9),
                        static_cast<int>(row.Int(10)), static_cast<int>(row.Int(11))});
  });
  std::ranges::sort(entries_, IsNewer);
}

void TradeRows::KeepTo(const RowFilter& rows) {
  const KeySet chosen = FilteredKeys(store_, rows);
  hasHidden_ = std::erase_if(entries_, [&chosen](const TradeEntry& entry) {
                 return !chosen.Has(entry.transactionId);
               }) > 0;
}

const TradeRows::Account& TradeRows::AccountOf(const TradeEntry& entry) const {
  return accounts_.at(entry.accountId);
}

const TradeRows::Investment& TradeRows::InvestmentOf(const TradeEntry& entry) const {
  return investments_.at(entry.payeeId);
}

InvestmentTransactionRow TradeRows::RowFrom(const TradeEntry& entry) const {
  InvestmentTransactionRow row;
  row.transactionId = entry.transactionId;
  row.accountId = entry.accountId;
  row.payeeId = entry.payeeId;
  row.action = entry.action;
  row.dividend = entry.dividend;
  row.shares = entry.shares;
  row.price = entry.price;
  row.commission = entry.commission;
  row.amount = entry.amount;
  row.total = SignedAmount(entry.action, entry.amount);
  row.date = entry.date;
  row.status = StatusFrom({entry.bankChk, entry.bankRec});
  row.letter = StatusLetter(entry.bankChk, entry.bankRec);
  const Account& account = AccountOf(entry);
  row.account = account.name;
  row.accountClosed = account.isClosed;
  row.currency = account.currency;
  const Investment& investment = InvestmentOf(entry);
  row.investment = investment.name;
  row.symbol = investment.symbol;
  return row;
}

std::vector<InvestmentTransactionRow> TradeRows::Read(const std::vector<std::size_t>& rows) const {
  std::vector<InvestmentTransactionRow> whole;
  whole.reserve(rows.size());
  std::unordered_map<std::int64_t, std::size_t> places;
  std::vector<std::int64_t> keys;
  for (const std::size_t row : rows) {
    const TradeEntry& entry = entries_.at(row);
    places[entry.transactionId] = whole.size();
    keys.push_back(entry.transactionId);
    whole.push_back(RowFrom(entry));
  }
  ForEachKeyList(keys, [&](const std::string& list) {
    Recordset::Visit(
        store_,
        "Select T.TransactionID, T.Description from tblTransactions T WHERE "
        "T.TransactionID IN (" +
            list + ")",
        [&](const VisitedRow& row) { whole[places.at(row.Int(0))].description = row.Text(1); });
  });
  return whole;
}

std::vector<std::string> TradeRows::Descriptions() const {
  std::unordered_map<std::int64_t, std::string> known;
  Recordset::Visit(
      store_,
      std::string("Select T.TransactionID, T.Description from tblTransactions T WHERE ") + kIsTrade,
      [&known](const VisitedRow& row) {
        if (!row.Text(1).empty()) known[row.Int(0)] = row.Text(1);
      });
  std::vector<std::string> texts;
  texts.reserve(entries_.size());
  for (const TradeEntry& entry : entries_) {
    const auto text = known.find(entry.transactionId);
    texts.push_back(text == known.end() ? std::string() : text->second);
  }
  return texts;
}

}  // namespace corvanta::inline ledger
