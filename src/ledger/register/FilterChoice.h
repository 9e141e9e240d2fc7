#pragma once

#include "ledger/register/RowFilter.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline ledger {

// What can be chosen for one kind of filter, and what is ticked of it. Categories stand in groups,
// a category with its sub-categories, which are ticked together or one by one; of the other kinds
// each item is a group of its own.
class FilterChoice {
 public:
  struct Item {
    std::int64_t key = 0;
    std::string name;   // as it is shown in its group
    std::string title;  // as it is shown alone: "Category:SubCategory"
    bool isTicked = false;
  };
  struct Group {
    std::string name;
    std::vector<Item> items;  // one or more

    // Whether its items stand below it.
    [[nodiscard]] bool IsDivided() const { return items.size() > 1; }
    [[nodiscard]] std::size_t TickedCount() const;
  };
  // What is left out of the lists unless it is ticked.
  enum class Closed { Hide, Show };

  // With the keys of the list ticked; one that is there no longer is not. Throws StoreError.
  FilterChoice(Connection& store, FilterKind kind, const std::vector<std::int64_t>& ticked,
               Closed closed = Closed::Show);

  [[nodiscard]] FilterKind Kind() const { return kind_; }
  [[nodiscard]] const std::vector<Group>& Groups() const { return groups_; }
  void Tick(std::size_t group, std::size_t item, bool isTicked);
  void TickGroup(std::size_t group, bool isTicked);
  void Clear();

  [[nodiscard]] std::size_t Count() const;
  [[nodiscard]] std::size_t TickedCount() const;
  // The ticked keys in the order of the list, and joined by ",".
  [[nodiscard]] std::vector<std::int64_t> Keys() const;
  [[nodiscard]] std::string List() const { return JoinKeys(Keys()); }
  // The names of what is ticked; a group that is ticked as a whole counts as one.
  [[nodiscard]] std::vector<std::string> Names() const;

  // Whether the item has the text in its name, in whatever case; any has an empty one.
  [[nodiscard]] bool Matches(std::size_t group, std::size_t item, std::string_view text) const;

 private:
  FilterKind kind_;
  std::vector<Group> groups_;
};

// "ACCOUNT", and what stands over the dialog: "Filter By Accounts".
[[nodiscard]] const char* FilterMode(FilterKind kind);
[[nodiscard]] const char* FilterCaption(FilterKind kind);

inline constexpr const char* kShowAll = "Show All";
// The names as a label has room for them, with "..." where they are cut; "Show All" for none.
[[nodiscard]] std::string FilterLabel(const std::vector<std::string>& names);

}  // namespace corvanta::inline ledger
