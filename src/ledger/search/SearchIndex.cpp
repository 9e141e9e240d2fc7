#include "ledger/search/SearchIndex.h"

#include "ledger/search/SearchQuery.h"
#include "platform/Date.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <limits>

namespace corvanta::inline ledger {
namespace {

constexpr const char* kRows =
    "Select T.TransactionID, T.AccountID, T.AllocatedItem, T.PayeeID, T.CategoryID, T.TransferID, "
    "T.[Date], T.[Amount], T.Description, T.Reference from tblTransactions T WHERE "
    "T.TransactionID Between ";
enum Position {
  kKey,
  kAccount,
  kParent,
  kPayee,
  kCategory,
  kTwin,
  kDate,
  kAmount,
  kDescription,
  kReference
};

std::vector<SearchAccount> ReadAccounts(Connection& store) {
  std::vector<SearchAccount> accounts;
  Recordset rows = store.OpenRecordset(
      "Select A.AccountID, A.[Account], A.CurrencyId, U.[Currency] from tblAccounts A LEFT JOIN "
      "tblCurrency U ON A.CurrencyId = U.CurrencyID Order by A.AccountID");
  for (; !rows.Eof(); rows.MoveNext()) {
    accounts.push_back(
        {rows.Int(0), std::string(rows.Text(1)), rows.Int(2), std::string(rows.Text(3))});
  }
  return accounts;
}

// Neighbours mostly have the same day.
class DayReader {
 public:
  std::int32_t Of(std::string_view stored) {
    if (stored != stored_) {
      stored_ = stored;
      day_ = Date::FromIso(stored.substr(0, 10)).value_or(Date()).Serial();
    }
    return day_;
  }

 private:
  std::string stored_ = "-";
  std::int32_t day_ = 0;
};

}  // namespace

SearchIndex::SearchIndex(Connection& store)
    : store_(store), stamp_(store.Changes()), names_(store), accounts_(ReadAccounts(store)) {
  next_ = store.QueryValue("Select Min(TransactionID) from tblTransactions").Int();
  const Value last = store.QueryValue("Select Max(TransactionID) from tblTransactions");
  last_ = last.Int();
  if (last.IsNull()) isWhole_ = true;
}

bool SearchIndex::IsCurrent() const {
  return !store_.InTransaction() && store_.Changes() == stamp_;
}

void SearchIndex::ReadOn(std::size_t rows) {
  if (isWhole_ || !IsCurrent()) return;
  const std::size_t before = rows_.size();
  const std::int64_t end = std::min(last_, next_ + static_cast<std::int64_t>(rows) - 1);
  ReadKeys(next_, end);
  next_ = end + 1;
  // A long gap between two keys is stepped over.
  if (rows_.size() == before && next_ <= last_) {
    next_ =
        store_
            .QueryValue("Select Min(TransactionID) from tblTransactions WHERE TransactionID > " +
                        SqlNumber(end))
            .Int();
  }
  if (next_ <= last_) return;
  PutInOrder();
  isWhole_ = true;
}

void SearchIndex::ReadAll() {
  constexpr std::size_t kPiece = 100000;
  while (!isWhole_ && IsCurrent()) ReadOn(kPiece);
}

void SearchIndex::ReadKeys(std::int64_t first, std::int64_t last) {
  DayReader days;
  const std::string keys = SqlNumber(first) + " AND " + SqlNumber(last);
  Recordset::Visit(store_, kRows + keys, [&](const VisitedRow& row) {
    const auto number = [&](int column) { return static_cast<std::int32_t>(row.Int(column)); };
    SearchRow found;
    found.key = number(kKey);
    found.accountId = number(kAccount);
    found.parent = number(kParent);
    found.payeeId = number(kPayee);
    found.categoryId = number(kCategory);
    found.twin = number(kTwin);
    found.day = days.Of(row.Text(kDate));
    found.amount = row.Double(kAmount);
    found.text = texts_.size();
    rows_.push_back(found);
    AddTexts(row.Text(kDescription), row.Text(kReference));
  });
}

void SearchIndex::AddTexts(std::string_view description, std::string_view reference) {
  AddFolded(description);
  texts_ += '\0';
  AddFolded(reference);
  texts_ += '\0';
}

void SearchIndex::AddFolded(std::string_view text) {
  const std::size_t start = texts_.size();
  for (const char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) {
      texts_.resize(start);
      texts_ += FoldForSearch(text);
      return;
    }
    texts_ += c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  }
}

// By day, as registers stand; the rows come by key already. Days are few, so they are counted.
void SearchIndex::PutInOrder() {
  const auto byKey = [](const SearchRow& a, const SearchRow& b) { return a.key < b.key; };
  // The texts go by their places, so that rows may move.
  texts_ += '\0';
  if (!std::ranges::is_sorted(rows_, byKey)) std::ranges::sort(rows_, byKey);
  if (rows_.empty()) return;
  const auto [least, most] = std::ranges::minmax_element(rows_, {}, &SearchRow::day);
  const std::int32_t first = least->day;
  std::vector<std::uint32_t> starts(static_cast<std::size_t>(most->day - first) + 2);
  const auto slot = [&](const SearchRow& row) { return static_cast<std::size_t>(row.day - first); };
  std::uint32_t entries = 0;
  for (const SearchRow& row : rows_) {
    if (row.parent != 0) continue;
    ++starts[slot(row) + 1];
    ++entries;
  }
  for (std::size_t day = 1; day < starts.size(); ++day) starts[day] += starts[day - 1];
  byDay_.resize(entries);
  for (std::uint32_t place = 0; place < rows_.size(); ++place) {
    if (rows_[place].parent == 0) byDay_[starts[slot(rows_[place])]++] = place;
  }
}

std::uint32_t SearchIndex::PlaceOf(std::int64_t key) const {
  const auto found = std::ranges::lower_bound(rows_, key, {}, &SearchRow::key);
  if (found == rows_.end() || found->key != key) return kNowhere;
  return static_cast<std::uint32_t>(found - rows_.begin());
}

std::string_view SearchIndex::TextOf(std::size_t place) const {
  const std::string_view all(texts_);
  const std::size_t start = rows_[place].text;
  const std::size_t reference = all.find('\0', start) + 1;
  return all.substr(start, all.find('\0', reference) - start);
}

const SearchAccount* SearchIndex::Account(std::int64_t accountId) const {
  const auto found = std::ranges::lower_bound(accounts_, accountId, {}, &SearchAccount::accountId);
  return found == accounts_.end() || found->accountId != accountId ? nullptr : &*found;
}

}  // namespace corvanta::inline ledger
