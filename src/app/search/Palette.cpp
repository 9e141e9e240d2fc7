#include "app/search/Palette.h"

#include "ledger/search/SearchQuery.h"
#include "platform/Locale.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <utility>

namespace corvanta::inline app {
namespace {

enum Rank { kWhole, kBeginning, kWordBeginnings, kWithin, kInDetail, kLetters, kNone };

std::vector<std::string_view> WordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  std::size_t start = 0;
  while ((start = text.find_first_not_of(' ', start)) != std::string_view::npos) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    words.push_back(text.substr(start, end - start));
    start = end;
  }
  return words;
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80;
}

bool BeginsAWord(std::string_view name, std::string_view word) {
  for (std::size_t at = name.find(word); at != std::string_view::npos;
       at = name.find(word, at + 1)) {
    if (at == 0 || !IsLetter(name[at - 1])) return true;
  }
  return false;
}

bool HasLettersInOrder(std::string_view name, std::string_view letters) {
  std::size_t at = 0;
  for (const char letter : letters) {
    if (letter == ' ') continue;
    at = name.find(letter, at);
    if (at == std::string_view::npos) return false;
    ++at;
  }
  return true;
}

Rank RankOf(std::string_view name, std::string_view detail, std::string_view text,
            const std::vector<std::string_view>& words) {
  if (name == text) return kWhole;
  if (name.starts_with(text)) return kBeginning;
  const auto all = [&](const auto& fits) { return std::ranges::all_of(words, fits); };
  if (all([&](std::string_view word) { return BeginsAWord(name, word); })) return kWordBeginnings;
  const auto isIn = [](std::string_view in, std::string_view word) {
    return in.find(word) != std::string_view::npos;
  };
  if (all([&](std::string_view word) { return isIn(name, word); })) return kWithin;
  const bool isTold =
      all([&](std::string_view word) { return isIn(name, word) || isIn(detail, word); });
  if (isTold) return kInDetail;
  // Two letters would be in nearly every name.
  return text.size() > 2 && HasLettersInOrder(name, text) ? kLetters : kNone;
}

std::optional<Date> DayOf(std::string_view text, const Locale& locale, Date today) {
  const std::string word = FoldCase(Trim(text));
  if (word == "today") return today;
  if (word == "yesterday") return today.AddDays(-1);
  if (word == "tomorrow") return today.AddDays(1);
  return locale.ParseDate(text);
}

}  // namespace

Palette::Palette(std::vector<PaletteItem> items, const Locale& locale, Date today)
    : locale_(locale), today_(today) {
  for (PaletteItem& item : items) {
    Entry entry{{}, FoldForSearch(item.name), FoldForSearch(item.detail)};
    entry.item = std::move(item);
    entries_.push_back(std::move(entry));
  }
}

std::size_t Palette::RecentPlace(const PaletteItem& item) const {
  const auto found = std::ranges::find_if(recent_, [&](const PaletteItem& one) {
    return one.kind == item.kind && one.name == item.name;
  });
  return static_cast<std::size_t>(found - recent_.begin());
}

std::vector<PaletteItem> Palette::Readings(std::string_view text) const {
  std::vector<PaletteItem> readings;
  const std::string typed(Trim(text));
  if (typed.empty()) return readings;
  if (const auto day = DayOf(typed, locale_, today_)) {
    readings.push_back({PaletteKind::Day, typed, locale_.FormatLongDate(*day), day->Serial()});
  }
  const std::vector<SoughtAmount> amounts = SoughtAmounts(typed, locale_);
  if (!amounts.empty()) {
    const double value = amounts.front().value * (amounts.front().sign < 0 ? -1 : 1);
    readings.push_back({PaletteKind::Amount, typed, locale_.FormatNumber(value), 0});
  }
  return readings;
}

std::vector<PaletteItem> Palette::Find(std::string_view text, std::size_t most) const {
  const std::string folded = FoldForSearch(text);
  const std::vector<std::string_view> words = WordsOf(folded);
  std::vector<std::pair<Rank, const Entry*>> fitting;
  for (const Entry& entry : entries_) {
    const Rank rank = RankOf(entry.name, entry.detail, folded, words);
    if (rank != kNone) fitting.emplace_back(rank, &entry);
  }
  const auto order = [this](const std::pair<Rank, const Entry*>& one) {
    const Entry& entry = *one.second;
    return std::tuple(one.first, RecentPlace(entry.item), entry.item.kind, entry.name.size(),
                      std::string_view(entry.name));
  };
  std::ranges::stable_sort(fitting, {}, order);
  std::vector<PaletteItem> found = Readings(text);
  for (const auto& [rank, entry] : fitting) {
    if (found.size() >= most) break;
    found.push_back(entry->item);
  }
  if (!words.empty()) found.push_back({PaletteKind::Text, std::string(Trim(text)), {}, 0});
  return found;
}

}  // namespace corvanta::inline app
