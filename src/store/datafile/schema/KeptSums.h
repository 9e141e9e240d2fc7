#pragma once

#include "store/sql/Connection.h"

#include <cstdint>
#include <string_view>

namespace corvanta::inline datafile {

// What the data file itself keeps of its whole entries (those with AllocatedItem 0), so that nobody
// has to read them for a sum. Triggers of the file keep it with the rows in one transaction,
// whoever writes them; taking a change back, or a program that is killed, leaves both as they were.
//
// own_KeptSums: by account, month and status how many entries there are (Entries) and what they
// come to (Total, and of it what came in: PaidIn), in whole units of 1 / kSumUnits of the account's
// currency. A sum of whole numbers depends on no order and has no noise. An amount that is no whole
// number of units, to its last bit, is in no sum but counted in Odd: an account that has one is to
// be added up row by row.
// own_KeptCategories: the categories that entries of an account have, or have had since that was
// looked up last; for entries whose category is gone count nowhere. An account with one that is
// gone is to be added up row by row, too.
//
// Both are there together, or neither; a change of the table's layout takes them away until the
// file is opened again.
//
// A version of the program that writes other triggers makes them and the tables anew. Figures of
// another meaning or unit need a table of another name: who only reads goes by the table that is
// there, whichever version has made it.
inline constexpr const char* kEntrySums = "own_KeptSums";
inline constexpr const char* kCategoryUse = "own_KeptCategories";
inline constexpr std::int64_t kSumUnits = 10000;
// The month (YearMonth, "2026-11") of entries without a day.
inline constexpr const char* kNoMonth = "-";

[[nodiscard]] bool IsKeptSums(std::string_view table);

// Makes them where they are missing or of another version of the program. True when the catalog of
// `connection`, which must be idle, is to be read again. Throws StoreError.
bool EnsureKeptSums(const Connection& connection, const DataSource& source, const Clock& clock);

// Counts everything anew, compares, and puts right what is kept otherwise: true then. Throws
// StoreError.
bool RecountKeptSums(const DataSource& source, const Clock& clock);

}  // namespace corvanta::inline datafile
