// What an import is told beside the file.
#pragma once

#include "exchange/csv/CsvMapping.h"
#include "platform/Locale.h"
#include "platform/NumberStyle.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvanta::inline exchange {

enum class DuplicateAnswer { Ask, Skip, Import };

struct ImportJob {
  std::string path;
  std::int64_t accountId = 0;  // takes records until the file names another; 0 for none
  // The file's own accounts are set aside: all of it goes into that account.
  bool chosenTakesAll = false;
  DuplicateAnswer duplicates = DuplicateAnswer::Ask;
  // Whether what stands before a fault is imported; nullopt asks the person.
  std::optional<bool> keepIncomplete;
  std::optional<DateOrder> dateOrder;      // of a QIF file; nullopt: found from the file
  std::optional<DecimalMark> decimalMark;  // nullopt: found from the file
  CsvMapping csv;                          // of a CSV file, whose dates and marks it says itself
  std::string encoding = {};               // of the file's text; empty: as the file shows
};

}  // namespace corvanta::inline exchange
