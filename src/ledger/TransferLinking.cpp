// Makes transfers of imported rows.
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

namespace corvanta {
namespace {

struct Half {
  std::int64_t transactionId = 0;
  std::int64_t accountId = 0;
  std::int64_t currencyId = 0;
  double amount = 0;
  Date date;
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
  return half;
}

std::vector<Half> ReadImported(Connection& store) {
  std::vector<Half> halves;
  Recordset rows = store.OpenRecordset(kImported);
  for (; !rows.Eof(); rows.MoveNext()) {
    Half half = ReadHalf(rows);
    half.date = Date::FromIso(rows.Text("Date").substr(0, 10)).value_or(Date());
    half.payeeId = rows.Int("PayeeID");
    half.otherAccount = rows.Text("TransferAccount");
    halves.push_back(std::move(half));
  }
  return halves;
}

bool Match(const Half& a, const Half& b) {
  if (a.accountId == b.accountId) return false;
  if (a.currencyId != b.currencyId) return a.amount * b.amount < 0;
  return RoundMoney(a.amount + b.amount) == 0;
}

bool IsFree(Connection& store, std::int64_t transactionId) {
  const std::string key = SqlNumber(transactionId);
  return store.QueryValue("Select TransferID from tblTransactions Where TransactionID = " + key)
                 .Int() == 0 &&
         store.QueryValue("Select TransactionID from tblTransactions Where AllocatedItem = " + key)
             .IsNull();
}

// The key of the row that is the other half, 0 when there is none.
std::optional<Half> FindPartner(Connection& store, const Half& half) {
  std::vector<Half> candidates;
  {
    Recordset rows = store.OpenRecordset(
        "Select T.TransactionID, T.Amount, T.AccountID, A.CurrencyId FROM tblAccounts A INNER JOIN "
        "tblTransactions T ON A.AccountID = T.AccountID  WHERE A.Account = " +
        SqlText(half.otherAccount) + " AND T.[Date] =" + SqlDate(half.date) +
        " AND T.PayeeID = " + SqlNumber(half.payeeId) +
        " AND T.AllocatedItem = 0 AND T.[Action] = 0 AND TransferID = 0 "
        "ORDER by T.TransactionID ASC");
    for (; !rows.Eof(); rows.MoveNext()) candidates.push_back(ReadHalf(rows));
  }
  for (const Half& candidate : candidates) {
    // A split cannot be half of a transfer without losing its lines.
    if (Match(half, candidate) && IsFree(store, candidate.transactionId)) return candidate;
  }
  return std::nullopt;
}

}  // namespace

int clsCorvanta::LinkImportedTransfers() {
  const UndoLog::Step step = undo_.Begin("Link Transfers");
  Transaction all = connection_.Begin();
  const std::vector<Half> imported = ReadImported(connection_);
  if (imported.empty()) return 0;
  const std::int64_t payee = FindOrCreatePayee("Transfer");
  const std::int64_t debit = FindOrCreateCategory("Debit", {}, -1);
  const std::int64_t credit = FindOrCreateCategory("Credit", {}, 1);
  const auto link = [&](const Half& half, std::int64_t other) {
    connection_.Execute("UPDATE tblTransactions SET TransferID = " + SqlNumber(other) +
                        ", PayeeID = " + SqlNumber(payee) +
                        ", CategoryID = " + SqlNumber(half.amount < 0 ? debit : credit) +
                        " WHERE TransactionID = " + SqlNumber(half.transactionId));
  };
  int pairs = 0;
  for (const Half& half : imported) {
    if (!IsFree(connection_, half.transactionId)) continue;
    const std::optional<Half> partner = FindPartner(connection_, half);
    if (!partner) continue;
    link(half, partner->transactionId);
    link(*partner, half.transactionId);
    ++pairs;
  }
  all.Commit();
  return pairs;
}

}  // namespace corvanta
