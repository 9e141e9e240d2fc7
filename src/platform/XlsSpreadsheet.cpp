// The binary form of worksheets: records of a number, a length and that many bytes.
#include "platform/XlsSpreadsheet.h"

#include "platform/CompoundFile.h"

#include <unicode/unistr.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace corvanta::inline platform {
namespace {

constexpr std::size_t kMaxRows = 65536;
constexpr std::size_t kMaxColumns = 256;
constexpr int kLongestText = 4000;  // UTF-16 units: a record holds 8,224 bytes

// Numbers of cell formats, in the order in which they are written.
constexpr std::uint64_t kPlain = 15;
constexpr std::uint64_t kBold = 16;

class Records {
 public:
  // A record of two-byte numbers.
  void Add(std::uint64_t kind, std::initializer_list<std::uint64_t> words) {
    std::string body;
    for (const std::uint64_t word : words) AppendNumber(body, word, 2);
    Add(kind, body);
  }
  void Add(std::uint64_t kind, const std::string& body) {
    AppendNumber(bytes_, kind, 2);
    AppendNumber(bytes_, body.size(), 2);
    bytes_ += body;
  }
  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// The text in two-byte units behind its length, which takes `lengthBytes`.
std::string Text(const std::string& text, int lengthBytes) {
  icu::UnicodeString units = icu::UnicodeString::fromUTF8(text);
  if (units.length() > kLongestText) {
    // Never half of a character.
    units.truncate(units.getChar32Start(kLongestText));
  }
  std::string bytes;
  AppendNumber(bytes, static_cast<std::uint64_t>(units.length()), lengthBytes);
  bytes += '\1';
  for (std::int32_t i = 0; i < units.length(); ++i) AppendNumber(bytes, units.charAt(i), 2);
  return bytes;
}

void AddBegin(Records& records, std::uint64_t kind) {
  records.Add(0x0809, {0x0600, kind, 0x0DBB, 0x07CC, 0x0041, 0, 0x0006, 0});
}

void AddFont(Records& records, bool isBold) {
  std::string body;
  for (const std::uint64_t word :
       {200U, isBold ? 1U : 0U, 0x7FFFU, isBold ? 700U : 400U, 0U, 0U, 0U}) {
    AppendNumber(body, word, 2);
  }
  records.Add(0x0031, body + Text("Arial", 1));
}

// Styles have no parent; the formats of cells are based on the first of them.
void AddFormat(Records& records, std::uint64_t font, bool isStyle) {
  records.Add(0x00E0, {font, 0, isStyle ? 0xFFF5U : 0x0001U, 0x0020, isStyle ? 0xF400U : 0x0000U, 0,
                       0, 0, 0, 0x20C0});
}

// All but the sheet; `sheet` is where that begins.
std::string Globals(const std::string& sheetName, std::size_t sheet) {
  Records records;
  AddBegin(records, 5);
  records.Add(0x0042, {0x04B0});
  records.Add(0x003D, {0, 0, 0x4000, 0x2000, 0x0038, 0, 0, 1, 600});
  for (const bool isBold : {false, true, false, false}) AddFont(records, isBold);
  for (std::uint64_t i = 0; i < kPlain; ++i) AddFormat(records, 0, true);
  AddFormat(records, 0, false);
  AddFormat(records, 1, false);
  records.Add(0x0293, {0x8000, 0xFF00});
  std::string body;
  AppendNumber(body, sheet, 4);
  AppendNumber(body, 0, 2);
  records.Add(0x0085, body + Text(sheetName, 1));
  records.Add(0x000A, {});
  return records.Bytes();
}

void AddCell(Records& records, std::size_t row, std::size_t column, const SpreadsheetCell& cell) {
  std::string body;
  for (const std::uint64_t word : {static_cast<std::uint64_t>(row),
                                   static_cast<std::uint64_t>(column), row == 0 ? kBold : kPlain}) {
    AppendNumber(body, word, 2);
  }
  if (const auto* number = std::get_if<double>(&cell); number != nullptr) {
    if (!std::isfinite(*number)) return;
    AppendNumber(body, std::bit_cast<std::uint64_t>(*number), 8);
    records.Add(0x0203, body);
  } else if (const auto* text = std::get_if<std::string>(&cell); text != nullptr) {
    records.Add(0x0204, body + Text(*text, 2));
  }
}

// The header line stays in sight.
void AddWindow(Records& records) {
  records.Add(0x023E, {0x07BE, 0, 0, 0x0040, 0, 0, 0, 0, 0});
  records.Add(0x0041, {0, 1, 1, 0, 2});
  std::string selection = "\2";
  for (const std::uint64_t word : {1U, 0U, 0U, 1U, 1U, 1U, 0U}) AppendNumber(selection, word, 2);
  records.Add(0x001D, selection);
}

std::string Sheet(const SpreadsheetTable& table, const std::vector<double>& widths) {
  Records records;
  AddBegin(records, 0x10);
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const auto width = static_cast<std::uint64_t>(std::lround(widths[i] * 256));
    records.Add(0x007D, {i, i, width, kPlain, 0, 0});
  }
  std::size_t columns = table.headers.size();
  for (const auto& row : table.rows) columns = std::max(columns, row.size());
  std::string extent;
  AppendNumber(extent, 0, 4);
  AppendNumber(extent, table.rows.size() + 1, 4);
  AppendNumber(extent, 0, 2);
  AppendNumber(extent, columns, 2);
  AppendNumber(extent, 0, 2);
  records.Add(0x0200, extent);
  for (std::size_t i = 0; i < table.headers.size(); ++i) AddCell(records, 0, i, table.headers[i]);
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    for (std::size_t i = 0; i < table.rows[row].size(); ++i) {
      AddCell(records, row + 1, i, table.rows[row][i]);
    }
  }
  AddWindow(records);
  records.Add(0x000A, {});
  return records.Bytes();
}

}  // namespace

bool FitsXls(const SpreadsheetTable& table) {
  return table.rows.size() < kMaxRows && table.headers.size() <= kMaxColumns &&
         std::ranges::all_of(table.rows, [](const auto& row) { return row.size() <= kMaxColumns; });
}

std::string XlsWorkbookOf(const SpreadsheetTable& table, const std::string& sheetName,
                          const std::vector<double>& widths) {
  // The globals are as long wherever the sheet begins.
  const std::size_t begin = Globals(sheetName, 0).size();
  return CompoundFileOf("Workbook", Globals(sheetName, begin) + Sheet(table, widths));
}

}  // namespace corvanta::inline platform
