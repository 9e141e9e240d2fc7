#include "exchange/CsvMapping.h"

#include "platform/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

namespace corvanta {
namespace {

constexpr int kMostColumns = 9999;
constexpr std::array<std::pair<DateOrder, std::string_view>, 3> kOrders = {
    {{DateOrder::DayMonthYear, "Day/Month/Year"},
     {DateOrder::MonthDayYear, "Month/Day/Year"},
     {DateOrder::YearMonthDay, "Year/Month/Day"}}};

constexpr std::array<std::pair<std::string_view, int CsvMapping::*>, 6> kColumns = {
    {{"DATE", &CsvMapping::date},
     {"PAYEE", &CsvMapping::payee},
     {"CATEGORY", &CsvMapping::category},
     {"INCOME", &CsvMapping::income},
     {"EXPENSE", &CsvMapping::expense},
     {"SIGN", &CsvMapping::sign}}};

// Words of banks for money out and money in. "S" and "H" are the German Soll and Haben.
constexpr std::array<std::string_view, 11> kOut = {
    "-", "d", "dr", "db", "debit", "dbit", "s", "out", "withdrawal", "payment", "expense"};
constexpr std::array<std::string_view, 10> kIn = {"+", "c",  "cr",      "credit",  "crdt",
                                                  "h", "in", "deposit", "receipt", "income"};

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || stop != end || number < 0 || number > kMostColumns) {
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

}  // namespace

std::string CsvMapping::ColumnsText() const {
  std::string text;
  for (const auto& [name, column] : kColumns) {
    if (name == "SIGN" && sign == 0) continue;
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
    const std::optional<int> number = WholeNumber(Trim(item.substr(colon + 1)));
    if (known == kColumns.end() || !number) return false;
    changed.*(known->second) = *number;
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

std::optional<int> SideOf(std::string_view cell) {
  const std::string word = ToLower(Trim(cell));
  if (word.empty()) return 0;
  if (std::ranges::find(kOut, word) != kOut.end() || word == "\xE2\x88\x92") return -1;
  if (std::ranges::find(kIn, word) != kIn.end()) return 1;
  return std::nullopt;
}

std::string ToText(const SavedCsvMapping& saved) {
  const CsvMapping& mapping = saved.mapping;
  std::string mark = "file";
  if (mapping.decimalMark) mark = *mapping.decimalMark == DecimalMark::Point ? "point" : "comma";
  return mapping.ColumnsText() + "|" + std::to_string(mapping.skip) + "|" +
         (mapping.separator == "|"    ? "bar"
          : mapping.separator == "\t" ? "tab"
                                      : mapping.separator) +
         "|" + std::string(DateOrderText(mapping.order)) + "|" + (mapping.zeroIsEmpty ? "1" : "0") +
         "|" + mark + "|" + saved.header;
}

std::optional<SavedCsvMapping> ReadSavedMapping(std::string_view text) {
  constexpr std::size_t kParts = 6;
  std::array<std::string_view, kParts> parts;
  for (std::string_view& part : parts) {
    const std::size_t end = text.find('|');
    if (end == std::string_view::npos) return std::nullopt;
    part = text.substr(0, end);
    text.remove_prefix(end + 1);
  }
  const auto& [columns, skip, separator, order, zero, mark] = parts;
  SavedCsvMapping saved;
  saved.header = text;
  CsvMapping& mapping = saved.mapping;
  const auto rows = WholeNumber(skip);
  const auto sign = SeparatorOf(separator == "bar" ? std::string_view("|") : separator);
  const auto dates = DateOrderOf(order);
  if (!mapping.SetColumns(columns) || !rows || !sign || !dates) return std::nullopt;
  mapping.skip = *rows;
  mapping.separator = *sign;
  mapping.order = *dates;
  mapping.zeroIsEmpty = zero == "1";
  if (mark == "point") mapping.decimalMark = DecimalMark::Point;
  if (mark == "comma") mapping.decimalMark = DecimalMark::Comma;
  return saved;
}

}  // namespace corvanta
