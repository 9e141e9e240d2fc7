#include "ledger/investments/InvestmentBook.h"

#include "ledger/SqlName.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/TradeRows.h"
#include "ledger/reference/CategoryBook.h"
#include "ledger/reference/ReferenceBook.h"
#include "ledger/reference/ReferenceTables.h"
#include "ledger/transactions/RowLinks.h"
#include "ledger/transactions/TransactionRows.h"
#include "ledger/transactions/TransactionStatus.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

#include <numeric>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kSources = "Select * from tblStockData WHERE UCASE([Type])='STOCK'";

// Where there is no source at all the investment has none.
std::int64_t FirstSource(Connection& store) {
  return store
      .QueryValue(
          "Select top 1 DataID from tblStockData WHERE UCASE([Type])='STOCK' Order by DataID")
      .Int();
}

std::string WhereInvestment(std::int64_t investmentId) {
  return " Where PayeeID = " + SqlNumber(investmentId);
}

// The columns that tblPayees and the list of investments have under one name.
void FillRecord(const Recordset& row, InvestmentRecord& record) {
  record.symbol = row.Text("Symbol");
  record.currencyId = row.Int("CurrencyID");
  record.investCurrencyId = row.Int("InvestCurrencyID");
  record.dataId = row.Int("DataID");
  const Value conversion = row.Field("Conversion");
  record.conversion = conversion.IsNull() ? 1 : conversion.Double();
  record.description = row.Text("Description");
}

}  // namespace

std::vector<InvestmentDetails> InvestmentBook::ListInvestments(
    std::optional<std::int64_t> investmentId) {
  std::vector<InvestmentDetails> investments;
  Recordset rows = core_.store.OpenRecordset(
      "Select P.PayeeID as InvestID, P.Payee as Investment, P.CurrencyID, CC.Currency, "
      "CI.CurrencyID as InvestCurrencyID, CI.Currency as InvestCurrency,"
      "P.DataID, P.[Conversion], P.Symbol, P.Description from "
      "((tblPayees P INNER JOIN tblCurrency CC ON CC.CurrencyID = P.CurrencyID) "
      "LEFT JOIN tblCurrency CI ON CI.CurrencyID = P.InvestCurrencyID) "
      "WHERE Investment = 1 " +
      (investmentId ? "AND P.PayeeID = " + SqlNumber(*investmentId) : std::string()) +
      " Order by CC.Currency, P.Payee");
  for (; !rows.Eof(); rows.MoveNext()) {
    InvestmentDetails& record = investments.emplace_back();
    record.investmentId = rows.Int("InvestID");
    record.investment = rows.Text("Investment");
    FillRecord(rows, record);
    record.currency = rows.Text("Currency");
    record.investCurrency = rows.Text("InvestCurrency");
  }
  return investments;
}

std::optional<InvestmentRecord> InvestmentBook::ReadInvestment(std::int64_t investmentId) {
  const Recordset row = core_.store.OpenRecordset(
      "Select * from tblPayees" + WhereInvestment(investmentId) + " AND Investment = 1");
  if (row.Eof()) return std::nullopt;
  InvestmentRecord record;
  record.investmentId = investmentId;
  record.investment = row.Text("Payee");
  FillRecord(row, record);
  return record;
}

std::int64_t InvestmentBook::InvestmentNameExists(const std::string& name,
                                                  std::int64_t investmentId) {
  const std::int64_t other =
      core_.OtherKey("Select * from tblPayees Where Investment = 1 AND Payee = " + SqlName(name),
                     "PayeeID", investmentId);
  return other == 0 ? investmentId : other;
}

std::int64_t InvestmentBook::FindOrCreateInvestment(const std::string& name,
                                                    const std::string& symbol,
                                                    std::int64_t currencyId) {
  const std::string payee(Trim(name));
  const std::string ticker(Trim(symbol));
  // A column that was never written holds no symbol either.
  const std::string noSymbol = ticker.empty() ? " OR IsNull([Symbol])" : "";
  const std::string currency = SqlNumber(currencyId);
  return core_.FindOrInsert(
      {"tblPayees", "PayeeID",
       "Select * From tblPayees Where lcase(Payee) =" + SqlText(ToLower(payee)) +
           " AND (lcase([Symbol]) =" + SqlText(ToLower(ticker)) + noSymbol + ") AND Investment = 1",
       "INSERT INTO tblPayees (Payee, [Symbol], CurrencyID, InvestCurrencyID, Description,"
       "DataId, Conversion, Investment) VALUES(" +
           SqlText(payee) + "," + SqlText(ticker) + "," + currency + "," + currency + ",''," +
           SqlNumber(FirstSource(core_.store)) + ",1,1)",
       "Add Investment"},
      name);
}

std::int64_t InvestmentBook::SaveInvestment(InvestmentRecord& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Investment");
  const std::int64_t key = core_.SaveRow("tblPayees", "PayeeID", record.investmentId,
                                         {{"Payee", record.investment},
                                          {"Symbol", record.symbol},
                                          {"Conversion", record.conversion},
                                          {"CurrencyID", record.currencyId},
                                          {"InvestCurrencyID", record.investCurrencyId},
                                          {"DataID", record.dataId},
                                          {"Description", record.description},
                                          {"Investment", 1}});
  return record.investmentId = key;
}

bool InvestmentBook::DeleteInvestment(std::int64_t investmentId) {
  const UndoLog::Step step = core_.undo.Begin("Delete Investment");
  Transaction all = core_.store.Begin();
  const std::string where = WhereInvestment(investmentId);
  const bool isGone =
      core_.store.Execute("Delete From tblPayees" + where + " AND Investment = 1" +
                          LedgerCore::UnlessUsed("PayeeID", investmentId, kEntryTables)) > 0;
  if (isGone) core_.store.Execute("Delete From tblHistory" + where);
  all.Commit();
  return isGone;
}

std::vector<StockSource> InvestmentBook::StockSources() {
  std::vector<StockSource> sources;
  Recordset rows = core_.store.OpenRecordset(kSources);
  for (; !rows.Eof(); rows.MoveNext()) {
    sources.push_back({rows.Int("DataID"), rows.Text("Name"), rows.Text("LookUpURL")});
  }
  return sources;
}

std::vector<InvestmentTransactionRow> InvestmentBook::ListTransactions(const StatusFilter& filter) {
  const TradeRows trades(core_.store, filter);
  std::vector<std::size_t> all(trades.Entries().size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return trades.Read(all);
}

std::vector<std::int64_t> InvestmentBook::InvestmentTransactionsAmong(Keys transactionIds) {
  std::string list;
  for (const std::int64_t key : transactionIds) list += (list.empty() ? "" : ",") + SqlNumber(key);
  if (list.empty()) return {};
  return ReadKeys(core_.store,
                  "Select TransactionID from tblTransactions Where [Action] Between 1 AND 6 AND "
                  "TransactionID IN (" +
                      list + ")");
}

std::int64_t InvestmentBook::SaveInvestmentTransaction(InvestmentTransaction& record) {
  const UndoLog::Step step = core_.undo.Begin("Save Investment Transaction");
  Transaction all = core_.store.Begin();
  std::optional<RowLinks> former;
  if (record.transactionId != 0) {
    former = ReadLinks(core_.store, record.transactionId);
    if (!former || former->allocatedItem != 0) return 0;
    core_.closed.RequireOpenHalves(*former);
    // Lines of an ordinary row that becomes a holding's would add up to nothing.
    TransactionRows(core_).DeleteRows("AllocatedItem = " + SqlNumber(record.transactionId));
    TransactionRows(core_).RepairTransfer(record.transactionId, 0);
  }
  core_.closed.RequireOpen(record.accountId);
  const double cash = SignedAmount(record.action, record.total);
  WriteTransaction(record, former ? core_.amounts.Replacing(*former, record.accountId, cash)
                                  : core_.amounts.In(record.accountId, cash));
  all.Commit();
  return record.transactionId;
}

void InvestmentBook::WriteTransaction(InvestmentTransaction& record, double cash) {
  const bool takesCash = TakesCash(record.action);
  const std::int64_t category = ledger_.Categories().FindOrCreateCategory(
      takesCash ? "Debit" : "Credit", {}, takesCash ? -1 : 1);
  const std::int64_t payment = ledger_.References().FindOrCreatePayment("Import");
  const StatusFlags flags = FlagsOf(record.status);
  record.transactionId = core_.SaveRow("tblTransactions", "TransactionID", record.transactionId,
                                       {{"Date", record.date},
                                        {"AccountID", record.accountId},
                                        {"PayeeID", record.payeeId},
                                        {"CategoryId", category},
                                        {"PaymentID", payment},
                                        {"Action", static_cast<std::int64_t>(record.action)},
                                        {"TransferID", 0},
                                        {"Dividend", record.dividend},
                                        {"Shares", record.shares},
                                        {"Price", record.price},
                                        {"Commission", record.commission},
                                        {"Amount", cash},
                                        {"Description", record.description},
                                        {"BankChk", flags.bankChk},
                                        {"BankRec", flags.bankRec}});
}

}  // namespace corvanta::inline ledger
