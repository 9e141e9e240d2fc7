#include "ledger/reference/ReferenceRows.h"

#include "ledger/SqlName.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"
#include "store/sql/UndoLog.h"

namespace corvanta::inline ledger {
namespace {

template <typename Record>
std::string NameColumn() {
  return "[" + std::string(kReferenceTable<Record>.name.column) + "]";
}

// Leaves out the rows of another kind; empty where the table has none.
template <typename Record>
std::string OfTheKind(const std::string& before) {
  const char* column = kReferenceTable<Record>.zeroColumn;
  return column == nullptr ? std::string() : before + column + " = 0";
}

template <typename Record>
std::string SelectWhere(const std::string& condition) {
  return "Select * from " + std::string(kReferenceTable<Record>.table) + " Where " + condition +
         OfTheKind<Record>(" AND ");
}

template <typename Record>
std::string SelectNamed(const std::string& name) {
  return SelectWhere<Record>("lcase(" + NameColumn<Record>() + ") = " + SqlLowerName(name));
}

template <typename Record>
std::string StepOf(const std::string& done) {
  return done + " " + kReferenceTable<Record>.what;
}

}  // namespace

template <typename Record>
std::vector<Record> ReferenceRows<Record>::All() {
  return Read("Select * from " + std::string(kReferenceTable<Record>.table) +
              OfTheKind<Record>(" Where ") + " Order by " + NameColumn<Record>() + ", " +
              kReferenceTable<Record>.keyColumn);
}

template <typename Record>
std::vector<Record> ReferenceRows<Record>::Read(const std::string& sql) {
  constexpr const auto& table = kReferenceTable<Record>;
  std::vector<Record> records;
  Recordset rows = core_.store.OpenRecordset(sql);
  for (; !rows.Eof(); rows.MoveNext()) {
    Record& record = records.emplace_back();
    record.*table.key = rows.Int(table.keyColumn);
    record.*table.name.member = rows.Text(table.name.column);
    for (const auto& text : table.texts) record.*text.member = rows.Text(text.column);
  }
  return records;
}

template <typename Record>
std::int64_t ReferenceRows<Record>::Find(const std::string& name) {
  return core_.ReadKey(SelectNamed<Record>(name), kReferenceTable<Record>.keyColumn);
}

template <typename Record>
std::int64_t ReferenceRows<Record>::FindOrCreate(const std::string& name) {
  constexpr const auto& table = kReferenceTable<Record>;
  const bool isShared = table.zeroColumn != nullptr;
  const std::string columns =
      NameColumn<Record>() + (isShared ? ", " + std::string(table.zeroColumn) : "");
  const std::string step = StepOf<Record>("Add");
  return core_.FindOrInsert({table.table, table.keyColumn, SelectNamed<Record>(name),
                             "INSERT INTO " + std::string(table.table) + " (" + columns +
                                 ") VALUES(" + SqlName(name) + (isShared ? ",0)" : ")"),
                             step.c_str()},
                            name);
}

template <typename Record>
std::int64_t ReferenceRows<Record>::Other(const std::string& name, std::int64_t key) {
  return core_.OtherKey(SelectWhere<Record>(NameColumn<Record>() + " = " + SqlName(name)),
                        kReferenceTable<Record>.keyColumn, key);
}

template <typename Record>
std::int64_t ReferenceRows<Record>::Save(Record& record) {
  constexpr const auto& table = kReferenceTable<Record>;
  const UndoLog::Step step = core_.undo.Begin(StepOf<Record>("Save"));
  std::int64_t& key = record.*table.key;
  std::vector<LedgerCore::Field> fields{{table.name.column, record.*table.name.member}};
  for (const auto& text : table.texts) fields.push_back({text.column, record.*text.member});
  if (key == 0 && table.zeroColumn != nullptr) fields.push_back({table.zeroColumn, 0});
  return key = core_.SaveRow(table.table, table.keyColumn, key, fields);
}

template <typename Record>
bool ReferenceRows<Record>::Delete(std::int64_t key) {
  constexpr const auto& table = kReferenceTable<Record>;
  const UndoLog::Step step = core_.undo.Begin(StepOf<Record>("Delete"));
  Transaction all = core_.store.Begin();
  const std::string where = " Where " + std::string(table.keyColumn) + " = " + SqlNumber(key);
  std::string sql = "Delete From " + std::string(table.table) + where +
                    LedgerCore::UnlessUsed(table.keyColumn, key, table.users);
  for (const ReferenceUser& user : table.otherUsers) {
    sql += " AND " + std::string(table.keyColumn) + " NOT IN (Select " + user.column + " from " +
           user.table + " Where " + user.column + " = " + SqlNumber(key) + ")";
  }
  if constexpr (table.fixedName != nullptr) {
    sql += " AND " + NameColumn<Record>() + " <> " + SqlText(table.fixedName);
  }
  const bool isGone = core_.store.Execute(sql) > 0;
  if (isGone && table.links != nullptr) {
    core_.store.Execute("Delete From " + std::string(table.links) + where);
  }
  all.Commit();
  return isGone;
}

template class ReferenceRows<AccountGroupRecord>;
template class ReferenceRows<BankRecord>;
template class ReferenceRows<PayeeRecord>;
template class ReferenceRows<PaymentRecord>;
template class ReferenceRows<CurrencyRecord>;
template class ReferenceRows<KeywordRecord>;

}  // namespace corvanta::inline ledger
