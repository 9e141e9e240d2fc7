#include "store/datafile/schema/Schema.h"

#include <algorithm>
#include <cassert>

namespace corvanta::inline datafile {
namespace {

constexpr ColumnText kAccounts[] = {
    {"AccountID Counter"},
    {"Account  TEXT(255)"},
    {"AccountNo TEXT(50)"},
    {"AccountTypeID INT NOT NULL"},
    {"BankID INT"},
    {"OpeningBalance DOUBLE"},
    {"CurrencyId INT NOT NULL"},
    {"Description TEXT(255)"},
    {"CloseAccount INT DEFAULT 0"},
};

constexpr ColumnText kAccountType[] = {
    {"AccountTypeID Counter"},
    {"AccountType TEXT(255)"},
    {"Description TEXT(255)"},
};

constexpr ColumnText kBank[] = {
    {"BankID Counter"},    {"Bank TEXT(255)"},     {"Address TEXT(255)"},
    {"Postcode TEXT(50)"}, {"Telephone TEXT(50)"}, {"[Account] TEXT(50)"},
    {"Sortcode TEXT(50)"}, {"Web TEXT(255)"},      {"Description TEXT(255)"},
};

constexpr ColumnText kCategory[] = {
    {"CategoryID Counter"},         {"Category TEXT(255)"}, {"SubCategory TEXT(255)"},
    {"Budget DOUBLE DEFAULT 0.00"}, {"PeriodID INT"},       {"[Type] INT NOT NULL"},
    {"Description TEXT(255)"},
};

constexpr ColumnText kCurrency[] = {
    {"CurrencyID Counter"},
    {"[Currency] TEXT(50)"},
    {"Description TEXT(255)"},
};

constexpr ColumnText kHistory[] = {
    {"HistoryID Counter"},
    {"PayeeID INT"},
    {"[Date] DATETIME"},
    {"Price DOUBLE"},
};

constexpr ColumnText kPayees[] = {
    {"PayeeID Counter"},          {"Payee TEXT(255)"},
    {"Description TEXT(255)"},    {"[Symbol] TEXT(50)"},
    {"CurrencyID INT DEFAULT 0"}, {"InvestCurrencyID INT DEFAULT 0"},
    {"DataID INT DEFAULT 0"},     {"[Conversion] DOUBLE DEFAULT 1"},
    {"Investment INT DEFAULT 0"},
};

constexpr ColumnText kPayments[] = {
    {"PaymentID Counter"},
    {"[Payment] TEXT(255)"},
    {"Description TEXT(255)"},
};

constexpr ColumnText kPeriods[] = {
    {"PeriodID Counter"},
    {"[Period] TEXT(50)"},
    {"Description TEXT(255)"},
};

constexpr ColumnText kKeywords[] = {
    {"KeywordID Counter"},
    {"[Keyword] TEXT(255)"},
};

constexpr ColumnText kKeywordLink[] = {
    {"LinkID Counter"},
    {"KeywordID INT"},
    {"TransactionID INT"},
};

constexpr ColumnText kAttachments[] = {
    {"AttachmentID Counter"},     {"TransactionID INT", false},  {"AttachmentFile Text(255)"},
    {"AttachmentPath Text(255)"}, {"AttachmentStore Text(255)"},
};

constexpr ColumnText kSchedule[] = {
    {"ScheduleID Counter"},     {"AccountID INT NOT NULL"},     {"CategoryID INT NOT NULL"},
    {"PaymentID INT NOT NULL"}, {"PayeeID INT NOT NULL"},       {"AllocatedItem INT DEFAULT 0"},
    {"PeriodID INT NOT NULL"},  {"TfrAccountID INT"},           {"[Amount] DOUBLE"},
    {"[Reference] TEXT(50)"},   {"Description TEXT(255)"},      {"[DateFrom] DATETIME NOT NULL"},
    {"NoTimes INT DEFAULT 0"},  {"AddToAccount INT DEFAULT 0"},
};

constexpr ColumnText kStockData[] = {
    {"DataID Counter"},        {"[Name] TEXT(50)"},   {"URL TEXT(255)"},   {"[Key] TEXT(100)"},
    {"[Occur] INT DEFAULT 0"}, {"[Start] TEXT(100)"}, {"[Type] TEXT(50)"}, {"LookUpURL TEXT(255)"},
};

constexpr ColumnText kTransactions[] = {
    {"TransactionID Counter"},
    {"AccountID INT NOT NULL"},
    {"TransferID INT DEFAULT 0"},
    {"CategoryID INT NOT NULL"},
    {"PaymentID INT NOT NULL"},
    {"PayeeID INT NOT NULL"},
    {"AllocatedItem INT DEFAULT 0"},
    {"[Amount] DOUBLE"},
    {"[Reference] TEXT(50)"},
    {"Description TEXT(255)"},
    {"[Date] DATETIME NOT NULL"},
    {"BankChk INT DEFAULT 0"},
    {"BankRec INT DEFAULT 0"},
    {"BankSch INT DEFAULT 0"},
    {"[ScheduleDate] DATETIME"},
    {"[Action] INT DEFAULT 0"},
    {"Dividend DOUBLE"},
    {"Shares DOUBLE"},
    {"Price DOUBLE"},
    {"Commission DOUBLE"},
};

constexpr ColumnText kVerification[] = {
    {"[Password] TEXT(50)"},
    {"UpdateSchedule DATETIME"},
    {"UpdateRun DATETIME"},
};

constexpr TableText kTables[] = {
    {"tblAccounts", kAccounts, "CONSTRAINT PK_Accounts PRIMARY KEY(AccountID)", "",
     "UPDATE tblAccounts SET CloseAccount=0"},
    {"tblAccountType", kAccountType, "CONSTRAINT PK_AccountType PRIMARY KEY(AccountTypeID)", "",
     ""},
    {"tblBank", kBank, "CONSTRAINT PK_Bank PRIMARY KEY(BankID)", "", ""},
    {"tblCategory", kCategory, "CONSTRAINT PK_Category PRIMARY KEY(CategoryID)", "", ""},
    {"tblCurrency", kCurrency, "CONSTRAINT PK_Currency PRIMARY KEY(CurrencyID)", "", ""},
    {"tblHistory", kHistory, "CONSTRAINT PK_History PRIMARY KEY(HistoryID)", "", ""},
    {"tblPayees", kPayees, "CONSTRAINT PK_Payee PRIMARY KEY(PayeeID)", "", ""},
    {"tblPayments", kPayments, "CONSTRAINT PK_Payment PRIMARY KEY(PaymentID)", "", ""},
    {"tblPeriods", kPeriods, "CONSTRAINT PK_Periods PRIMARY KEY(PeriodID)", "", ""},
    {"tblKeywords", kKeywords, "CONSTRAINT PK_Keywords PRIMARY KEY(KeywordID)", "", ""},
    {"tblKeywordLink", kKeywordLink, "CONSTRAINT PK_KeywordLink PRIMARY KEY(LinkID)", "", ""},
    {"tblAttachments", kAttachments, "CONSTRAINT PK_Attachment PRIMARY KEY(AttachmentID)", "", ""},
    {"tblSchedule", kSchedule, "CONSTRAINT PK_Schedule PRIMARY KEY(ScheduleID)",
     "CREATE INDEX AllocatedItem ON tblSchedule (AllocatedItem)",
     "UPDATE tblSchedule SET [BankChk] =0 WHERE  IsNull([BankChk])"},
    {"tblStockData", kStockData, "CONSTRAINT PK_StockData PRIMARY KEY(DataID)", "",
     "UPDATE tblStockData SET [Occur] = 0 WHERE  IsNull([Occur])"},
    {"tblTransactions", kTransactions, "CONSTRAINT PK_Transactions PRIMARY KEY(TransactionID)",
     "CREATE INDEX AllocatedItem ON tblTransactions (AllocatedItem)", ""},
    {"tblVerification", kVerification, "", "", ""},
};

constexpr ExpectedColumns kExpected[] = {
    {"tblAccounts",
     "Account,AccountID,AccountNo,AccountTypeID,BankID,CloseAccount,CurrencyId,Description,"
     "OpeningBalance"},
    {"tblAccountType", "AccountType,AccountTypeID,Description"},
    {"tblAttachments", "AttachmentFile,AttachmentID,AttachmentPath,AttachmentStore,TransactionID"},
    {"tblBank", "Account,Address,Bank,BankID,Description,Postcode,Sortcode,Telephone,Web"},
    {"tblCategory", "Budget,Category,CategoryID,Description,PeriodID,SubCategory,Type"},
    {"tblCurrency", "Currency,CurrencyID,Description"},
    {"tblHistory", "Date,HistoryID,PayeeID,Price"},
    {"tblKeywordLink", "KeywordID,LinkID,TransactionID"},
    {"tblKeywords", "Keyword,KeywordID"},
    {"tblPayees",
     "Conversion,CurrencyID,InvestCurrencyID,DataID,Description,Investment,Payee,PayeeID,Symbol"},
    {"tblPayments", "Description,Payment,PaymentID"},
    {"tblPeriods", "Description,Period,PeriodID"},
    {"tblSchedule",
     "AccountID,AddToAccount,AllocatedItem,Amount,CategoryID,DateFrom,Description,NoTimes,PayeeID,"
     "PaymentID,PeriodID,Reference,ScheduleID,TfrAccountID"},
    {"tblStockData", "DataID,Key,LookUpURL,Name,Occur,Start,TYPE,URL"},
    {"tblTransactions",
     "AccountID,Action,AllocatedItem,Amount,BankChk,BankRec,BankSch,CategoryID,Commission,Date,"
     "Description,Dividend,PayeeID,PaymentID,Price,Reference,ScheduleDate,Shares,TransactionID,"
     "TransferID"},
    {"tblVerification", "Password,UpdateSchedule,UpdateRun"},
};

}  // namespace

std::string TableText::CreateSql() const {
  std::string sql = "CREATE TABLE " + std::string(name) + " (";
  std::string_view separator = "\n";
  for (const ColumnText& column : columns) {
    if (!column.inCreate) continue;
    sql.append(separator).append("   ").append(column.definition);
    separator = ",\n";
  }
  if (!primaryKey.empty()) sql.append(separator).append("   ").append(primaryKey);
  return sql + ");";
}

std::vector<std::string> TableText::RepairSql() const {
  const std::string add = "ALTER TABLE " + std::string(name) + " ADD ";
  std::vector<std::string> statements;
  for (const ColumnText& column : columns) {
    statements.push_back(add + std::string(column.definition));
  }
  if (!primaryKey.empty()) statements.push_back(add + std::string(primaryKey));
  return statements;
}

std::span<const TableText> SchemaTables() {
  return kTables;
}

const TableText& SchemaTable(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(kTables), std::end(kTables),
                   [&](const TableText& table) { return table.name == name; });
  assert(found != std::end(kTables));
  return *found;
}

std::span<const ExpectedColumns> SchemaExpectations() {
  return kExpected;
}

}  // namespace corvanta::inline datafile
