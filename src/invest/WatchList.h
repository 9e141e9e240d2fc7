#pragma once

#include <string>
#include <vector>

namespace corvanta::inline platform {
class Registry;
}

namespace corvanta::inline invest {

enum class WatchMode { Stocks, Currency };

struct WatchEntry {
  int number = 0;      // of its "Item"
  std::string symbol;  // of a stock, or the code of a currency
};

// The symbols or currencies that a person keeps an eye on. They are kept in the settings, one value
// for each.
class WatchList {
 public:
  // The registry must outlive the list.
  WatchList(Registry& registry, WatchMode mode) : registry_(registry), mode_(mode) {}

  // By their numbers, which is the order in which they were added.
  [[nodiscard]] std::vector<WatchEntry> Entries() const;
  // Whether it is among them, in whatever case.
  [[nodiscard]] bool Has(const std::string& symbol) const;
  // Adds it behind the others. Throws PlatformError.
  void Add(const std::string& symbol);
  // A number that is not there is left alone. Throws PlatformError.
  void Delete(int number);

 private:
  [[nodiscard]] std::string_view Key() const;

  Registry& registry_;
  WatchMode mode_;
};

}  // namespace corvanta::inline invest
