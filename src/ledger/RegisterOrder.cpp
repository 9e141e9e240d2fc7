#include "ledger/RegisterOrder.h"

#include "ledger/RegisterRows.h"
#include "platform/TextCase.h"
#include "store/SqlText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <numeric>
#include <unordered_map>

namespace corvanta {
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

// The places of texts among each other, alike ones at the same place, empty ones at the first.
template <typename Key>
std::unordered_map<Key, std::uint64_t> Ranks(const std::unordered_map<Key, std::string>& texts) {
  std::map<std::string, std::uint64_t> places;
  std::unordered_map<Key, std::string> folded;
  for (const auto& [key, text] : texts) {
    folded[key] = FoldCase(text);
    places.emplace(folded[key], 0);
  }
  std::uint64_t place = 0;
  for (auto& [text, rank] : places) rank = ++place;
  std::unordered_map<Key, std::uint64_t> ranks;
  for (const auto& [key, text] : folded) ranks[key] = places.at(text);
  return ranks;
}

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
  template <typename KeyFor>
  Keys Each(const KeyFor& keyFor) {
    Keys keys(rows_.Count());
    for (std::size_t row = 0; row < keys.size(); ++row) keys[row] = keyFor(rows_.Entry(row));
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
        return NameKeys(&RegisterEntry::categoryId, [&](std::int32_t key) {
          const std::string* name = names.Category(key);
          return name == nullptr ? std::string() : *name;
        });
      case RegisterColumn::Payment:
        return NameKeys(&RegisterEntry::paymentId,
                        [&](std::int32_t key) { return std::string(names.Payment(key)); });
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
    }
    return {};
  }

  template <typename NameOf>
  Keys NameKeys(std::int32_t RegisterEntry::*member, const NameOf& nameOf) {
    std::unordered_map<std::int32_t, std::string> texts;
    for (std::size_t row = 0; row < rows_.Count(); ++row) {
      const std::int32_t key = rows_.Entry(row).*member;
      if (const auto [place, isNew] = texts.try_emplace(key); isNew) place->second = nameOf(key);
    }
    const auto ranks = Ranks(texts);
    return Each([&](const RegisterEntry& entry) { return ranks.at(entry.*member); });
  }

  // Of a transfer the other account is shown, as long as the other half is there.
  Keys PayeeKeys() {
    const NamesByKey twins = Twins();
    std::unordered_map<std::int64_t, std::string> texts;
    const auto keyOf = [&](const RegisterEntry& entry) -> std::int64_t {
      return twins.contains(entry.transferId) ? -std::int64_t{entry.transferId} : entry.payeeId;
    };
    for (std::size_t row = 0; row < rows_.Count(); ++row) {
      const std::int64_t key = keyOf(rows_.Entry(row));
      const auto [place, isNew] = texts.try_emplace(key);
      if (isNew) place->second = key < 0 ? twins.at(-key) : rows_.Names().Payee(key);
    }
    const auto ranks = Ranks(texts);
    return Each([&](const RegisterEntry& entry) { return ranks.at(keyOf(entry)); });
  }

  NamesByKey Twins() {
    constexpr int kAtOnce = 500;
    NamesByKey twins;
    std::string keys;
    int count = 0;
    const auto read = [&] {
      if (!keys.empty()) twins.merge(TwinAccounts(rows_.Store(), keys));
      keys.clear();
      count = 0;
    };
    for (std::size_t row = 0; row < rows_.Count(); ++row) {
      const std::int32_t twin = rows_.Entry(row).transferId;
      if (twin == 0) continue;
      keys += (keys.empty() ? "" : ",") + SqlNumber(std::int64_t{twin});
      if (++count == kAtOnce) read();
    }
    read();
    return twins;
  }

  // Texts are many: they are brought in order as they are.
  Keys TextKeys(const char* column) {
    std::vector<std::string> texts = rows_.Texts(column);
    for (std::string& text : texts) text = FoldCase(text);
    Order order(texts.size());
    std::iota(order.begin(), order.end(), 0U);
    std::ranges::sort(order, {},
                      [&](std::uint32_t row) -> const std::string& { return texts[row]; });
    Keys keys(texts.size());
    std::uint64_t rank = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
      if (i > 0 && texts[order[i]] != texts[order[i - 1]]) ++rank;
      keys[order[i]] = rank;
    }
    return keys;
  }

  RegisterRows& rows_;
};

}  // namespace

std::vector<std::uint32_t> SortedRegister(RegisterRows& rows, RegisterColumn column,
                                          bool isDescending) {
  return Sorter(rows).Sorted(column, isDescending);
}

}  // namespace corvanta
