#include "ledger/transactions/TransferLinking.h"

#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace corvanta::inline ledger {
namespace {

struct Half {
  std::int64_t transactionId = 0;
  std::int64_t accountId = 0;
  std::int64_t currencyId = 0;
  double amount = 0;
  std::string date;  // the day, ISO
  std::int64_t payeeId = 0;
  std::string otherAccount;
};

// The category's text is "Account:" and the other account's name.
constexpr const char* kImported =
    "SELECT A.Account, MID([C.CATEGORY],9,len(CATEGORY)-8) as TransferAccount, T.TransactionID, "
    "T.Amount, T.[Date], T.PayeeID, T.AccountID, A.CurrencyId "
    " FROM tblCategory C INNER JOIN (tblAccounts A INNER JOIN tblTransactions T "
    "ON A.AccountID = T.AccountID)  ON C.CategoryID = T.CategoryID "
    "WHERE InStr([C.CATEGORY],'Account:') <> 0 and T.TransferID = 0  AND T.AllocatedItem = 0 "
    "AND T.[Action] = 0 ORDER by T.TransactionID ASC";

Half ReadHalf(const Recordset& row) {
  Half half;
  half.transactionId = row.Int("TransactionID");
  half.accountId = row.Int("AccountID");
  half.currencyId = row.Int("CurrencyId");
  half.amount = row.Double("Amount");
  half.date = row.Text("Date").substr(0, 10);
  half.payeeId = row.Int("PayeeID");
  return half;
}

std::vector<Half> ReadImported(Connection& store) {
  std::vector<Half> halves;
  Recordset rows = store.OpenRecordset(kImported);
  for (; !rows.Eof(); rows.MoveNext()) {
    Half half = ReadHalf(rows);
    half.otherAccount = FoldCase(rows.Text("TransferAccount"));
    halves.push_back(std::move(half));
  }
  return halves;
}

bool Match(const Half& a, const Half& b) {
  if (a.accountId == b.accountId) return false;
  if (a.currencyId != b.currencyId) return a.amount * b.amount < 0;
  return RoundMoney(a.amount + b.amount) == 0;
}

// The rows that may be other halves, by account, day and payee. They are read once: a search for
// each of the imported rows would read the days on which there are many over and over.
class Partners {
 public:
  Partners(LedgerCore& core, const std::vector<Half>& imported) : closed_(core.closed) {
    ReadSplits(core.store);
    std::string first = imported.front().date;
    std::string last = first;
    std::unordered_set<std::string> names;
    for (const Half& half : imported) {
      first = std::min(first, half.date);
      last = std::max(last, half.date);
      names.insert(half.otherAccount);
    }
    ReadRows(core.store, names, first, last);
  }

  // A split cannot be half of a transfer without losing its lines.
  [[nodiscard]] bool IsSplit(std::int64_t transactionId) const {
    return splits_.contains(transactionId);
  }

  // Marks both as linked. nullptr when there is none.
  Half* Take(const Half& half) {
    const auto found = rows_.find(Place(half.otherAccount, half.date, half.payeeId));
    if (found == rows_.end() || linked_.contains(half.transactionId)) return nullptr;
    for (Half& candidate : found->second) {
      if (linked_.contains(candidate.transactionId) || !Match(half, candidate)) continue;
      linked_.insert(half.transactionId);
      linked_.insert(candidate.transactionId);
      return &candidate;
    }
    return nullptr;
  }

 private:
  static std::string Place(const std::string& account, const std::string& date,
                           std::int64_t payeeId) {
    return date + " " + SqlNumber(payeeId) + " " + account;
  }

  void ReadSplits(Connection& store) {
    Recordset rows = store.OpenRecordset(
        "Select distinct AllocatedItem from tblTransactions WHERE AllocatedItem <> 0");
    for (; !rows.Eof(); rows.MoveNext()) splits_.insert(rows.Int(0));
  }

  void ReadRows(Connection& store, const std::unordered_set<std::string>& names,
                const std::string& first, const std::string& last) {
    Recordset rows = store.OpenRecordset(
        "Select A.Account, T.TransactionID, T.Amount, T.[Date], T.PayeeID, T.AccountID, "
        "A.CurrencyId FROM tblAccounts A INNER JOIN tblTransactions T ON A.AccountID = T.AccountID "
        " WHERE T.[Date] Between " +
        SqlDate(Date::FromIso(first).value_or(Date())) + " AND " +
        SqlEndOf(Date::FromIso(last).value_or(Date())) +
        " AND T.AllocatedItem = 0 AND T.[Action] = 0 AND TransferID = 0 "
        "ORDER by T.TransactionID ASC");
    for (; !rows.Eof(); rows.MoveNext()) {
      const std::string account = FoldCase(rows.Text("Account"));
      if (!names.contains(account)) continue;
      Half half = ReadHalf(rows);
      if (IsSplit(half.transactionId) || closed_.Has(half.accountId)) continue;
      rows_[Place(account, half.date, half.payeeId)].push_back(std::move(half));
    }
  }

  ClosedAccounts& closed_;
  std::unordered_map<std::string, std::vector<Half>> rows_;
  std::unordered_set<std::int64_t> splits_;
  std::unordered_set<std::int64_t> linked_;
};

}  // namespace

int TransferLinking::LinkImportedTransfers() {
  const UndoLog::Step step = core_.undo.Begin("Link Transfers");
  Transaction all = core_.store.Begin();
  const std::vector<Half> imported = ReadImported(core_.store);
  if (imported.empty()) return 0;
  const std::int64_t payee = ledger_.References().FindOrCreatePayee("Transfer");
  const std::int64_t debit = ledger_.Categories().FindOrCreateCategory("Debit", {}, -1);
  const std::int64_t credit = ledger_.Categories().FindOrCreateCategory("Credit", {}, 1);
  const auto link = [&](const Half& half, std::int64_t other) {
    Recordset row = core_.store.OpenRecordset(
        "Select * from tblTransactions Where TransactionID = " + SqlNumber(half.transactionId));
    row.Set("TransferID", other);
    row.Set("PayeeID", payee);
    row.Set("CategoryID", half.amount < 0 ? debit : credit);
    row.Update();
  };
  Partners partners(core_, imported);
  int pairs = 0;
  for (const Half& half : imported) {
    if (partners.IsSplit(half.transactionId) || core_.closed.Has(half.accountId)) continue;
    const Half* partner = partners.Take(half);
    if (partner == nullptr) continue;
    link(half, partner->transactionId);
    link(*partner, half.transactionId);
    ++pairs;
  }
  all.Commit();
  return pairs;
}

}  // namespace corvanta::inline ledger
