#include "store/datafile/upgrade/Upgrade.h"

#include "store/datafile/schema/QuoteSources.h"
#include "store/datafile/schema/Tolerant.h"
#include "store/datafile/upgrade/Balances.h"
#include "store/datafile/upgrade/OrphanCleanup.h"
#include "store/datafile/upgrade/SplitUpgrade.h"
#include "store/sql/Connection.h"
#include "store/sql/SqlText.h"
#include "store/sql/StoreError.h"

#include <map>
#include <string_view>

namespace corvanta::inline datafile {
namespace {

struct MoneyColumn {
  std::string_view table;
  std::string_view column;
};

constexpr MoneyColumn kMoneyColumns[] = {
    {"tblAccounts", "OpeningBalance"}, {"tblTransactions", "Amount"},
    {"tblTransactions", "Dividend"},   {"tblTransactions", "Price"},
    {"tblTransactions", "Commission"}, {"tblSchedule", "Amount"},
    {"tblHistory", "Price"},           {"tblPayees", "Conversion"},
    {"tblCategory", "Budget"},
};

// Changing a column writes its whole table anew.
bool IsUpgraded(const Connection& connection, const MoneyColumn& money) {
  const TableDef* const table = connection.Table(money.table);
  const ColumnDef* const column = table == nullptr ? nullptr : table->Column(money.column);
  return column != nullptr && column->kind == ColumnKind::Double && column->defaultValue == "0";
}

void UpgradeMoneyColumns(Connection& connection) {
  for (const MoneyColumn& money : kMoneyColumns) {
    if (IsUpgraded(connection, money)) continue;
    connection.Execute("ALTER TABLE " + std::string(money.table) + " ALTER COLUMN [" +
                       std::string(money.column) + "] DOUBLE DEFAULT 0");
  }
}

void UpgradeQuoteSources(Connection& connection) {
  for (const std::string& statement : QuoteSourceStatements()) {
    ExecuteTolerant(connection, statement);
  }
  const auto url = [](int dataId) { return SqlText(DefaultQuoteSource(dataId).url); };
  const auto lookUp = [](int dataId) { return SqlText(DefaultQuoteSource(dataId).lookUpUrl); };
  const std::string updates[] = {
      "UPDATE tblStockData SET [Name] = 'Yahoo Currency' WHERE DataID = 1",
      "UPDATE tblStockData SET [Name] = 'Yahoo Stock' WHERE DataID = 2",
      "UPDATE tblStockData SET [Name] = 'Yahoo UK Stock', [URL] = " + url(kUkStockSource) +
          " WHERE DataID = 3",
      "UPDATE tblStockData SET [Name] = 'Google Finance Stock', Occur = 1, Start = 'class=\"pr\"' "
      "WHERE DataID = 4",
      "UPDATE tblStockData SET [URL] = " + url(kMoneyStockSource) + ", LookUpURL = " +
          lookUp(kMoneyStockSource) + ", Occur = 1, Start = 'class=\"lp\"' WHERE DataID = 5",
      "UPDATE tblStockData SET [URL] = " + url(kMarketStockSource) +
          ", Start = 'class=\" price\"' WHERE DataID = 6",
  };
  for (const std::string& statement : updates) ExecuteTolerant(connection, statement);
}

}  // namespace

void UpgradeSchema(Connection& connection) {
  UpgradeSplitLinks(connection);
  UpgradeMoneyColumns(connection);
  UpgradeQuoteSources(connection);
}

std::optional<std::string> UpgradeAndCleanUp(Connection& connection) {
  try {
    Transaction transaction = connection.Begin();
    const std::map<std::int64_t, double> before = AccountBalances(connection);
    UpgradeSchema(connection);
    CleanUpOrphans(connection);
    if (!SameBalances(before, AccountBalances(connection))) {
      return "The balances of the accounts would have changed.";
    }
    transaction.Commit();
    return std::nullopt;
  } catch (const StoreError& error) {
    if (!error.IsStatementFault()) throw;
    return error.what();
  }
}

}  // namespace corvanta::inline datafile
