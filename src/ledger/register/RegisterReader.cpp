#include "ledger/register/RegisterReader.h"

#include "ledger/register/RegisterRow.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

enum Position {
  kId,
  kDate,
  kAmount,
  kReference,
  kDescription,
  kBankChk,
  kBankRec,
  kBankSch,
  kAction,
  kTransfer,
  kCategory,
  kPayee,
  kPayment,
  kShares,
  kPrice
};

}  // namespace

std::vector<std::int64_t> RegisterScope::Accounts() const {
  if (rows.IsSet(FilterKind::Account)) return rows.Keys(FilterKind::Account);
  return {accountId};
}

std::string EntryCondition(const RegisterScope& scope) {
  const std::vector<std::int64_t> accounts = scope.Accounts();
  std::string condition =
      scope.filter.Clause() + "T.AllocatedItem = 0 AND T.AccountID " +
      (accounts.size() == 1 ? "= " + JoinKeys(accounts) : "IN (" + JoinKeys(accounts) + ")");
  if (scope.period) {
    condition += " AND T.[Date] Between " + SqlDate(scope.period->from) + " AND " +
                 SqlEndOf(scope.period->to);
  }
  return condition;
}

std::string RowsStatement() {
  return "Select T.TransactionID, T.[Date], T.[Amount], T.Reference, T.Description, T.BankChk, "
         "T.BankRec, T.BankSch, T.[Action], T.TransferID, T.CategoryID, T.PayeeID, T.PaymentID, "
         "T.Shares, T.Price "
         "from tblTransactions T WHERE ";
}

bool RegisterReader::Read(RegisterRow& row) const {
  const std::string* category = names_.Category(rows_.Int(kCategory));
  if (category == nullptr) return false;
  row.transactionId = rows_.Int(kId);
  row.date = rows_.Day(kDate).value_or(Date());
  row.amount = rows_.Double(kAmount);
  row.reference = rows_.Text(kReference);
  row.description = rows_.Text(kDescription);
  row.payment = names_.Payment(rows_.Int(kPayment));
  row.category = *category;
  const std::int64_t twin = rows_.Int(kTransfer);
  row.isTransfer = twin != 0;
  // A twin that is gone leaves the payee that the row itself carries.
  const std::string* other = links_.TwinAccount(twin);
  row.payee = other != nullptr ? std::string_view(*other) : names_.Payee(rows_.Int(kPayee));
  row.status = StatusLetter(rows_.Int(kBankChk), rows_.Int(kBankRec));
  row.isSplit = links_.HasLines(row.transactionId);
  row.hasAttachment = links_.HasAttachment(row.transactionId);
  row.keywords = links_.Keywords(row.transactionId);
  row.scheduleId = rows_.Int(kBankSch);
  row.action = rows_.Int(kAction);
  if (row.action != 0) {
    row.shares = rows_.Double(kShares);
    row.price = rows_.Double(kPrice);
  }
  return true;
}

const char* StatusLetter(std::int64_t bankChk, std::int64_t bankRec) {
  if (bankRec == 1) return "R";
  return bankChk == 1 ? "C" : "";
}

}  // namespace corvanta::inline ledger
