#include "reconcile/Reconciliation.h"

#include "ledger/Money.h"
#include "ledger/accounts/AccountBook.h"
#include "ledger/accounts/ClosedAccounts.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/reference/ReferenceRecords.h"
#include "ledger/transactions/StatusBook.h"
#include "platform/CurrencyDecimals.h"
#include "platform/Decimal.h"
#include "platform/Locale.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>

namespace corvanta::inline reconcile {
namespace {

constexpr std::string_view kEveryRow = "1 > 0";

std::string Counted(std::string_view label, std::size_t count, double sum, const Locale& locale) {
  return std::string(label) + std::to_string(count) + " (" + locale.FormatNumber(sum) + ")";
}

std::string RowsStatement(std::int64_t accountId, bool newestFirst) {
  return "Select t.*, IIf(t1.AllocatedItem <> 0,'TRUE','') AS Allocated, c.Category, "
         "C.subcategory, p.Payee, p.Symbol "
         "FROM (select distinct AllocatedItem from tblTransactions WHERE AllocatedItem <> 0) AS t1 "
         "RIGHT JOIN ((tblTransactions AS t INNER JOIN tblCategory AS c ON "
         "t.CategoryID = c.CategoryID) "
         "INNER JOIN tblPayees AS p ON t.PayeeID = p.PayeeID) ON t1.AllocatedItem = "
         "t.TransactionID "
         "Where t.AllocatedItem = 0 AND " +
         std::string(kEveryRow) + " AND AccountID = " + SqlNumber(accountId) + " Order by t.Date " +
         (newestFirst ? "DESC" : "ASC") + ", t.TransactionId ";
}

std::string_view ImageOf(bool isPosted, bool isSplit, bool isTransfer) {
  if (isPosted) return "SCHEDULE";
  if (isSplit) return "ALLOCATED";
  return isTransfer ? "TRANSFER" : "BLANK";
}

std::string StatusOf(std::int64_t bankChk, std::int64_t bankRec) {
  if (bankChk != 1) return "";
  return bankRec == 1 ? "R" : "C";
}

// Reads the rows of the statement above; the places of its columns are looked up once.
class RowReader {
 public:
  explicit RowReader(const Recordset& rows) : rows_(rows) {}

  [[nodiscard]] bool IsReconciled() const { return rows_.Int(bankRec_) == 1; }
  [[nodiscard]] ReconcileRow Read() const {
    ReconcileRow row;
    row.transactionId = rows_.Int(id_);
    row.image =
        ImageOf(rows_.Int(bankSch_) != 0, !rows_.Text(allocated_).empty(), rows_.Int(twin_) != 0);
    row.date = rows_.Day(date_).value_or(Date());
    row.payee = rows_.Text(payee_);
    row.category =
        CategoryPath(std::string(rows_.Text(category_)), std::string(rows_.Text(subCategory_)));
    row.reference = rows_.Text(reference_);
    row.description = rows_.Text(description_);
    row.status = StatusOf(rows_.Int(bankChk_), rows_.Int(bankRec_));
    row.amount = rows_.Double(amount_);
    row.isReconciled = row.status == "R";
    return row;
  }

 private:
  const Recordset& rows_;
  int id_ = rows_.FieldIndex("TransactionID");
  int date_ = rows_.FieldIndex("Date");
  int amount_ = rows_.FieldIndex("Amount");
  int reference_ = rows_.FieldIndex("Reference");
  int description_ = rows_.FieldIndex("Description");
  int bankChk_ = rows_.FieldIndex("BankChk");
  int bankRec_ = rows_.FieldIndex("BankRec");
  int bankSch_ = rows_.FieldIndex("BankSch");
  int twin_ = rows_.FieldIndex("TransferID");
  int allocated_ = rows_.FieldIndex("Allocated");
  int category_ = rows_.FieldIndex("Category");
  int subCategory_ = rows_.FieldIndex("subcategory");
  int payee_ = rows_.FieldIndex("Payee");
};

}  // namespace

ReconcileTexts TextsOf(const ReconcileTotals& totals, const Locale& locale) {
  return {"Initial Balance: " + locale.FormatNumber(totals.initial),
          "Current Balance: " + locale.FormatNumber(totals.current),
          "Outstanding: " + locale.FormatNumber(totals.outstanding),
          Counted("Paid In: ", totals.countIn, totals.paidIn, locale),
          Counted("Paid Out: ", totals.countOut, totals.paidOut, locale)};
}

StatementDifference DifferenceTo(double statement, const ReconcileTotals& totals,
                                 const std::string& currency) {
  StatementDifference difference;
  difference.amount = RoundMoney(statement - totals.current);
  // What an older file holds in more decimals is a difference to the statement, and seen as one.
  constexpr int kMostDecimals = 6;
  difference.decimals =
      NeededDecimals(difference.amount, CurrencyDecimals(currency), kMostDecimals);
  difference.isBalanced = difference.amount == 0;
  return difference;
}

std::string StatementDifference::Text(const Locale& locale) const {
  return locale.FormatNumber(amount, std::max(decimals, locale.DefaultDecimals()));
}

Reconciliation::Reconciliation(std::int64_t accountId, clsCorvanta& ledger)
    : accountId_(accountId), ledger_(ledger), store_(ledger.Store()) {}

std::optional<Warning> Reconciliation::Check() {
  const std::optional<AccountRecord> account =
      accountId_ == 0 ? std::nullopt : ledger_.Accounts().ReadAccount(accountId_);
  if (!account) {
    return Warning{"Please Select Account", "Please select an Account to continue.", ""};
  }
  if (account->closed) {
    return Warning{std::string(kBalanceAccount), kAccountClosed, ""};
  }
  return std::nullopt;
}

std::optional<Warning> Reconciliation::CheckAdd() {
  if (store_.QueryValue("Select Count(*) from tblAccounts").Int() > 0) return std::nullopt;
  return Warning{"Please Add Account",
                 "There are no Accounts set up. Please add an Account to start", ""};
}

std::string Reconciliation::AccountText() {
  const std::optional<AccountRecord> account = ledger_.Accounts().ReadAccount(accountId_);
  if (!account) return {};
  const std::string currency = Currency();
  return account->account + (currency.empty() ? "" : " (" + currency + ")");
}

void Reconciliation::ShowUnreconciled() {
  Fill(false, false);
}

void Reconciliation::ShowAll() {
  Fill(true, false);
}

void Reconciliation::Refill() {
  const Keys reconciled = KeysWhere(&ReconcileRow::isReconciled);
  // A reconciled row that was unticked stays so.
  Fill(showAll_, true);
  for (ReconcileRow& row : rows_) {
    if (row.isReconciled && !reconciled.contains(row.transactionId)) row.isTicked = true;
  }
  AddUp();
}

// Reads everything before it changes anything.
void Reconciliation::Fill(bool showAll, bool suppressTicks) {
  const double opening =
      store_
          .QueryValue("Select OpeningBalance from tblAccounts WHERE AccountID= " +
                      SqlNumber(accountId_))
          .Double();
  // With the settled rows in sight, what comes before the rows is the opening balance alone.
  const double initial = showAll ? opening : opening + SumOf("BankRec = 1");
  const double shown = SumOf(showAll ? kEveryRow : "BankRec = 0");
  std::vector<ReconcileRow> rows = ReadRows(showAll);
  const Keys ticked = KeysWhere(&ReconcileRow::isTicked);
  for (ReconcileRow& row : rows) {
    row.isTicked = (row.isReconciled && !suppressTicks) || ticked.contains(row.transactionId);
  }
  showAll_ = showAll;
  initialBalance_ = RoundMoney(initial);
  sumOfRows_ = RoundMoney(shown);
  rows_ = std::move(rows);
  AddUp();
}

std::vector<ReconcileRow> Reconciliation::ReadRows(bool showAll) const {
  std::vector<ReconcileRow> found;
  Recordset rows = store_.OpenRecordset(RowsStatement(accountId_, newestFirst_));
  const RowReader reader(rows);
  for (; !rows.Eof(); rows.MoveNext()) {
    if (showAll || !reader.IsReconciled()) found.push_back(reader.Read());
  }
  return found;
}

double Reconciliation::SumOf(std::string_view condition) const {
  return store_
      .QueryValue(
          "Select Sum(t.Amount) AS Balance "
          " from ((tblTransactions t INNER JOIN tblCategory c ON "
          "t.CategoryID = c.CategoryID) "
          " INNER JOIN tblAccounts a ON t.AccountID=a.AccountID) WHERE "
          "t.AllocatedItem = 0 AND " +
          std::string(condition) + " AND A.AccountID=" + SqlNumber(accountId_) +
          " Group by a.AccountID ")
      .Double();
}

Reconciliation::Keys Reconciliation::KeysWhere(bool ReconcileRow::*mark) const {
  Keys keys;
  for (const ReconcileRow& row : rows_) {
    if (row.*mark) keys.insert(row.transactionId);
  }
  return keys;
}

void Reconciliation::Tick(std::size_t row, bool isTicked) {
  rows_.at(row).isTicked = isTicked;
  AddUp();
}

std::optional<std::size_t> Reconciliation::RowOf(std::int64_t transactionId) const {
  const auto found = std::ranges::find(rows_, transactionId, &ReconcileRow::transactionId);
  if (found == rows_.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows_.begin());
}

bool Reconciliation::IsTicking() const {
  return std::ranges::any_of(
      rows_, [](const ReconcileRow& row) { return row.isTicked != row.isReconciled; });
}

void Reconciliation::SelectAll() {
  TickEvery(true);
}

void Reconciliation::ClearAll() {
  TickEvery(false);
}

void Reconciliation::TickEvery(bool isTicked) {
  for (ReconcileRow& row : rows_) row.isTicked = isTicked;
  AddUp();
}

void Reconciliation::Invert() {
  for (ReconcileRow& row : rows_) row.isTicked = !row.isTicked;
  AddUp();
}

void Reconciliation::AddUp() {
  ReconcileTotals totals;
  totals.initial = initialBalance_;
  for (const ReconcileRow& row : rows_) {
    if (!row.isTicked) continue;
    if (row.IsMoneyOut()) {
      ++totals.countOut;
      totals.paidOut = RoundMoney(totals.paidOut - row.amount);
    } else {
      ++totals.countIn;
      totals.paidIn = RoundMoney(totals.paidIn + row.amount);
    }
  }
  totals.current = RoundMoney(initialBalance_ + totals.paidIn - totals.paidOut);
  totals.outstanding = RoundMoney(sumOfRows_ - totals.current + initialBalance_);
  totals_ = totals;
}

ReconcileOutcome Reconciliation::Outcome() const {
  ReconcileOutcome outcome;
  for (const ReconcileRow& row : rows_) {
    outcome.settled += row.isTicked && !row.isReconciled ? 1 : 0;
    outcome.taken += !row.isTicked && row.isReconciled ? 1 : 0;
  }
  return outcome;
}

bool Reconciliation::Apply(Progress& progress) {
  std::vector<Settlement> settlements;
  settlements.reserve(rows_.size());
  for (const ReconcileRow& row : rows_) settlements.push_back({row.transactionId, row.isTicked});
  return ledger_.Statuses().Settle(settlements, progress);
}

}  // namespace corvanta::inline reconcile
