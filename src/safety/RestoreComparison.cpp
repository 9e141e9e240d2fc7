#include "safety/RestoreComparison.h"

#include "ledger/Money.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <algorithm>
#include <functional>
#include <map>
#include <unordered_map>

namespace corvanta::inline safety {
namespace {

// All that a row says; what is NULL in old files reads as what stands for it.
constexpr const char* kRows =
    "SELECT TransactionID, AccountID, AllocatedItem, [Amount], [Date], TransferID, CategoryID, "
    "PaymentID, PayeeID, [Reference], Description, BankChk, BankRec, BankSch, [ScheduleDate], "
    "[Action], Dividend, Shares, Price, Commission FROM tblTransactions";
constexpr int kFields = 20;

struct Entry {
  std::int64_t accountId = 0;
  std::size_t content = 0;  // a hash of the row and its lines
  bool isWhole = false;     // the row itself was seen, not its lines alone
};

struct Contents {
  std::map<std::int64_t, AccountState> accounts;
  std::unordered_map<std::int64_t, Entry> entries;
};

std::size_t HashOf(const VisitedRow& row) {
  std::string text;
  for (int field = 1; field < kFields; ++field) {
    const std::string_view value = row.IsNull(field) ? std::string_view() : row.Text(field);
    if (value != "0" && value != "0.0") text += value;
    text += '\n';
  }
  return std::hash<std::string>()(text);
}

void ReadEntry(const VisitedRow& row, Contents& contents) {
  const std::int64_t parent = row.Int(2);
  Entry& entry = contents.entries[parent != 0 ? parent : row.Int(0)];
  // The order in which the lines come does not matter.
  entry.content += parent != 0 ? HashOf(row) * 31 : HashOf(row);
  if (parent != 0) return;
  entry.isWhole = true;
  entry.accountId = row.Int(1);
  AccountState& account = contents.accounts[entry.accountId];
  ++account.rows;
  account.balance += row.Double(3);
  const auto day = Date::FromIso(row.Text(4).substr(0, 10));
  if (!day) return;
  account.from = std::min(account.from.value_or(*day), *day);
  account.to = std::max(account.to.value_or(*day), *day);
}

Contents Read(Connection& file) {
  Contents contents;
  Recordset accounts = file.OpenRecordset(
      "Select A.AccountID, A.Account, C.Currency, A.OpeningBalance from tblAccounts A LEFT JOIN "
      "tblCurrency C ON C.CurrencyID = A.CurrencyId");
  for (; !accounts.Eof(); accounts.MoveNext()) {
    AccountState& account = contents.accounts[accounts.Int(0)];
    account.account = accounts.Text(1);
    account.currency = accounts.Text(2);
    account.balance = accounts.Double(3);
  }
  Recordset::Visit(file, kRows, [&](const VisitedRow& row) { ReadEntry(row, contents); });
  std::erase_if(contents.entries, [](const auto& entry) { return !entry.second.isWhole; });
  for (auto& [key, account] : contents.accounts) account.balance = RoundMoney(account.balance);
  return contents;
}

using Changes = std::map<std::int64_t, AccountChange>;

void CountRows(const Contents& now, const Contents& then, Changes& changes) {
  for (const auto& [key, entry] : now.entries) {
    const auto other = then.entries.find(key);
    if (other == then.entries.end()) {
      ++changes[entry.accountId].removed;
    } else if (other->second.accountId != entry.accountId) {
      ++changes[entry.accountId].removed;
      ++changes[other->second.accountId].added;
    } else if (other->second.content != entry.content) {
      ++changes[entry.accountId].changed;
    }
  }
  for (const auto& [key, entry] : then.entries) {
    if (!now.entries.contains(key)) ++changes[entry.accountId].added;
  }
}

}  // namespace

std::vector<AccountChange> CompareFiles(Connection* now, Connection& then) {
  const Contents before = now != nullptr ? Read(*now) : Contents();
  const Contents after = Read(then);
  Changes changes;
  for (const auto& [key, account] : before.accounts) changes[key].now = account;
  for (const auto& [key, account] : after.accounts) changes[key].then = account;
  CountRows(before, after, changes);
  std::vector<AccountChange> list;
  for (auto& [key, change] : changes) list.push_back(std::move(change));
  std::ranges::stable_sort(list, {},
                           [](const AccountChange& change) { return FoldCase(change.Name()); });
  return list;
}

}  // namespace corvanta::inline safety
