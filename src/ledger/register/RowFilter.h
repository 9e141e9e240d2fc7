#pragma once

#include "ledger/KeySet.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// What rows of transactions can be chosen by.
enum class FilterKind { Account, Category, Payee, Investment, Keyword };
inline constexpr std::array kFilterKinds = {FilterKind::Account, FilterKind::Category,
                                            FilterKind::Payee, FilterKind::Investment,
                                            FilterKind::Keyword};

// A text that is looked for in the rows themselves (amount, description, reference), and in the
// names of their payees and categories, too, unless it is kept to the first.
struct SearchText {
  std::string text;  // without blanks around it
  bool isTextOnly = false;
  // The amount that the text is, whatever its sign; it may be written otherwise than it is kept.
  std::optional<double> amount = std::nullopt;

  bool operator==(const SearchText&) const = default;
};

// As a person typed it.
[[nodiscard]] SearchText ReadSearchText(std::string_view typed, bool isTextOnly,
                                        const Locale& locale);

// Which transactions a view or a report keeps to: for each kind the identifiers of those that are
// chosen (none: all of them), and a text. It is the one place that puts this into SQL.
class RowFilter {
 public:
  [[nodiscard]] const std::vector<std::int64_t>& Keys(FilterKind kind) const;
  // Each key once, in the order given.
  void SetKeys(FilterKind kind, const std::vector<std::int64_t>& keys);
  // The identifiers joined by ",", and from such a text; what is no number in it is left out.
  [[nodiscard]] std::string List(FilterKind kind) const;
  void SetList(FilterKind kind, std::string_view list);
  [[nodiscard]] const SearchText& Search() const { return search_; }
  void SetSearch(const SearchText& search) { search_ = search; }

  [[nodiscard]] bool IsSet(FilterKind kind) const { return !Keys(kind).empty(); }
  [[nodiscard]] bool HasText() const { return !search_.text.empty(); }
  [[nodiscard]] bool IsEmpty() const;

  // The conditions, each with " AND " behind it; empty without any. They speak of tblTransactions
  // as T, tblKeywordLink as K, and for a text of tblPayees as PP and tblCategory as C.
  [[nodiscard]] std::string Clause() const;
  // tblTransactions and, of the tables that the conditions speak of, those that are needed. With
  // keywords a row may come several times.
  [[nodiscard]] std::string Tables() const;

  bool operator==(const RowFilter&) const = default;

 private:
  std::array<std::vector<std::int64_t>, kFilterKinds.size()> keys_;
  SearchText search_;
};

// Numbers joined by ",".
[[nodiscard]] std::string JoinKeys(const std::vector<std::int64_t>& keys);
[[nodiscard]] std::vector<std::int64_t> SplitKeys(std::string_view list);

// The whole entries that the filter shows, each once: a split is shown with all of its lines where
// it or one of them is of the filter. `condition` is SQL about T that begins with " AND ". Throws
// StoreError.
[[nodiscard]] KeySet FilteredKeys(Connection& store, const RowFilter& filter,
                                  const std::string& condition = {});

}  // namespace corvanta::inline ledger
