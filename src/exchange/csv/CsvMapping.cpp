#include "exchange/csv/CsvMapping.h"

#include "platform/BankWords.h"
#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

namespace corvanta::inline exchange {
namespace {

constexpr int kMaxColumns = 9999;
constexpr std::array<std::pair<DateOrder, std::string_view>, 3> kOrders = {
    {{DateOrder::DayMonthYear, "Day/Month/Year"},
     {DateOrder::MonthDayYear, "Month/Day/Year"},
     {DateOrder::YearMonthDay, "Year/Month/Day"}}};

constexpr std::array<std::pair<std::string_view, int CsvMapping::*>, 9> kColumns = {
    {{"DATE", &CsvMapping::date},
     {"PAYEE", &CsvMapping::payee},
     {"CATEGORY", &CsvMapping::category},
     {"INCOME", &CsvMapping::income},
     {"EXPENSE", &CsvMapping::expense},
     {"SIGN", &CsvMapping::sign},
     {"DESCRIPTION", &CsvMapping::description},
     {"REFERENCE", &CsvMapping::reference},
     {"NUMBER", &CsvMapping::number}}};
constexpr std::size_t kAlwaysNamed = 5;  // of these; the others only where there are some

// A saved mapping begins with it; one of a former version with its columns.
constexpr std::string_view kVersion = "2";

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || stop != end || number < 0 || number > kMaxColumns) {
    return std::nullopt;
  }
  return number;
}

std::vector<std::string_view> Divide(std::string_view text, char at) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(at);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

constexpr std::string_view kBar = "|";

// Without the bar that stands between the parts.
std::string Part(std::string text) {
  std::ranges::replace(text, '|', ' ');
  return text;
}

std::string MarkText(std::optional<DecimalMark> mark) {
  if (!mark) return "file";
  return *mark == DecimalMark::Point ? "point" : "comma";
}

// The next part of the text, which is taken off; nullopt where there is none.
std::optional<std::string_view> TakePart(std::string_view& text) {
  const std::size_t end = text.find(kBar);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(end + 1);
  return part;
}

}  // namespace

std::string CsvMapping::ColumnsText() const {
  std::string text;
  for (std::size_t i = 0; i < kColumns.size(); ++i) {
    const auto& [name, column] = kColumns[i];
    if (i >= kAlwaysNamed && this->*column == 0) continue;
    if (!text.empty()) text += ",";
    text += std::string(name) + ":" + std::to_string(this->*column);
  }
  return text;
}

bool CsvMapping::SetColumns(std::string_view text) {
  CsvMapping changed = *this;
  for (const auto& [name, column] : kColumns) changed.*column = 0;
  for (const std::string_view item : Divide(text, ',')) {
    const std::size_t colon = item.find(':');
    if (colon == std::string_view::npos) return false;
    const std::string_view name = Trim(item.substr(0, colon));
    const auto* const known = std::ranges::find_if(
        kColumns, [&](const auto& entry) { return EqualFolded(entry.first, name); });
    const std::optional<int> place = WholeNumber(Trim(item.substr(colon + 1)));
    if (known == kColumns.end() || !place) return false;
    changed.*(known->second) = *place;
  }
  *this = changed;
  return true;
}

std::string_view DateOrderText(DateOrder order) {
  for (const auto& [known, text] : kOrders) {
    if (known == order) return text;
  }
  return {};
}

std::optional<DateOrder> DateOrderOf(std::string_view text) {
  for (const auto& [order, known] : kOrders) {
    if (EqualFolded(known, text)) return order;
  }
  return std::nullopt;
}

std::optional<std::string> SeparatorOf(std::string_view text) {
  if (text == "\\t" || EqualFolded(text, "tab")) return "\t";
  if (TextLength(text) != 1 || text == "\"" || text == "\r" || text == "\n") return std::nullopt;
  return std::string(text);
}

std::optional<int> SideOf(std::string_view cell, const CsvMapping& mapping) {
  if (Trim(cell).empty()) return 0;
  const std::string word = PlainWord(cell);
  const auto isAmong = [&](std::string_view words) {
    return std::ranges::any_of(Divide(words, ','), [&](std::string_view own) {
      return !Trim(own).empty() && PlainWord(own) == word;
    });
  };
  if (isAmong(mapping.debitWords)) return -1;
  if (isAmong(mapping.creditWords)) return 1;
  return SideOfWord(word);
}

std::string ToText(const SavedCsvMapping& saved) {
  const CsvMapping& mapping = saved.mapping;
  const std::string separator = mapping.separator == kBar   ? "bar"
                                : mapping.separator == "\t" ? "tab"
                                                            : mapping.separator;
  std::string text(kVersion);
  for (const std::string& part :
       {mapping.ColumnsText(), std::to_string(mapping.skip), separator,
        std::string(DateOrderText(mapping.order)), std::string(mapping.zeroIsEmpty ? "1" : "0"),
        MarkText(mapping.decimalMark), saved.encoding, Part(mapping.debitWords),
        Part(mapping.creditWords), saved.header}) {
    text += kBar;
    text += part;
  }
  return text;
}

std::optional<SavedCsvMapping> ReadSavedMapping(std::string_view text) {
  constexpr std::size_t kFormerParts = 6;
  constexpr std::size_t kMaxParts = 9;
  std::string_view rest = text;
  const bool isFormer = TakePart(rest) != kVersion;
  if (isFormer) rest = text;
  std::array<std::string_view, kMaxParts> parts;
  for (std::size_t i = 0; i < (isFormer ? kFormerParts : kMaxParts); ++i) {
    const std::optional<std::string_view> part = TakePart(rest);
    if (!part) return std::nullopt;
    parts[i] = *part;
  }
  const auto& [columns, skip, separator, order, zero, mark, encoding, debit, credit] = parts;
  SavedCsvMapping saved;
  saved.header = rest;
  saved.encoding = encoding;
  CsvMapping& mapping = saved.mapping;
  const auto rows = WholeNumber(skip);
  const auto sign = SeparatorOf(separator == "bar" ? kBar : separator);
  const auto dates = DateOrderOf(order);
  if (!mapping.SetColumns(columns) || !rows || !sign || !dates) return std::nullopt;
  mapping.skip = *rows;
  mapping.separator = *sign;
  mapping.order = *dates;
  mapping.zeroIsEmpty = zero == "1";
  if (mark == "point") mapping.decimalMark = DecimalMark::Point;
  if (mark == "comma") mapping.decimalMark = DecimalMark::Comma;
  mapping.debitWords = debit;
  mapping.creditWords = credit;
  return saved;
}

}  // namespace corvanta::inline exchange
