#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;

namespace corvanta::inline platform {
class Clock;
}

namespace corvanta::inline sql {

struct DataSource;

// What a file that is still being made says of itself: whose place it is to take. It stands in the
// two numbers of the file's header that are free for its owner, so behind the key, in no table, and
// is taken away when the file has the place.
struct CopyMark {
  std::int32_t application = 0;
  std::int32_t version = 0;

  [[nodiscard]] bool operator==(const CopyMark& other) const = default;
};

// The mark of what is to become the data file of that name; never the empty mark of a file that is
// nobody's copy.
[[nodiscard]] CopyMark MarkOf(std::string_view dataFileName);

// Marks a database of the handle. Throws StoreError.
void WriteMark(sqlite3* database, const std::string& schema, const CopyMark& mark,
               const std::string& file);
[[nodiscard]] CopyMark ReadMark(sqlite3* database, const std::string& file);

// Creates an empty data file that carries the mark from its first moment; the path must be free.
// Throws StoreError.
void CreateMarked(const DataSource& source, const Clock& clock, const CopyMark& mark);
// Gives a file that mark in the place of its own. Throws StoreError, Locked while somebody else is
// writing.
void ChangeMark(const DataSource& source, const CopyMark& mark);
// Takes the mark from a file. As this writes to it, a journal that a killed program has left behind
// unfinished is gone afterwards, too. Throws StoreError, Locked while somebody else is writing.
void ClearMark(const DataSource& source);
// The same two where a mark that stays does no harm.
void ChangeMarkQuietly(const DataSource& source, const CopyMark& mark) noexcept;
void ClearMarkQuietly(const DataSource& source) noexcept;

}  // namespace corvanta::inline sql
