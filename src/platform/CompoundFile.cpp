#include "platform/CompoundFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace corvanta::inline platform {
namespace {

constexpr std::size_t kSector = 512;
constexpr std::size_t kInHeader = 109;  // sectors of the allocation table that the header lists
constexpr std::size_t kPerTable = kSector / 4;
constexpr std::size_t kPerList = kPerTable - 1;  // the last place leads to the next list
// Smaller streams would have to stand among other small ones.
constexpr std::size_t kSmallestStream = 4096;
constexpr std::uint32_t kFree = 0xFFFFFFFF;
constexpr std::uint32_t kEnd = 0xFFFFFFFE;
constexpr std::uint32_t kTableMark = 0xFFFFFFFD;
constexpr std::uint32_t kListMark = 0xFFFFFFFC;

std::size_t Pieces(std::size_t count, std::size_t size) {
  return (count + size - 1) / size;
}

void Append(std::string& bytes, std::uint32_t number) {
  AppendNumber(bytes, number, 4);
}

// Where everything stands: the stream, the directory, the allocation table, the lists of the
// table's sectors.
struct Layout {
  std::size_t stream = 0;  // sectors
  std::size_t tables = 0;
  std::size_t lists = 0;

  explicit Layout(std::size_t size) : stream(Pieces(size, kSector)) {
    for (std::size_t before = 1; before != tables + lists;) {
      before = tables + lists;
      tables = Pieces(stream + 1 + tables + lists, kPerTable);
      lists = tables > kInHeader ? Pieces(tables - kInHeader, kPerList) : 0;
    }
  }
  [[nodiscard]] std::size_t Directory() const { return stream; }
  [[nodiscard]] std::size_t FirstTable() const { return stream + 1; }
  [[nodiscard]] std::size_t FirstList() const { return FirstTable() + tables; }
};

std::string HeaderOf(const Layout& layout) {
  std::string bytes = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(16, '\0');
  for (const std::uint64_t number : {0x3EU, 3U, 0xFFFEU, 9U, 6U}) AppendNumber(bytes, number, 2);
  bytes.append(10, '\0');
  Append(bytes, static_cast<std::uint32_t>(layout.tables));
  Append(bytes, static_cast<std::uint32_t>(layout.Directory()));
  Append(bytes, 0);
  Append(bytes, kSmallestStream);
  Append(bytes, kEnd);
  Append(bytes, 0);
  Append(bytes, layout.lists == 0 ? kEnd : static_cast<std::uint32_t>(layout.FirstList()));
  Append(bytes, static_cast<std::uint32_t>(layout.lists));
  for (std::size_t i = 0; i < kInHeader; ++i) {
    Append(bytes, i < layout.tables ? static_cast<std::uint32_t>(layout.FirstTable() + i) : kFree);
  }
  return bytes;
}

void AppendEntry(std::string& bytes, std::string_view name, char type, std::uint32_t child,
                 std::uint32_t start, std::size_t size) {
  const std::size_t begin = bytes.size();
  for (const char c : name) AppendNumber(bytes, static_cast<unsigned char>(c), 2);
  bytes.resize(begin + 64, '\0');
  AppendNumber(bytes, name.empty() ? 0 : 2 * (name.size() + 1), 2);
  bytes += type;
  bytes += '\1';
  Append(bytes, kFree);
  Append(bytes, kFree);
  Append(bytes, child);
  bytes.append(36, '\0');
  Append(bytes, start);
  AppendNumber(bytes, size, 8);
}

std::string DirectoryOf(std::string_view name, std::size_t size) {
  std::string bytes;
  AppendEntry(bytes, "Root Entry", 5, 1, kEnd, 0);
  AppendEntry(bytes, name, 2, kFree, 0, size);
  AppendEntry(bytes, {}, 0, kFree, 0, 0);
  AppendEntry(bytes, {}, 0, kFree, 0, 0);
  return bytes;
}

std::string TablesOf(const Layout& layout) {
  std::vector<std::uint32_t> next(layout.tables * kPerTable, kFree);
  for (std::size_t i = 0; i < layout.stream; ++i) next[i] = static_cast<std::uint32_t>(i + 1);
  next[layout.stream - 1] = kEnd;
  next[layout.Directory()] = kEnd;
  for (std::size_t i = 0; i < layout.tables; ++i) next[layout.FirstTable() + i] = kTableMark;
  for (std::size_t i = 0; i < layout.lists; ++i) next[layout.FirstList() + i] = kListMark;
  std::string bytes;
  for (const std::uint32_t sector : next) Append(bytes, sector);
  return bytes;
}

std::string ListsOf(const Layout& layout) {
  std::string bytes;
  for (std::size_t list = 0; list < layout.lists; ++list) {
    for (std::size_t i = 0; i < kPerList; ++i) {
      const std::size_t table = kInHeader + list * kPerList + i;
      Append(bytes, table < layout.tables ? static_cast<std::uint32_t>(layout.FirstTable() + table)
                                          : kFree);
    }
    const bool isLast = list + 1 == layout.lists;
    Append(bytes, isLast ? kEnd : static_cast<std::uint32_t>(layout.FirstList() + list + 1));
  }
  return bytes;
}

}  // namespace

void AppendNumber(std::string& bytes, std::uint64_t number, int count) {
  for (int i = 0; i < count; ++i) bytes += static_cast<char>((number >> (8 * i)) & 0xFFU);
}

std::string CompoundFileOf(std::string_view name, std::string stream) {
  const std::size_t size = std::max(stream.size(), kSmallestStream);
  stream.resize(Pieces(size, kSector) * kSector, '\0');
  const Layout layout(size);
  return HeaderOf(layout) + stream + DirectoryOf(name, size) + TablesOf(layout) + ListsOf(layout);
}

}  // namespace corvanta::inline platform
