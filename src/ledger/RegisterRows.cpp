#include "ledger/RegisterRows.h"

#include "ledger/Money.h"
#include "store/Connection.h"
#include "store/Recordset.h"
#include "store/SqlText.h"

#include <algorithm>
#include <unordered_map>

namespace corvanta {
namespace {

const RegisterEntry kGone;

// A stored day as the dialect writes it.
std::string StoredDate(const std::string& stored) {
  const auto moment = DateTime::FromIso(stored);
  return moment ? SqlDate(*moment) : SqlText(stored);
}

// Neighbours mostly have the same day.
class DayReader {
 public:
  Date Of(std::string_view stored) {
    if (stored != text_) {
      text_ = stored;
      date_ = Date::FromIso(stored.substr(0, 10)).value_or(Date());
    }
    return date_;
  }
  // The one read last, as it is stored.
  [[nodiscard]] const std::string& Stored() const { return text_; }

 private:
  std::string text_;
  Date date_;
};

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
  count_ = static_cast<std::size_t>(own.count);
  next_ = RoundMoney(openingBalance + end.total);
  if (end.count > 0) totals_.balance = next_;
  if (own.count == 0) return;
  totals_.thisPeriod = RoundMoney(openingBalance + own.total);
  totals_.paidIn = RoundMoney(own.paidIn);
  totals_.paidOut = RoundMoney(own.paidOut);
}

std::int64_t RegisterRows::UnclearedCount() {
  if (!uncleared_) uncleared_ = corvanta::UnclearedCount(store_, scope_.accountId);
  return *uncleared_;
}

bool RegisterRows::IsCurrent() const {
  return !store_.InTransaction() && store_.Changes() == stamp_;
}

std::string RegisterRows::EntriesStatement(Part part) const {
  std::string sql =
      "Select T.TransactionID, T.[Date], T.[Amount], T.CategoryID, T.PayeeID, T.PaymentID, "
      "T.TransferID, T.BankChk, T.BankRec from tblTransactions T WHERE " +
      EntryCondition(scope_);
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

void RegisterRows::Add(const RegisterEntry& entry) {
  entries_.push_back(entry);
  entries_.back().balance = next_;
  const bool isFirst = entries_.size() == 1;
  const auto take = [isFirst](double& least, double& most, double value) {
    least = isFirst ? value : std::min(least, value);
    most = isFirst ? value : std::max(most, value);
  };
  take(figures_.leastAmount, figures_.mostAmount, entry.amount);
  take(figures_.leastBalance, figures_.mostBalance, next_);
  next_ = RoundMoney(next_ - entry.amount);
}

std::size_t RegisterRows::ReadPart(Part part, std::size_t entries) {
  const RegisterNames& names = Names();
  Recordset rows = store_.OpenRecordset(EntriesStatement(part));
  DayReader days;
  std::size_t read = 0;
  std::optional<std::int32_t> known;  // neighbours often have the same category, too
  for (; read < entries && entries_.size() < count_ && !rows.Eof(); rows.MoveNext()) {
    RegisterEntry entry;
    entry.categoryId = static_cast<std::int32_t>(rows.Int(3));
    if (entry.categoryId != known && names.Category(entry.categoryId) == nullptr) continue;
    known = entry.categoryId;
    if (rows.IsNull(1) && part != Part::Undated) break;
    entry.transactionId = static_cast<std::int32_t>(rows.Int(0));
    entry.date = days.Of(rows.Text(1));
    entry.amount = rows.Double(2);
    entry.payeeId = static_cast<std::int32_t>(rows.Int(4));
    entry.paymentId = static_cast<std::int32_t>(rows.Int(5));
    entry.transferId = static_cast<std::int32_t>(rows.Int(6));
    entry.status = StatusLetter(rows.Int(7), rows.Int(8));
    Add(entry);
    ++read;
  }
  if (read > 0) lastDate_ = days.Stored();
  return read;
}

void RegisterRows::ReadOn(std::size_t entries) {
  if (IsWhole() || !IsCurrent()) return;
  entries_.reserve(count_);
  const std::size_t wanted = std::min(count_, entries_.size() + entries);
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

const RegisterNames& RegisterRows::Names() {
  if (!names_) names_.emplace(store_);
  return *names_;
}

std::vector<std::string> RegisterRows::Texts(const std::string& column) {
  std::vector<std::string> texts;
  texts.reserve(count_);
  Recordset rows =
      store_.OpenRecordset("Select T.CategoryID, T." + column + " from tblTransactions T WHERE " +
                           EntryCondition(scope_) + " Order by T.[Date], T.TransactionID");
  for (; !rows.Eof(); rows.MoveNext()) {
    if (Names().Category(rows.Int(0)) != nullptr) texts.emplace_back(rows.Text(1));
  }
  texts.resize(count_);
  return texts;
}

}  // namespace corvanta
