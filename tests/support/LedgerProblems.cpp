#include "support/LedgerProblems.h"

#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <tuple>

namespace corvanta {
namespace {

constexpr double kHalfCent = 0.005;

struct Row {
  std::int64_t account = 0;
  std::int64_t other = 0;   // of a transaction its other half, of a schedule the other account
  std::int64_t parent = 0;  // 0 for a row of its own
  double amount = 0;
};

struct Table {
  std::string name;
  std::string key;
  std::string other;
};

struct Reference {
  const char* table;
  const char* column;
  const char* target;
  const char* key;
};

// 0 names nothing and is no reference.
constexpr Reference kReferences[] = {
    {"tblTransactions", "AccountID", "tblAccounts", "AccountID"},
    {"tblTransactions", "CategoryID", "tblCategory", "CategoryID"},
    {"tblTransactions", "PaymentID", "tblPayments", "PaymentID"},
    {"tblTransactions", "PayeeID", "tblPayees", "PayeeID"},
    {"tblTransactions", "BankSch", "tblSchedule", "ScheduleID"},
    {"tblSchedule", "AccountID", "tblAccounts", "AccountID"},
    {"tblSchedule", "CategoryID", "tblCategory", "CategoryID"},
    {"tblSchedule", "PaymentID", "tblPayments", "PaymentID"},
    {"tblSchedule", "PayeeID", "tblPayees", "PayeeID"},
    {"tblSchedule", "PeriodID", "tblPeriods", "PeriodID"},
    {"tblSchedule", "TfrAccountID", "tblAccounts", "AccountID"},
    {"tblAccounts", "AccountTypeID", "tblAccountType", "AccountTypeID"},
    {"tblAccounts", "CurrencyId", "tblCurrency", "CurrencyID"},
    {"tblKeywordLink", "KeywordID", "tblKeywords", "KeywordID"},
    {"tblKeywordLink", "TransactionID", "tblTransactions", "TransactionID"},
    {"tblAttachments", "TransactionID", "tblTransactions", "TransactionID"},
    {"tblHistory", "PayeeID", "tblPayees", "PayeeID"},
};

class Inspection {
 public:
  explicit Inspection(Connection& connection) : connection_(connection) {}

  std::vector<std::string> Run() {
    const Table transactions{"tblTransactions", "TransactionID", "TransferID"};
    const std::map<std::int64_t, Row> rows = Read(transactions);
    CheckTransfers(rows);
    CheckSplits(transactions, rows);
    const Table schedules{"tblSchedule", "ScheduleID", "TfrAccountID"};
    const std::map<std::int64_t, Row> plans = Read(schedules);
    CheckSplits(schedules, plans);
    CheckSchedules(plans);
    CheckOccurrences();
    for (const Reference& reference : kReferences) CheckReference(reference);
    CheckContents();
    CheckKeptSums();
    return problems_;
  }

 private:
  void Add(const std::string& table, std::int64_t key, const std::string& text) {
    problems_.push_back(table + " " + std::to_string(key) + ": " + text);
  }

  std::map<std::int64_t, Row> Read(const Table& table) {
    std::map<std::int64_t, Row> found;
    Recordset rows =
        connection_.OpenRecordset("SELECT " + table.key + ", AccountID, " + table.other +
                                  ", AllocatedItem, [Amount] FROM " + table.name);
    for (; !rows.Eof(); rows.MoveNext()) {
      found[rows.Int(0)] = {rows.Int(1), rows.Int(2), rows.Int(3), rows.Double(4)};
    }
    return found;
  }

  // Contents inside the data file, and the rows that name them.
  void CheckContents() {
    if (connection_.Table("own_AttachedFiles") == nullptr) return;
    std::set<std::string> named;
    Recordset rows = connection_.OpenRecordset(
        "SELECT AttachmentStore FROM tblAttachments WHERE AttachmentStore LIKE 'inside:%'");
    for (; !rows.Eof(); rows.MoveNext()) named.emplace(rows.Text(0));
    Recordset contents = connection_.OpenRecordset("SELECT FileID FROM own_AttachedFiles");
    for (; !contents.Eof(); contents.MoveNext()) {
      const std::string name = "inside:" + std::to_string(contents.Int(0));
      if (named.erase(name) == 0) Add("own_AttachedFiles", contents.Int(0), "nothing names it");
    }
    for (const std::string& name : named) Add("tblAttachments", 0, name + " is gone");
  }

  // What the file keeps of its entries must be what they come to.
  void CheckKeptSums() {
    if (connection_.Table("own_KeptSums") == nullptr) return;
    constexpr double kUnits = 10000;
    using Group = std::tuple<std::int64_t, std::string, std::int64_t, std::int64_t>;
    std::map<Group, std::vector<std::int64_t>> sums;
    std::set<std::pair<std::int64_t, std::int64_t>> uses;
    Recordset rows = connection_.OpenRecordset(
        "SELECT AccountID, [Date], BankChk, BankRec, CategoryID, [Amount] FROM tblTransactions "
        "WHERE AllocatedItem = 0");
    for (; !rows.Eof(); rows.MoveNext()) {
      const std::string month = rows.IsNull(1) ? "-" : std::string(rows.Text(1).substr(0, 7));
      auto& sum = sums[{rows.Int(0), month, rows.Int(2), rows.Int(3)}];
      const std::int64_t units = std::llround(rows.Double(5) * kUnits);
      const bool isWhole =
          static_cast<double>(units) / kUnits == rows.Double(5) && std::fabs(rows.Double(5)) < 1e10;
      sum.resize(4);
      ++sum[0];
      sum[1] += isWhole ? 0 : 1;
      sum[2] += isWhole ? units : 0;
      sum[3] += isWhole && units > 0 ? units : 0;
      uses.emplace(rows.Int(0), rows.Int(4));
    }
    Recordset kept = connection_.OpenRecordset(
        "SELECT AccountID, YearMonth, BankChk, BankRec, Entries, Odd, Total, PaidIn FROM "
        "own_KeptSums WHERE Entries <> 0 OR Odd <> 0 OR Total <> 0 OR PaidIn <> 0");
    std::map<Group, std::vector<std::int64_t>> keptSums;
    for (; !kept.Eof(); kept.MoveNext()) {
      auto& sum = keptSums[{kept.Int(0), std::string(kept.Text(1)), kept.Int(2), kept.Int(3)}];
      for (int figure = 4; figure < 8; ++figure) sum.push_back(kept.Int(figure));
    }
    if (keptSums != sums) problems_.emplace_back("own_KeptSums differs from the entries");
    Recordset used =
        connection_.OpenRecordset("SELECT AccountID, CategoryID FROM own_KeptCategories");
    for (; !used.Eof(); used.MoveNext()) uses.erase({used.Int(0), used.Int(1)});
    if (!uses.empty()) problems_.emplace_back("own_KeptCategories lacks some of the entries'");
  }

  void CheckTransfers(const std::map<std::int64_t, Row>& rows) {
    for (const auto& [key, row] : rows) {
      if (row.other == 0) continue;
      const auto other = rows.find(row.other);
      if (other == rows.end()) {
        Add("tblTransactions", key, "the other half is gone");
      } else if (other->second.other != key) {
        Add("tblTransactions", key, "the other half names another one");
      } else if (row.amount * other->second.amount > 0) {
        Add("tblTransactions", key, "both halves have the same sign");
      } else if (row.account == other->second.account) {
        Add("tblTransactions", key, "both halves are in one account");
      }
    }
  }

  void CheckSplits(const Table& table, const std::map<std::int64_t, Row>& rows) {
    std::map<std::int64_t, double> sums;
    for (const auto& [key, row] : rows) {
      if (row.parent == 0) continue;
      sums[row.parent] += row.amount;
      const auto parent = rows.find(row.parent);
      if (parent == rows.end()) {
        Add(table.name, key, "the split parent is gone");
      } else if (parent->second.parent != 0) {
        Add(table.name, key, "the split parent is a line itself");
      } else if (parent->second.other != 0) {
        Add(table.name, key, "the split parent is a transfer");
      } else if (parent->second.account != row.account) {
        Add(table.name, key, "the split parent is in another account");
      }
    }
    for (const auto& [key, sum] : sums) {
      const auto parent = rows.find(key);
      if (parent == rows.end() || std::fabs(parent->second.amount - sum) < kHalfCent) continue;
      Add(table.name, key, "the lines do not add up to the parent");
    }
  }

  void CheckSchedules(const std::map<std::int64_t, Row>& rows) {
    for (const auto& [key, row] : rows) {
      if (row.other != 0 && row.other == row.account) {
        Add("tblSchedule", key, "it transfers into its own account");
      }
    }
  }

  void CheckOccurrences() {
    std::set<std::pair<std::int64_t, std::string>> found;
    Recordset rows = connection_.OpenRecordset(
        "SELECT TransactionID, BankSch, ScheduleDate FROM tblTransactions "
        "WHERE AllocatedItem = 0 AND BankSch <> 0 AND NOT IsNull(ScheduleDate)");
    for (; !rows.Eof(); rows.MoveNext()) {
      if (found.emplace(rows.Int(1), std::string(rows.Text(2))).second) continue;
      Add("tblTransactions", rows.Int(0), "the occurrence is posted twice");
    }
  }

  std::set<std::int64_t> Keys(const std::string& table, const std::string& column) {
    std::set<std::int64_t> keys;
    Recordset rows = connection_.OpenRecordset("SELECT [" + column + "] FROM " + table);
    for (; !rows.Eof(); rows.MoveNext()) keys.insert(rows.Int(0));
    return keys;
  }

  void CheckReference(const Reference& reference) {
    const std::set<std::int64_t> known = Keys(reference.target, reference.key);
    for (const std::int64_t key : Keys(reference.table, reference.column)) {
      if (key == 0 || known.contains(key)) continue;
      problems_.push_back(std::string(reference.table) + "." + reference.column + " names " +
                          std::to_string(key) + ", which is not in " + reference.target);
    }
  }

  Connection& connection_;
  std::vector<std::string> problems_;
};

}  // namespace

std::vector<std::string> LedgerProblems(Connection& connection) {
  return Inspection(connection).Run();
}

}  // namespace corvanta
