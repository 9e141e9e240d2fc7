#include "store/datafile/backup/SalvageDataFile.h"

#include "platform/Files.h"
#include "platform/Platform.h"
#include "platform/StatusWords.h"
#include "store/datafile/CreateDataFile.h"
#include "store/datafile/DataFileLocation.h"
#include "store/datafile/opening/FileSteps.h"
#include "store/datafile/schema/KeptSums.h"
#include "store/datafile/schema/Schema.h"
#include "store/datafile/upgrade/Upgrade.h"
#include "store/sql/Recordset.h"
#include "store/sql/StoreError.h"
#include "store/sql/engine/OpenFile.h"
#include "store/sql/engine/Sqlite.h"

#include <sqlcipher/sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <optional>
#include <set>

namespace corvanta::inline datafile {
namespace {

std::vector<std::string> ColumnsOf(sqlite3* database, const std::string& table,
                                   const std::string& file) {
  std::vector<std::string> columns;
  const StatementHandle rows = Prepare(database, "PRAGMA table_info(\"" + table + "\")", file);
  while (sqlite3_step(rows.get()) == SQLITE_ROW) columns.push_back(sql::ColumnText(rows.get(), 1));
  return columns;
}

// One table on its way from the damaged file into the new one.
class TableSalvage {
 public:
  TableSalvage(sqlite3* damaged, sqlite3* sound, std::string table, std::string file)
      : damaged_(damaged),
        sound_(sound),
        file_(std::move(file)),
        result_{std::move(table), 0, {}} {}

  SalvagedTable Run() {
    const std::string columns = SharedColumns();
    if (columns.empty()) return result_;
    const std::string name = "\"" + result_.table + "\"";
    const StatementHandle keys = Prepare(sound_, "SELECT rowid FROM " + name, file_);
    while (sqlite3_step(keys.get()) == SQLITE_ROW) {
      defaults_.insert(sqlite3_column_int64(keys.get(), 0));
    }
    read_ = Prepare(damaged_,
                    "SELECT rowid" + columns + " FROM " + name +
                        " NOT INDEXED WHERE rowid BETWEEN ?1 AND ?2 ORDER BY rowid",
                    file_);
    std::string marks = "?1";
    for (int i = 2; i <= sqlite3_column_count(read_.get()); ++i) marks += ",?" + std::to_string(i);
    write_ = Prepare(
        sound_, "INSERT OR REPLACE INTO " + name + " (rowid" + columns + ") VALUES (" + marks + ")",
        file_);
    Take(1, LastKey());
    DropDefaults();
    return result_;
  }

 private:
  std::string SharedColumns() {
    const std::vector<std::string> there = ColumnsOf(sound_, result_.table, file_);
    std::string columns;
    for (const std::string& column : ColumnsOf(damaged_, result_.table, file_)) {
      const bool isShared = std::ranges::find(there, column) != there.end();
      if (isShared) columns += ",\"" + column + "\"";
    }
    return columns;
  }

  // The end of the table may be what is damaged: the sequence of its keys knows, too.
  std::int64_t LastKey() {
    constexpr std::int64_t kWhereNobodyKnows = 1000;
    std::optional<std::int64_t> last;
    for (const std::string& sql :
         {"SELECT max(rowid) FROM \"" + result_.table + "\" NOT INDEXED",
          "SELECT max(seq) FROM sqlite_sequence WHERE name = '" + result_.table + "'"}) {
      try {
        last = std::max(last.value_or(0), QueryNumber(damaged_, sql, file_));
      } catch (const StoreError&) {
        // The other one may know it.
      }
    }
    return last && (*last > 0 || IsReadable()) ? *last : kWhereNobodyKnows;
  }

  bool IsReadable() {
    try {
      (void)QueryNumber(damaged_, "SELECT count(*) FROM \"" + result_.table + "\" NOT INDEXED",
                        file_);
      return true;
    } catch (const StoreError&) {
      return false;
    }
  }

  // What a new file begins with stands in for what was lost, and for nothing else.
  void DropDefaults() {
    for (const std::int64_t key : defaults_) {
      const bool isLost = std::ranges::any_of(result_.lost, [key](const LostKeys& keys) {
        return keys.first <= key && key <= keys.last;
      });
      if (isLost) continue;
      corvanta::Run(sound_,
                    "DELETE FROM \"" + result_.table + "\" WHERE rowid = " + std::to_string(key),
                    file_);
    }
  }

  // Halves what cannot be read until only the keys are left that the damage holds.
  void Take(std::int64_t first, std::int64_t last) {
    if (first > last) return;
    if (Copy(first, last)) return;
    if (first == last) return Lose(first);
    const std::int64_t middle = first + (last - first) / 2;
    Take(first, middle);
    Take(middle + 1, last);
  }

  void Lose(std::int64_t key) {
    if (!result_.lost.empty() && result_.lost.back().last == key - 1) {
      result_.lost.back().last = key;
    } else {
      result_.lost.push_back({key, key});
    }
  }

  bool Copy(std::int64_t first, std::int64_t last) {
    sqlite3_reset(read_.get());
    sqlite3_bind_int64(read_.get(), 1, first);
    sqlite3_bind_int64(read_.get(), 2, last);
    std::int64_t rows = 0;
    int answer = SQLITE_ROW;
    while ((answer = sqlite3_step(read_.get())) == SQLITE_ROW) {
      WriteRow();
      ++rows;
    }
    sqlite3_reset(read_.get());
    if (answer != SQLITE_DONE) return false;
    result_.rows += rows;
    return true;
  }

  void WriteRow() {
    sqlite3_reset(write_.get());
    for (int i = 0; i < sqlite3_column_count(read_.get()); ++i) {
      sqlite3_bind_value(write_.get(), i + 1, sqlite3_column_value(read_.get(), i));
    }
    const int answer = sqlite3_step(write_.get());
    if (answer != SQLITE_DONE) throw ErrorOf(sound_, answer, {}, file_);
    defaults_.erase(sqlite3_column_int64(read_.get(), 0));
  }

  sqlite3* damaged_;
  sqlite3* sound_;
  std::string file_;
  SalvagedTable result_;
  std::set<std::int64_t> defaults_;  // keys of the new file's rows that were not read
  StatementHandle read_;
  StatementHandle write_;
};

std::vector<std::string> TableNames(const std::vector<std::string>& own) {
  std::vector<std::string> names;
  for (const TableText& table : SchemaTables()) names.emplace_back(table.name);
  // What is counted of the rows is counted anew of those that were salvaged.
  std::ranges::remove_copy_if(own, std::back_inserter(names), IsKeptSums);
  return names;
}

std::vector<std::string> OwnTables(sqlite3* sound, const std::string& file) {
  std::vector<std::string> names;
  const StatementHandle rows = Prepare(
      sound,
      "SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'own\\_%' ESCAPE '\\'",
      file);
  while (sqlite3_step(rows.get()) == SQLITE_ROW) names.push_back(sql::ColumnText(rows.get(), 0));
  return names;
}

std::vector<SalvagedTable> CopyRows(const DataSource& damaged, const DataSource& sound,
                                    const Clock& clock) {
  const DatabaseHandle from = OpenUnchecked(damaged);
  // Without its beginning nobody knows where its tables are.
  (void)QueryNumber(from.get(), "SELECT count(*) FROM sqlite_master", damaged.path);
  const DatabaseHandle to = OpenFile(sound, clock);
  std::vector<SalvagedTable> tables;
  Run(to.get(), "BEGIN", sound.path);
  for (const std::string& table : TableNames(OwnTables(to.get(), sound.path))) {
    tables.push_back(TableSalvage(from.get(), to.get(), table, sound.path).Run());
  }
  Run(to.get(), "COMMIT", sound.path);
  return tables;
}

// Rows that others name by their key, and what a row that stands in for a lost one is made of.
struct Named {
  const char* table;
  const char* key;
  const char* from;  // the table that names it, and the column
  const char* column;
  const char* columns;
  const char* values;  // # for the key
};
constexpr Named kNamed[] = {
    {"tblAccounts", "AccountID", "tblTransactions", "AccountID",
     "[Account],AccountTypeID,CurrencyId,OpeningBalance,CloseAccount", "'Salvaged #',1,1,0,0"},
    {"tblCategory", "CategoryID", "tblTransactions", "CategoryID", "Category,[Type]",
     "'Salvaged #',-1"},
    {"tblPayees", "PayeeID", "tblTransactions", "PayeeID", "Payee", "'Salvaged #'"},
    {"tblPayments", "PaymentID", "tblTransactions", "PaymentID", "[Payment]", "'Salvaged #'"},
    {"tblAccountType", "AccountTypeID", "tblAccounts", "AccountTypeID", "AccountType",
     "'Salvaged #'"},
    {"tblKeywords", "KeywordID", "tblKeywordLink", "KeywordID", "[Keyword]", "'Salvaged #'"}};

// Rows whose category is not there count in no balance, and those of no account in no list.
void StandIn(Connection& file, const Named& named) {
  std::vector<std::string> keys;
  {
    Recordset rows =
        file.OpenRecordset("Select DISTINCT " + std::string(named.column) + " from " + named.from +
                           " Where " + named.column + " > 0 AND " + named.column +
                           " NOT IN (Select " + named.key + " from " + named.table + ")");
    for (; !rows.Eof(); rows.MoveNext()) keys.push_back(std::to_string(rows.Int(0)));
  }
  for (const std::string& key : keys) {
    std::string values = named.values;
    values.replace(values.find('#'), 1, key);
    file.Execute("INSERT INTO " + std::string(named.table) + " (" + named.key + "," +
                 named.columns + ") VALUES (" + key + "," + values + ")");
  }
}

void MakeWhole(const DataSource& sound, const Clock& clock) {
  const auto file = Connection::Open(sound, clock);
  (void)UpgradeAndCleanUp(*file);
  for (const Named& named : kNamed) StandIn(*file, named);
  for (const char* other : {"tblKeywordLink", "tblAttachments"}) {
    file->Execute("Delete from " + std::string(other) +
                  " WHERE TransactionID NOT IN (Select TransactionID from tblTransactions)");
  }
  file->Execute(
      "UPDATE tblTransactions SET TransferID = 0 WHERE TransferID <> 0 AND TransferID NOT IN "
      "(Select TransactionID from tblTransactions)");
  // The upgrade has taken away what was counted while rows were written, some of them twice.
  EnsureKeptSums(*file, sound, clock);
}

}  // namespace

std::vector<SalvagedTable> SalvageDataFile(const DataSource& damaged, const std::string& path,
                                           const Writer& writer, Platform& platform) {
  const StatusWords status(platform.progress, "Salvaging the data file...");
  const std::filesystem::path place(path);
  const std::string folder = place.parent_path().string();
  const DataFileLocation location{folder.empty() ? "." : folder, place.filename().string()};
  const KeptFiles kept = KeepDataFile(damaged.path, platform.files);
  platform.files.Own().RequireOther(path);
  if (IdentityOf(path).has_value()) {
    throw StoreError(StoreErrorCode::Sql,
                     "There is a file " + path +
                         " already, which was left as it is. Choose another name for the new one.",
                     {}, path);
  }
  const auto lock = WriterLock::Acquire(path, writer);
  // Until all is there nothing has that name that could be taken for what was salvaged.
  const DataSource draft = DraftDataFile(location, damaged.password, true, platform, writer);
  std::vector<SalvagedTable> tables;
  try {
    tables = CopyRows(damaged, draft, platform.clock);
    MakeWhole(draft, platform.clock);
  } catch (...) {
    RemoveDataFileQuietly(draft.path, platform.files);
    throw;
  }
  InstallDraft(draft, path, platform);
  return tables;
}

}  // namespace corvanta::inline datafile
