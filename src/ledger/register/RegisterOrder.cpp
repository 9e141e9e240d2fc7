#include "ledger/register/RegisterOrder.h"

#include "ledger/KeyLists.h"
#include "ledger/investments/InvestmentRecord.h"
#include "ledger/investments/TradePlaces.h"
#include "ledger/register/RegisterRows.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <numeric>
#include <string>
#include <string_view>
#include <unordered_map>

namespace corvanta::inline ledger {
namespace {

using Keys = std::vector<std::uint64_t>;
using Order = std::vector<std::uint32_t>;

// Orders by 16 bits after the other, so that equal keys keep their order; bits in which no two keys
// differ cost nothing.
Order SortedByKeys(const Keys& keys) {
  constexpr int kBits = 16;
  Order order(keys.size());
  std::iota(order.begin(), order.end(), 0U);
  Order next(keys.size());
  std::vector<std::uint32_t> starts(std::size_t{1} << kBits);
  for (int shift = 0; shift < 64; shift += kBits) {
    const auto digit = [&](std::uint32_t row) {
      return static_cast<std::size_t>((keys[row] >> shift) & 0xffffU);
    };
    std::fill(starts.begin(), starts.end(), 0U);
    for (std::uint32_t row = 0; row < keys.size(); ++row) ++starts[digit(row)];
    if (std::ranges::find(starts, keys.size()) != starts.end()) continue;
    std::exclusive_scan(starts.begin(), starts.end(), starts.begin(), 0U);
    for (const std::uint32_t row : order) next[starts[digit(row)]++] = row;
    order.swap(next);
  }
  return order;
}

// A number whose order is that of the amounts; 0 stands before all of them.
std::uint64_t KeyOf(double amount) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(amount + 0.0);
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

// Gives keys numbers from 0, in the order in which they are met first.
class Numbering {
 public:
  std::uint32_t Of(std::int64_t key) {
    std::uint32_t& number = Slot(key);
    if (number == 0) {
      keys_.push_back(key);
      number = static_cast<std::uint32_t>(keys_.size());
    }
    return number - 1;
  }
  [[nodiscard]] const std::vector<std::int64_t>& Keys() const { return keys_; }

 private:
  std::uint32_t& Slot(std::int64_t key) {
    constexpr std::int64_t kDense = 1 << 20;
    if (key < 0 || key >= kDense) return sparse_[key];
    const auto place = static_cast<std::size_t>(key);
    if (place >= dense_.size()) dense_.resize(place + 1);
    return dense_[place];
  }

  std::vector<std::int64_t> keys_;
  std::vector<std::uint32_t> dense_;  // numbers from 1; 0 for none
  std::unordered_map<std::int64_t, std::uint32_t> sparse_;
};

// The places of texts among each other, alike ones at the same place, empty ones at the first.
Keys Ranks(const std::vector<std::string>& texts) {
  std::map<std::string, std::uint64_t> places;
  std::vector<std::string> folded;
  for (const std::string& text : texts) places.emplace(folded.emplace_back(FoldCase(text)), 0);
  std::uint64_t place = 0;
  for (auto& [text, rank] : places) rank = ++place;
  Keys ranks;
  for (const std::string& text : folded) ranks.push_back(places.at(text));
  return ranks;
}

// Texts of rows, one behind the other.
class RowTexts {
 public:
  void Add(std::size_t row, std::string_view text) {
    const std::string folded = FoldCase(text);
    std::uint64_t head = 0;
    for (std::size_t i = 0; i < sizeof(head); ++i) {
      head = head << 8U | (i < folded.size() ? static_cast<unsigned char>(folded[i]) : 0U);
    }
    cells_.push_back({head, all_.size(), static_cast<std::uint32_t>(folded.size()),
                      static_cast<std::uint32_t>(row)});
    all_ += folded;
  }

  // Writes the texts' ranks, from 1, to their rows.
  void RankInto(Keys& keys) {
    Keys heads;
    heads.reserve(cells_.size());
    for (const Cell& cell : cells_) heads.push_back(cell.head);
    Order order = SortedByKeys(heads);
    std::uint64_t rank = 0;
    for (auto first = order.begin(); first != order.end();) {
      const auto end = std::find_if(
          first, order.end(), [&](std::uint32_t cell) { return heads[cell] != heads[*first]; });
      std::sort(first, end, [this](std::uint32_t a, std::uint32_t b) { return Rest(a) < Rest(b); });
      for (auto cell = first; cell != end; ++cell) {
        if (cell == first || Rest(*cell) != Rest(*std::prev(cell))) ++rank;
        keys[cells_[*cell].row] = rank;
      }
      first = end;
    }
  }

 private:
  struct Cell {
    std::uint64_t head;  // its first bytes, by which nearly all are brought in order
    std::size_t start;
    std::uint32_t length;
    std::uint32_t row;
  };
  // The bytes behind the head. A text that ends within it has none, and its head is that of no
  // longer one unless that goes on with zeros, which no text does.
  [[nodiscard]] std::string_view Rest(std::uint32_t cell) const {
    const Cell& of = cells_[cell];
    const std::string_view text = std::string_view(all_).substr(of.start, of.length);
    return text.substr(std::min(sizeof(of.head), text.size()));
  }

  std::string all_;
  std::vector<Cell> cells_;
};

class Sorter {
 public:
  explicit Sorter(RegisterRows& rows) : rows_(rows) { rows.ReadAll(); }

  Order Sorted(RegisterColumn column, bool isDescending) {
    Keys keys = KeysOf(column);
    if (isDescending) {
      for (std::uint64_t& key : keys) key = ~key;
    }
    return SortedByKeys(keys);
  }

 private:
  // What could not be read stands as an entry without anything.
  template <typename KeyFor>
  Keys Each(const KeyFor& keyFor) {
    Keys keys(rows_.Count());
    std::size_t row = keys.size();
    for (const RegisterEntry& entry : rows_.Entries()) keys[--row] = keyFor(entry);
    const RegisterEntry none;
    while (row > 0) keys[--row] = keyFor(none);
    return keys;
  }

  Keys KeysOf(RegisterColumn column) {
    using Entry = const RegisterEntry&;
    const RegisterNames& names = rows_.Names();
    switch (column) {
      case RegisterColumn::Date:
        return Each([](Entry entry) { return KeyOf(entry.date.Serial()); });
      case RegisterColumn::Payee:
        return PayeeKeys();
      case RegisterColumn::Category:
        return CategoryKeys();
      case RegisterColumn::Payment:
        return NameKeys([](Entry entry) { return entry.paymentId; },
                        [&](std::int64_t key) { return names.Payment(key); });
      case RegisterColumn::Reference:
        return TextKeys("Reference");
      case RegisterColumn::Description:
        return TextKeys("Description");
      case RegisterColumn::Status:
        return Each([](Entry entry) { return static_cast<std::uint64_t>(*entry.status); });
      case RegisterColumn::PaidOut:
        return Each([](Entry entry) { return entry.amount < 0 ? KeyOf(entry.amount) : 0; });
      case RegisterColumn::PaidIn:
        return Each([](Entry entry) { return entry.amount < 0 ? 0 : KeyOf(entry.amount); });
      case RegisterColumn::Balance:
        return Each([](Entry entry) { return KeyOf(entry.balance); });
      case RegisterColumn::Account:
        return NameKeys([](Entry entry) { return entry.accountId; },
                        [&](std::int64_t key) { return names.Account(key); });
    }
    return {};
  }

  // By the texts that the entries' keys stand for: few, so each is looked up and folded once.
  template <typename KeyFor, typename NameOf>
  Keys NameKeys(const KeyFor& keyFor, const NameOf& nameOf) {
    Numbering numbers;
    Keys keys = Each([&](const RegisterEntry& entry) { return numbers.Of(keyFor(entry)); });
    std::vector<std::string> names;
    for (const std::int64_t key : numbers.Keys()) names.emplace_back(nameOf(key));
    const Keys ranks = Ranks(names);
    for (std::uint64_t& key : keys) key = ranks[static_cast<std::size_t>(key)];
    return keys;
  }

  // Of a transfer the other account is shown, as long as the other half is there.
  Keys PayeeKeys() {
    const NamesByKey twins = Twins();
    return NameKeys(
        [&](const RegisterEntry& entry) -> std::int64_t {
          const bool isTwin = entry.transferId != 0 && twins.contains(entry.transferId);
          return isTwin ? -std::int64_t{entry.transferId} : entry.payeeId;
        },
        [&](std::int64_t key) {
          return key < 0 ? std::string_view(twins.at(-key)) : rows_.Names().Payee(key);
        });
  }

  NamesByKey Twins() {
    std::vector<std::int64_t> keys;
    for (const RegisterEntry& entry : rows_.Entries()) {
      if (entry.transferId != 0) keys.push_back(entry.transferId);
    }
    NamesByKey twins;
    ForEachKeyList(
        keys, [&](const std::string& list) { twins.merge(TwinAccounts(rows_.Store(), list)); });
    return twins;
  }

  // Of a trade what was done is shown in place of the category: by its action's name among the
  // categories, then by the units and the price.
  Keys CategoryKeys() {
    const TradePlaces trades = ReadTrades();
    Keys keys = NameKeys(
        [&](const RegisterEntry& entry) {
          const auto trade = trades.find(entry.transactionId);
          return trade == trades.end() ? std::int64_t{entry.categoryId} : -trade->second.action;
        },
        [&](std::int64_t key) -> std::string_view {
          if (key < 0) return ActionName(-key);
          const std::string* name = rows_.Names().Category(key);
          return name == nullptr ? std::string_view() : *name;
        });
    if (trades.empty()) return keys;
    constexpr int kHalf = 32;
    const Keys places = Each([&](const RegisterEntry& entry) {
      const auto trade = trades.find(entry.transactionId);
      return trade == trades.end() ? 0 : trade->second.place;
    });
    for (std::size_t row = 0; row < keys.size(); ++row)
      keys[row] = keys[row] << kHalf | places[row];
    return keys;
  }

  TradePlaces ReadTrades() {
    std::vector<std::int64_t> keys;
    for (const RegisterEntry& entry : rows_.Entries()) {
      if (rows_.Names().IsInvestment(entry.payeeId)) keys.push_back(entry.transactionId);
    }
    return ReadTradePlaces(rows_.Store(), keys);
  }

  // Texts are many: they are brought in order as they are.
  Keys TextKeys(const char* column) {
    RowTexts texts;
    rows_.VisitTexts(column, [&](std::size_t row, std::string_view text) {
      if (!text.empty()) texts.Add(row, text);
    });
    Keys keys(rows_.Count());
    texts.RankInto(keys);
    return keys;
  }

  RegisterRows& rows_;
};

}  // namespace

std::vector<std::uint32_t> SortedRegister(RegisterRows& rows, RegisterColumn column,
                                          bool isDescending) {
  const auto& last = rows.LastOrder();
  if (last && last->column == column && last->isDescending == isDescending) return last->rows;
  Order order = Sorter(rows).Sorted(column, isDescending);
  if (rows.IsWhole()) rows.KeepOrder({column, isDescending, order});
  return order;
}

}  // namespace corvanta::inline ledger
