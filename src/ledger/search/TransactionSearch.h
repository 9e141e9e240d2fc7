#pragma once

#include "ledger/register/Period.h"
#include "ledger/register/RegisterRow.h"
#include "ledger/search/SearchQuery.h"
#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

class SearchIndex;
struct SearchAccount;
struct SearchRow;

// Which transactions are looked through.
struct SearchScope {
  std::int64_t accountId = 0;  // 0 for all accounts
  std::optional<Period> period = std::nullopt;
};

// A transaction that was found.
struct SearchHit {
  std::int64_t transactionId = 0;
  std::int64_t accountId = 0;
  std::int64_t currencyId = 0;  // of the account
  Date day;
  double amount = 0;       // in the account's currency, signed
  bool isInLines = false;  // not without its split lines
};

// One search: every word must stand in a field of the transaction or of one of its split lines:
// payee (of a transfer the other account), category, description, reference or amount. It goes on a
// piece at a time, and can be given up in between.
class TransactionSearch {
 public:
  // The index is whole.
  TransactionSearch(std::shared_ptr<const SearchIndex> index, SearchQuery query,
                    const SearchScope& scope);

  // Looks through so many rows more; true when the search has ended.
  bool GoOn(std::size_t rows);
  void Finish();
  // The oldest first, those of a day by key; once it has ended.
  [[nodiscard]] const std::vector<SearchHit>& Hits() const { return hits_; }

 private:
  // The names that a word stands in, by their keys: few, so each is compared once.
  struct Named {
    std::unordered_set<std::int64_t> payees;
    std::unordered_set<std::int64_t> categories;
    std::unordered_set<std::int64_t> accounts;
  };
  [[nodiscard]] bool IsInScope(const SearchRow& row) const;
  // The words that the row has, a bit each.
  [[nodiscard]] std::uint32_t WordsOf(std::size_t place) const;
  [[nodiscard]] bool HasName(const SearchRow& row, const Named& named) const;
  [[nodiscard]] bool HasText(std::size_t place, const SearchWord& word) const;
  // Marks the words of so many rows more.
  void Match(std::size_t rows);
  // Goes on taking those that have all words, once every row is marked.
  void Collect(std::size_t rows);

  std::shared_ptr<const SearchIndex> index_;
  SearchQuery query_;
  SearchScope scope_;
  std::vector<Named> named_;          // of each word
  std::vector<std::uint32_t> own_;    // the words of each row, by its place
  std::vector<std::uint32_t> lines_;  // and those of its split lines; empty where there are none
  std::size_t next_ = 0;              // to be marked
  std::size_t collected_ = 0;         // of those by day
  bool isDone_ = false;
  std::vector<SearchHit> hits_;
};

// A transaction as it is listed among others of any account. Its balance is not known.
struct FoundRow {
  RegisterRow row;
  const SearchAccount* account = nullptr;  // the index's; null where its account is gone
};
// The rows of these hits, in their order; one that is gone meanwhile has the key 0. Throws
// StoreError.
[[nodiscard]] std::vector<FoundRow> ReadFound(const SearchIndex& index,
                                              std::span<const SearchHit> hits);

}  // namespace corvanta::inline ledger
