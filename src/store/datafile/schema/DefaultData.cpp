#include "store/datafile/schema/DefaultData.h"

#include "store/datafile/schema/QuoteSources.h"
#include "store/sql/SqlText.h"

#include <string_view>

namespace corvanta::inline datafile {
namespace {

struct PeriodText {
  std::string_view period;
  std::string_view description;
};

constexpr PeriodText kPeriods[] = {
    {"1d", "Once"},         {"d", "Daily"},         {"ww", "Weekly"},      {"2ww", "Fortnightly"},
    {"4ww", "Four Weekly"}, {"m", "Monthly"},       {"2m", "Two Monthly"}, {"q", "Quarterly"},
    {"2q", "Six Monthly"},  {"3q", "Nine Monthly"}, {"yyyy", "Annually"},
};

constexpr std::string_view kCleared[] = {
    "tblAccountType", "tblAccounts", "tblBank",         "tblCategory", "tblPayments",
    "tblPayees",      "tblHistory",  "tblTransactions", "tblSchedule",
};

constexpr std::string_view kAccountGroups[] = {
    "Bank Accounts", "Cash Accounts", "Credit Accounts", "Investment Accounts", "Loan Accounts",
};

constexpr std::string_view kBanks[] = {
    "Santander",
    "Alliance & Leicester",
    "Bank of Ireland",
    "Bank of Scotland",
    "Barclays",
    "Bradford & Bingley",
    "Cheltenham & Gloucester",
    "Clydesdale Bank",
    "Co-operative Bank",
    "Girobank",
    "Halifax",
    "HSBC",
    "Lloyds TSB",
    "NatWest",
    "Nationwide",
    "Newcastle Building Society",
    "Northern Rock",
    "Royal Bank of Scotland",
    "Universal Building Society",
    "Woolwich",
    "Yorkshire Bank",
    "Yorkshire Building Society",
};

void Append(std::vector<std::string>& statements, std::vector<std::string> more) {
  for (std::string& statement : more) statements.push_back(std::move(statement));
}

}  // namespace

std::vector<std::string> FixedRowStatements() {
  std::vector<std::string> statements;
  for (const PeriodText& row : kPeriods) {
    statements.push_back("INSERT into tblPeriods ([Period],[Description]) values (" +
                         SqlText(row.period) + "," + SqlText(row.description) + ");");
  }
  Append(statements, CurrencyStatements());
  Append(statements, QuoteSourceStatements());
  return statements;
}

std::vector<std::string> ReferenceRowStatements() {
  std::vector<std::string> statements;
  for (const std::string_view table : kCleared) {
    statements.push_back("DELETE FROM " + std::string(table));
  }
  for (const std::string_view group : kAccountGroups) {
    statements.push_back("INSERT INTO tblAccountType (AccountType) VALUES (" + SqlText(group) +
                         ");");
  }
  for (const std::string_view bank : kBanks) {
    statements.push_back("INSERT INTO tblBank (Bank) VALUES (" + SqlText(bank) + ");");
  }
  Append(statements, CategoryStatements());
  statements.emplace_back(
      "INSERT INTO tblPayments (PaymentID,Payment,Description) VALUES "
      "(1,'Import','Imported Transaction');");
  return statements;
}

}  // namespace corvanta::inline datafile
