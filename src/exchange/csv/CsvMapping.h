// Which column of a CSV file holds what.
#pragma once

#include "platform/Locale.h"
#include "platform/NumberStyle.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvanta::inline exchange {

// Columns are counted from 1; 0 for none.
struct CsvMapping {
  int date = 0;
  int payee = 0;
  int category = 0;  // optional
  int income = 0;
  int expense = 0;      // may be the income column, whose values then carry their sign
  int sign = 0;         // optional: a sign, or a word such as Debit or Credit
  int description = 0;  // optional, as all that follow
  int reference = 0;
  int number = 0;  // of a cheque; stands before the reference
  int skip = 0;    // rows before the first transaction
  std::string separator = ",";
  DateOrder order = DateOrder::DayMonthYear;
  bool zeroIsEmpty = false;                // in the two amount columns
  std::optional<DecimalMark> decimalMark;  // nullopt: found from the file
  // The words of the sign column that the person names, with commas between several.
  std::string debitWords = {};
  std::string creditWords = {};

  bool operator==(const CsvMapping&) const = default;

  // "DATE:1,PAYEE:2,CATEGORY:3,INCOME:4,EXPENSE:5", with ",SIGN:6", ",DESCRIPTION:7",
  // ",REFERENCE:8" and ",NUMBER:9" where there are such columns.
  [[nodiscard]] std::string ColumnsText() const;
  // Sets the columns from such a text, in any order, those it leaves out to none. False for a text
  // that is none, which changes nothing.
  [[nodiscard]] bool SetColumns(std::string_view text);
};

// "Day/Month/Year", "Month/Day/Year", "Year/Month/Day".
[[nodiscard]] std::string_view DateOrderText(DateOrder order);
[[nodiscard]] std::optional<DateOrder> DateOrderOf(std::string_view text);

// One character, or a tab, which may be written as the word or as \t; nullopt for anything else,
// and for a quote or a line end.
[[nodiscard]] std::optional<std::string> SeparatorOf(std::string_view text);

// What a cell of the sign column says: -1 money out, 1 money in, 0 nothing (an empty cell), nullopt
// when it is no sign. The mapping's own words go before those that banks use.
[[nodiscard]] std::optional<int> SideOf(std::string_view cell, const CsvMapping& mapping);

// The whole mapping and the header that it was made for as one line of text, and back; a text of a
// former version too. nullopt for a text that is no mapping.
struct SavedCsvMapping {
  CsvMapping mapping;
  std::string header;
  std::string encoding = {};  // of the file's text; empty: as the file shows
};
[[nodiscard]] std::string ToText(const SavedCsvMapping& saved);
[[nodiscard]] std::optional<SavedCsvMapping> ReadSavedMapping(std::string_view text);

}  // namespace corvanta::inline exchange
