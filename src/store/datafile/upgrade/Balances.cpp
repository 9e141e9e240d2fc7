#include "store/datafile/upgrade/Balances.h"

#include "store/datafile/upgrade/KeyList.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/engine/Sqlite.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_set>

namespace corvanta::inline datafile {
namespace {

using Balances = std::map<std::int64_t, double>;
using Keys = std::unordered_set<std::int64_t>;

// Below the four decimals of the oldest money columns, above the noise of a long sum.
constexpr double kTolerance = 0.00005;
constexpr double kRelativeTolerance = 1e-12;

constexpr std::string_view kRows =
    "SELECT TransactionID, AccountID, [Amount], AllocatedItem FROM tblTransactions";

Keys ListedLines(Connection& connection) {
  Keys lines;
  Recordset rows = connection.OpenRecordset(kRows);
  for (; !rows.Eof(); rows.MoveNext()) {
    for (const std::int64_t key : KeysOfList(rows.Text(3))) {
      if (key != rows.Int(0)) lines.insert(key);
    }
  }
  return lines;
}

void AddRows(Connection& connection, Balances& balances) {
  const TableDef* const table = connection.Table("tblTransactions");
  if (table == nullptr) return;
  const ColumnDef* const link = table->Column("AllocatedItem");
  const bool isList = link != nullptr && link->TypeCode() == kTypeText;
  const Keys lines = isList ? ListedLines(connection) : Keys{};
  Recordset rows = connection.OpenRecordset(kRows);
  for (; !rows.Eof(); rows.MoveNext()) {
    const bool isLine = isList ? lines.contains(rows.Int(0)) : rows.Int(3) != 0;
    // Rows of no account are removed by the clean-up.
    if (!isLine && rows.Int(1) != 0) balances[rows.Int(1)] += rows.Double(2);
  }
}

}  // namespace

Balances AccountBalances(Connection& connection) {
  Balances balances;
  if (connection.Table("tblAccounts") != nullptr) {
    Recordset accounts =
        connection.OpenRecordset("SELECT AccountID, OpeningBalance FROM tblAccounts");
    for (; !accounts.Eof(); accounts.MoveNext()) {
      balances[accounts.Int(0)] += accounts.Double(1);
    }
  }
  AddRows(connection, balances);
  return balances;
}

Balances VerifiedBalances(const DataSource& source, const Clock& clock) {
  const std::unique_ptr<Connection> connection = Connection::Open(source, clock);
  if (!connection->Check().empty()) throw DamageOf(source.path);
  return AccountBalances(*connection);
}

bool SameBalances(const Balances& before, const Balances& after) {
  const auto isSame = [](const auto& a, const auto& b) {
    const double tolerance = std::max(kTolerance, std::fabs(a.second) * kRelativeTolerance);
    return a.first == b.first && std::fabs(a.second - b.second) <= tolerance;
  };
  return std::equal(before.begin(), before.end(), after.begin(), after.end(), isSame);
}

}  // namespace corvanta::inline datafile
