#include "store/datafile/schema/AccessPaths.h"

#include "store/sql/Connection.h"

#include <array>

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

// What the program keeps beside the tables of the schema.
constexpr const char* kOwnTable = "own_ScheduleDays";
constexpr const char* kCreateOwnTable =
    "CREATE TABLE own_ScheduleDays (ScheduleID Counter, MonthEnd INT DEFAULT 0, "
    "Weekend INT DEFAULT 0, CONSTRAINT PK_ScheduleDays PRIMARY KEY(ScheduleID))";

}  // namespace

void EnsureAccessPaths(Connection& connection) {
  if (connection.Table("tblSchedule") != nullptr && connection.Table(kOwnTable) == nullptr) {
    connection.Execute(kCreateOwnTable);
  }
  for (const AccessPath& path : kAccessPaths) connection.EnsureAccessPath(path);
}

}  // namespace corvanta::inline datafile
