#include "ledger/transactions/TransactionReader.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

namespace corvanta::inline ledger {
namespace {

constexpr const char* kReadStatement =
    "Select t.*, c.Category, c.SubCategory, p.Payee, m.[Payment] AS PaymentName, "
    "a.[Account] AS AccountName, a.CloseAccount, u.[Currency] AS CurrencyCode, "
    "s.AllocatedItem AS LineParent "
    "from (((((tblTransactions t LEFT JOIN tblCategory c ON t.CategoryID = c.CategoryID) "
    "LEFT JOIN tblPayees p ON t.PayeeID = p.PayeeID) "
    "LEFT JOIN tblPayments m ON t.PaymentID = m.PaymentID) "
    "LEFT JOIN tblAccounts a ON t.AccountID = a.AccountID) "
    "LEFT JOIN tblCurrency u ON a.CurrencyId = u.CurrencyID) "
    "LEFT JOIN (select distinct AllocatedItem from tblTransactions WHERE AllocatedItem <> 0) s "
    "ON s.AllocatedItem = t.TransactionID Where t.TransactionID = ";

void FillRecord(const Recordset& row, TransactionRecord& record) {
  record.transactionId = row.Int("TransactionID");
  record.accountId = row.Int("AccountID");
  record.categoryId = row.Int("CategoryID");
  record.paymentId = row.Int("PaymentID");
  record.payeeId = row.Int("PayeeID");
  record.amount = row.Double("Amount");
  record.reference = row.Text("Reference");
  record.description = row.Text("Description");
  record.date = row.Day("Date").value_or(Date());
  record.status = {static_cast<int>(row.Int("BankChk")), static_cast<int>(row.Int("BankRec"))};
  record.action = row.Int("Action");
  record.transferId = row.Int("TransferID");
  record.scheduleId = row.Int("BankSch");
  record.scheduleDate = row.Day("ScheduleDate");
  record.allocatedItem = row.Int("AllocatedItem");
}

}  // namespace

std::optional<TransactionDetails> TransactionReader::ReadTransaction(std::int64_t transactionId) {
  TransactionDetails details;
  {
    const Recordset row = core_.store.OpenRecordset(kReadStatement + SqlNumber(transactionId));
    if (row.Eof()) return std::nullopt;
    FillRecord(row, details);
    details.account = row.Text("AccountName");
    details.currency = row.Text("CurrencyCode");
    details.accountClosed = row.Int("CloseAccount") != 0;
    details.category = row.Text("Category");
    details.subCategory = row.Text("SubCategory");
    details.payee = row.Text("Payee");
    details.payment = row.Text("PaymentName");
    details.hasLines = !row.Field("LineParent").IsNull();
    details.dividend = row.Double("Dividend");
    details.shares = row.Double("Shares");
    details.price = row.Double("Price");
    details.commission = row.Double("Commission");
  }
  if (details.transferId == 0) return details;
  const Recordset twin = core_.store.OpenRecordset(
      "Select a.AccountID, a.Account from tblAccounts a INNER JOIN tblTransactions t "
      "ON a.AccountID = t.AccountID Where t.TransactionId = " +
      SqlNumber(details.transferId));
  if (!twin.Eof()) {
    details.twinAccountId = twin.Int(0);
    details.twinAccount = twin.Text(1);
  }
  return details;
}

std::vector<TransactionDetails> TransactionReader::SplitLines(std::int64_t transactionId) {
  std::vector<TransactionDetails> lines;
  if (transactionId == 0) return lines;
  Recordset rows = core_.store.OpenRecordset(
      "select t.*, c.Category, c.SubCategory from tblTransactions t, tblCategory c "
      "Where t.categoryID = c.categoryID AND t.AllocatedItem = " +
      SqlNumber(transactionId) + " Order by t.TransactionID");
  for (; !rows.Eof(); rows.MoveNext()) {
    TransactionDetails line;
    FillRecord(rows, line);
    line.category = rows.Text("Category");
    line.subCategory = rows.Text("SubCategory");
    lines.push_back(std::move(line));
  }
  return lines;
}

std::optional<TransactionRecord> TransactionReader::LastTransaction(std::int64_t accountId,
                                                                    std::int64_t payeeId,
                                                                    std::int64_t categoryId) {
  std::string sql =
      "Select top 1 t.* from tblTransactions t INNER JOIN tblPayees p ON t.PayeeId = p.PayeeId "
      "Where t.AllocatedItem = 0 AND t.AccountId = " +
      SqlNumber(accountId) + " AND t.PayeeId = " + SqlNumber(payeeId);
  if (categoryId != 0) sql += " AND CategoryID = " + SqlNumber(categoryId);
  const Recordset row =
      core_.store.OpenRecordset(sql + " Order by [Date] DESC, TransactionID DESC");
  if (row.Eof()) return std::nullopt;
  TransactionRecord record;
  FillRecord(row, record);
  return record;
}

}  // namespace corvanta::inline ledger
