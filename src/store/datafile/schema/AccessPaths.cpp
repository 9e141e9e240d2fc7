#include "store/datafile/schema/AccessPaths.h"

#include "store/sql/Connection.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <array>
#include <span>
#include <string>

namespace corvanta::inline datafile {
namespace {

// What the ledger looks rows up by, over and over: an account's rows by date, with all that its
// balances and totals are made of and what registers are sorted by, so that these never touch the
// rows themselves; a transfer's
// other half, a schedule's posted rows, a payee's prices, a transaction's keywords and attachments.
constexpr std::array kAccessPaths = {
    AccessPath{"tblTransactions", "fast_Register",
               "\"AccountID\", \"AllocatedItem\", \"Date\", \"TransactionID\", \"CategoryID\", "
               "\"BankChk\", \"BankRec\", \"Amount\", \"PayeeID\", \"PaymentID\", "
               "\"TransferID\""},
    AccessPath{"tblTransactions", "fast_Transfer", "\"TransferID\""},
    AccessPath{"tblTransactions", "fast_Schedule", "\"BankSch\", \"ScheduleDate\""},
    AccessPath{"tblHistory", "fast_Price", "\"PayeeID\", \"Date\""},
    AccessPath{"tblKeywordLink", "fast_Keyword", "\"TransactionID\""},
    AccessPath{"tblAttachments", "fast_Attachment", "\"TransactionID\""}};

// What the program keeps beside the tables of the schema, once the table is there that it belongs
// to.
struct OwnTable {
  const char* name;
  const char* beside;
  const char* sql;
};
constexpr std::array kOwnTables = {
    OwnTable{"own_ScheduleDays", "tblSchedule",
             "CREATE TABLE own_ScheduleDays (ScheduleID Counter, MonthEnd INT DEFAULT 0, "
             "Weekend INT DEFAULT 0, CONSTRAINT PK_ScheduleDays PRIMARY KEY(ScheduleID))"},
    OwnTable{"own_Sources", "tblStockData",
             "CREATE TABLE own_Sources (DataID Counter, Kind INT DEFAULT 0, Field TEXT(255), "
             "OwnKey TEXT(255), CONSTRAINT PK_Sources PRIMARY KEY(DataID))"},
    OwnTable{"own_Rates", "tblCurrency",
             "CREATE TABLE own_Rates (RateID Counter, FromCode TEXT(50), ToCode TEXT(50), "
             "[Date] DATETIME NOT NULL, Rate DOUBLE DEFAULT 0, Source TEXT(255), "
             "CONSTRAINT PK_Rates PRIMARY KEY(RateID))"},
    OwnTable{"own_AttachedFiles", "tblAttachments",
             "CREATE TABLE own_AttachedFiles (FileID Counter, Bytes INT DEFAULT 0, Content MEMO, "
             "CONSTRAINT PK_AttachedFiles PRIMARY KEY(FileID))"}};

// Of the few rows that a condition holds for. A statement reaches it by asking for `column` <> 0.
struct PartPath {
  const char* name;
  const char* column;
  std::span<const char* const> columns;
};
// What accounts hold, and the lines of splits by their days.
constexpr std::array kTradeColumns = {"AccountID", "PayeeID", "Action", "Shares"};
constexpr std::array kLineColumns = {"Date", "AccountID"};
constexpr std::array kPartPaths = {PartPath{"fast_Trades", "Shares", kTradeColumns},
                                   PartPath{"fast_Lines", "AllocatedItem", kLineColumns}};

void EnsurePartPath(const PartPath& path, const TableDef& table, const DataSource& source,
                    const Clock& clock) {
  if (table.HasAccessPath(path.name) || table.Column(path.column) == nullptr) return;
  std::string columns;
  for (const char* column : path.columns) {
    if (table.Column(column) == nullptr) return;
    columns += (columns.empty() ? "\"" : ", \"") + std::string(column) + '"';
  }
  Run(OpenFile(source, clock).get(),
      std::string("CREATE INDEX IF NOT EXISTS \"") + path.name + "\" ON \"tblTransactions\" (" +
          columns + ") WHERE \"" + path.column + "\" <> 0",
      source.path);
}

}  // namespace

void EnsureAccessPaths(Connection& connection) {
  for (const OwnTable& table : kOwnTables) {
    if (connection.Table(table.beside) != nullptr && connection.Table(table.name) == nullptr) {
      connection.Execute(table.sql);
    }
  }
  for (const AccessPath& path : kAccessPaths) connection.EnsureAccessPath(path);
}

void EnsurePartPaths(const Connection& connection, const DataSource& source, const Clock& clock) {
  const TableDef* const table = connection.Table("tblTransactions");
  if (table == nullptr) return;
  for (const PartPath& path : kPartPaths) EnsurePartPath(path, *table, source, clock);
}

}  // namespace corvanta::inline datafile
