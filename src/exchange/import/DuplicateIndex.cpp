#include "exchange/import/DuplicateIndex.h"

#include "ledger/Money.h"
#include "ledger/investments/InvestmentRecord.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <initializer_list>
#include <tuple>

namespace corvanta::inline exchange {
namespace {

constexpr std::size_t kLongestChequeNumber = 6;

std::tuple<Date, double> Place(const DuplicateIndex::Candidate& row) {
  return {row.date, row.amount};
}

std::string KeyOf(Date date, std::initializer_list<double> numbers,
                  std::initializer_list<std::int64_t> keys) {
  std::string text = date.ToIso();
  for (const double number : numbers) text += "|" + SqlNumber(number + 0.0);
  for (const std::int64_t key : keys) text += "|" + SqlNumber(key);
  return text;
}

}  // namespace

DuplicateIndex::DuplicateIndex(Connection& store, std::int64_t accountId,
                               std::string_view currency) {
  ReadOrdinary(store, accountId, currency);
  ReadInvestments(store, accountId, currency);
}

void DuplicateIndex::ReadOrdinary(Connection& store, std::int64_t accountId,
                                  std::string_view currency) {
  const std::int64_t imported =
      store.QueryValue("Select PaymentID from tblPayments Where lcase(Payment) = 'import'").Int();
  Recordset rows = store.OpenRecordset(
      "Select T.TransactionID, T.[Date], T.[Amount], T.Reference, T.PaymentID From tblTransactions "
      "as T INNER JOIN tblPayees AS P ON T.PayeeId = P.PayeeID Where [AccountID] = " +
      SqlNumber(accountId) + " AND P.[Investment] = 0 AND AllocatedItem = 0");
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::optional<Date> date = rows.Day(1);
    if (!date) continue;
    const bool isImported = imported != 0 && rows.Int(4) == imported;
    rows_.push_back({rows.Int(0), *date, RoundToCurrency(rows.Double(2), currency),
                     std::string(rows.Text(3)), isImported, false});
    const std::string& reference = rows_.back().reference;
    if (!reference.empty()) ++references_[reference];
    if (isImported && reference.empty()) isEveryImportMarked_ = false;
  }
  std::ranges::sort(rows_, [](const Candidate& a, const Candidate& b) {
    return std::tie(a.date, a.amount, a.transactionId) <
           std::tie(b.date, b.amount, b.transactionId);
  });
}

void DuplicateIndex::ReadInvestments(Connection& store, std::int64_t accountId,
                                     std::string_view currency) {
  Recordset rows = store.OpenRecordset(
      "Select [Date], [Amount], Dividend, Shares, [Price], Commission, PayeeID, CategoryID, "
      "[Action] From tblTransactions Where [AccountID] = " +
      SqlNumber(accountId) + " AND [Action] <> 0 AND AllocatedItem = 0");
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::optional<Date> date = rows.Day(0);
    if (!date) continue;
    ++investments_[KeyOf(
        *date,
        {RoundToCurrency(rows.Double(1), currency), RoundToCurrency(rows.Double(2), currency),
         rows.Double(3), rows.Double(4), rows.Double(5)},
        {rows.Int(6), rows.Int(7), rows.Int(8)})];
  }
}

std::vector<DuplicateIndex::Candidate*> DuplicateIndex::Find(Date date, double amount) {
  const std::tuple<Date, double> place{date, RoundMoney(amount)};
  std::vector<Candidate*> found;
  for (auto row = std::ranges::lower_bound(rows_, place, {}, Place);
       row != rows_.end() && Place(*row) == place; ++row) {
    if (!row->isTaken) found.push_back(&*row);
  }
  return found;
}

bool DuplicateIndex::HasBankId(const Candidate& candidate) const {
  const std::string& reference = candidate.reference;
  if (!candidate.isImported || reference.empty()) return false;
  const auto known = references_.find(reference);
  if (known != references_.end() && known->second > 1) return false;
  const bool isLikeCheque = reference.size() <= kLongestChequeNumber &&
                            reference.find_first_not_of("0123456789") == std::string::npos;
  return !isLikeCheque || isEveryImportMarked_;
}

bool DuplicateIndex::Claim(const InvestmentTransaction& transaction, double amount,
                           std::int64_t categoryId) {
  const auto found = investments_.find(KeyOf(
      transaction.date,
      {amount, transaction.dividend, transaction.shares, transaction.price, transaction.commission},
      {transaction.payeeId, categoryId, static_cast<std::int64_t>(transaction.action)}));
  if (found == investments_.end() || found->second == 0) return false;
  --found->second;
  return true;
}

}  // namespace corvanta::inline exchange
