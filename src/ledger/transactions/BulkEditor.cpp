#include "ledger/transactions/BulkEditor.h"

#include "ledger/transactions/RowLinks.h"
#include "ledger/transactions/TransactionRows.h"
#include "ledger/transactions/TransactionStatus.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {
namespace {

void Assign(std::string& assignments, std::string_view assignment) {
  if (!assignments.empty()) assignments += ",";
  assignments += assignment;
}

std::string Assignments(const BulkChange& change) {
  std::string text;
  if (change.accountId != 0) Assign(text, "AccountId = " + SqlNumber(change.accountId));
  if (change.paymentId != 0) Assign(text, "PaymentId = " + SqlNumber(change.paymentId));
  if (change.payeeId != 0) Assign(text, "PayeeID = " + SqlNumber(change.payeeId));
  if (change.categoryId != 0) Assign(text, "CategoryID = " + SqlNumber(change.categoryId));
  if (change.status) Assign(text, StatusAssignment(*change.status));
  return text;
}

// What a bulk edit may change in a row.
std::vector<Value> ChangeableOf(Connection& store, std::int64_t transactionId) {
  const Recordset row = store.OpenRecordset(
      "Select AccountID, PaymentID, PayeeID, CategoryID, BankChk, BankRec, [Amount] from "
      "tblTransactions Where TransactionID = " +
      SqlNumber(transactionId));
  std::vector<Value> values;
  for (int field = 0; field < 7; ++field) values.push_back(row.Field(field));
  return values;
}

}  // namespace

bool BulkEditor::BulkEdit(std::int64_t transactionId, const BulkChange& change) {
  const UndoLog::Step step = core_.undo.Begin("Edit Transactions");
  Transaction all = core_.store.Begin();
  const std::optional<RowLinks> row = ReadLinks(core_.store, transactionId);
  if (!row) return false;
  core_.closed.RequireOpen(row->accountId);
  if (change.accountId != 0) core_.closed.RequireOpen(change.accountId);
  const std::vector<Value> before = ChangeableOf(core_.store, transactionId);
  BulkChange allowed = change;
  if (row->allocatedItem != 0) {
    allowed.accountId = 0;
    allowed.status.reset();
  } else if (row->transferId != 0) {
    const std::optional<RowLinks> twin = ReadLinks(core_.store, row->transferId);
    if (twin && twin->accountId == change.accountId) allowed.accountId = 0;
  }
  ApplyColumns(transactionId, allowed);
  ApplyType(transactionId, *row, allowed.type);
  const bool isChanged = ChangeableOf(core_.store, transactionId) != before;
  all.Commit();
  return isChanged;
}

std::optional<std::size_t> BulkEditor::BulkEdit(Keys transactionIds, const BulkChange& change) {
  const UndoLog::Step step = core_.undo.Begin("Edit Transactions");
  std::size_t changed = 0;
  const bool isDone = core_.ForEachRow(
      transactionIds, [&](std::int64_t key) { changed += BulkEdit(key, change) ? 1 : 0; });
  return isDone ? std::optional(changed) : std::nullopt;
}

void BulkEditor::ApplyColumns(std::int64_t transactionId, const BulkChange& change) {
  const std::string assignments = Assignments(change);
  if (assignments.empty()) return;
  const std::string key = SqlNumber(transactionId);
  const bool ordinaryOnly = change.paymentId != 0 || change.payeeId != 0 || change.categoryId != 0;
  const int changed =
      core_.store.Execute("UPDATE tblTransactions set " + assignments +
                          (ordinaryOnly ? " WHERE ([Action] = 0) AND (TransactionID = " + key + ")"
                                        : " WHERE TransactionID = " + key));
  if (changed == 0) return;
  const std::string lines = " WHERE AllocatedItem = " + key;
  if (change.status) {
    core_.store.Execute("UPDATE tblTransactions set " +
                        std::string(StatusAssignment(*change.status)) + lines);
  }
  if (change.accountId != 0) {
    core_.store.Execute("UPDATE tblTransactions set AccountId = " + SqlNumber(change.accountId) +
                        lines);
    TransactionRows(core_).FitAccount(transactionId, change.accountId);
  }
}

void BulkEditor::ApplyType(std::int64_t transactionId, const RowLinks& row, TypeChange type) {
  const bool flips = type == TypeChange::Reverse ||
                     (type == TypeChange::Income && row.amount < 0) ||
                     (type == TypeChange::Expense && row.amount > 0);
  if (flips) FlipSign(transactionId, row);
}

void BulkEditor::ReverseSign(std::int64_t transactionId) {
  const UndoLog::Step step = core_.undo.Begin("Reverse Sign");
  Transaction all = core_.store.Begin();
  const std::optional<RowLinks> row = ReadLinks(core_.store, transactionId);
  if (!row) return;
  core_.closed.RequireOpen(row->accountId);
  FlipSign(transactionId, *row);
  all.Commit();
}

void BulkEditor::FlipSign(std::int64_t transactionId, const RowLinks& row) {
  const std::string key = SqlNumber(transactionId);
  if (row.transferIsNull) {
    core_.store.Execute("UPDATE tblTransactions set TransferID = 0 WHERE TransactionID = " + key);
  }
  const int flipped = core_.store.Execute(
      "UPDATE tblTransactions set [Amount] = -1*[Amount] WHERE [Action] = 0 AND TransferID = 0 "
      "AND TransactionID = " +
      key);
  // The lines of a row that keeps its sign keep theirs: they must add up to it.
  if (flipped == 0) return;
  core_.store.Execute("UPDATE tblTransactions set [Amount] = -1*[Amount] WHERE AllocatedItem = " +
                      key);
  if (row.allocatedItem != 0) TransactionRows(core_).SumLines(row.allocatedItem);
}

}  // namespace corvanta::inline ledger
