// What can be gone to from one box, and what comes first of what fits the letters typed.
#pragma once

#include "platform/Date.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

enum class PaletteKind { Account, Payee, Category, Command, Amount, Day, Text };

struct PaletteItem {
  PaletteKind kind = PaletteKind::Text;
  std::string name;      // of an amount, a day or a text: as it was typed
  std::string detail;    // a word about it, which is looked through, too
  std::int64_t key = 0;  // of the account, payee or category; the command's place; the day's serial

  bool operator==(const PaletteItem&) const = default;
};

class Palette {
 public:
  // `today` is what the words "today", "yesterday" and "tomorrow" stand by.
  Palette(std::vector<PaletteItem> items, const Locale& locale, Date today);

  // These were chosen before, the latest first: among what fits as well they come first, and
  // without a letter typed they are offered before everything else.
  void SetRecent(std::vector<PaletteItem> recent) { recent_ = std::move(recent); }

  // The items that have all words of the text, in name or detail, the best first and no more than
  // `most`. A day or an amount that the text may be read as stands before them, and the search for
  // the text behind them. A name that is the text comes before one that begins with it, then one
  // whose words begin with the typed words, then one that has them anywhere, then one that has
  // them in its detail, and last one whose letters come in their order. What fits as well stands in
  // the order of the kinds, shorter names first.
  [[nodiscard]] std::vector<PaletteItem> Find(std::string_view text, std::size_t most = 40) const;

 private:
  struct Entry {
    PaletteItem item;
    std::string name;    // folded
    std::string detail;  // folded
  };
  [[nodiscard]] std::vector<PaletteItem> Readings(std::string_view text) const;
  [[nodiscard]] std::size_t RecentPlace(const PaletteItem& item) const;

  std::vector<Entry> entries_;
  std::vector<PaletteItem> recent_;
  const Locale& locale_;
  Date today_;
};

}  // namespace corvanta::inline app
