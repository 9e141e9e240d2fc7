#include "ledger/register/RowFilter.h"

#include "ledger/search/SearchQuery.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <charconv>
#include <unordered_set>

namespace corvanta::inline ledger {
namespace {

// The columns that the lists are of.
constexpr std::array<const char*, kFilterKinds.size()> kColumns = {
    "T.AccountID", "T.CategoryID", "T.PayeeID", "T.PayeeID", "K.KeywordID"};

std::size_t PlaceOf(FilterKind kind) {
  return static_cast<std::size_t>(kind);
}

std::optional<std::int64_t> ReadKey(std::string_view text) {
  std::int64_t key = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), key);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return key;
}

// What stands before the first mark; the text is what stands behind it.
std::string_view CutAt(std::string_view& text, char mark) {
  const std::size_t end = text.find(mark);
  const std::string_view head = text.substr(0, end);
  text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  return head;
}

// The text as LIKE takes it: the signs that stand for others there are looked for as they are.
std::string Pattern(std::string_view text) {
  std::string pattern;
  for (const char sign : text) {
    if (sign == '%' || sign == '_' || sign == '[') {
      pattern += std::string("[") + sign + ']';
    } else {
      pattern += sign;
    }
  }
  return SqlText('%' + pattern + '%');
}

std::string SearchClause(const SearchText& search) {
  const std::string like = " like " + Pattern(search.text);
  std::string clause = "(T.Amount" + like + " OR T.Description" + like + " OR t.Reference" + like;
  if (!search.isTextOnly) {
    clause += " OR PP.PAYEE" + like + " OR C.CATEGORY" + like + " OR C.SUBCATEGORY" + like;
  }
  if (search.amount) clause += " OR Abs(T.Amount) = " + SqlNumber(*search.amount);
  return clause + ") AND ";
}

}  // namespace

// Where the text is no number of the locale, it may be one with the other decimal mark.
SearchText ReadSearchText(std::string_view typed, bool isTextOnly, const Locale& locale) {
  SearchText search;
  search.text = Trim(typed);
  search.isTextOnly = isTextOnly;
  const std::vector<SoughtAmount> amounts = SoughtAmounts(search.text, locale);
  if (!amounts.empty()) search.amount = amounts.front().value;
  return search;
}

std::string JoinKeys(const std::vector<std::int64_t>& keys) {
  std::string list;
  for (const std::int64_t key : keys) list += (list.empty() ? "" : ",") + SqlNumber(key);
  return list;
}

std::vector<std::int64_t> SplitKeys(std::string_view list) {
  std::vector<std::int64_t> keys;
  while (!list.empty()) {
    if (const auto key = ReadKey(Trim(CutAt(list, ',')))) keys.push_back(*key);
  }
  return keys;
}

const std::vector<std::int64_t>& RowFilter::Keys(FilterKind kind) const {
  return keys_.at(PlaceOf(kind));
}

void RowFilter::SetKeys(FilterKind kind, const std::vector<std::int64_t>& keys) {
  std::vector<std::int64_t>& own = keys_.at(PlaceOf(kind));
  own.clear();
  std::unordered_set<std::int64_t> met;
  for (const std::int64_t key : keys) {
    if (met.insert(key).second) own.push_back(key);
  }
}

std::string RowFilter::List(FilterKind kind) const {
  return JoinKeys(Keys(kind));
}

void RowFilter::SetList(FilterKind kind, std::string_view list) {
  SetKeys(kind, SplitKeys(list));
}

bool RowFilter::IsEmpty() const {
  return !HasText() && std::ranges::none_of(kFilterKinds, [&](FilterKind k) { return IsSet(k); });
}

std::string RowFilter::Clause() const {
  std::string clause;
  for (const FilterKind kind : kFilterKinds) {
    if (!IsSet(kind)) continue;
    clause += std::string("(") + kColumns.at(PlaceOf(kind)) + " IN (" + List(kind) + ")) AND ";
  }
  return HasText() ? clause + SearchClause(search_) : clause;
}

std::string RowFilter::Tables() const {
  std::string tables = "tblTransactions T";
  const auto join = [&tables](const std::string& with) { tables = "(" + tables + ") " + with; };
  // A row whose payee is gone can still be found by what else it holds.
  if (HasText() && !search_.isTextOnly) {
    join("LEFT JOIN tblPayees PP ON PP.PayeeID = T.PayeeID");
    join("LEFT JOIN tblCategory C ON C.CategoryID = T.CategoryID");
  }
  if (IsSet(FilterKind::Keyword)) {
    join("INNER JOIN tblKeywordLink K ON K.TransactionID = T.TransactionID");
  }
  return tables;
}

namespace {

// A row of a name that has the text, whose key the condition asks for.
std::string NamedLike(Connection& store, const std::string& column, const std::string& names) {
  std::vector<std::int64_t> keys;
  Recordset rows = store.OpenRecordset("Select " + column + " from " + names);
  for (; !rows.Eof(); rows.MoveNext()) keys.push_back(rows.Int(0));
  return keys.empty() ? std::string() : " OR T." + column + " IN (" + JoinKeys(keys) + ")";
}

// The same rows as those of the filter's own condition: names are few, so they are asked once, and
// an amount only for a text that a figure can have.
std::string QuickSearchClause(Connection& store, const SearchText& search) {
  const std::string like = " like " + Pattern(search.text);
  std::string clause = "(T.Description" + like + " OR t.Reference" + like;
  if (search.text.find_first_not_of("0123456789.-+eE") == std::string::npos) {
    clause += " OR T.Amount" + like;
  }
  if (!search.isTextOnly) {
    clause += NamedLike(store, "PayeeID", "tblPayees WHERE Payee" + like);
    clause += NamedLike(store, "CategoryID",
                        "tblCategory WHERE Category" + like + " OR SubCategory" + like);
  }
  if (search.amount) clause += " OR Abs(T.Amount) = " + SqlNumber(*search.amount);
  return clause + ") AND ";
}

}  // namespace

KeySet FilteredKeys(Connection& store, const RowFilter& filter, const std::string& condition) {
  RowFilter lists = filter;
  lists.SetSearch({});
  std::string clause = lists.Clause();
  if (filter.HasText()) clause += QuickSearchClause(store, filter.Search());
  KeySet keys;
  Recordset::Visit(store,
                   "Select T.TransactionID, T.AllocatedItem from " + lists.Tables() + " WHERE " +
                       clause + "1 > 0" + condition,
                   [&keys](const VisitedRow& row) {
                     const std::int64_t parent = row.Int(1);
                     keys.Insert(parent == 0 ? row.Int(0) : parent);
                   });
  return keys;
}

}  // namespace corvanta::inline ledger
