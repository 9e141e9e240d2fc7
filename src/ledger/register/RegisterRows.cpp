#include "ledger/register/RegisterRows.h"

#include "ledger/KeyLists.h"
#include "ledger/Money.h"
#include "ledger/accounts/AccountRow.h"
#include "ledger/register/EntryReader.h"
#include "ledger/register/EntrySums.h"
#include "ledger/register/FilteredRegister.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/register/RowFinder.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace corvanta::inline ledger {
namespace {

const RegisterEntry kGone;

// A stored day as the dialect writes it.
std::string StoredDate(const std::string& stored) {
  const auto moment = DateTime::FromIso(stored);
  return moment ? SqlDate(*moment) : SqlText(stored);
}

}  // namespace

RegisterRows::RegisterRows(Connection& store, const RegisterScope& scope, double openingBalance,
                           const std::optional<EntrySums>& sums)
    : store_(store), scope_(scope), stamp_(store.Changes()) {
  const auto read = [&](const std::optional<Date>& from) {
    const auto to = scope.period ? std::optional(scope.period->to) : std::nullopt;
    return ReadSums(store, scope.accountId, scope.filter, from, to);
  };
  const EntrySums end = sums ? *sums : read(std::nullopt);
  const EntrySums own = scope.period ? read(scope.period->from) : end;
  count_ = among_ = static_cast<std::size_t>(own.count);
  next_ = RoundMoney(openingBalance + end.total);
  if (end.count > 0) totals_.balance = next_;
  if (own.count == 0) return;
  totals_.thisPeriod = RoundMoney(openingBalance + own.total);
  totals_.paidIn = RoundMoney(own.paidIn);
  totals_.paidOut = RoundMoney(own.paidOut);
}

RegisterRows::RegisterRows(Connection& store, const RegisterScope& scope,
                           std::vector<RegisterEntry> entries, const PeriodTotals& totals,
                           std::size_t among)
    : store_(store),
      scope_(scope),
      stamp_(store.Changes()),
      totals_(totals),
      count_(entries.size()),
      among_(among),
      entries_(std::move(entries)),
      isDone_(true) {
  bool isFirst = true;
  for (const RegisterEntry& entry : entries_) CountFigures(entry, std::exchange(isFirst, false));
}

std::int64_t RegisterRows::UnclearedCount() {
  if (uncleared_) return *uncleared_;
  uncleared_ = 0;
  for (const std::int64_t account : scope_.Accounts()) {
    *uncleared_ += corvanta::UnclearedCount(store_, account);
  }
  return *uncleared_;
}

bool RegisterRows::IsCurrent() const {
  return !store_.InTransaction() && store_.Changes() == stamp_;
}

std::string RegisterRows::EntriesStatement(Part part) const {
  std::string sql = EntryReader::kStatement + EntryCondition(scope_);
  const bool isFirst = entries_.empty();
  if (part == Part::Undated) {
    sql += " AND T.[Date] IS NULL";
  } else if (part == Part::SameDay) {
    sql += " AND T.[Date] = " + StoredDate(lastDate_);
  } else if (!isFirst) {
    sql += " AND T.[Date] < " + StoredDate(lastDate_);
  }
  const bool goesOn = part == Part::SameDay || (part == Part::Undated && lastDate_.empty());
  if (goesOn && !isFirst) {
    sql += " AND T.TransactionID < " + SqlNumber(std::int64_t{entries_.back().transactionId});
  }
  return sql + " Order by T.[Date] Desc, T.TransactionID Desc";
}

void RegisterRows::Settle(RegisterEntry& entry, bool isFirst) {
  entry.accountId = static_cast<std::int32_t>(scope_.accountId);
  entry.balance = next_;
  CountFigures(entry, isFirst);
  next_ = RoundMoney(next_ - entry.amount);
}

void RegisterRows::CountFigures(const RegisterEntry& entry, bool isFirst) {
  const auto take = [isFirst](double& least, double& most, double value) {
    least = isFirst ? value : std::min(least, value);
    most = isFirst ? value : std::max(most, value);
  };
  take(figures_.leastAmount, figures_.mostAmount, entry.amount);
  take(figures_.leastBalance, figures_.mostBalance, entry.balance);
}

std::size_t RegisterRows::ReadPart(Part part, std::size_t entries) {
  EntryReader reader;
  CategoryKeys& categories = Categories();
  Recordset rows = store_.OpenRecordset(EntriesStatement(part));
  std::size_t read = 0;
  for (; read < entries && entries_.size() < count_ && !rows.Eof(); rows.MoveNext()) {
    if (!categories.Has(rows.Int(EntryReader::kCategory))) continue;
    if (rows.IsNull(EntryReader::kDate) && part != Part::Undated) break;
    entries_.push_back(reader.Of(rows));
    Settle(entries_.back(), entries_.size() == 1);
    ++read;
  }
  if (read > 0) lastDate_ = reader.StoredDay();
  return read;
}

bool RegisterRows::ReadAtOnce() {
  EntryReader reader;
  CategoryKeys& categories = Categories();
  std::vector<RegisterEntry> met;
  met.reserve(count_);
  bool isInOrder = true;
  Recordset::Visit(
      store_, EntryReader::kStatement + EntryCondition(scope_), [&](const VisitedRow& row) {
        if (!isInOrder || !categories.Has(row.Int(EntryReader::kCategory))) return;
        // The access path of the account's rows has them by day and key.
        if (!met.empty()) {
          const int days = row.Text(EntryReader::kDate).compare(reader.StoredDay());
          isInOrder =
              days > 0 || (days == 0 && row.Int(EntryReader::kId) > met.back().transactionId);
        }
        met.push_back(reader.Of(row));
      });
  if (!isInOrder || met.size() != count_) return false;
  if (!entries_.empty()) next_ = entries_.front().balance;
  std::ranges::reverse(met);
  entries_ = std::move(met);
  bool isFirst = true;
  for (RegisterEntry& entry : entries_) Settle(entry, std::exchange(isFirst, false));
  return true;
}

void RegisterRows::ReadOn(std::size_t entries) {
  if (IsWhole() || !IsCurrent()) return;
  constexpr std::size_t kFew = 2000;
  const std::size_t rest = count_ - entries_.size();
  if (entries >= rest && rest > kFew && rest > count_ / 2 && ReadAtOnce()) return;
  entries_.reserve(count_);
  const std::size_t wanted = entries_.size() + std::min(rest, entries);
  if (!isUndated_ && !entries_.empty()) ReadPart(Part::SameDay, wanted - entries_.size());
  if (!isUndated_ && entries_.size() < wanted) {
    ReadPart(Part::Before, wanted - entries_.size());
    isUndated_ = entries_.size() < wanted;
    if (isUndated_) lastDate_ = "-";
  }
  if (!isUndated_ || entries_.size() == wanted) return;
  ReadPart(Part::Undated, wanted - entries_.size());
  isDone_ = entries_.size() < wanted;
}

void RegisterRows::ReadTo(std::size_t row) {
  // A little more than is asked for, as the next question is about its neighbours.
  constexpr std::size_t kMore = 2000;
  if (row < FirstRead()) ReadOn(FirstRead() - row + kMore);
}

void RegisterRows::ReadBefore(Date day) {
  constexpr std::size_t kStep = 4000;
  while (!IsWhole() && IsCurrent() && (entries_.empty() || entries_.back().date >= day)) {
    ReadOn(kStep);
  }
}

const RegisterEntry& RegisterRows::Entry(std::size_t row) {
  ReadTo(row);
  return row < FirstRead() || row >= count_ ? kGone : entries_[count_ - 1 - row];
}

std::optional<std::size_t> RegisterRows::RowOf(std::int64_t transactionId) {
  const auto find = [&]() -> std::optional<std::size_t> {
    const auto found = std::ranges::find(entries_, transactionId, &RegisterEntry::transactionId);
    if (found == entries_.end()) return std::nullopt;
    return count_ - 1 - static_cast<std::size_t>(found - entries_.begin());
  };
  if (const auto row = find(); row || IsWhole()) return row;
  const Value date =
      store_.QueryValue("Select T.[Date] from tblTransactions T WHERE " + EntryCondition(scope_) +
                        " AND T.TransactionID = " + SqlNumber(transactionId));
  if (date.IsNull()) return std::nullopt;
  ReadBefore(date.AsDate().value_or(Date()));
  return find();
}

std::vector<RegisterRow> RegisterRows::Read(const std::vector<std::size_t>& rows) {
  std::vector<RegisterRow> result(rows.size());
  std::unordered_map<std::int64_t, std::size_t> places;
  std::string keys;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const RegisterEntry& entry = Entry(rows[i]);
    result[i].transactionId = entry.transactionId;
    result[i].date = entry.date;
    result[i].amount = entry.amount;
    if (entry.transactionId == 0) continue;
    places.emplace(entry.transactionId, i);
    keys += (keys.empty() ? "" : ",") + SqlNumber(std::int64_t{entry.transactionId});
  }
  if (keys.empty()) return result;
  const RegisterNames& names = Names();
  const RegisterLinks links(store_, keys);
  Recordset found = store_.OpenRecordset(RowsStatement() + "T.TransactionID IN (" + keys + ")");
  const RegisterReader reader(found, names, links);
  for (; !found.Eof(); found.MoveNext()) {
    RegisterRow row;
    if (reader.Read(row)) result[places.at(row.transactionId)] = std::move(row);
  }
  for (std::size_t i = 0; i < rows.size(); ++i) result[i].balance = Entry(rows[i]).balance;
  return result;
}

CategoryKeys& RegisterRows::Categories() {
  if (!categories_) categories_.emplace(store_);
  return *categories_;
}

const RegisterNames& RegisterRows::Names() {
  if (!names_) names_.emplace(store_);
  return *names_;
}

void RegisterRows::VisitTexts(const std::string& column, const TextVisitor& visitor) {
  const RowFinder finder(*this);
  std::string sql = "Select T.TransactionID, T." + column + " from tblTransactions T";
  // Going through the whole table costs a fourth of fetching each of its rows by key.
  constexpr std::int64_t kDear = 4;
  const auto last = store_.QueryValue("Select Max(T.TransactionID) from tblTransactions T").Int();
  if (last > kDear * static_cast<std::int64_t>(count_)) sql += " WHERE " + EntryCondition(scope_);
  Recordset::Visit(store_, sql, [&](const VisitedRow& row) {
    if (const auto found = finder.Find(row.Int(0))) visitor(*found, row.Text(1));
  });
}

std::unordered_set<std::int64_t> KeysInScope(Connection& store, const RegisterScope& scope,
                                             const std::vector<std::int64_t>& keys) {
  std::unordered_set<std::int64_t> shown;
  ForEachKeyList(keys, [&](const std::string& list) {
    Recordset rows = store.OpenRecordset(
        "Select T.TransactionID from tblTransactions T INNER JOIN tblCategory C ON T.CategoryID = "
        "C.CategoryID WHERE " +
        EntryCondition(scope) + " AND T.TransactionID IN (" + list + ")");
    for (; !rows.Eof(); rows.MoveNext()) shown.insert(rows.Int(0));
  });
  if (scope.rows.IsEmpty() || shown.empty()) return shown;
  const auto filtered = FilteredKeys(store, scope.rows, AccountCondition(scope));
  std::erase_if(shown, [&filtered](std::int64_t key) { return !filtered.Has(key); });
  return shown;
}

}  // namespace corvanta::inline ledger
