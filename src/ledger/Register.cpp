#include "ledger/Money.h"
#include "ledger/RegisterNames.h"
#include "ledger/clsCorvanta.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

namespace corvanta {
namespace {

// What every sum and list of one account's rows takes: whole entries (no split lines) whose
// category exists.
std::string AccountCondition(const StatusFilter& filter, std::int64_t accountId) {
  return filter.Clause() + "T.AllocatedItem = 0 AND T.AccountID = " + SqlNumber(accountId);
}

std::string RegisterStatement(std::int64_t accountId, const StatusFilter& filter,
                              const std::optional<Period>& period) {
  std::string sql =
      "Select T.TransactionID, T.[Date], T.[Amount], T.Reference, T.Description, T.BankChk, "
      "T.BankRec, T.BankSch, T.[Action], T.TransferID, T.CategoryID, T.PayeeID, T.PaymentID "
      "from tblTransactions T WHERE " +
      AccountCondition(filter, accountId);
  if (period) {
    sql += " AND T.[Date] Between " + SqlDate(period->from) + " AND " +
           SqlDate(DateTime{period->to, 86399});
  }
  return sql + " Order by T.[Date], T.TransactionID";
}

// Reads the rows of the statement above, in the order of its columns.
class RegisterReader {
 public:
  RegisterReader(const Recordset& rows, const RegisterNames& names) : rows_(rows), names_(names) {}

  // False for a row whose category is gone: it is neither shown nor counted.
  [[nodiscard]] bool Read(RegisterRow& row) const {
    const std::string* category = names_.Category(rows_.Int(kCategory));
    if (category == nullptr) return false;
    row.transactionId = rows_.Int(kId);
    row.date = Date::FromIso(rows_.Text(kDate).substr(0, 10)).value_or(Date());
    row.amount = rows_.Double(kAmount);
    row.reference = rows_.Text(kReference);
    row.description = rows_.Text(kDescription);
    row.payment = names_.Payment(rows_.Int(kPayment));
    row.category = *category;
    const std::int64_t twin = rows_.Int(kTransfer);
    row.isTransfer = twin != 0;
    // A twin that is gone leaves the payee that the row itself carries.
    const std::string* other = names_.TwinAccount(twin);
    row.payee = other != nullptr ? std::string_view(*other) : names_.Payee(rows_.Int(kPayee));
    row.status = rows_.Int(kBankRec) == 1 ? "R" : rows_.Int(kBankChk) == 1 ? "C" : "";
    row.isSplit = names_.HasLines(row.transactionId);
    row.hasAttachment = names_.HasAttachment(row.transactionId);
    row.scheduleId = rows_.Int(kBankSch);
    row.action = rows_.Int(kAction);
    return true;
  }

 private:
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
    kPayment
  };

  const Recordset& rows_;
  const RegisterNames& names_;
};

// What the account held before the first day: its opening balance and the shown rows up to then.
double BalanceBefore(Connection& store, std::int64_t accountId, const StatusFilter& filter,
                     const std::optional<Period>& period) {
  const double opening =
      store
          .QueryValue("Select OpeningBalance from tblAccounts WHERE AccountID = " +
                      SqlNumber(accountId))
          .Double();
  if (!period) return opening;
  const Value sum = store.QueryValue(
      "Select Sum(T.[Amount]) AS RunBalance "
      "from tblTransactions T INNER JOIN tblCategory C ON T.CategoryID = C.CategoryID WHERE " +
      AccountCondition(filter, accountId) + " AND T.[Date] < " + SqlDate(period->from));
  return RoundMoney(opening + sum.Double());
}

}  // namespace

std::vector<RegisterRow> clsCorvanta::Register(std::int64_t accountId, const StatusFilter& filter,
                                               const std::optional<Period>& period) {
  double balance = BalanceBefore(connection_, accountId, filter, period);
  std::vector<RegisterRow> result;
  const RegisterNames names(connection_, accountId);
  // Growing step by step would move a long register several times over.
  result.reserve(static_cast<std::size_t>(
      connection_
          .QueryValue("Select Count(*) from tblTransactions T WHERE T.AllocatedItem = 0 AND "
                      "T.AccountID = " +
                      SqlNumber(accountId))
          .Int()));
  Recordset rows = connection_.OpenRecordset(RegisterStatement(accountId, filter, period));
  const RegisterReader reader(rows, names);
  for (; !rows.Eof(); rows.MoveNext()) {
    RegisterRow row;
    if (!reader.Read(row)) continue;
    balance = RoundMoney(balance + row.amount);
    row.balance = balance;
    result.push_back(std::move(row));
  }
  return result;
}

}  // namespace corvanta
