#include "invest/WatchList.h"

#include "platform/Registry.h"
#include "platform/SettingsTable.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace corvanta::inline invest {
namespace {

constexpr std::string_view kItem = "Item";

// The number in a value's name; 0 for a value of another kind.
int NumberOfItem(std::string_view name) {
  if (name.size() <= kItem.size() || !EqualFolded(name.substr(0, kItem.size()), kItem)) return 0;
  const std::string_view digits = name.substr(kItem.size());
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size() ? number : 0;
}

std::string ItemName(int number) {
  return std::string(kItem) + std::to_string(number);
}

}  // namespace

std::string_view WatchList::Key() const {
  return mode_ == WatchMode::Stocks ? kStocksKey : kCurrencyKey;
}

std::vector<WatchEntry> WatchList::Entries() const {
  std::vector<WatchEntry> entries;
  for (const std::string& name : registry_.ValueNames(Hive::CurrentUser, Key())) {
    const int number = NumberOfItem(name);
    const auto symbol = registry_.Read(Hive::CurrentUser, Key(), name);
    if (number > 0 && symbol && !symbol->empty()) entries.push_back({number, *symbol});
  }
  std::ranges::sort(entries, {}, &WatchEntry::number);
  return entries;
}

bool WatchList::Has(const std::string& symbol) const {
  return std::ranges::any_of(
      Entries(), [&](const WatchEntry& entry) { return EqualFolded(entry.symbol, symbol); });
}

void WatchList::Add(const std::string& symbol) {
  const std::vector<WatchEntry> entries = Entries();
  const int last = entries.empty() ? 0 : entries.back().number;
  registry_.Write(Hive::CurrentUser, Key(), ItemName(last + 1), symbol);
}

void WatchList::Delete(int number) {
  registry_.DeleteValue(Hive::CurrentUser, Key(), ItemName(number));
}

}  // namespace corvanta::inline invest
