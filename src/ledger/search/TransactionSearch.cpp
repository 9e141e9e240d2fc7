#include "ledger/search/TransactionSearch.h"

#include "ledger/register/RegisterReader.h"
#include "ledger/search/SearchIndex.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace corvanta::inline ledger {

TransactionSearch::TransactionSearch(std::shared_ptr<const SearchIndex> index, SearchQuery query,
                                     const SearchScope& scope)
    : index_(std::move(index)), query_(std::move(query)), scope_(scope) {
  const auto keep = [](const SearchWord& word, SearchField field, std::int64_t key,
                       std::string_view name, std::unordered_set<std::int64_t>& keys) {
    if (word.FitsText(field, FoldForSearch(name))) keys.insert(key);
  };
  for (const SearchWord& word : query_.Words()) {
    Named& named = named_.emplace_back();
    index_->Names().VisitPayees([&](std::int64_t key, std::string_view name) {
      keep(word, SearchField::Payee, key, name, named.payees);
    });
    index_->Names().VisitCategories([&](std::int64_t key, std::string_view name) {
      keep(word, SearchField::Category, key, name, named.categories);
    });
    for (const SearchAccount& account : index_->Accounts()) {
      keep(word, SearchField::Payee, account.accountId, account.account, named.accounts);
    }
  }
  own_.resize(index_->Rows().size());
  isDone_ = query_.IsEmpty();
}

bool TransactionSearch::IsInScope(const SearchRow& row) const {
  if (scope_.accountId != 0 && row.accountId != scope_.accountId) return false;
  return !scope_.period ||
         (row.day >= scope_.period->from.Serial() && row.day <= scope_.period->to.Serial());
}

bool TransactionSearch::HasName(const SearchRow& row, const Named& named) const {
  if (named.categories.contains(row.categoryId)) return true;
  if (row.twin != 0) {
    const std::uint32_t twin = index_->PlaceOf(row.twin);
    // A half that is gone leaves the payee that the row itself carries.
    if (twin != SearchIndex::kNowhere) {
      return named.accounts.contains(index_->Rows()[twin].accountId);
    }
  }
  return named.payees.contains(row.payeeId);
}

bool TransactionSearch::HasText(std::size_t place, const SearchWord& word) const {
  const std::string_view texts = index_->TextOf(place);
  // No word has a zero byte, so it is found within one of the two.
  if (word.field == SearchField::Any) return texts.find(word.text) != std::string_view::npos;
  const std::size_t between = texts.find('\0');
  return word.FitsText(SearchField::Description, texts.substr(0, between)) ||
         word.FitsText(SearchField::Reference, texts.substr(between + 1));
}

std::uint32_t TransactionSearch::WordsOf(std::size_t place) const {
  const SearchRow& row = index_->Rows()[place];
  std::uint32_t found = 0;
  for (std::size_t i = 0; i < query_.Words().size(); ++i) {
    const SearchWord& word = query_.Words()[i];
    const bool isFound =
        word.FitsAmount(row.amount) || HasName(row, named_[i]) || HasText(place, word);
    if (isFound) found |= std::uint32_t{1} << i;
  }
  return found;
}

bool TransactionSearch::GoOn(std::size_t rows) {
  if (isDone_) return true;
  if (next_ < index_->Rows().size()) {
    Match(rows);
  } else {
    Collect(rows);
  }
  return isDone_;
}

void TransactionSearch::Match(std::size_t rows) {
  const std::vector<SearchRow>& all = index_->Rows();
  const std::size_t end = std::min(all.size(), next_ + rows);
  for (; next_ < end; ++next_) {
    const SearchRow& row = all[next_];
    if (!IsInScope(row)) continue;
    own_[next_] |= WordsOf(next_);
    if (row.parent == 0 || own_[next_] == 0) continue;
    const std::uint32_t parent = index_->PlaceOf(row.parent);
    if (parent == SearchIndex::kNowhere) continue;
    if (lines_.empty()) lines_.resize(all.size());
    lines_[parent] |= own_[next_];
  }
}

void TransactionSearch::Finish() {
  while (!GoOn(index_->Rows().size())) {
  }
}

void TransactionSearch::Collect(std::size_t rows) {
  const auto words = query_.Words().size();
  const std::uint32_t all = words >= 32 ? ~std::uint32_t{0} : (std::uint32_t{1} << words) - 1;
  const std::vector<std::uint32_t>& byDay = index_->ByDay();
  const std::size_t end = std::min(byDay.size(), collected_ + rows);
  for (; collected_ < end; ++collected_) {
    const std::uint32_t place = byDay[collected_];
    const std::uint32_t found = own_[place] | (lines_.empty() ? 0 : lines_[place]);
    if (found != all) continue;
    const SearchRow& row = index_->Rows()[place];
    // A row whose category is gone is shown nowhere.
    if (index_->Names().Category(row.categoryId) == nullptr || !IsInScope(row)) continue;
    const SearchAccount* account = index_->Account(row.accountId);
    hits_.push_back({row.key, row.accountId, account == nullptr ? 0 : account->currencyId,
                     Date::FromSerial(row.day), row.amount, own_[place] != all});
  }
  isDone_ = collected_ == byDay.size();
}

std::vector<FoundRow> ReadFound(const SearchIndex& index, std::span<const SearchHit> hits) {
  std::vector<FoundRow> found(hits.size());
  constexpr std::size_t kAtOnce = 500;
  for (std::size_t first = 0; first < hits.size(); first += kAtOnce) {
    std::unordered_map<std::int64_t, std::size_t> places;
    std::string keys;
    for (std::size_t i = first; i < std::min(hits.size(), first + kAtOnce); ++i) {
      places.emplace(hits[i].transactionId, i);
      keys += (keys.empty() ? "" : ",") + SqlNumber(hits[i].transactionId);
      found[i].account = index.Account(hits[i].accountId);
    }
    const RegisterLinks links(index.Store(), keys);
    Recordset rows =
        index.Store().OpenRecordset(RowsStatement() + "T.TransactionID IN (" + keys + ")");
    const RegisterReader reader(rows, index.Names(), links);
    for (; !rows.Eof(); rows.MoveNext()) {
      RegisterRow row;
      if (reader.Read(row)) found[places.at(row.transactionId)].row = std::move(row);
    }
  }
  return found;
}

}  // namespace corvanta::inline ledger
