#include "support/OldLayout.h"

#include "store/sql/Connection.h"

namespace corvanta {

void MakeOldLayout(Connection& connection) {
  const char* const statements[] = {
      "INSERT INTO tblSchedule "
      "(ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,[Amount],"
      "DateFrom) VALUES (3,1,124,3,11,6,500,#01/15/2026#)",
      "INSERT INTO tblSchedule "
      "(ScheduleID,AccountID,CategoryID,PaymentID,PayeeID,PeriodID,[Amount],"
      "DateFrom) VALUES (4,1,124,3,11,6,400,#01/15/2026#)",
      "ALTER TABLE tblSchedule ADD BankChk INT",
      "DROP INDEX AllocatedItem ON tblSchedule",
      "ALTER TABLE tblSchedule ALTER COLUMN AllocatedItem TEXT(255)",
      "UPDATE tblSchedule SET AllocatedItem = Null",
      "UPDATE tblSchedule SET AllocatedItem = '3,4', BankChk = 1 WHERE ScheduleID = 1",
      "UPDATE tblSchedule SET AllocatedItem = '' WHERE ScheduleID = 2",
      "DROP INDEX AllocatedItem ON tblTransactions",
      "ALTER TABLE tblTransactions ALTER COLUMN AllocatedItem TEXT(255)",
      "UPDATE tblTransactions SET AllocatedItem = Null",
      "UPDATE tblTransactions SET AllocatedItem = '35,36', BankRec = 1 WHERE TransactionID = 3",
      "UPDATE tblTransactions SET AllocatedItem = '37' WHERE TransactionID = 5",
      "UPDATE tblTransactions SET AllocatedItem = '' WHERE TransactionID = 6",
      "UPDATE tblTransactions SET BankChk = 0, BankRec = 0 WHERE TransactionID IN (35,36,37)",
      "ALTER TABLE tblAccounts ALTER COLUMN [OpeningBalance] CURRENCY",
      "ALTER TABLE tblTransactions ALTER COLUMN [Amount] CURRENCY",
      "ALTER TABLE tblTransactions ALTER COLUMN [Price] CURRENCY",
      "ALTER TABLE tblCategory ALTER COLUMN [Budget] CURRENCY",
      "DELETE FROM tblStockData WHERE DataID > 6",
      "UPDATE tblStockData SET [Name] = 'Old', URL = 'http://old.example/', Occur = 0, [Start] = "
      "''",
  };
  Transaction transaction = connection.Begin();
  for (const char* const statement : statements) connection.Execute(statement);
  transaction.Commit();
}

}  // namespace corvanta
